#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "platform/runtime_error.h"
#include "tests/contract/adapters.h"
#include "tests/support/raised_error.h"
#include "tests/support/scripted_user_interface.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int32_t kNotLoaded = -2147220990;

class ToolsetContract : public ::testing::Test {
 protected:
  TemporaryFolder disk_;
  ScriptedUserInterface user_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  std::unique_ptr<Toolset> toolset_ = adapters_->makeToolset(user_);
};

// --- Library services

using LibraryServicesContract = ToolsetContract;

TEST_F(LibraryServicesContract, AnswersTheServerFolderWithItsSeparator) {
  EXPECT_EQ(toolset_->createLibraryServices()->GetQuorServer(), "C:\\");
}

// --- XML text rules

class XmlTextRulesContract : public ToolsetContract {
 protected:
  /// What all three conversions make of `text`.
  std::string converted(std::string_view text) {
    const std::string result = rules_->mstrCheckSpecialCharecters(text);
    EXPECT_EQ(rules_->mstrReplaceSpecialCharecters(text), result);
    EXPECT_EQ(rules_->ReplaceSpecCharToXMLChar(text), result);
    return result;
  }
  bool check(std::string_view text) { return rules_->CheckReplacedXMLCharacters(text, "Keywords"); }

  std::unique_ptr<XmlTextRules> rules_ = toolset_->createXmlTextRules();
};

TEST_F(XmlTextRulesContract, TurnTheFiveMarkupCharactersIntoEntities) {
  EXPECT_EQ(converted("A<B>C"), "A&lt;B&gt;C");
  EXPECT_EQ(converted("\"It's\""), "&quot;It&apos;s&quot;");
  EXPECT_EQ(converted("R&D"), "R&amp;D");
  EXPECT_EQ(converted("&"), "&amp;");
}

TEST_F(XmlTextRulesContract, LeaveAllOtherTextAsItIs) {
  EXPECT_EQ(converted(""), "");
  EXPECT_EQ(converted(" Alarms / Gr\u00F6\u00DFe; 50% #1 "), " Alarms / Gr\u00F6\u00DFe; 50% #1 ");
}

TEST_F(XmlTextRulesContract, ConvertTextThatIsConvertedToItself) {
  EXPECT_EQ(converted("R&amp;D"), "R&amp;D");
  EXPECT_EQ(converted(converted("<'&'>")), converted("<'&'>"));
  EXPECT_EQ(converted("&lt;&gt;&quot;&apos;&amp;"), "&lt;&gt;&quot;&apos;&amp;");
}

TEST_F(XmlTextRulesContract, ConvertTheAmpersandOfEveryOtherReference) {
  EXPECT_EQ(converted("&AMP; &quote; &#38; &nbsp; &amp &"),
            "&amp;AMP; &amp;quote; &amp;#38; &amp;nbsp; &amp;amp &amp;");
}

TEST_F(XmlTextRulesContract, AcceptTextWithoutEntities) {
  for (const char* text : {"", "Alarms", "R&D", "A/B", "a<b>c", "\"It's\"", "&nbsp;", "&amp"}) {
    EXPECT_TRUE(check(text)) << text;
  }
  EXPECT_THAT(user_.record(), IsEmpty());
}

TEST_F(XmlTextRulesContract, RefuseAnEntityAndSayWhereItCannotBeUsed) {
  for (const char* text : {"a&amp;b", "&lt;", "x&gt;", "&quot;", "&apos;s", "&quote;"}) {
    EXPECT_FALSE(check(text)) << text;
  }
  EXPECT_THAT(user_.record(),
              ElementsAre("information: &amp;Cannot be used in Keywords",
                          "information: &lt;Cannot be used in Keywords",
                          "information: &gt;Cannot be used in Keywords",
                          "information: &quot;Cannot be used in Keywords",
                          "information: &apos;Cannot be used in Keywords",
                          "information: &quote;Cannot be used in Keywords"));
}

TEST_F(XmlTextRulesContract, ShowOneBoxForOneText) {
  EXPECT_FALSE(check("&lt;b&gt; &amp; &quote;"));
  EXPECT_THAT(user_.record(), ElementsAre("information: &amp;Cannot be used in Keywords"));
}

// --- Products

class ProductServicesContract : public ToolsetContract {
 protected:
  std::vector<std::string> products() {
    return toolset_->createProductServices()->GetAvailableProducts();
  }
};

