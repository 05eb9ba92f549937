#include <gmock/gmock.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>

#include "tests/cli/command_test.h"
#include "tests/cli/open_toolbox.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/small_disk.h"
#include "tests/support/workbook_bytes.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::Not;

/// The command as a user who may read everything below the folder and write what a test allows.
class WithoutPermission : public CommandTest {
 protected:
  void SetUp() override {
    if (geteuid() != 0) {
      GTEST_SKIP() << "only root can run a command as another user";
    }
    initLibrary();
    writeBook();
    fs::permissions(disk.path(), fs::perms::others_all, fs::perm_options::add);
    fs::permissions(disk.path() / "Manual", fs::perms::others_all, fs::perm_options::add);
  }

  [[nodiscard]] Outcome quorbindAsNobody(const Words& arguments) const {
    return runHere(asNobody(joined({toolbox_.executable()}, arguments)));
  }

  void allow(const std::string& name) const {
    for (const auto& entry : fs::recursive_directory_iterator(disk.path() / name)) {
      fs::permissions(entry.path(), fs::perms::others_all, fs::perm_options::add);
    }
    fs::permissions(disk.path() / name, fs::perms::others_all, fs::perm_options::add);
  }
  void forbid(const std::string& name) const {
    fs::permissions(disk.path() / name, fs::perms::others_write, fs::perm_options::remove);
  }

  /// The cases below prove nothing unless a plain write, or a plain read, is refused, too.
  void expectThatAPlainWriteIsRefused(const std::string& name) const {
    ASSERT_NE(runHere(asNobody({"touch", name})).status, 0) << name;
  }

  void expectThatAPlainReadIsRefused(const std::string& name) const {
    ASSERT_NE(runHere(asNobody({"cat", name})).status, 0) << name;
  }

  [[nodiscard]] Outcome addAsNobody(const Words& more = {}) const {
    return quorbindAsNobody(addWords(asAlarms(more)));
  }

  /// Runs the command, and expects it to be refused so, with nothing changed anywhere.
  Outcome expectRefusal(const Words& arguments, int status, const std::string& errors) const {
    const Tree before = disk.contents();
    Outcome outcome = quorbindAsNobody(arguments);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.err, errors);
    EXPECT_EQ(disk.contents(), before);
    return outcome;
  }

 private:
  OpenToolbox toolbox_;
};

TEST_F(WithoutPermission, ALibraryFolderThatCanNotBeWritten) {
  expectThatAPlainWriteIsRefused("server/Docs/Plant/new");
  expectRefusal(
      addWords(asAlarms()),
      5,
      "critical: DISK/server/Docs/Plant/Quor_TOC.xml: Permission denied\n"
      "quorbind: toc.txt: DISK/server/Docs/Plant/Quor_TOC.xml could not be written; nothing "
      "was added\n");
}

TEST_F(WithoutPermission, ACatalogueThatCanNotBeWritten) {
  allow("server");
  forbid("server/Docs/Plant/Quor_TOC.xml");
  expectThatAPlainWriteIsRefused("server/Docs/Plant/Quor_TOC.xml");
  expectRefusal(
      addWords(asAlarms()),
      5,
      "critical: DISK/server/Docs/Plant/Quor_TOC.xml: Permission denied\n"
      "quorbind: toc.txt: DISK/server/Docs/Plant/Quor_TOC.xml could not be written; nothing "
      "was added\n");
}

TEST_F(WithoutPermission, ABookFolderThatCanNotBeWrittenLeavesTheCatalogueAsItWas) {
  disk.makeFolder("server/Docs/Plant/Manual");
  allow("server");
  forbid("server/Docs/Plant/Manual");
  expectThatAPlainWriteIsRefused("server/Docs/Plant/Manual/new");
  const Outcome outcome = expectRefusal(
      addWords(asAlarms({"--json"})),
      5,
      "quorbind: toc.txt: DISK/server/Docs/Plant/Manual/Book_ALM.xml could not be written; "
      "nothing was added\n");
  EXPECT_NE(outcome.out.find("\"note\": \"DISK/server/Docs/Plant/Manual/Book_ALM.xml could not be "
                             "written; nothing was added\""),
            std::string::npos)
      << outcome.out;
}

