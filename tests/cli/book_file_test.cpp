#include "tests/cli/command_test.h"
#include "tests/cli/terminal_session.h"
#include "tests/support/catalogue_text.h"

namespace quorbind::testing {
namespace {

/// An existing book file as a table of contents.
class BookFile : public CommandTest {
 protected:
  void SetUp() override { initLibrary(); }

  static std::string bookFile(const std::string& name,
                              const std::string& acronym,
                              const std::string& path,
                              const Words& documents) {
    std::string headings;
    for (const std::string& document : documents) {
      headings +=
          "<Heading level=\"H1\"><HName>Heading</HName><HFile>" + document + "</HFile></Heading>\n";
    }
    return "<Book_Master>\n<Book><Book_Name>" + name + "</Book_Name><Book_Acro>" + acronym +
           "</Book_Acro><Book_Key/><Book_Path>" + path + "</Book_Path></Book>\n<Book_Headings>\n" +
           headings + "</Book_Headings>\n</Book_Master>\n";
  }
  void writeBook(const std::string& path = "Old\\Manual") const {
    disk.write("book.xml", bookFile("Alarms", "ALM", path, {"a.htm", "b.htm#x"}));
    disk.write("a.htm", "<img src=\"a.png\">");
    disk.write("a.png", "picture");
    disk.write("b.htm", "page");
  }
  [[nodiscard]] Outcome addBook(const Words& more = {}) const { return addFile("book.xml", more); }

  /// The same with a person at a terminal.
  [[nodiscard]] Command addCommand(const Words& more = {}) const {
    return {.words = joined({quorbindExecutable()}, addFileWords("book.xml", more)),
            .folder = disk.path().string(),
            .environment = environment};
  }

  /// Adds the file of these bytes and checks it, and expects these ends, with nothing changed.
  void expectRefusal(const std::string& bytes,
                     int status,
                     const std::string& box,
                     const std::string& place = "") const {
    disk.write("book.xml", bytes);
    const Tree before = disk.contents();
    const Outcome added = addBook();
    EXPECT_EQ(added.status, status);
    EXPECT_EQ(added.err, box + "quorbind: book.xml" + place + ": nothing was added\n");
    const Outcome checked = quorbind({"check", "book.xml"});
    EXPECT_EQ(checked.status, status);
    EXPECT_EQ(checked.err, box + "quorbind: book.xml" + place + ": not accepted\n");
    EXPECT_EQ(disk.contents(), before);
  }
  /// The same for one that does not parse in this line from this character on, whatever the reason
  /// is called.
  void expectNotParsed(const std::string& bytes, int line, int column) const {
    disk.write("book.xml", bytes);
    const Tree before = disk.contents();
    const std::string begin =
        "critical: Line No:" + std::to_string(line) + "\nError loading XML Document: ";
    for (const auto& [outcome, end] : {std::pair{addBook(), "nothing was added\n"},
                                       {quorbind({"check", "book.xml"}), "not accepted\n"}}) {
      EXPECT_EQ(outcome.status, 4) << bytes;
      ASSERT_EQ(outcome.err.substr(0, begin.size()), begin);
      const std::string rest = outcome.err.substr(begin.size());
      const std::string reason = rest.substr(0, rest.find('\n'));
      EXPECT_FALSE(reason.empty());
      EXPECT_EQ(rest,
                reason + "\noffending line: " + reason + "\nquorbind: book.xml:" +
                    std::to_string(line) + ":" + std::to_string(column) + ": " + end);
    }
    EXPECT_EQ(disk.contents(), before);
  }

  /// The book, in another library of the server.
  void writeBookOfTools() const {
    writeBook();
    disk.write(kBookOfTools, disk.read("book.xml"));
  }
  static std::string linksWith(const std::string& identifier) {
    return "<LINKS><IBD><ID><LinkID>" + identifier + "</LinkID></ID></IBD></LINKS>";
  }

  const std::string kBookOfTools = "server/Docs/Tools/Manual/book.xml";
  const std::string kLinksOfTools = "server/Docs/Tools/Quor_LinkID.xml";