TEST_F(ProductServicesContract, AreTheNamesInTheSelectionListInItsOrder) {
  disk_.write("Docs/Quor_Selection.xml",
              "<Quor_Selection_List><Quors>"
              "<Quor><Quor_Name>Pumps</Quor_Name><Quor_Location>Docs\\Pumps</Quor_Location></Quor>"
              "<Quor><Quor_Name/></Quor>"
              "<Quor><Quor_Name>Boilers</Quor_Name></Quor>"
              "</Quors></Quor_Selection_List>");
  disk_.write("Docs/Valves/Quor_TOC.xml", "<Quor_Master/>");
  EXPECT_THAT(products(), ElementsAre("Pumps", "", "Boilers"));
}

TEST_F(ProductServicesContract, AreTheFoldersWithACatalogueWhereThereIsNoSelectionList) {
  disk_.write("Docs/Pumps/Quor_TOC.xml", "<Quor_Master/>");
  disk_.write("Docs/Boilers/Quor_TOC.xml", "<Quor_Master/>");
  disk_.makeFolder("Docs/Empty");
  disk_.write("Docs/readme.txt", "");
  EXPECT_THAT(products(), ElementsAre("Boilers", "Pumps"));
}

TEST_F(ProductServicesContract, CannotBeToldFromADamagedSelectionList) {
  disk_.write("Docs/Quor_Selection.xml", "<Quor_Selection_List>");
  EXPECT_EQ(errorRaisedBy([&] { products(); }), kNotLoaded);
}

TEST_F(ProductServicesContract, CannotBeToldWithoutTheFolderOfTheLibraries) {
  EXPECT_EQ(errorRaisedBy([&] { products(); }), 76);
}

// --- Link files

class LinkFileContract : public ToolsetContract {
 protected:
  static std::string linkFile(std::string_view identifiers) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><LINKS><IBD>" + std::string(identifiers) +
           "</IBD></LINKS>";
  }
  static std::string identifier(const std::string& name, const std::string& acronym) {
    return "<ID><LinkID>" + name + "</LinkID><FullLink>" + acronym +
           "@QUOR@Top</FullLink><LinkIDSourceFile>Prod\\a.htm</LinkIDSourceFile><BookAcro>" +
           acronym + "</BookAcro></ID>";
  }
  void merge() {
    services_->MergeLinkIDFiles("C:\\lib\\Quor_LinkID.xml", "C:\\new\\Quor_LinkID.xml");
  }
  void writeTarget(std::string_view text) { disk_.write("lib/Quor_LinkID.xml", text); }
  void writeSource(std::string_view text) { disk_.write("new/Quor_LinkID.xml", text); }
  [[nodiscard]] std::string target() const { return disk_.read("lib/Quor_LinkID.xml"); }
  /// The identifiers in the target, each with the acronym of its book.
  std::vector<std::string> identifiersInTarget() {
    const auto document = adapters_->xml().createDocument();
    EXPECT_TRUE(document->load("C:\\lib\\Quor_LinkID.xml"));
    std::vector<std::string> result;
    for (const XmlNode& id : document->selectAll("LINKS/IBD/ID")) {
      result.push_back(id.child("LinkID").text() + " of " + id.child("BookAcro").text());
    }
    return result;
  }

  std::unique_ptr<LinkFileServices> services_ = toolset_->createLinkFileServices();
};

TEST_F(LinkFileContract, IsMadeOfACommentAndAnEmptyRoot) {
  services_->GenerateXMLHeader("C:\\Quor_LinkID.xml", "Inter Book Linking data file", "LINKS");
  EXPECT_EQ(disk_.read("Quor_LinkID.xml"),
            utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n"
                      "<!--Inter Book Linking data file-->\r\n"
                      "<LINKS/>\r\n"));
}