TEST_F(WithoutPermission, ASideFileThatCanNotBeWrittenLeavesEverythingAsItWas) {
  disk.write("server/Docs/Plant/Quor_SearchKeywords.xml", "<Books/>");
  allow("server");
  for (const auto& [flag, file] :
       {std::pair{"--keywords", "server/Docs/Plant/Quor_SearchKeywords.xml"},
        {"--categories", "server/Docs/Plant/Quor_BookCategories.xml"}}) {
    forbid(file);
    expectThatAPlainWriteIsRefused(file);
    const Tree before = disk.contents();
    const Outcome outcome = addAsNobody({flag, "alarm"});
    EXPECT_EQ(outcome.status, 5);
    EXPECT_EQ(outcome.err,
              std::string("critical: DISK/") + file +
                  ": Permission denied\nquorbind: toc.txt: DISK/" + file +
                  " could not be written; nothing was added\n");
    EXPECT_EQ(disk.contents(), before);
  }
}

TEST_F(WithoutPermission, AFolderOfTheTableThatCanNotBeWritten) {
  allow("server");
  forbid(".");
  expectThatAPlainWriteIsRefused("new");
  expectRefusal(addWords(asAlarms()),
                5,
                "critical: DISK/: Permission denied\n"
                "quorbind: toc.txt: DISK/ could not be written; nothing was added\n");
}

TEST_F(WithoutPermission, AFolderOfAPageThatCanNotBeWritten) {
  disk.write("toc.htm", "<K1><A HREF=\"Manual/a.htm\">A</A><IBD><A1></IBD></K1>");
  allow("server");
  forbid(".");
  expectThatAPlainWriteIsRefused("new");
  expectRefusal(addFileWords("toc.htm", asAlarms()),
                5,
                "critical: DISK/: Permission denied\n"
                "quorbind: toc.htm: DISK/ could not be written; nothing was added\n");
}

