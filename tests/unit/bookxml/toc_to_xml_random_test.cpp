// The generator of book files, which writes while it reads, against one that makes the tree of
// headings first and prints it then.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <regex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bookxml/toc_to_xml.h"
#include "platform/text.h"
#include "tests/support/memory_files.h"
#include "tests/support/random_choices.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using Texts = std::vector<std::string>;

/// What a generation leaves behind.
struct Generated {
  std::string folder;
  /// The book file, as UTF-8.
  std::string file;
  Texts record;

  bool operator==(const Generated&) const = default;
};

void PrintTo(const Generated& generated, std::ostream* stream) {
  *stream << generated.folder << ", " << ::testing::PrintToString(generated.record) << "\n"
          << generated.file;
}

struct BookArguments {
  std::string name;
  std::string acronym;
  std::string file;
  std::string product;
};

/// One heading; nothing for what its line lacks.
struct PlainHeading {
  int level = 0;
  std::optional<std::string> type;
  std::optional<std::string> name;
  std::optional<std::string> link;
  std::optional<std::string> file;
  std::optional<std::string> bookmark;
  std::deque<PlainHeading> headings;
};

Texts cutAt(std::string text, const std::string& separator) {
  Texts pieces;
  for (std::size_t at = text.find(separator); at != std::string::npos; at = text.find(separator)) {
    pieces.push_back(text.substr(0, at));
    text = text.substr(at + separator.size());
  }
  pieces.push_back(text);
  return pieces;
}

/// As names are stored: with the entities of XML, but for those that stand there already.
std::string stored(const std::string& name) {
  static const std::regex lonelyAmpersand("&(?!amp;|lt;|gt;|quot;|apos;)");
  std::string text = std::regex_replace(name, lonelyAmpersand, "&amp;");
  text = replaceAll(replaceAll(text, "<", "&lt;"), ">", "&gt;");
  return replaceAll(replaceAll(text, "\"", "&quot;"), "'", "&apos;");
}

std::string asText(const std::string& value) {
  std::string text = replaceAll(replaceAll(value, "&", "&amp;"), "<", "&lt;");
  text = replaceAll(replaceAll(text, ">", "&gt;"), "\r", "&#13;");
  return replaceAll(replaceAll(text, "\x01", "\uFFFD"), "\uFFFF", "\uFFFD");
}

std::string asAttribute(const std::string& value) {
  return replaceAll(replaceAll(asText(value), "\"", "&quot;"), "\t", "&#9;");
}

/// Prints elements one below the other.
class PlainPrinter {
 public:
  void line(std::size_t depth, const std::string& text) {
    text_ += std::string(depth, '\t') + text + "\r\n";
  }
  void element(std::size_t depth, const std::string& tag, const std::string& text) {
    const std::string name = tag.substr(0, tag.find(' '));
    line(depth,
         text.empty() ? "<" + tag + "/>" : "<" + tag + ">" + asText(text) + "</" + name + ">");
  }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

std::string attributeOf(const char* name, const std::optional<std::string>& value) {
  return value ? std::string(" ") + name + "=\"" + asAttribute(*value) + "\"" : "";
}

/// The rules as they are told, over the text of a whole table.
class PlainGenerator {
 public:
  PlainGenerator(std::string table, BookArguments book)
      : lines_(cutAt(std::move(table), "\n")), book_(std::move(book)) {
    if (lines_.back().empty()) {
      lines_.pop_back();
    }
    for (std::string& line : lines_) {
      line.resize(line.size() - (line.ends_with('\r') ? 1 : 0));
    }
  }