TEST_F(LinkFileContract, IsMadeInThePlaceOfAnOlderFile) {
  disk_.write("Quor_LinkID.xml", "what stood here before");
  services_->GenerateXMLHeader("C:\\Quor_LinkID.xml", "d", "R");
  EXPECT_EQ(disk_.read("Quor_LinkID.xml"),
            utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<!--d-->\r\n<R/>\r\n"));
}

TEST_F(LinkFileContract, IsNotMadeInAFolderThatIsNotThere) {
  EXPECT_EQ(errorRaisedBy([&] { services_->GenerateXMLHeader("C:\\no\\file.xml", "d", "R"); }), 76);
}

TEST_F(LinkFileContract, GainsTheIdentifiersThatItLacks) {
  writeTarget(linkFile(identifier("N1", "AA") + identifier("N2", "AA")));
  writeSource(linkFile(identifier("N3", "BB") + identifier("N4", "BB")));
  merge();
  EXPECT_THAT(identifiersInTarget(), ElementsAre("N1 of AA", "N2 of AA", "N3 of BB", "N4 of BB"));
}

TEST_F(LinkFileContract, GainsAnIdentifierWithAllThatBelongsToIt) {
  writeTarget(linkFile(""));
  writeSource(linkFile(identifier("N &amp; 1", "BB")));
  merge();
  EXPECT_EQ(target(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
            "<LINKS>\r\n"
            "\t<IBD>\r\n"
            "\t\t<ID>\r\n"
            "\t\t\t<LinkID>N &amp; 1</LinkID>\r\n"
            "\t\t\t<FullLink>BB@QUOR@Top</FullLink>\r\n"
            "\t\t\t<LinkIDSourceFile>Prod\\a.htm</LinkIDSourceFile>\r\n"
            "\t\t\t<BookAcro>BB</BookAcro>\r\n"
            "\t\t</ID>\r\n"
            "\t</IBD>\r\n"
            "</LINKS>\r\n");
}

TEST_F(LinkFileContract, KeepsItsOwnEntryOfAnIdentifierInBothFiles) {
  writeTarget(linkFile(identifier("N1", "AA")));
  writeSource(linkFile(identifier("N1", "BB") + identifier("n1", "BB")));
  merge();
  EXPECT_THAT(identifiersInTarget(), ElementsAre("N1 of AA", "n1 of BB"));
}

TEST_F(LinkFileContract, GainsAnIdentifierOnlyOnce) {
  writeTarget(linkFile(""));
  writeSource(linkFile(identifier("N1", "BB") + identifier("N1", "CC")));
  merge();
  EXPECT_THAT(identifiersInTarget(), ElementsAre("N1 of BB"));
}

TEST_F(LinkFileContract, IsMadeForTheFirstIdentifiersOfALibrary) {
  disk_.makeFolder("lib");
  writeSource(linkFile(""));
  merge();
  EXPECT_EQ(target(),
            utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n"
                      "<!--Inter Book Linking data file-->\r\n"
                      "<LINKS>\r\n"
                      "\t<IBD/>\r\n"
                      "</LINKS>\r\n"));
}

TEST_F(LinkFileContract, GetsTheListThatItLacks) {
  writeTarget("<LINKS/>");
  writeSource(linkFile(identifier("N1", "BB")));
  merge();
  EXPECT_THAT(identifiersInTarget(), ElementsAre("N1 of BB"));
}

TEST_F(LinkFileContract, IsLeftAloneWhenItLacksNothing) {
  const std::string asItStands = linkFile(identifier("N1", "AA"));
  writeTarget(asItStands);
  writeSource(linkFile(identifier("N1", "BB")));
  merge();
  EXPECT_EQ(target(), asItStands);
}

TEST_F(LinkFileContract, IsLeftAloneWhenItIsMergedWithItself) {
  const std::string asItStands = linkFile(identifier("N1", "AA") + identifier("N1", "BB"));
  writeTarget(asItStands);
  services_->MergeLinkIDFiles("C:\\lib\\Quor_LinkID.xml", "C:\\LIB\\quor_linkid.xml");
  EXPECT_EQ(target(), asItStands);
}

TEST_F(LinkFileContract, IsNotMadeWithoutASource) {
  disk_.makeFolder("lib");
  EXPECT_EQ(errorRaisedBy([&] { merge(); }), kNotLoaded);
  writeSource("<LINKS><IBD>");
  EXPECT_EQ(errorRaisedBy([&] { merge(); }), kNotLoaded);
  EXPECT_FALSE(disk_.has("lib/Quor_LinkID.xml"));
}

TEST_F(LinkFileContract, IsLeftAloneWhenItIsDamaged) {
  writeTarget("<LINKS><IBD>");
  writeSource(linkFile(identifier("N1", "BB")));
  EXPECT_EQ(errorRaisedBy([&] { merge(); }), kNotLoaded);
  EXPECT_EQ(target(), "<LINKS><IBD>");
}

TEST_F(LinkFileContract, IsLeftAloneWhenItIsAnotherDocument) {
  writeTarget("<Quor_Master/>");
  writeSource(linkFile(identifier("N1", "BB")));
  EXPECT_EQ(errorRaisedBy([&] { merge(); }), 91);
  EXPECT_EQ(target(), "<Quor_Master/>");
}

TEST_F(LinkFileContract, TellsWhichFileDoesNotLoadAndWhy) {
  writeSource("<LINKS>\n<IBD>\n</LINKS>");
  try {
    merge();
    FAIL() << "merged a damaged file";
  } catch (const RunTimeError& error) {
    EXPECT_THAT(error.description(), ::testing::StartsWith("C:\\new\\Quor_LinkID.xml, line 3: "));
  }
}

// --- Folders of books

class BookFolderContract : public ToolsetContract {
 protected:
  std::string folderOf(std::string_view acronym) {
    return toolset_->createLinkFileServices()->GetFolderName(acronym, "Prod");
  }
};

TEST_F(BookFolderContract, StandsInTheLibrarysCatalogue) {
  disk_.write("Docs/Prod/Quor_TOC.xml",
              "<Quor_Master><Quor_Books>"
              "<Book><Book_Acro>AA</Book_Acro><Book_Folder>Alarms</Book_Folder></Book>"
              "<Book><Book_Acro>BB</Book_Acro><Book_Folder>Boilers</Book_Folder></Book>"
              "<Book><Book_Acro>BB</Book_Acro><Book_Folder>Bearings</Book_Folder></Book>"
              "<Book><Book_Acro>CC</Book_Acro></Book>"
              "<Book><Book_Acro>DD</Book_Acro><Book_Folder/></Book>"
              "</Quor_Books></Quor_Master>");
  EXPECT_EQ(folderOf("AA"), "Alarms");
  EXPECT_EQ(folderOf("BB"), "Boilers");
  EXPECT_EQ(folderOf("DD"), "");
}

TEST_F(BookFolderContract, IsTheAcronymWhereTheCatalogueDoesNotSay) {
  EXPECT_EQ(folderOf("AA"), "AA");
  disk_.write("Docs/Prod/Quor_TOC.xml",
              "<Quor_Master><Quor_Books>"
              "<Book><Book_Name>AA</Book_Name></Book>"
              "<Book><Book_Acro>CC</Book_Acro></Book>"
              "</Quor_Books></Quor_Master>");
  EXPECT_EQ(folderOf("AA"), "AA");
  EXPECT_EQ(folderOf("CC"), "CC");
  EXPECT_EQ(folderOf("cc"), "cc");
  EXPECT_EQ(folderOf("x' or '1'='1"), "x' or '1'='1");
  disk_.write("Docs/Prod/Quor_TOC.xml", "<Quor_Master>");
  EXPECT_EQ(folderOf("CC"), "CC");
}

// --- File copy

class FileCopyContract : public ToolsetContract {
 protected:
  /// A book XML file whose headings name these documents.
  static std::string bookNaming(std::initializer_list<std::string_view> documents) {
    std::string text = "<Book_Master><Book><Book_Name>B</Book_Name></Book><Book_Headings>";
    for (const std::string_view document : documents) {
      text.append("<Heading level=\"H1\"><HName>Title</HName><HFile>")
          .append(document)
          .append("</HFile></Heading>");
    }
    return text + "</Book_Headings></Book_Master>";
  }
  void writeBook(std::initializer_list<std::string_view> documents) {
    disk_.write("in/Manual/Book_B.xml", bookNaming(documents));
  }
  bool copy(std::string_view destination, std::string_view source) {
    return toolset_->createFileCopy()->mbCopyFiles(destination, source, 0, 0);
  }
  /// Copies in/Manual/Book_B.xml to lib/Manual, and answers what is there with it then.
  std::vector<std::string> copiedWithBook() {
    EXPECT_TRUE(copy("C:\\lib\\Manual", "C:\\in\\Manual\\Book_B.xml"));
    return filesBelow("lib/Manual/");
  }
  /// The same for in/toc.htm to lib.
  std::vector<std::string> copiedWithPage(std::string_view page) {
    disk_.write("in/toc.htm", page);
    EXPECT_TRUE(copy("C:\\lib", "C:\\in\\toc.htm"));
    return filesBelow("lib/");
  }
  [[nodiscard]] std::vector<std::string> filesBelow(const std::string& folder) const {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : disk_.contents()) {
      if (name.starts_with(folder) && bytes != "(folder)") {
        names.push_back(name.substr(folder.size()));
      }
    }
    return names;
  }
};

