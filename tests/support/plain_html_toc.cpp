#include "tests/support/plain_html_toc.h"

#include <optional>

#include "platform/number.h"
#include "platform/runtime_error.h"
#include "platform/text_encoding.h"

namespace quorbind::testing {

namespace {

/// Positions count characters from 1; 0 is nowhere.
using Text = std::u32string;

Text decoded(std::string_view utf8) {
  Text text;
  while (!utf8.empty()) {
    const Utf8Character character = firstUtf8Character(utf8);
    text.push_back(character.codePoint);
    utf8.remove_prefix(character.length);
  }
  return text;
}

std::string encoded(const Text& text) {
  std::string utf8;
  for (const char32_t character : text) {
    appendUtf8(utf8, character);
  }
  return utf8;
}

/// Of the letters that these tests use.
Text upperCase(Text text) {
  for (char32_t& character : text) {
    const bool isSmall = (character >= U'a' && character <= U'z') || character == U'\u00E4';
    character -= isSmall ? 0x20 : 0;
  }
  return text;
}

std::size_t find(const Text& text, const Text& part, std::size_t from = 1) {
  const std::size_t found = upperCase(text).find(part, from - 1);
  return found == Text::npos ? 0 : found + 1;
}

Text cut(const Text& text, std::size_t from, std::size_t length) {
  return from > text.size() ? Text() : text.substr(from - 1, length);
}

Text replaced(const Text& text, const Text& part, const Text& by) {
  Text result;
  std::size_t at = 0;
  for (std::size_t found = text.find(part); found != Text::npos; found = text.find(part, at)) {
    result += text.substr(at, found - at) + by;
    at = found + part.size();
  }
  return result + text.substr(at);
}

Text trimmed(const Text& text) {
  const std::size_t first = text.find_first_not_of(U' ');
  return first == Text::npos ? Text()
                             : text.substr(first, text.find_last_not_of(U' ') - first + 1);
}

Text removeTags(Text text) {
  for (;;) {
    const std::size_t start = find(text, U"<");
    const std::size_t end = find(text, U">");
    if (start == 0 || end == 0 || end <= start) {
      return trimmed(text);
    }
    text = replaced(text, cut(text, start, end - start + 1), U" ");
  }
}

std::optional<Text> valueBehind(const Text& block, const Text& start) {
  const std::size_t found = find(block, start);
  const std::size_t begin = found + start.size();
  const std::size_t end = found == 0 ? 0 : find(block, U"\"", begin);
  return end == 0 ? std::nullopt : std::optional(cut(block, begin, end - begin));
}

/// The number between a mark and the bracket behind it, unless there is none.
std::optional<std::int16_t> levelBehind(const Text& block, const Text& mark) {
  const std::size_t found = find(block, mark);
  const std::size_t end = found == 0 ? 0 : find(block, U">", found);
  if (end == 0) {
    return std::nullopt;
  }
  const std::size_t begin = found + mark.size();
  try {
    return toInteger16(encoded(cut(block, begin, end - begin)));
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

class PlainCheck {
 public:
  explicit PlainCheck(std::string_view page) : page_(decoded(page)) {}

  HtmlTocOutcome run() {
    exportText_ =
        U"\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\" \"FLinkValue\" "
        U"\"BookLinkValue\"\r\n\r\n";
    outcome_.accepted = checkPage();
    outcome_.exportText = encoded(exportText_);
    return outcome_;
  }

 private:
  bool checkPage() {
    std::size_t start = find(page_, U"<K");
    std::size_t end = find(page_, U"</K");
    if (start == 0 && end == 0) {
      show(U"Error:Book Should Have at least one Heading");
      return false;
    }
    while (start != 0 || end != 0) {
      if (!checkTags(start, end)) {
        return false;
      }
      const Text block = cut(page_, start, end - start + 5);
      if (!checkBlock(block)) {
        return false;
      }
      page_ = replaced(page_, block, U" ");
      start = find(page_, U"<K");
      end = find(page_, U"</K");
      if (end != 0) {
        const std::size_t bracket = find(page_, U">", end);
        end = bracket == 0 ? end : bracket - 4;
      }
    }
    return true;
  }

  bool checkTags(std::size_t start, std::size_t end) {
    if (start != 0 && end != 0 && start <= end) {
      return true;
    }
    if (end != 0) {
      const Text tag = tagAt(end);
      report(U"End Tag " + tag + U" Does Not Have a Start Tag", tag);
    } else {
      const Text tag = tagAt(start);
      report(U"Start Tag " + tag + U" Does Not Have a End Tag", tag);
    }
    return false;
  }

  Text tagAt(std::size_t position) const {
    const std::size_t end = find(page_, U">", position);
    return upperCase(cut(page_, position, end == 0 ? Text::npos : end - position + 1));
  }

  bool checkBlock(const Text& block) {
    const auto level = checkLevel(block);
    if (!level) {
      return false;
    }
    const auto path = valueBehind(block, U"HREF=\"");
    if (!path) {
      return refuse(block, U"Error:File Path information is missing");
    }
    takePath(*path);
    const Text title = removeTags(block);
    const Text link = valueBehind(block, U"FLINKVALUE=\"").value_or(U"#NoLink#");
    const Text bookLink = bookLinkIn(block);
    if (title.empty()) {
      return refuse(block, U"Error:File Title Information is missing");
    }
    if (find(title, U"<") != 0 || find(title, U">") != 0) {
      return refuse(block, U"Error: Invalid HMTL Content");
    }
    for (const Text& field : {decoded(std::to_string(*level + 1)), title, file_, bookmark_, link}) {
      exportText_ += U"$@@$" + field + U"$@@$ ";
    }
    exportText_ += U"$@@$" + bookLink + U"$@@$\r\n";
    return true;
  }

  std::optional<std::int16_t> checkLevel(const Text& block) {
    const auto startLevel = levelBehind(block, U"<K");
    if (!startLevel) {
      refuse(block, U"Error:Not Valid Begining and End Tags");
      return std::nullopt;
    }
    const auto endLevel = levelBehind(block, U"</K");
    if (!endLevel) {
      show(U"Error:Not Valid Begining and End Tags");
      return std::nullopt;
    }
    const char32_t* error = *startLevel != *endLevel ? U"Error:Start and End Tag does not match "
                            : *startLevel <= 0       ? U"Error:Heading level should be positive "
                            : *startLevel - outcome_.lastLevel > 1
                                ? U"Error:Heading Tag does not follow sequence "
                                : nullptr;
    if (error != nullptr) {
      refuse(block, error);
      return std::nullopt;
    }
    outcome_.lastLevel = *startLevel;
    return startLevel;
  }

  void takePath(const Text& path) {
    if (path.empty()) {
      return;
    }
    const std::size_t sign = path.find(U'#');
    file_ = path.substr(0, sign);
    bookmark_.clear();
    if (sign != Text::npos) {
      const std::size_t next = path.find(U'#', sign + 1);
      bookmark_ = path.substr(sign, next - sign);
    }
    outcome_.missingFiles.push_back(encoded(path));
  }

  Text bookLinkIn(const Text& block) {
    const std::size_t start = find(block, U"<IBD>");
    const std::size_t end = start == 0 ? 0 : find(block, U"</IBD>", start + 6);
    if (end == 0) {
      return U"#NO_BOOKLINK#";
    }
    if (end < start + 7) {
      show(
          U"Error(5): Invalid procedure call or argument\r"
          U"Quorbind: Quor_Book::mstrCheckBookLink");
      return {};
    }
    return cut(block, start + 6, end - start - 7) + U"@@@" + replaced(file_, U"/", U"\\") +
           bookmark_;
  }

  bool refuse(const Text& block, const Text& error) {
    report(U"Line: " + block + U"\r" + error, block);
    return false;
  }
  void report(const Text& message, const Text& offending) {
    show(message);
    outcome_.record.push_back("clipboard: " + encoded(offending));
  }
  void show(const Text& message) { outcome_.record.push_back("critical: " + encoded(message)); }

  Text page_;
  Text exportText_;
  Text file_;
  Text bookmark_;
  HtmlTocOutcome outcome_;
};

}  // namespace

HtmlTocOutcome checkHeadingsPlainly(std::string_view page) {
  return PlainCheck(page).run();
}

std::string removeTagsPlainly(std::string_view text) {
  return encoded(removeTags(decoded(text)));
}

}  // namespace quorbind::testing
