#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/cli/command_test.h"
#include "tests/support/catalogue_text.h"

namespace quorbind::testing {

/// A server with the library `Plant`, whose files are UTF-8 and laid out as a save lays them out:
/// the books Alarms (ALM, with a book file of one heading) and `kMarkupName` (MRK, without one).
class LibraryTest : public CommandTest {
 protected:
  /// A name with each of the characters that are special in XML.
  static constexpr const char* kMarkupName = "A & B < C > D \" E ' F";
  /// How it stands in a file.
  static constexpr const char* kMarkupInXml =
      "A &amp;amp; B &amp;lt; C &amp;gt; D &amp;quot; E &amp;apos; F";

  static constexpr const char* kCatalogue = "server/Docs/Plant/Quor_TOC.xml";
  static constexpr const char* kBookFile = "server/Docs/Plant/Manual/Book_ALM.xml";
  static constexpr const char* kCategories = "server/Docs/Plant/Quor_BookCategories.xml";
  static constexpr const char* kKeywords = "server/Docs/Plant/Quor_SearchKeywords.xml";
  static constexpr const char* kLinks = "server/Docs/Plant/Quor_LinkID.xml";

  void SetUp() override {
    initLibrary();
    disk.write(kCatalogue,
               catalogueWith(bookEntry("Alarms", "ALM") + bookEntry(kMarkupInXml, "MRK")));
    disk.write(kBookFile, bookFileOf("Alarms", "ALM"));
    disk.write("server/Docs/Plant/Manual/alarms.htm", "<p>text</p>");
  }

  /// Runs a subcommand in the library.
  [[nodiscard]] Outcome inPlant(const Words& words) const { return quorbind(plantWords(words)); }
  [[nodiscard]] static Words plantWords(const Words& words) {
    return joined(words, {"--server", "server", "--library", "Plant"});
  }

  /// A file of the disk with LF line ends; one in UTF-16 as UTF-8.
  [[nodiscard]] std::string text(const std::string& name) const {
    const std::string bytes = disk.read(name);
    const bool isUtf16 = bytes.starts_with("\xFF\xFE");
    return replaceAll(isUtf16 ? fromUtf16File(bytes) : bytes, "\r\n", "\n");
  }

  static std::string bookFileOf(std::string_view name,
                                std::string_view acronym,
                                std::string_view link = "",
                                std::string_view categories = "\t\t<Book_Categories/>\n") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<Book_Master>\n"
           "\t<Book>\n"
           "\t\t<Book_Name>" +
           std::string(name) +
           "</Book_Name>\n"
           "\t\t<Book_Acro>" +
           std::string(acronym) +
           "</Book_Acro>\n"
           "\t\t<Book_Key id=\"" +
           std::string(link) + "\">Plant</Book_Key>\n" + std::string(categories) +
           "\t</Book>\n"
           "\t<Book_Headings>\n"
           "\t\t<Heading level=\"H1\" type=\"htm\">\n"
           "\t\t\t<HName>Alarms</HName>\n"
           "\t\t\t<HFile>alarms.htm</HFile>\n"
           "\t\t</Heading>\n"
           "\t</Book_Headings>\n"
           "</Book_Master>\n";
  }

  static std::string categoriesFile(std::string_view categories) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<BookSet_Categories>\n" +
           std::string(categories) + "</BookSet_Categories>\n";
  }
  static std::string category(std::string_view name, std::string_view acronym = "") {
    return "\t<Category>\n\t\t<CategoryName>" + std::string(name) + "</CategoryName>\n" +
           (acronym.empty() ? "" : "\t\t<BookAcro>" + std::string(acronym) + "</BookAcro>\n") +
           "\t</Category>\n";
  }

  static std::string keywordsFile(std::string_view books) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Books>\n" + std::string(books) +
           "</Books>\n";
  }
  static std::string keywordsOf(std::string_view book, const Words& words) {
    std::string text = "\t<Book Book_Name=\"" + std::string(book) + "\">\n\t\t<Keywords>\n";
    for (const std::string& word : words) {
      text += "\t\t\t<Keyword>" + word + "</Keyword>\n";
    }
    return text + "\t\t</Keywords>\n\t</Book>\n";
  }

  static std::string linksFile(std::string_view links) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<LINKS>\n\t<IBD>\n" + std::string(links) +
           "\t</IBD>\n</LINKS>\n";
  }
  static std::string link(std::string_view identifier,
                          std::string_view fullLink,
                          std::string_view source,
                          std::string_view acronym) {
    return "\t\t<ID>\n\t\t\t<LinkID>" + std::string(identifier) + "</LinkID>\n\t\t\t<FullLink>" +
           std::string(fullLink) + "</FullLink>\n\t\t\t<LinkIDSourceFile>" + std::string(source) +
           "</LinkIDSourceFile>\n\t\t\t<BookAcro>" + std::string(acronym) +
           "</BookAcro>\n\t\t</ID>\n";
  }

  /// A change of a file, whose name is the one below the test's folder.
  struct FileChange {
    std::string kind;
    std::string file;
    std::string to = {};  ///< of a move
  };

  /// The object that tells of a change that is done, or of one that a dry run would do.
  static std::string changeObject(std::string_view summary,
                                  const std::vector<FileChange>& changes,
                                  bool isDryRun = false) {
    std::string text = "{\n  \"format\": 1,\n  \"status\": 0,\n";
    text += isDryRun ? "  \"done\": false,\n  \"dryRun\": true,\n"
                     : "  \"done\": true,\n  \"dryRun\": false,\n";
    text.append("  \"summary\": \"").append(summary).append("\",\n  \"changes\": [");
    std::string_view separator = "\n";
    for (const FileChange& change : changes) {
      text.append(separator).append("    {\n      \"change\": \"" + change.kind + "\",\n");
      text += "      \"file\": \"DISK/" + change.file + "\"";
      text += change.to.empty() ? "" : ",\n      \"to\": \"DISK/" + change.to + "\"";
      text += "\n    }";
      separator = ",\n";
    }
    return text + "\n  ],\n  \"messages\": []\n}\n";
  }
  static std::string changeObject(std::string_view summary, const char* written) {
    return changeObject(summary, {{"write", written}});
  }

  /// Runs a subcommand that is refused, and expects these errors, with nothing changed anywhere.
  void expectRefusal(const Words& words, int status, const std::string& errors) const {
    const Tree before = disk.contents();
    const Outcome outcome = inPlant(words);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, errors);
    EXPECT_EQ(disk.contents(), before);
  }
};

}  // namespace quorbind::testing