TEST_F(FileCopyContract, PutsTheFileIntoTheDestinationFolder) {
  disk_.write("in/report.pdf", "bytes");
  disk_.makeFolder("lib");
  EXPECT_TRUE(copy("C:\\lib", "C:\\in\\report.pdf"));
  EXPECT_EQ(disk_.read("lib/report.pdf"), "bytes");
  EXPECT_EQ(disk_.read("in/report.pdf"), "bytes");
}

TEST_F(FileCopyContract, MakesTheDestinationFolderWithAllFoldersAboveIt) {
  disk_.write("in/report.pdf", "bytes");
  EXPECT_TRUE(copy("C:\\lib\\Prod\\Manual\\", "C:\\in\\report.pdf"));
  EXPECT_EQ(disk_.read("lib/Prod/Manual/report.pdf"), "bytes");
}

TEST_F(FileCopyContract, TakesADestinationThatEndsWithTheFilesOwnNameForTheFile) {
  disk_.write("in/report.pdf", "bytes");
  EXPECT_TRUE(copy("C:\\lib\\Manual\\REPORT.pdf", "C:\\in\\report.pdf"));
  EXPECT_THAT(filesBelow("lib/"), ElementsAre("Manual/REPORT.pdf"));
}

TEST_F(FileCopyContract, UnderstandsBothSeparatorsAndDoubledOnes) {
  disk_.write("in/report.pdf", "bytes");
  EXPECT_TRUE(copy("C:/lib\\\\Manual", "C:\\in\\\\report.pdf"));
  EXPECT_THAT(filesBelow("lib/"), ElementsAre("Manual/report.pdf"));
}

