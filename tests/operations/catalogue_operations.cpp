// The list of libraries and the catalogue of one, as hosts read and change them.

#include "tests/operations/operations_test.h"
#include "tests/support/book_text.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kList = "Docs/Quor_Selection.xml";
constexpr const char* kCatalogue = "C:\\Docs\\Plant\\Quor_TOC.xml";
constexpr const char* kCatalogueFile = "Docs/Plant/Quor_TOC.xml";
constexpr const char* kBookFile = "Docs/Plant/Manual/Book_ALM.xml";

class CatalogueOperations : public OperationsTest {
 protected:
  CatalogueOperations() {
    write(kList,
          "<Quor_Selection_List><Quors>"
          "<Quor><Quor_Name>Plant</Quor_Name><Quor_Location>Docs\\Plant</Quor_Location></Quor>"
          "<Quor><Quor_Name>Lab</Quor_Name><Quor_Location/></Quor>"
          "</Quors></Quor_Selection_List>");
    write(kCatalogueFile, catalogueWith(entryOf(alarms) + entryOf(research)));
    write(kBookFile, bookXmlOf(alarms));
  }

  void enterNaming(const std::string& name, const std::string& acronym) {
    host().willEnter(name, acronym);
    EXPECT_EQ(call("mbGetFormInput", {"", 1}), "True");
    EXPECT_THAT(shown(), ElementsAre("form frmBookInfo"));
  }
  /// A rename that is refused with this box.
  void expectRenameRefused(const std::string& name,
                           const std::string& acronym,
                           const std::string& box) {
    enterNaming(name, acronym);
    expectRefused("strBookAcroInfo", {kCatalogue, "Alarms"}, "nothing", box);
  }

  const BookCase alarms{"Alarms", "ALM", "ALM@QUOR@1", {"Operation", "Repair"}};
  /// As stored: its name is typed `R&D`.
  const BookCase research{"R&amp;amp;D", "RD", "", {}};
};

// The list of libraries

TEST_P(CatalogueOperations, ListTheLibrariesBehindWhichOneEmptyNameStands) {
  EXPECT_EQ(call("QuorNames"), R"(["Plant", "Lab", ""])");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CatalogueOperations, AnswerWhereTheCatalogueOfALibraryIs) {
  EXPECT_EQ(call("QuorLocation", {"Plant"}), R"("C:\Docs\Plant\Quor_TOC.xml")");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CatalogueOperations, TellOfALibraryThatIsNotListedOrHasNoLocation) {
  expectRefused(
      "QuorLocation", {"plant"}, R"("")", "critical: Productplantis not present in Quor_TOC.xml");
  expectRefused("QuorLocation",
                {"Lab"},
                R"("")",
                "critical: Quor_Location Tag is missing in Quor_Selection.xml For Lab");
}

TEST_P(CatalogueOperations, TellOfAListOfLibrariesThatIsDamagedOrMissing) {
  const std::string notValid = "critical: Quor_Selection.XML is not of valid format";
  write(kList, "<Quor_Selection_List>");
  expectRefused("QuorLocation", {"Plant"}, R"("")", notValid);
  expectRefused("QuorNames", {}, "nothing", notValid);
  std::filesystem::remove(host().disk().path() / kList);
  expectRefused("QuorLocation", {"Plant"}, R"("")", "critical: Quor_Selection.XML is not found");
  expectRefused("QuorNames", {}, "nothing", notValid);
}

TEST_P(CatalogueOperations, ReportALibraryWhoseNameCanNotBeLookedUp) {
  expectRefused("QuorLocation",
                {"a\"b"},
                R"("")",
                "critical: Error(-2147467259): The value a\"b can't stand in a query between the "
                "quote characters it contains.\nQuorbind:Book_Config::strQuorLoacation");
}

// What a catalogue says

TEST_P(CatalogueOperations, ListTheBooksAsTheyAreStoredBehindWhichOneEmptyNameStands) {
  EXPECT_EQ(call("BookInfo", {kCatalogue}), R"(["Alarms", "R&amp;D", ""])");
  write(kCatalogueFile, catalogueWith(""));
  EXPECT_EQ(call("BookInfo", {kCatalogue}), R"([""])");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CatalogueOperations, ListTheBooksOfACatalogueInAnyScript) {
  write(kCatalogueFile,
        utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?><Quor_Master><Quor_Books><Book>"
                  "<Book_Name>Grüße 中文 😀</Book_Name></Book></Quor_Books></Quor_Master>"));
  EXPECT_EQ(call("BookInfo", {kCatalogue}), R"(["Grüße 中文 😀", ""])");
}

TEST_P(CatalogueOperations, LeaveTheListOfBooksUnsetForADamagedCatalogue) {
  write(kCatalogueFile, "<Quor_Master>");
  expectRefused(
      "BookInfo", {kCatalogue}, "nothing", "critical: Quor_TOC.xml is not of valid format");
}

