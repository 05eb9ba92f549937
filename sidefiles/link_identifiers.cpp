#include "sidefiles/link_identifiers.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/toolset.h"
#include "sidefiles/book_link.h"
#include "sidefiles/link_list.h"
#include "sidefiles/names.h"
#include "toc/text_form.h"

namespace quorbind {

namespace {

/// The names of the headings that lead to the current one, by level. Begins with room for the
/// levels 0 and 1, and grows by one level at a time.
class HeadingNames {
 public:
  /// Raises 9 for a level further down than one below the deepest so far, and for a negative one.
  void set(std::int16_t level, std::string_view name) {
    if (level > static_cast<std::int64_t>(names_.size()) - 1) {
      names_.emplace_back();
    }
    if (level < 0 || static_cast<std::size_t>(level) >= names_.size()) {
      raise(ErrorNumber::kSubscriptOutOfRange);
    }
    names_[static_cast<std::size_t>(level)] = name;
  }

  [[nodiscard]] std::string linkTo(std::int16_t level, const std::string& bookAcronym) const {
    std::string link = bookAcronym;
    for (std::int16_t each = 1; each <= level; ++each) {
      const std::string_view name = trimBlanks(names_[static_cast<std::size_t>(each)]);
      if (!name.empty()) {
        link.append(kLinkJoint).append(name);
      }
    }
    return link;
  }

 private:
  std::vector<std::string> names_ = std::vector<std::string>(2);
};

/// Records what one line of an export says. Raises 9 for a piece that is missing, 6 and 13 for a
/// level that is no number, and what LinkIdentifierList::record raises.
void recordLine(std::string_view line,
                const std::string& bookAcronym,
                HeadingNames& names,
                LinkIdentifierList& list) {
  const Pieces pieces(line, text_form::kMarker);
  if (pieces.count() < 2) {
    return;
  }
  const std::int16_t level = toInteger16(trimBlanks(pieces.at(text_form::kLevel)));
  names.set(level, pieces.at(text_form::kName));
  const std::string_view bookLink = pieces.at(text_form::kBookLinkValue);
  if (trimBlanks(bookLink) == text_form::kNoBookLink) {
    return;
  }
  const Pieces parts(bookLink, kBookLinkSeparator);
  const std::string identifier(trimBlanks(parts.at(0)));
  const std::string sourceFile(trimBlanks(parts.at(1)));
  list.record(identifier, names.linkTo(level, bookAcronym), sourceFile, bookAcronym);
}

/// The product whose folder a book's folder lies in; empty when there is no such folder.
std::string_view productIn(std::string_view bookFolder) {
  const Pieces parts(bookFolder, "\\");
  for (std::size_t i = 0; i + 1 < parts.count(); ++i) {
    if (parts.at(i) == server_names::kDocsFolder) {
      return parts.at(i + 1);
    }
  }
  return {};
}

std::string linkFileIn(const std::string& folderOfProducts, std::string_view product) {
  return std::string(folderOfProducts).append(product).append("\\").append(link_names::kFile);
}

}  // namespace

void GenerateBookLinkID(const Platform& platform,
                        const ProcessState& state,
                        const std::string& bookAcronym,
                        const std::string& exportPath) {
  trapped(platform.ui, source::kGenerateBookLinkId, [&] {
    LinkIdentifierList list(platform, state);
    TextReader reader(platform.files, platform.locale, exportPath);
    HeadingNames names;
    list.during([&] {
      while (!reader.atEnd()) {
        recordLine(reader.readLine(), bookAcronym, names, list);
      }
    });
  });
}

std::string linkFileBesideBook(const std::string& serverFolder, const std::string& bookFolder) {
  return linkFileIn(serverFolder, productIn(bookFolder));
}

void AddLinkIDInfo(const Platform& platform,
                   const ProcessState& state,
                   const std::string& serverFolder,
                   const std::string& bookFolder) {
  trapped(platform.ui, source::kAddLinkIdInfo, [&] {
    const std::string from = linkFileBesideBook(serverFolder, bookFolder);
    if (platform.files.fileExists(from)) {
      platform.toolset.createLinkFileServices()->MergeLinkIDFiles(
          linkFileIn(serverFolder, state.currentProductName), from);
    }
  });
}

}  // namespace quorbind