TEST_F(FileCopyContract, OverwritesWhatStandsThere) {
  disk_.write("in/report.pdf", "new");
  disk_.write("lib/report.pdf", "old");
  EXPECT_TRUE(copy("C:\\lib", "C:\\in\\report.pdf"));
  EXPECT_EQ(disk_.read("lib/report.pdf"), "new");
}

TEST_F(FileCopyContract, SucceedsWithoutAnyWorkWhenTheFileIsInPlace) {
  writeBook({"page.htm"});
  disk_.write("in/page.htm", "one folder up, where documents are looked for as well");
  const auto asItStands = disk_.contents();
  EXPECT_TRUE(copy("C:\\in\\MANUAL", "C:\\in\\Manual\\Book_B.xml"));
  EXPECT_EQ(disk_.contents(), asItStands);
}

TEST_F(FileCopyContract, FlushesWhatItHasCopiedAndNothingAsWell) {
  writeBook({"page.htm"});
  disk_.write("in/Manual/page.htm", "");
  const auto copying = toolset_->createFileCopy();
  copying->flush();
  EXPECT_TRUE(copying->mbCopyFiles("C:\\lib\\Manual", "C:\\in\\Manual\\Book_B.xml", 0, 0));
  copying->flush();
  EXPECT_THAT(filesBelow("lib/Manual/"), ElementsAre("Book_B.xml", "page.htm"));
}

TEST_F(FileCopyContract, BringsWhatAPageLinksToWithoutThePageAndLeavesWhatStandsThere) {
  disk_.write("in/toc.htm", "<img src=a.png><img src=deep/b.png><img src=none.png>");
  disk_.write("in/a.png", "new");
  disk_.write("in/deep/b.png", "new");
  disk_.write("lib/A.png", "old");
  const auto copying = toolset_->createFileCopy();
  copying->copyLinkedFiles("C:\\lib", "C:\\in\\toc.htm");
  copying->flush();
  EXPECT_THAT(filesBelow("lib/"), ElementsAre("A.png", "deep/b.png"));
  EXPECT_EQ(disk_.read("lib/A.png"), "old");
}