TEST_P(CatalogueOperations, ListTheCategoriesOfABookByItsTypedName) {
  EXPECT_EQ(call("CategorieInfo", {kCatalogue, "Alarms"}), R"(["Operation", "Repair", ""])");
  EXPECT_EQ(call("CategorieInfo", {kCatalogue, "R&D"}), R"([""])");
  EXPECT_EQ(call("CategorieInfo", {kCatalogue, "Trends"}), "nothing");
  write(kCatalogueFile, "<Quor_Master>");
  EXPECT_EQ(call("CategorieInfo", {kCatalogue, "Alarms"}), "nothing");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CatalogueOperations, ReportABookWithoutTheElementOfItsCategories) {
  write(kCatalogueFile, catalogueWith("<Book><Book_Name>Alarms</Book_Name></Book>"));
  expectRefused("CategorieInfo",
                {kCatalogue, "Alarms"},
                "nothing",
                std::string("critical: Error(91): ") + kObjectNotSet +
                    "\nQuorbind:Book_Config::CategorieInfo");
}

TEST_P(CatalogueOperations, PutFolderAndLinkOfABookByItsStoredNameIntoTheCallersTexts) {
  EXPECT_EQ(call("strFolderLinkInfo", {kCatalogue, "Alarms", "old", ""}),
            R"(nothing, 3: "Manual", 4: "ALM@QUOR@1")");
  EXPECT_EQ(call("strFolderLinkInfo", {kCatalogue, "R&D", "old", "old"}),
            R"(nothing, 3: "", 4: "")");
  EXPECT_EQ(call("strFolderLinkInfo", {kCatalogue, "R&amp;D", "old", "old"}),
            R"(nothing, 3: "Manual", 4: "")");
  write(kCatalogueFile, "<Quor_Master>");
  EXPECT_EQ(call("strFolderLinkInfo", {kCatalogue, "Alarms", "old", "old"}), "nothing");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CatalogueOperations, AnswerTheAcronymOfABookByItsStoredName) {
  EXPECT_EQ(call("GetBookAcro", {kCatalogue, "Alarms"}), R"("ALM")");
  EXPECT_EQ(call("GetBookAcro", {kCatalogue, "R&D"}), R"("")");
  EXPECT_EQ(call("GetBookAcro", {kCatalogue, "a\"b"}), R"("")");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CatalogueOperations, ReadAndKeepACatalogueThatAnotherProgramWrote) {
  write(kCatalogueFile,
        "<?xml version='1.0' encoding='windows-1252' standalone='yes'?><!-- theirs --><?tool a?>"
        "<Quor_Master xmlns:x='urn:x'><Quor_Books><Book x:by='them'><Book_Name><![CDATA[R&D]]>"
        "</Book_Name>\n<Book_Acro>&#x41;\xC4</Book_Acro><Book_Key id='a&#10;b'/></Book>"
        "</Quor_Books></Quor_Master>");
  EXPECT_EQ(call("BookInfo", {kCatalogue}), R"(["R&D", ""])");
  EXPECT_EQ(call("GetBookAcro", {kCatalogue, "R&D"}), R"("AÄ")");
  EXPECT_EQ(call("DeleteQuorNode", {kCatalogue, "Alarms"}), "nothing");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(bytes(kCatalogueFile),
            saved("<?xml version=\"1.0\" encoding=\"windows-1252\" standalone=\"yes\"?>\n"
                  "<!-- theirs -->\n"
                  "<?tool a?>\n"
                  "<Quor_Master xmlns:x=\"urn:x\">\n"
                  "\t<Quor_Books>\n"
                  "\t\t<Book x:by=\"them\">\n"
                  "\t\t\t<Book_Name><![CDATA[R&D]]></Book_Name>\n"
                  "\t\t\t<Book_Acro>A\xC4</Book_Acro>\n"
                  "\t\t\t<Book_Key id=\"a&#10;b\"/>\n"
                  "\t\t</Book>\n"
                  "\t</Quor_Books>\n"
                  "</Quor_Master>\n"));
}

// Renaming

TEST_P(CatalogueOperations, RenameABookToWhatTheUserEntersInTheDialog) {
  const BookCase grown{"Grüße 中文", "GR", alarms.link, alarms.categories};
  enterNaming(grown.name, grown.acronym);
  EXPECT_EQ(call("strBookAcroInfo", {kCatalogue, "Alarms"}), "nothing");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(bytes(kCatalogueFile), saved(catalogueWith(entryOf(grown) + entryOf(research))));
  EXPECT_FALSE(has(kBookFile));
  EXPECT_EQ(bytes("Docs/Plant/Manual/Book_GR.xml"), saved(bookXmlOf(grown)));
}

TEST_P(CatalogueOperations, RenameABookToANameWithMarkupCharacters) {
  const BookCase marked{"A &amp;amp; &amp;lt;B&amp;gt;", "AB", alarms.link, alarms.categories};
  enterNaming("A & <B>", "AB");
  EXPECT_EQ(call("strBookAcroInfo", {kCatalogue, "Alarms"}), "nothing");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(bytes(kCatalogueFile), saved(catalogueWith(entryOf(marked) + entryOf(research))));
}