TEST_F(WithoutPermission, ABookFilesPlaceThatCanNotBeWritten) {
  disk.write(
      "book.xml",
      "<Book_Master><Book><Book_Name>A</Book_Name><Book_Acro>ALM</Book_Acro>"
      "<Book_Key/><Book_Path>P\\Manual</Book_Path></Book><HFile>a.htm</HFile></Book_Master>");
  disk.makeFolder("server/Docs/Plant/Manual");
  allow("server");
  forbid("server/Docs/Plant/Manual");
  expectThatAPlainWriteIsRefused("server/Docs/Plant/Manual/new");
  const std::vector<std::string> before = filesBelow("");
  const Outcome outcome =
      quorbindAsNobody({"add", "book.xml", "--server", "server", "--library", "Plant"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err,
            "quorbind: book.xml: DISK/server/Docs/Plant/Manual/Book_ALM.xml could not be written; "
            "nothing was added\n");
  EXPECT_EQ(filesBelow(""), before);
}

TEST_F(WithoutPermission, AFolderOfAPreparedTableThatCanNotBeWritten) {
  ASSERT_EQ(quorbind({"prepare", "toc.txt", "-o", "prepared.txt"}).status, 0);
  disk.write("toc.txt", disk.read("prepared.txt"));
  allow("server");
  forbid(".");
  expectThatAPlainWriteIsRefused("new");
  const Tree before = disk.contents();
  const Outcome outcome = addAsNobody();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_TRUE(outcome.err.ends_with(
      "quorbind: toc.txt: DISK/Book_ALM.xml could not be written; nothing was added\n"))
      << outcome.err;
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(WithoutPermission, ATableThatCanNotBeReadIsMissingInput) {
  allow("server");
  fs::permissions(disk.path() / "toc.txt", fs::perms::owner_all);
  expectThatAPlainReadIsRefused("toc.txt");
  expectRefusal(addWords(asAlarms()),
                3,
                "critical: toc.txt: Permission denied\n"
                "quorbind: toc.txt: nothing was added\n");
}

TEST_F(WithoutPermission, ADocumentThatCanNotBeReadIsMissingInputAndItsBookIsAdded) {
  allow("server");
  fs::permissions(disk.path() / "Manual/alarms.htm", fs::perms::owner_all);
  expectThatAPlainReadIsRefused("Manual/alarms.htm");
  const Outcome outcome = addAsNobody();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(
      outcome.err,
      "quorbind: toc.txt: the book was added, but DISK/Manual/alarms.htm could not be read\n");
  EXPECT_FALSE(disk.has("server/Docs/Plant/Manual/alarms.htm"));
  EXPECT_TRUE(disk.has("server/Docs/Plant/Manual/trends.htm"));
}

TEST_F(WithoutPermission, AFileInAFolderThatCanNotBeEnteredIsMissingInputAndItsBookIsAdded) {
  disk.write("Manual/alarms.htm", "<img src=\"pictures/a.png\">");
  disk.write("Manual/pictures/a.png", "picture");
  allow("server");
  fs::permissions(disk.path() / "Manual/pictures", fs::perms::owner_all);
  expectThatAPlainReadIsRefused("Manual/pictures/a.png");
  const Outcome outcome = addAsNobody();
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(
      outcome.err,
      "quorbind: toc.txt: the book was added, but DISK/Manual/pictures/a.png could not be read\n");
  EXPECT_TRUE(disk.has("server/Docs/Plant/Manual/alarms.htm"));
}

TEST_F(WithoutPermission, ACatalogueThatCanNotBeReadIsMissingInput) {
  allow("server");
  fs::permissions(disk.path() / "server/Docs/Plant/Quor_TOC.xml", fs::perms::owner_all);
  expectThatAPlainReadIsRefused("server/Docs/Plant/Quor_TOC.xml");
  EXPECT_EQ(addAsNobody().status, 3);
}

TEST_F(WithoutPermission, AServerFolderThatCanNotBeWrittenMakesNoLibrary) {
  expectThatAPlainWriteIsRefused("server/Docs/new");
  expectRefusal({"init", "--server", "server", "--library", "Tools"},
                5,
                "critical: DISK/server/Docs/Tools: Permission denied\n");
}

/// A server on a disk of 256 KiB that is full.
class FullDisk : public CommandTest {
 protected:
  void SetUp() override {
    disk.makeFolder("server");
    small_.emplace(server(), "256k");
    ASSERT_TRUE(small_->isMounted()) << SmallDisk::kNotMounted << std::strerror(errno);
    initLibrary();
    writeBook();
  }

  [[nodiscard]] std::string server() const { return (disk.path() / "server").string(); }

  /// A book whose file is longer than the catalogue.
  void writeLongBook() const {
    std::string entries = "\"1\" \"Book\" \"Manual\\cover.htm\" \"\"\n";
    for (int i = 0; i < 100; ++i) {
      entries += "\"2\" \"A heading with a long title\" \"Manual\\alarms.htm\" \"\"\n";
    }
    writeToc(entries);
  }

  /// A workbook of two such books, of the folders Lathe and Saw.
  void writeLongWorkbook() const {
    std::vector<HeadingRow> headings;
    for (const std::string folder : {"Lathe", "Saw"}) {
      headings.push_back({"1", "The " + folder, folder + "\\cover.htm"});
      headings.insert(headings.end(), 100, {"2", "A heading with a long title", "page.htm"});
    }
    disk.write(
        "books.xlsx",
        workbookBytes(WorkbookKind::kXlsx,
                      {headingSheet(headings), bookSheet({{"Lathe", "LTH"}, {"Saw", "SAW"}})}));
  }
  /// The acronyms in the catalogue; the books that they belong to have to be whole.
  [[nodiscard]] std::string wholeBooksOfWorkbook() const {
    std::string acronyms;
    for (const auto& [acronym, file] :
         {std::pair{"LTH", "Lathe/Book_LTH.xml"}, std::pair{"SAW", "Saw/Book_SAW.xml"}}) {
      if (libraryText("Quor_TOC.xml").find(acronym) != std::string::npos) {
        acronyms.append(acronym).append(" ");
        EXPECT_TRUE(libraryText(file).ends_with("</Book_Master>\n")) << acronym;
      }
    }
    return acronyms;
  }

  /// The catalogue apart, of which a test knows more: what came to the library came whole.
  void expectOnlyWholeFiles() const {
    for (const auto& [name, content] : serverTree()) {
      EXPECT_FALSE(name.ends_with(".tmp")) << name;
      if (name.ends_with("Book_ALM.xml")) {
        EXPECT_NE(fromUtf16File(content).find("</Book_Master>"), std::string::npos);
      }
    }
  }

  /// Leaves `pages` pages of the disk free.
  void fillBut(std::size_t pages) const { small_->fillBut("filler", pages); }

 private:
  std::optional<SmallDisk> small_;
};

TEST_F(FullDisk, EveryFileIsOldOrNewAndTheCatalogueNamesOnlyBooksThatArrived) {
  writeLongBook();
  const std::string catalogue = disk.read("server/Docs/Plant/Quor_TOC.xml");
  int entriesTakenOut = 0;
  for (std::size_t pages = 0; pages < 60; ++pages) {
    fillBut(pages);
    const Outcome outcome = addAlarms();
    if (outcome.status == 0) {
      EXPECT_TRUE(disk.has("server/Docs/Plant/Manual/Book_ALM.xml"));
      EXPECT_GT(entriesTakenOut, 0) << "there was never room for the entry alone";
      return;
    }
    EXPECT_EQ(outcome.status, 5) << pages << outcome.err;
    EXPECT_EQ(disk.read("server/Docs/Plant/Quor_TOC.xml"), catalogue) << pages;
    expectOnlyWholeFiles();
    entriesTakenOut += outcome.err ==
                               "quorbind: toc.txt: DISK/server/Docs/Plant/Manual/Book_ALM.xml "
                               "could not be written; nothing was added\n"
                           ? 1
                           : 0;
    fs::remove_all(disk.path() / "server/Docs/Plant/Manual");
    fs::remove(disk.path() / "server/filler");
  }
  ADD_FAILURE() << "the book never fits";
}

TEST_F(FullDisk, ASideFileIsOldOrNewAndTheNoteNamesTheOneThatCouldNotBeWritten) {
  std::string keywords = "first";
  for (int i = 0; i < 300; ++i) {
    keywords += ";keyword-" + std::to_string(i);
  }
  bool toldOfKeywords = false;
  for (std::size_t pages = 0; pages < 60; ++pages) {
    fillBut(pages);
    const Outcome outcome = addAlarms({"--keywords", keywords, "--categories", "Alarms;Trends"});
    const bool hasKeywords = disk.has("server/Docs/Plant/Quor_SearchKeywords.xml");
    if (hasKeywords) {
      EXPECT_NE(fromUtf16File(disk.read("server/Docs/Plant/Quor_SearchKeywords.xml")).find("Books"),
                std::string::npos);
    }
    if (outcome.status == 0) {
      EXPECT_TRUE(toldOfKeywords) << "there was never room for the book alone";
      return;
    }
    EXPECT_EQ(outcome.status, 5) << pages << outcome.err;
    toldOfKeywords = toldOfKeywords || outcome.err.ends_with(
                                           "quorbind: toc.txt: the book was added, but "
                                           "DISK/server/Docs/Plant/Quor_SearchKeywords.xml could "
                                           "not be written\n");
    fs::remove_all(server() + "/Docs");
    fs::remove(disk.path() / "server/filler");
    initLibrary();
  }
  ADD_FAILURE() << "the book never fits";
}

TEST_F(FullDisk, OfAWorkbooksBooksThoseThatArrivedStayAndAreCounted) {
  writeLongWorkbook();
  bool wasFullBetweenThem = false;
  for (std::size_t pages = 0; pages < 60; ++pages) {
    SCOPED_TRACE(pages);
    fillBut(pages);
    const Outcome outcome =
        quorbind({"add", "books.xlsx", "--server", "server", "--library", "Plant"});
    const std::string acronyms = wholeBooksOfWorkbook();
    if (outcome.status == 0) {
      EXPECT_EQ(acronyms, "LTH SAW ");
      EXPECT_TRUE(wasFullBetweenThem) << "there was never room for one of them";
      return;
    }
    EXPECT_EQ(outcome.status, 5) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with(acronyms.empty() ? "; nothing was added\n"
                                                       : "; 1 of 2 books added\n"))
        << outcome.err;
    wasFullBetweenThem = wasFullBetweenThem || acronyms == "LTH ";
    EXPECT_THAT(filesBelow(""), Not(Contains(EndsWith("_Temp.txtX"))));
    fs::remove_all(server() + "/Docs");
    fs::remove(disk.path() / "server/filler");
    initLibrary();
  }
  ADD_FAILURE() << "the books never fit";
}

TEST_F(FullDisk, MakesNoLibrary) {
  const std::string selection = disk.read("server/Docs/Quor_Selection.xml");
  fillBut(0);
  const Outcome outcome = quorbind({"init", "--server", "server", "--library", "Tools"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_NE(outcome.err.find(": Disk full\n"), std::string::npos) << outcome.err;
  EXPECT_EQ(disk.read("server/Docs/Quor_Selection.xml"), selection);
}

}  // namespace
}  // namespace quorbind::testing