TEST_F(FileCopyContract, BringsNothingThatAnotherFileThanAPageNames) {
  writeBook({"page.htm"});
  disk_.write("in/Manual/page.htm", "");
  disk_.write("in/Manual/page.txt", "<img src=page.htm>");
  const auto before = disk_.contents();
  const auto copying = toolset_->createFileCopy();
  for (const char* file : {"Book_B.xml", "page.txt", "missing.htm"}) {
    copying->copyLinkedFiles("C:\\lib", "C:\\in\\Manual\\" + std::string(file));
  }
  EXPECT_EQ(disk_.contents(), before);
}

TEST_F(FileCopyContract, FailsWithoutASourceAndMakesNoFolder) {
  EXPECT_FALSE(copy("C:\\lib\\Manual", "C:\\in\\Book_B.xml"));
  EXPECT_FALSE(copy("C:\\lib\\Manual", ""));
  EXPECT_TRUE(disk_.contents().empty());
}

TEST_F(FileCopyContract, FailsWhenTheFileCannotBePutIntoPlace) {
  disk_.write("in/report.pdf", "bytes");
  disk_.write("lib", "a file where the folder should be");
  EXPECT_FALSE(copy("C:\\lib\\Manual", "C:\\in\\report.pdf"));
  EXPECT_FALSE(copy("", "C:\\in\\report.pdf"));
  disk_.makeFolder("out/report.pdf");
  EXPECT_FALSE(copy("C:\\out", "C:\\in\\report.pdf"));
}

TEST_F(FileCopyContract, ShowsNoBox) {
  EXPECT_FALSE(copy("C:\\lib", "C:\\missing.xml"));
  EXPECT_THAT(user_.record(), IsEmpty());
}

TEST_F(FileCopyContract, BringsTheDocumentsThatABookNames) {
  writeBook({"intro.htm", "", "setup.pdf", "missing.htm"});
  disk_.write("in/Manual/intro.htm", "intro");
  disk_.write("in/Manual/setup.pdf", "setup");
  disk_.write("in/Manual/unrelated.htm", "unrelated");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml", "intro.htm", "setup.pdf"));
  EXPECT_EQ(disk_.read("lib/Manual/setup.pdf"), "setup");
}

TEST_F(FileCopyContract, ReadsADocumentsNameUpToItsBookmark) {
  writeBook({"intro.htm#top", "#nowhere"});
  disk_.write("in/Manual/intro.htm", "intro");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml", "intro.htm"));
}

TEST_F(FileCopyContract, LooksForADocumentInTheFolderAboveWhenItIsNotBesideTheBook) {
  writeBook({"intro.htm", "setup.htm", "far.htm"});
  disk_.write("in/Manual/intro.htm", "beside");
  disk_.write("in/intro.htm", "above");
  disk_.write("in/setup.htm", "above");
  disk_.write("far.htm", "two above");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml", "intro.htm", "setup.htm"));
  EXPECT_EQ(disk_.read("lib/Manual/intro.htm"), "beside");
}

TEST_F(FileCopyContract, LooksInTheFolderAboveOnlyWhereTheBookFileWasMovedIntoItsBooksFolder) {
  writeBook({"setup.htm"});
  disk_.write("in/setup.htm", "above");
  EXPECT_TRUE(copy("C:\\lib\\Manual", "C:\\in\\Manual\\\\Book_B.xml"));
  EXPECT_TRUE(copy("C:\\lib\\Other", "C:\\in\\Manual\\Book_B.xml"));
  EXPECT_TRUE(copy("C:\\lib\\Third\\Book_B.xml", "C:\\in\\Manual\\Book_B.xml"));
  EXPECT_THAT(filesBelow("lib/"),
              ElementsAre("Manual/Book_B.xml", "Other/Book_B.xml", "Third/Book_B.xml"));
}

TEST_F(FileCopyContract, LooksForDocumentsAtTheRootOfTheDriveToo) {
  disk_.write("Book_B.xml", bookNaming({"intro.htm"}));
  disk_.write("intro.htm", "intro");
  EXPECT_TRUE(copy("C:\\lib", "C:\\Book_B.xml"));
  EXPECT_THAT(filesBelow("lib/"), ElementsAre("Book_B.xml", "intro.htm"));
}