  Generated run() {
    const std::string folder = folderOfBook();
    makeTree();
    PlainPrinter printer;
    printer.line(0, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>");
    for (const char* comment : {"Quorbind Documentation Tools, Library Tools Group",
                                "Library Tools Group, Authoring Tools",
                                "Quor Book Data File ",
                                "1/2/2026 3:04:05 PM",
                                "Version 0.1 ",
                                "Information 'quorbind@example.com'"}) {
      printer.line(0, "<!--" + std::string(comment) + "-->");
    }
    printer.line(0, "<Book_Master>");
    printBook(printer, folder);
    printer.line(1, root_.headings.empty() ? "<Book_Headings/>" : "<Book_Headings>");
    printHeadings(printer, root_, 2);
    if (!root_.headings.empty()) {
      printer.line(1, "</Book_Headings>");
    }
    printer.line(0, "</Book_Master>");
    return {folder, printer.text(), record_};
  }

 private:
  static constexpr const char* kRemembered = "Remembered";

  [[nodiscard]] std::string folderOfBook() const {
    const std::string entry = lines_[std::min<std::size_t>(lines_.size(), 3) - 1];
    const Texts pieces = cutAt(replaceAll(entry, "/", "\\"), "$@@$");
    const bool isStated = pieces.size() > 5 && pieces[5].find('\\') != std::string::npos;
    return isStated ? pieces[5].substr(0, pieces[5].find('\\')) : kRemembered;
  }

  /// Nothing for what is no number. The tests write no other ones.
  static std::optional<int> levelOf(const Texts& pieces) {
    static const std::regex number("-?[0-9]+");
    const bool isNumber = pieces.size() > 1 && std::regex_match(pieces[1], number);
    return isNumber ? std::optional(std::stoi(pieces[1])) : std::nullopt;
  }

  /// Up to the first heading an error ends everything; behind it, it costs what it is in.
  void makeTree() {
    std::vector<PlainHeading*> open;
    int stepsUp = 0;
    int lastLevel = 0;
    bool isBehindHeading = false;
    const std::size_t first = lines_.size() > 2 && lines_[1].empty() ? 2 : 1;
    for (std::size_t i = first; i < lines_.size(); ++i) {
      if (lines_[i].empty()) {
        continue;
      }
      const Texts pieces = cutAt(lines_[i], "$@@$");
      const std::optional<int> level = levelOf(pieces);
      if (isBehindHeading) {
        stepsUp = level ? lastLevel - *level : stepsUp;
        for (int step = 0; step <= stepsUp && !open.empty(); ++step) {
          open.pop_back();
        }
        isBehindHeading = false;
      }
      const bool isFirst = root_.headings.empty();
      if (isFirst && !level) {
        return reportHeadings(pieces.size() > 1 ? "Error(13): Type mismatch"
                                                : "Error(9): Subscript out of range");
      }
      if (!level || *level == 1) {
        continue;
      }
      if (isFirst && pieces.size() <= 5) {
        return reportHeadings("Error(9): Subscript out of range");
      }
      PlainHeading& parent = open.empty() ? root_ : *open.back();
      parent.headings.push_back(headingOf(*level, pieces));
      open.push_back(&parent.headings.back());
      lastLevel = *level;
      isBehindHeading = true;
    }
  }

  PlainHeading headingOf(int level, const Texts& pieces) {
    PlainHeading heading;
    heading.level = level;
    if (pieces.size() > 5) {
      const std::string file = replaceAll(pieces[5], "/", "\\");
      if (file.empty()) {
        show("Error(9): Subscript out of range\rQuorbind:CTOCToXML::mGenerateTypeAttribute");
      } else {
        heading.type = cutAt(file, ".").size() > 1 ? cutAt(file, ".").back() : "none";
      }
      heading.file = cutAt(file, "\\").size() > 1 ? cutAt(file, "\\")[1] : file;
    }
    if (pieces.size() > 3) {
      heading.name = stored(pieces[3]);
    }
    if (pieces.size() > 9 && pieces[9] != "#NoLink#") {
      heading.link = pieces[9];
    }
    if (pieces.size() > 7 && !pieces[7].empty()) {
      heading.bookmark = pieces[7];
    }
    return heading;
  }

  void printBook(PlainPrinter& printer, const std::string& folder) const {
    printer.line(1, "<Book>");
    printer.element(2, "Book_Name", stored(book_.name));
    printer.element(2, "Book_Acro", stored(book_.acronym));
    printer.element(2, "Book_Key id=\"\"", book_.product);
    printer.element(2, "Book_Path", book_.product + (folder.empty() ? "" : "\\" + folder));
    printer.element(2, "Book_BuildDate", "1/2/2026 3:04:05 PM");
    if (!book_.file.empty()) {
      printer.element(
          2, "Book_File" + attributeOf("type", cutAt(book_.file, ".").back()), book_.file);
    }
    printer.element(2, "Book_Categories", "");
    printer.line(1, "</Book>");
  }

  static void printHeadings(PlainPrinter& printer, const PlainHeading& parent, std::size_t depth) {
    for (const PlainHeading& heading : parent.headings) {
      const bool isEmpty = !heading.name && !heading.file && heading.headings.empty();
      printer.line(depth,
                   "<Heading level=\"H" + std::to_string(heading.level - 1) + "\"" +
                       attributeOf("type", heading.type) + (isEmpty ? "/>" : ">"));
      if (heading.name) {
        printer.element(
            depth + 1, "HName" + attributeOf("FLinkValue", heading.link), *heading.name);
      }
      if (heading.file) {
        printer.element(
            depth + 1, "HFile" + attributeOf("BookMark", heading.bookmark), *heading.file);
      }
      printHeadings(printer, heading, depth + 1);
      if (!isEmpty) {
        printer.line(depth, "</Heading>");
      }
    }
  }

  void reportHeadings(const std::string& error) {
    show(error + "\rQuorbind:CTOCToXML::mGenerateBookHeadings");
  }
  void show(const std::string& message) { record_.push_back("critical: " + message); }

  Texts lines_;
  BookArguments book_;
  PlainHeading root_;
  Texts record_;
};

class RandomBookXml : public ::testing::Test {
 protected:
  void compare(const std::string& table) {
    const BookArguments book{hardText(), "PST", random_.oneOf(kBookFiles), hardText()};
    files_.write("in/toc.txt", random_.oneIn(2) ? utf16File(table) : table);
    world_.user.forget();
    module_.state.rememberedBookFolder = "Remembered";
    Generated generated;
    generated.folder = CTOCToXML(module_).mstrGenerateXMLFromTOC(
        "C:\\in\\toc.txt", "", book.name, book.acronym, book.file, book.product);
    generated.file = fromUtf16File(files_.read("in/Book_PST.xml"));
    generated.record = world_.user.record();
    EXPECT_EQ(generated, PlainGenerator(table, book).run()) << table;
  }