  [[nodiscard]] std::string books() const {
    return quorbind({"show", "--server", "server", "--library", "Plant"}).out;
  }
};

TEST_F(BookFile, IsAddedWithoutAQuestionAsItDescribesItself) {
  writeBook();
  const Outcome outcome = addBook();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Added Alarms (ALM) to Plant, folder Manual: 3 files.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(filesBelow("server/Docs/Plant/Manual/"),
            (Words{"Book_ALM.xml", "a.htm", "a.png", "b.htm", "book.xml"}));
  EXPECT_EQ(books(),
            "ACRONYM  NAME    FOLDER\n"
            "ALM      Alarms  Manual\n");
}

TEST_F(BookFile, StatesItsNewPlaceInTheLibrary) {
  writeBook();
  EXPECT_EQ(addBook().status, 0);
  const std::string installed = disk.read("server/Docs/Plant/Manual/Book_ALM.xml");
  EXPECT_NE(installed.find("<Book_Key>Plant</Book_Key>"), std::string::npos);
  EXPECT_NE(installed.find("<Book_Path>Plant\\Manual</Book_Path>"), std::string::npos);
}

TEST_F(BookFile, LeavesNothingBesideItself) {
  writeBook();
  const Tree before = disk.contents();
  EXPECT_EQ(addBook().status, 0);
  for (const auto& [name, content] : disk.contents()) {
    if (!name.starts_with("server/")) {
      EXPECT_EQ(before.at(name), content) << name;
    }
  }
}

TEST_F(BookFile, TakesNameAndAcronymFromTheFlagsButKeepsItsFileName) {
  writeBook();
  const Outcome outcome = addBook({"--name", "Other", "--acro", "OTH"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Added Other (OTH) to Plant, folder Manual: 3 files.\n");
  EXPECT_TRUE(disk.has("server/Docs/Plant/Manual/Book_ALM.xml"));
}

TEST_F(BookFile, OneOfNameAndAcronymIsNotEnoughWithoutATerminal) {
  writeBook();
  const Tree before = disk.contents();
  const Outcome outcome = addBook({"--name", "Other"});
  EXPECT_EQ(outcome.status, 6);
  EXPECT_EQ(outcome.err, "quorbind: book.xml: nothing was added: give --acro\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BookFile, WhoseNameTheCatalogueHasNeedsOtherFlagsWhereItsFileIsFree) {
  writeBook();
  EXPECT_EQ(addBook().status, 0);
  writeBook("Old\\Second");
  const Tree before = disk.contents();
  const Outcome again = addBook();
  EXPECT_EQ(again.status, 6);
  EXPECT_EQ(again.err,
            "critical: Error:Book Name Alarms already Exists\n"
            "quorbind: book.xml: nothing was added: give --name and --acro\n");
  const Outcome flagged = addBook({"--name", "Alarms", "--acro", "NEW"});
  EXPECT_EQ(flagged.status, 1);
  EXPECT_EQ(flagged.err,
            "critical: Error:Book Name Alarms already Exists\n"
            "quorbind: book.xml: nothing was added: other values are needed for --name and "
            "--acro\n");
  EXPECT_EQ(disk.contents(), before);
}

// Other flags would not help: the file keeps its name in the library.
TEST_F(BookFile, ThatIsInTheLibraryAlreadyIsRefusedWithoutAdvisingFlags) {
  writeBook();
  EXPECT_EQ(addBook().status, 0);
  const Tree before = disk.contents();
  for (const Words& flags : {Words{},
                             Words{"--no-input"},
                             Words{"--name", "Alarms"},
                             Words{"--name", "Alarms", "--acro", "ALM"}}) {
    const Outcome again = addBook(flags);
    EXPECT_EQ(again.status, 1);
    EXPECT_EQ(again.err,
              "critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml: it is the book file of Alarms "
              "(ALM)\nquorbind: book.xml: nothing was added\n");
    EXPECT_EQ(again.help,
              "accepted: A book file whose folder and acronym no book of the library has.\n");
  }
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BookFile, WhoseNameTheCatalogueHasInAnotherLetterCaseNeedsOtherFlags) {
  writeBook();
  disk.write("server/Docs/Plant/Quor_TOC.xml", catalogueWith(bookEntry("ALARMS", "OTH")));
  const Tree before = disk.contents();
  const Outcome outcome = addBook();
  EXPECT_EQ(outcome.status, 6);
  EXPECT_EQ(outcome.err,
            "critical: Error:Book Name Alarms already Exists\n"
            "quorbind: book.xml: nothing was added: give --name and --acro\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BookFile, IsNotWrittenOverThatOfAnotherBook) {
  writeBook();
  EXPECT_EQ(addBook().status, 0);
  const Tree before = disk.contents();
  const Outcome outcome = addBook({"--name", "Other", "--acro", "OTH"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml: it is the book file of Alarms "
            "(ALM)\nquorbind: book.xml: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BookFile, IsNotWrittenOverThatOfABookWhichIsCalledSomethingElse) {
  writeBook();
  EXPECT_EQ(addBook({"--name", "Other", "--acro", "OTH"}).status, 0);
  const Tree before = disk.contents();
  const Outcome outcome = addBook();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml: it is the book file of Other "
            "(OTH)\nquorbind: book.xml: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

// Whatever is answered in the dialog, the file would keep its name.
TEST_F(BookFile, IsNotAskedForAnotherNameWhereItWouldBeWrittenOverThatOfAnotherBook) {
  writeBook();
  EXPECT_EQ(addBook().status, 0);
  const Tree before = disk.contents();
  for (const Words& flags : {Words{}, Words{"--name", "Other"}}) {
    TerminalSession session(addCommand(flags));
    EXPECT_EQ(replaceAll(session.finish().out, disk.path().string(), "DISK"),
              "\x1B[1;31mcritical:\x1B[0m DISK/server/Docs/Plant/Manual/Book_ALM.xml: it is the "
              "book file of Alarms (ALM)\n"
              "accepted: A book file whose folder and acronym no book of the library has.\n"
              "quorbind: book.xml: nothing was added\n");
  }
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BookFile, IsAskedForAnotherNameWhereItsFileIsFree) {
  writeBook();
  EXPECT_EQ(addBook().status, 0);
  writeBook("Old\\Second");
  TerminalSession session(addCommand());
  session.waitFor("Error:Book Name Alarms already Exists\n");
  session.waitFor("Book Name: [Alarms] ");
  session.typeLine("More Alarms");
  session.waitFor("Book Acro: [ALM] ");
  session.typeLine("MOR");
  session.waitFor("Added More Alarms (MOR) to Plant, folder Second: 3 files.\n");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_F(BookFile, TellsThatTheFlagForTheFolderIsNotUsed) {
  writeBook();
  EXPECT_EQ(addBook({"--folder", "Other"}).err,
            "information: --folder Other is not used: the table of contents names the folder "
            "Manual\n");
}

TEST_F(BookFile, ListsTheDocumentsThatAReaderWouldNotFind) {
  writeBook();
  std::filesystem::remove(disk.path() / "b.htm");
  EXPECT_EQ(addBook().out,
            "Added Alarms (ALM) to Plant, folder Manual: 2 files.\n"
            "missing: b.htm\n");
}

TEST_F(BookFile, IsCheckedWithItsDocuments) {
  writeBook();
  std::filesystem::remove(disk.path() / "b.htm");
  const Tree before = disk.contents();
  EXPECT_EQ(quorbind({"check", "book.xml"}).out,
            "book.xml:5: missing: b.htm#x\n"
            "book.xml: accepted, 2 entries.\n");
  EXPECT_EQ(quorbind({"check", "book.xml", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"accepted\": true,\n"
            "  \"entries\": 2,\n"
            "  \"missing\": [\n"
            "    {\n"
            "      \"line\": 5,\n"
            "      \"file\": \"b.htm#x\"\n"
            "    }\n"
            "  ],\n"
            "  \"messages\": []\n"
            "}\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(BookFile, WhoseMainFileIsMissingIsListedWithIt) {
  writeBook();
  disk.write(
      "book.xml",
      replaceAll(disk.read("book.xml"),
                 "</Book>",
                 "<Book_Categories/>\n<Book_File type=\"htm\">cover.htm</Book_File></Book>"));
  EXPECT_EQ(quorbind({"check", "book.xml"}).out,
            "book.xml:3: missing: cover.htm\n"
            "book.xml: accepted, 2 entries.\n");
  disk.write("cover.htm", "cover");
  EXPECT_EQ(quorbind({"check", "book.xml"}).out, "book.xml: accepted, 2 entries.\n");
  EXPECT_EQ(addBook().out,
            "Added Alarms (ALM) to Plant, folder Manual: 3 files.\n"
            "missing: cover.htm\n");
}

TEST_F(BookFile, WhoseFileCouldNotBePutInItsPlaceIsTakenOutAgain) {
  writeBook();
  disk.makeFolder("server/Docs/Plant/Manual/Book_ALM.xml");
  const Outcome outcome = addBook();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err,
            "quorbind: book.xml: DISK/server/Docs/Plant/Manual/Book_ALM.xml could not be written; "
            "nothing was added\n");
  EXPECT_EQ(books(), "ACRONYM  NAME  FOLDER\n");
}

TEST_F(BookFile, BringsTheLinkIdentifiersOfTheLibraryThatItComesFrom) {
  writeBookOfTools();
  disk.write(kLinksOfTools, linksWith("X1"));
  const Outcome outcome = addFile(kBookOfTools);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_NE(libraryText("Quor_LinkID.xml").find("\t\t\t<LinkID>X1</LinkID>\n"), std::string::npos);
}

// Bad input

TEST_F(BookFile, WhoseLinkIdentifiersCouldNotBeBroughtIsNotAdded) {
  const std::string ours = "server/Docs/Plant/Quor_LinkID.xml";
  writeBookOfTools();
  disk.write(kLinksOfTools, linksWith("X1"));
  for (const auto& [damaged, other] : {std::pair{ours, kLinksOfTools}, {kLinksOfTools, ours}}) {
    disk.write(other, linksWith("X2"));
    for (const auto& [bytes, fault] : {std::pair{"<LINKS>\n<IBD>\n</LINKS>", ":3:9: "},
                                       {"<Foreign/>", ": the element LINKS is missing\n"}}) {
      disk.write(damaged, bytes);
      const Tree before = disk.contents();
      const Outcome outcome = addFile(kBookOfTools);
      EXPECT_EQ(outcome.status, 4);
      EXPECT_TRUE(outcome.err.starts_with("critical: DISK/" + damaged + fault)) << outcome.err;
      EXPECT_TRUE(outcome.err.ends_with("quorbind: " + kBookOfTools + ": nothing was added\n"))
          << outcome.err;
      EXPECT_EQ(disk.contents(), before);
    }
  }
}

TEST_F(BookFile, OfTheLibraryItselfNeedsNoLinkIdentifiers) {
  writeBook();
  const std::string book = "server/Docs/Plant/Manual/book.xml";
  disk.write(book, disk.read("book.xml"));
  disk.write("server/Docs/Plant/Quor_LinkID.xml", "damaged");
  EXPECT_EQ(addFile(book).status, 0);
  EXPECT_EQ(disk.read("server/Docs/Plant/Quor_LinkID.xml"), "damaged");
}

TEST_F(BookFile, ThatCouldNotStateItsNewPlaceIsNotAdded) {
  writeBook();
  const std::string whole = disk.read("book.xml");
  for (const auto& [element, name] : {std::pair{"<Book_Key/>", "Book_Key"},
                                      {"<Book_Path>Old\\Manual</Book_Path>", "Book_Path"}}) {
    disk.write("book.xml", replaceAll(whole, element, ""));
    const Tree before = disk.contents();
    const Outcome outcome = addBook();
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.err,
              std::string("critical: DISK/book.xml: the element ") + name +
                  " is missing\nquorbind: book.xml: nothing was added\n");
    const Outcome checked = quorbind({"check", "book.xml"});
    EXPECT_EQ(checked.status, 4);
    EXPECT_EQ(checked.out, "");
    EXPECT_EQ(checked.err,
              std::string("critical: DISK/book.xml: the element ") + name +
                  " is missing\nquorbind: book.xml: not accepted\n");
    EXPECT_EQ(disk.contents(), before);
  }
}

TEST_F(BookFile, ThatIsNotWellFormed) {
  expectNotParsed("<Book_Master>\n<Book>\n</Book_Master>\n", 3, 15);
  expectNotParsed("<Book_Master>\n<HFile>a.htm</HFile>\n", 3, 1);
  expectNotParsed("no XML", 1, 1);
}

TEST_F(BookFile, WithADocumentTypeOrAHostileEntity) {
  expectNotParsed(
      "\n<!DOCTYPE Book_Master>\n<Book_Master><HFile>a.htm</HFile></Book_Master>", 2, 22);
  disk.write("secret.txt", "secret");
  expectNotParsed(
      "<!DOCTYPE a [<!ENTITY s SYSTEM \"secret.txt\">]>\n"
      "<Book_Master><HFile>&s;</HFile></Book_Master>",
      1,
      13);
  std::string bomb = "<!DOCTYPE a [<!ENTITY b0 \"bbbbbbbbbb\">";
  for (int level = 1; level < 20; ++level) {
    const std::string below = "&b" + std::to_string(level - 1) + ";";
    bomb += "<!ENTITY b" + std::to_string(level) + " \"" + below + below + below + "\">";
  }
  expectNotParsed(bomb + "]>\n<Book_Master><HFile>&b19;</HFile></Book_Master>", 1, 13);
}

TEST_F(BookFile, WithElementsTooDeepInsideEachOther) {
  std::string file;
  for (int depth = 0; depth < 300; ++depth) {
    file += "<Heading>\n";
  }
  disk.write("book.xml", file);
  EXPECT_EQ(addBook().status, 4);
}

TEST_F(BookFile, WithoutHeadings) {
  expectRefusal(bookFile("Alarms", "ALM", "Old\\Manual", {}),
                1,
                "information: Error:Book should have at least one heading\n");
  expectRefusal("<Book_Master/>", 1, "information: Error:Book should have at least one heading\n");
}

TEST_F(BookFile, WhosePathHasNoSeparatorGoesIntoTheLibrarysOwnFolder) {
  writeBook("Manual");
  const Outcome outcome = addBook();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Added Alarms (ALM) to Plant, the library's own folder: 3 files.\n");
  EXPECT_TRUE(disk.has("server/Docs/Plant/Book_ALM.xml"));
}

TEST_F(BookFile, WhoseOwnNamesLeadOutOfTheLibrary) {
  for (const char* path : {"P\\..", "P/..", "\\\\server\\share", "P\\con"}) {
    expectRefusal(
        bookFile("Alarms", "ALM", path, {"a.htm"}),
        1,
        "critical: Error:Book Folder leads out of the library: " + std::string(path) + "\n",
        ":2");
  }
  expectRefusal(bookFile("Alarms", "ALM", "P\\C:", {"a.htm"}),
                1,
                "critical: Book Folder can not contain (/\\:*?\"<>)\n",
                ":2");
  for (const char* acronym : {"..\\..\\x", "/etc/x", "C:x"}) {
    expectRefusal(bookFile("Alarms", acronym, "P\\Manual", {"a.htm"}),
                  1,
                  "critical: Book Acro can not contain  (/\\:*?\"<>)\n",
                  ":2");
  }
}

TEST_F(BookFile, WithDocumentsThatLeadOutLooksAndBringsNothingFromThere) {
  disk.write("secret.htm", "secret");
  disk.write(
      "sub/book.xml",
      bookFile("Alarms",
               "ALM",
               "P\\Manual",
               {"a.htm", "..\\secret.htm", "/secret.htm", "\\\\server\\share\\s.htm", "nul"}));
  disk.write("sub/a.htm", "page <a href=\"../secret.htm\">");
  EXPECT_EQ(addFile("sub/book.xml").out,
            "Added Alarms (ALM) to Plant, folder Manual: 2 files.\n"
            "missing: ..\\secret.htm\n"
            "missing: /secret.htm\n"
            "missing: \\\\server\\share\\s.htm\n"
            "missing: nul\n");
  EXPECT_EQ(filesBelow("server/Docs/Plant/Manual/"), (Words{"Book_ALM.xml", "a.htm", "book.xml"}));
}

TEST_F(BookFile, InTheLibrarysOwnFolderDoesNotTakeThePlaceOfTheCatalogue) {
  disk.write("Quor_TOC.xml", bookFile("Alarms", "ALM", "Manual", {"a.htm", "Quor_LinkID.xml"}));
  disk.write("Quor_LinkID.xml", "of somebody else");
  disk.write("a.htm", "page");
  EXPECT_EQ(addFile("Quor_TOC.xml").status, 0);
  EXPECT_EQ(books(),
            "ACRONYM  NAME    FOLDER\n"
            "ALM      Alarms\n");
  EXPECT_FALSE(disk.has("server/Docs/Plant/Quor_LinkID.xml"));
}

TEST_F(BookFile, InEachEncoding) {
  const std::string file = bookFile("Ger\xC3\xA4te", "ALM", "P\\Manual", {"a.htm"});
  for (const std::string& bytes : {file,
                                   "\xEF\xBB\xBF" + file,
                                   utf16File(file),
                                   "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n" +
                                       replaceAll(file, "\xC3\xA4", "\xE4")}) {
    disk.write("book.xml", bytes);
    EXPECT_EQ(addBook().status, 0);
    EXPECT_EQ(books(),
              "ACRONYM  NAME    FOLDER\n"
              "ALM      Ger\xC3\xA4te  Manual\n");
    std::filesystem::remove_all(disk.path() / "server");
    initLibrary();
  }
}

}  // namespace
}  // namespace quorbind::testing