TEST_F(FileCopyContract, KeepsTheFoldersOfDocuments) {
  writeBook({"deep\\er\\intro.htm", "deep/setup.htm", ".\\near.htm", "deep\\\\last.htm"});
  disk_.write("in/Manual/deep/er/intro.htm", "");
  disk_.write("in/Manual/deep/setup.htm", "");
  disk_.write("in/Manual/near.htm", "");
  disk_.write("in/Manual/deep/last.htm", "");
  EXPECT_THAT(
      copiedWithBook(),
      ElementsAre(
          "Book_B.xml", "deep/er/intro.htm", "deep/last.htm", "deep/setup.htm", "near.htm"));
}

TEST_F(FileCopyContract, ReadsTheDocumentsOfBookFilesOnly) {
  disk_.write("in/Manual/Book_B.xml",
              "<Other><Book_Master><HFile>intro.htm</HFile></Book_Master></Other>");
  disk_.write("in/Manual/intro.htm", "");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml"));
}

TEST_F(FileCopyContract, ReadsAFileAsABookFileOnlyWhenItsNameHasTheExtensionSomewhere) {
  disk_.write("in/Manual/book.XML.bak", bookNaming({"intro.htm"}));
  disk_.write("in/Manual/book.dat", bookNaming({"setup.htm"}));
  disk_.write("in/Manual/intro.htm", "");
  disk_.write("in/Manual/setup.htm", "");
  EXPECT_TRUE(copy("C:\\lib\\Manual", "C:\\in\\Manual\\book.XML.bak"));
  EXPECT_TRUE(copy("C:\\lib\\Manual", "C:\\in\\Manual\\book.dat"));
  EXPECT_THAT(filesBelow("lib/Manual/"), ElementsAre("book.XML.bak", "book.dat", "intro.htm"));
}

TEST_F(FileCopyContract, NeverReadsAPageAsABookFile) {
  disk_.write("in/Manual/page.htm", bookNaming({"intro.htm"}));
  disk_.write("in/Manual/intro.htm", "");
  EXPECT_TRUE(copy("C:\\lib\\Manual", "C:\\in\\Manual\\page.htm"));
  EXPECT_THAT(filesBelow("lib/"), ElementsAre("Manual/page.htm"));
}

TEST_F(FileCopyContract, BringsABookFileThatDoesNotParseByItself) {
  disk_.write("in/Manual/Book_B.xml", "<Book_Master><HFile>intro.htm</HFile>");
  disk_.write("in/Manual/intro.htm", "");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml"));
}

TEST_F(FileCopyContract, GoesOnAfterADocumentThatCannotBeCopied) {
  writeBook({"intro.htm", "setup.htm"});
  disk_.write("in/Manual/intro.htm", "");
  disk_.write("in/Manual/setup.htm", "");
  disk_.makeFolder("lib/Manual/intro.htm");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml", "setup.htm"));
}

TEST_F(FileCopyContract, NeverFollowsADocumentsNameOutOfItsFolder) {
  writeBook({"..\\secret.htm",
             "deep\\..\\..\\secret.htm",
             "\\secret.htm",
             "/secret.htm",
             "C:\\secret.htm",
             "C:secret.htm",
             "\\\\server\\share\\secret.htm",
             "http://example.com/secret.htm",
             "..",
             "."});
  disk_.write("in/secret.htm", "");
  disk_.write("secret.htm", "");
  disk_.makeFolder("in/Manual/deep");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml"));
  EXPECT_FALSE(disk_.has("lib/secret.htm"));
}

TEST_F(FileCopyContract, BringsTheFilesThatAPageLinksTo) {
  disk_.write("in/logo.png", "logo");
  disk_.write("in/pages/one.htm", "");
  EXPECT_THAT(copiedWithPage("<img src=\"logo.png\"><a href='pages/one.htm#top'>One</a>"
                             "<a href=missing.htm>"),
              ElementsAre("logo.png", "pages/one.htm", "toc.htm"));
}

TEST_F(FileCopyContract, KnowsAPageByItsExtensionInAnyLetterCase) {
  disk_.write("in/Toc.HtMl", "<img src=logo.png>");
  disk_.write("in/toc.txt", "<img src=other.png>");
  disk_.write("in/logo.png", "");
  disk_.write("in/other.png", "");
  EXPECT_TRUE(copy("C:\\lib", "C:\\in\\Toc.HtMl"));
  EXPECT_TRUE(copy("C:\\lib", "C:\\in\\toc.txt"));
  EXPECT_THAT(filesBelow("lib/"), ElementsAre("Toc.HtMl", "logo.png", "toc.txt"));
}