TEST_P(CatalogueOperations, RenameNothingWithoutTheBook) {
  enterNaming("Warnings", "WRN");
  const auto before = allFiles();
  EXPECT_EQ(call("strBookAcroInfo", {kCatalogue, "Trends"}), "nothing");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(allFiles(), before);
}

TEST_P(CatalogueOperations, RefuseARenameToNothing) {
  expectRefused("strBookAcroInfo",
                {kCatalogue, "Alarms"},
                "nothing",
                "critical: Enter a valid string for Book Name and Book Acro");
}

TEST_P(CatalogueOperations, RefuseARenameToTheNameOfAnotherBook) {
  expectRenameRefused("r&d", "NEW", "critical: Error:Book Name r&d already Exists");
}

TEST_P(CatalogueOperations, RefuseARenameToTheAcronymOfAnotherBook) {
  expectRenameRefused("New", "rd", "critical: Error:Book Acro rd already Exists");
}

TEST_P(CatalogueOperations, ReportARenameOfAnEntryWithoutAFolder) {
  write(kCatalogueFile,
        catalogueWith("<Book><Book_Name>Alarms</Book_Name><Book_Acro>ALM</Book_Acro></Book>"));
  expectRenameRefused("Warnings",
                      "WRN",
                      std::string("critical: Error(91): ") + kObjectNotSet +
                          "\nQuorbind:Book_Config::msetMatchingBokkIno");
}

TEST_P(CatalogueOperations, PutTheEnteredNamingIntoABookFile) {
  enterNaming("Warnings", "WRN");
  EXPECT_EQ(call("UpdateBookNameAcro", {"C:\\Docs\\Plant\\Manual\\Book_ALM.xml", "Alarms", "ALM"}),
            "nothing");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(bytes(kBookFile),
            saved(bookXmlOf({"Warnings", "WRN", alarms.link, alarms.categories})));
}

TEST_P(CatalogueOperations, ReportABookFileOfAnotherBook) {
  expectRefused("UpdateBookNameAcro",
                {"C:\\Docs\\Plant\\Manual\\Book_ALM.xml", "Trends", "TRD"},
                "nothing",
                std::string("critical: Error(91): ") + kObjectNotSet +
                    "\nQuorbind:Book_Config::UpdateBookNameAcro");
}

// Deleting

TEST_P(CatalogueOperations, TakeABookOut) {
  EXPECT_EQ(call("DeleteQuorNode", {kCatalogue, "Alarms"}), "nothing");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(bytes(kCatalogueFile), saved(catalogueWith(entryOf(research))));
  EXPECT_EQ(bytes(kBookFile), bookXmlOf(alarms));
}

TEST_P(CatalogueOperations, RewriteTheCatalogueForABookThatItDoesNotHave) {
  EXPECT_EQ(call("DeleteQuorNode", {kCatalogue, "R&D"}), "nothing");
  EXPECT_EQ(bytes(kCatalogueFile), saved(catalogueWith(entryOf(alarms) + entryOf(research))));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CatalogueOperations, ReportADeletionOfANameWithAnApostrophe) {
  expectRefused("DeleteQuorNode",
                {kCatalogue, "O'Neil"},
                "nothing",
                "critical: Error(-2147467259): The value O'Neil can't stand in a query between the "
                "quote characters it contains.\nQuorbind:Book_Config::DeleteNode");
}

// Merging

TEST_P(CatalogueOperations, TakeLinksAndCategoriesOverFromAnotherCatalogue) {
  const BookCase other{"Alarms", "ALM", "ALM@QUOR@2", {"Safety"}};
  write("Other/Quor_TOC.xml", catalogueWith(entryOf(other)));
  EXPECT_EQ(call("strMatchingBooksInfo", {"C:/Docs/Plant/Quor_TOC.xml", "C:\\Other\\Quor_TOC.xml"}),
            "nothing");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(bytes(kCatalogueFile), saved(catalogueWith(entryOf(other) + entryOf(research))));
  EXPECT_EQ(bytes(kBookFile), saved(bookXmlOf(other)));
  EXPECT_EQ(bytes("Other/Quor_TOC.xml"), catalogueWith(entryOf(other)));
}

TEST_P(CatalogueOperations, ReportAMergeIntoACatalogueThatDoesNotLoad) {
  write(kCatalogueFile, "<Quor_Master>");
  expectRefused("strMatchingBooksInfo",
                {kCatalogue, kCatalogue},
                "nothing",
                std::string("critical: Error(-1072896680): ") + kNoTopLevelElement +
                    "\nQuorbind:Book_Config::strMatchingBooksInfo");
}

QUOR_IN_EVERY_WAY(CatalogueOperations);

}  // namespace
}  // namespace quorbind::testing