  /// A table of `entries` behind its first three lines, levels as `nextLevel` has them.
  template <typename NextLevel>
  std::string table(std::size_t entries, NextLevel&& nextLevel) {
    const std::string lineEnd = random_.oneIn(2) ? "\r\n" : "\n";
    std::string text = "header" + lineEnd + (random_.oneIn(3) ? entry("1") : "") + lineEnd;
    text += lineOf({"1", hardText(), random_.oneOf(kMainFiles), "", "#NoLink#", ""});
    for (std::size_t i = 0; i < entries; ++i) {
      text += lineEnd + entry(nextLevel());
    }
    return text + (random_.oneIn(2) ? lineEnd : "");
  }

  /// One level deeper at most, and up by any number of levels.
  std::string lawfulLevel() {
    constexpr std::size_t kDeepest = 7;
    level_ = std::min(2 + random_.below(level_), kDeepest);
    return std::to_string(level_);
  }

  std::string lineOf(const Texts& fields) {
    std::string line;
    for (const std::string& field : fields) {
      line.append(line.empty() ? "" : " ").append("$@@$").append(field).append("$@@$");
    }
    return line;
  }

  /// An entry whose marks may stop early.
  std::string shortEntry() {
    Texts fields{std::to_string(random_.below(5)), hardText(), "a.htm", "#b", "F", "l"};
    fields.resize(random_.below(fields.size()));
    return random_.oneIn(4) ? "no marks" : lineOf(fields);
  }

  RandomChoices random_{20260102};

 private:
  const Texts kBookFiles{"", "report.pdf", "a.b\\c & d", "noExtension", "\xC3\xA4.\"q\""};
  const Texts kMainFiles{"Manual\\c.htm", "Man ual/deep/c.htm", "cover.htm", "", "\\c.htm"};

  std::string hardText() {
    return random_.textOf({"Pump",
                           " ",
                           "&",
                           "&amp;",
                           "&lt;",
                           "<",
                           ">",
                           "\"",
                           "'",
                           "\xC3\xA4",
                           "\xF0\x9F\x92\xA7",
                           "\x01",
                           "\uFFFF",
                           "\r",
                           "\t",
                           "]]>",
                           "$",
                           "@@"},
                          random_.below(5)) +
           "x";
  }

  std::string entry(const std::string& level) {
    const std::string file = random_.textOf(
        {"a", ".htm", "\\", "/", ".", "#t", "&", "\"", "Docs\\intro.htm"}, random_.below(4));
    return lineOf({level,
                   random_.oneIn(5) ? "" : hardText(),
                   file,
                   random_.oneIn(2) ? "" : "#" + hardText(),
                   random_.oneIn(2) ? "#NoLink#" : random_.textOf({"", "F7", "\"", "\t"}, 2),
                   "#NO_BOOKLINK#"});
  }

  std::size_t level_ = 1;
  World world_;
  MemoryFiles files_;
  Module module_{Platform{files_,
                          world_.platform().xml,
                          world_.platform().ui,
                          world_.platform().toolset,
                          world_.locale,
                          world_.platform().spreadsheets}};
};

TEST_F(RandomBookXml, OfLawfulLevelsIsThePrintedTree) {
  for (int round = 0; round < 200 && !HasFailure(); ++round) {
    compare(table(random_.below(20), [this] { return lawfulLevel(); }));
  }
}

TEST_F(RandomBookXml, OfAnyLevelsIsThePrintedTree) {
  const Texts levels{"1", "2", "3", "4", "9", "0", "-4", "word", "32767"};
  for (int round = 0; round < 200 && !HasFailure(); ++round) {
    const std::size_t known = 3 + random_.below(levels.size() - 2);
    compare(table(random_.below(12), [&] { return levels[random_.below(known)]; }));
  }
}

TEST_F(RandomBookXml, OfLinesThatLackSomethingIsThePrintedTree) {
  for (int round = 0; round < 200 && !HasFailure(); ++round) {
    std::string text = table(random_.below(3), [this] { return lawfulLevel(); });
    for (std::size_t count = random_.below(6); count > 0; --count) {
      text += "\n" + (random_.oneIn(3) ? "" : shortEntry());
    }
    compare(text);
  }
}

/// Longer than what is read and written at a time.
TEST_F(RandomBookXml, OfThousandsOfEntriesIsThePrintedTree) {
  compare(table(1'500, [this] { return lawfulLevel(); }));
}

TEST_F(RandomBookXml, OfFewLinesIsThePrintedTree) {
  for (const char* text : {"header", "header\n", "header\r\n\r\n", "header\n\n\n"}) {
    compare(text);
  }
}

}  // namespace
}  // namespace quorbind::testing
