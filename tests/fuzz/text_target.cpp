// Bytes as a text table of contents: its lines, its rules, its check, and the book file that is
// generated from it.

#include <algorithm>
#include <string>
#include <vector>

#include "bookxml/toc_to_xml.h"
#include "platform/runtime_error.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/fuzzed_library.h"
#include "tests/fuzz/targets.h"
#include "toc/toc_check.h"

namespace quorbind::testing {

namespace {

constexpr const char* kToc = "in/input.txt";
constexpr const char* kBook = "in/Book_FUZ.xml";

/// The lines of a text, by the rule as it is told.
std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (end != std::string_view::npos && line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    lines.emplace_back(line);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

void claimLinesMakeTheText(const Platform& platform) {
  const std::string path = componentPath(kToc);
  const std::string text = TextReader(platform.files, platform.locale, path).readAll();
  claim(isValidUtf8(text), "a text is UTF-8");
  std::vector<std::string> lines;
  for (TextReader reader(platform.files, platform.locale, path); !reader.atEnd();) {
    lines.emplace_back(reader.readLine());
  }
  claim(lines == linesOf(text), "the lines of a file are those of its text");
}

/// Holds every entry that is accepted against the rules of levels.
class LevelRules final : public TextTocListener {
 public:
  bool entry(const TextTocLine& line, const Pieces& pieces) override {
    const std::int16_t before = level_;
    TextTocEntry entry;
    if (checkTextEntry(line.text, pieces, level_, entry)) {
      return false;
    }
    claim(entry.level != 0 && entry.level <= before + 1, "a level is at most one deeper");
    claim(entry.level != 1 || isFirst_, "the first entry alone is of level 1");
    claim(!entry.name.empty(), "an accepted entry has a name");
    isFirst_ = false;
    return true;
  }
  void refused(const TextTocLine& /*line*/, const TocViolation& violation) override {
    claim(!violation.message.empty(), "a refusal says why");
  }

 private:
  std::int16_t level_ = 0;
  bool isFirst_ = true;
};

bool isAcceptedByTheRules(const Platform& platform, LevelRules& rules) {
  TextReader reader(platform.files, platform.locale, componentPath(kToc));
  try {
    return walkTextToc(reader, rules);
  } catch (const RunTimeError& error) {
    claim(error.is(ErrorNumber::kInputPastEndOfFile), "only the end of the file ends a walk");
    return false;
  }
}

void claimBookFileIsGenerated(FuzzedLibrary& library) {
  Module module(library.platform());
  CTOCToXML(module).mstrGenerateXMLFromTOC(
      componentPath(kToc), componentPath(library_file::kCatalogue), "Fuzz", "FUZ", "", "Plant");
  const auto document = library.platform().xml.createDocument();
  if (!library.files().has(kBook) || !claimLoads(*document, componentPath(kBook))) {
    return;
  }
  claim(document->elementsByName("HName").size() <= document->elementsByName("Heading").size(),
        "a heading has one name at most");
  claimSavesAsItIs(library.files(), *document, kBook);
}

}  // namespace

void fuzzText(std::string_view bytes) {
  FuzzedLibrary& library = FuzzedLibrary::restored();
  library.files().write(kToc, bytes);
  claimLinesMakeTheText(library.platform());

  LevelRules rules;
  const bool isAccepted = isAcceptedByTheRules(library.platform(), rules);
  Module module(library.platform());
  claim(TocCheck(module).mbValidateTextToc(componentPath(kToc)) == isAccepted,
        "the check answers what the rules say");
  claimBookFileIsGenerated(library);
  library.claimIsWhole();
}

}  // namespace quorbind::testing