TEST_F(FileCopyContract, BringsTheLinkedFilesOfABooksPagesButNotOfThosePages) {
  writeBook({"intro.htm"});
  disk_.write("in/Manual/intro.htm", "<a href=more.htm>");
  disk_.write("in/Manual/more.htm", "<a href=evenmore.htm>");
  disk_.write("in/Manual/evenmore.htm", "");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml", "intro.htm", "more.htm"));
}

TEST_F(FileCopyContract, LooksForLinkedFilesBelowThePagesOwnFolder) {
  writeBook({"intro.htm", "deep\\page.htm"});
  disk_.write("in/Manual/intro.htm", "<img src=above.png>");
  disk_.write("in/Manual/deep/page.htm", "<img src=img/inner.png><img src=outer.png>");
  disk_.write("in/Manual/deep/img/inner.png", "");
  disk_.write("in/Manual/outer.png", "");
  disk_.write("in/above.png", "");
  EXPECT_THAT(copiedWithBook(),
              ElementsAre("Book_B.xml", "deep/img/inner.png", "deep/page.htm", "intro.htm"));
}

TEST_F(FileCopyContract, BringsTheLinkedFilesOfAPageFromTheFolderAbove) {
  writeBook({"intro.htm"});
  disk_.write("in/intro.htm", "<img src=img/logo.png>");
  disk_.write("in/img/logo.png", "");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml", "img/logo.png", "intro.htm"));
}

TEST_F(FileCopyContract, PutsNoLinkedFileInThePlaceOfADocument) {
  writeBook({"first.htm", "second.htm"});
  disk_.write("in/first.htm", "<a href=second.htm>");
  disk_.write("in/second.htm", "above");
  disk_.write("in/Manual/second.htm", "beside");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml", "first.htm", "second.htm"));
  EXPECT_EQ(disk_.read("lib/Manual/second.htm"), "beside");
}

TEST_F(FileCopyContract, PutsNoLinkedFileInThePlaceOfTheFileItself) {
  writeBook({"first.htm"});
  disk_.write("in/first.htm", "<a href=Book_B.xml>");
  disk_.write("in/Book_B.xml", "above");
  EXPECT_THAT(copiedWithBook(), ElementsAre("Book_B.xml", "first.htm"));
  EXPECT_EQ(disk_.read("lib/Manual/Book_B.xml"), disk_.read("in/Manual/Book_B.xml"));
}

TEST_F(FileCopyContract, ReadsPagesInEveryEncodingOfTextFiles) {
  disk_.write("in/\u00DC.png", "");
  disk_.write("in/\u00C4.png", "");
  disk_.write("in/toc.htm", utf16File("<img src=\"\u00DC.png\">"));
  EXPECT_TRUE(copy("C:\\lib", "C:\\in\\toc.htm"));
  disk_.write("in/toc.htm", "<img src=\"\u00C4.png\">");
  EXPECT_TRUE(copy("C:\\lib", "C:\\in\\toc.htm"));
  EXPECT_THAT(filesBelow("lib/"), ElementsAre("toc.htm", "\u00C4.png", "\u00DC.png"));
}

TEST_F(FileCopyContract, FindsLinkedFilesByTheirEscapedNames) {
  disk_.write("in/Two words.png", "");
  disk_.write("in/R&D.png", "");
  EXPECT_THAT(copiedWithPage("<img src='Two%20words.png?v=1'><img src='R&amp;D.png'>"),
              ElementsAre("R&D.png", "Two words.png", "toc.htm"));
}

TEST_F(FileCopyContract, NeverFollowsALinkOutOfThePagesFolder) {
  disk_.write("secret.htm", "");
  disk_.write("in/deep/page.htm", "");
  EXPECT_THAT(copiedWithPage("<a href='../secret.htm'><a href='deep/../../secret.htm'>"
                             "<a href='%2e%2e/secret.htm'><a href='..%5Csecret.htm'>"
                             "<a href='/secret.htm'><a href='//server/secret.htm'>"
                             "<a href='C:/secret.htm'><a href='file:///C:/secret.htm'>"
                             "<a href='deep/page.htm:stream'><a href='mailto:a@example.com'>"),
              ElementsAre("toc.htm"));
}

}  // namespace
}  // namespace quorbind::testing
