#include "tests/bad_input/damage_rules.h"

#include <algorithm>
#include <utility>

namespace quorbind::testing {

namespace {

using namespace library_file;
using Files = DamagedEnd::Files;
using Kind = XmlDamage::Kind;
using Kinds = std::vector<Kind>;
using Record = std::vector<std::string>;
using Operations = std::vector<const char*>;

struct Rule {
  Operations operations;
  const char* file;
  Kinds kinds;
  DamagedEnd end;
};
using Rules = std::vector<Rule>;

const Kinds kNotLoading{Kind::kUnreadable, Kind::kMissing, Kind::kFolder};
const Kinds kAny{Kind::kUnreadable, Kind::kMissing, Kind::kFolder, Kind::kForeign};
const Kinds kUnreadable{Kind::kUnreadable};
const Kinds kMissing{Kind::kMissing};
const Kinds kFolder{Kind::kFolder};
const Kinds kForeign{Kind::kForeign};
const Kinds kNoFile{Kind::kMissing, Kind::kFolder};
const Kinds kAnyFile{Kind::kUnreadable, Kind::kForeign};

constexpr const char* kTrue = "answers True";
constexpr const char* kFalse = "answers False";
constexpr const char* kEmpty = "answers ";
constexpr const char* kUnset = "answers an unset array";
constexpr const char* kPlaceholder = "answers []";

std::string sourceLine(const std::string& error, const std::string& source) {
  return "critical: Error(" + error + "\r" + source;
}
/// The box of an error with a blank behind the number.
std::string wide(const std::string& source) {
  return sourceLine("91): Object variable or With block variable not set", source);
}
/// The same without it.
std::string tight(const std::string& source) {
  return sourceLine("91):Object variable or With block variable not set", source);
}
std::string empty(const std::string& beginning, const std::string& source) {
  return beginning + "XML document must have a top level element.\r" + source;
}
std::string notAFile(const std::string& source) {
  return sourceLine("75):Path/File access error", source);
}
std::string underTitle(const std::string& title) {
  return "information: [" + title + "] 91: Object variable or With block variable not set";
}
std::string unparsable(const std::string& icon, const char* file, const std::string& source) {
  return icon + ": Error(-2147220990): " + componentPath(file) + "...\r" + source;
}

const std::string kNoCategory =
    "message: Error 91 (Object variable or With block variable not set) in procedure "
    "AddCategoryNode of Class Module Quor_Book";
const std::string kNothingLoaded = "information: File does not exist";
const std::string kKeywordSource = "Quorbind-Quor_Book::AddKeywordsToXmlFile";
const std::string kNewKeywordsSource = "Quorbind-Quor_Book::CreateKeywordXmlFile";
const std::string kNewCategoriesSource = "Quorbind-Book_Config::CreateBookCateXMLFile";
const std::string kLinkSource = "Quorbind-Quor_Book::AddToLinkIDFile";
const std::string kMergeSource = "Quorbind: Quor_Book::AddLinkIDInfo";
const std::string kDuplicateSource = "Quorbind: Quor_Book::CheckDuplicateLinkID";
constexpr const char* kText = "Book_Valuator of a text";
constexpr const char* kPage = "Book_Valuator of a page";
constexpr const char* kBookFile = "Book_Valuator of a book file";
constexpr const char* kWorkbook = "Book_Valuator of a workbook";
const std::string kUpdateSource = "Quorbind:Book_Config::UpdateBookNameAcro";

Record twice(const std::string& box) {
  return {box, box};
}
Record answering(Record boxes, const char* answer) {
  boxes.emplace_back(answer);
  return boxes;
}

DamagedEnd nothingChanges(Record record = {}) {
  return {std::move(record), Files::kNothingChanges};
}
DamagedEnd othersAsUsual(Record record) {
  return {std::move(record), Files::kOthersAsUsual};
}
DamagedEnd allAsUsual(Record record = {}) {
  return {std::move(record), Files::kAllAsUsual};
}
DamagedEnd made(Record record, const char* target, std::string text) {
  return {std::move(record), Files::kTargetIsMade, target, std::move(text)};
}

std::string bookOf(const std::string& name, const Record& words) {
  std::string text = "\t<Book Book_Name=\"" + name + "\">\r\n\t\t<Keywords>\r\n";
  for (const std::string& word : words) {
    text += word.empty() ? "\t\t\t<Keyword/>\r\n" : "\t\t\t<Keyword>" + word + "</Keyword>\r\n";
  }
  return text + "\t\t</Keywords>\r\n\t</Book>\r\n";
}
std::string keywordsOf(const std::string& book, const Record& words) {
  return "<Books>\r\n" + bookOf(book, words) + "</Books>\r\n";
}

std::string idOf(const std::string& identifier,
                 const std::string& acronym,
                 const std::string& place,
                 const std::string& source) {
  const std::string bookAcro =
      acronym.empty() ? "<BookAcro/>" : "<BookAcro>" + acronym + "</BookAcro>";
  return "\t\t<ID>\r\n\t\t\t<LinkID>" + identifier + "</LinkID>\r\n\t\t\t<FullLink>" + acronym +
         place + "</FullLink>\r\n\t\t\t<LinkIDSourceFile>Plant\\" + source +
         "</LinkIDSourceFile>\r\n\t\t\t" + bookAcro + "\r\n\t\t</ID>\r\n";
}
std::string linksOf(const std::string& identifiers) {
  return "<LINKS>\r\n\t<IBD>\r\n" + identifiers + "\t</IBD>\r\n</LINKS>\r\n";
}
std::string linkOf(const std::string& identifier, const std::string& acronym) {
  return linksOf(idOf(identifier, acronym, "@QUOR@Bells", "a.htm"));
}

Rules selectionRules() {
  return {
      {{"QuorLocation"},
       kSelection,
       kNoFile,
       nothingChanges({"critical: Quor_Selection.XML is not found", kEmpty})},
      {{"QuorLocation"},
       kSelection,
       kUnreadable,
       nothingChanges({"critical: Quor_Selection.XML is not of valid format", kEmpty})},
      {{"QuorLocation"},
       kSelection,
       kForeign,
       nothingChanges({"critical: ProductToolsis not present in Quor_TOC.xml", kEmpty})},
      {{"QuorNames"},
       kSelection,
       kNotLoading,
       nothingChanges({"critical: Quor_Selection.XML is not of valid format", kUnset})},
      {{"QuorNames"}, kSelection, kForeign, nothingChanges({kPlaceholder})},
      {{"CheckDuplicateLinkID"},
       kSelection,
       kUnreadable,
       nothingChanges({unparsable("critical", kSelection, kDuplicateSource), kFalse})},
      // The identifier is recorded all the same.
      {{"GenerateBookLinkID"},
       kSelection,
       kUnreadable,
       othersAsUsual({unparsable("critical", kSelection, kDuplicateSource)})},
      {{"UpdateQuorLinkIDFile"},
       kSelection,
       kUnreadable,
       othersAsUsual(twice(unparsable("critical", kSelection, kDuplicateSource)))},
      {{kPage},
       kSelection,
       kUnreadable,
       othersAsUsual({unparsable("critical", kSelection, kDuplicateSource), kTrue})},
      {{kWorkbook},
       kSelection,
       kUnreadable,
       othersAsUsual(
           answering(twice(unparsable("critical", kSelection, kDuplicateSource)), kTrue))},
  };
}

Rules catalogueQueryRules() {
  return {
      {{"BookInfo"},
       kCatalogue,
       kNotLoading,
       nothingChanges({"critical: Quor_TOC.xml is not of valid format", kUnset})},
      {{"BookInfo"}, kCatalogue, kForeign, nothingChanges({kPlaceholder})},
      {{"CategorieInfo"}, kCatalogue, kAny, nothingChanges({kUnset})},
      {{"strFolderLinkInfo"},
       kCatalogue,
       kNotLoading,
       nothingChanges({"answers [as it was|as it was]"})},
      {{"strFolderLinkInfo"}, kCatalogue, kForeign, nothingChanges({"answers [|]"})},
      {{"GetBookAcro"}, kCatalogue, kAny, nothingChanges({kEmpty})},
      {{"GetBookAcroValue"}, kCatalogue, kAny, nothingChanges({kPlaceholder})},
      {{"GetBookAcroInfo"}, kCatalogue, kAny, nothingChanges()},
      {{"mbCheckQuorTOCForBook"}, kCatalogue, kNotLoading, nothingChanges({kFalse})},
  };
}

Rules catalogueChangeRules() {
  const Operations properties{"mbsetQuorBookProperties",
                              "mbsetQuorBookProperties in another folder"};
  const Operations installations{"CreateQuorBookNodeForSEntry",
                                 "CreateQuorBookNodeForSEntry with new categories"};
  return {
      {{"strBookAcroInfo", "DeleteQuorNode"}, kCatalogue, kAny, nothingChanges()},
      {{"strMatchingBooksInfo"},
       kCatalogue,
       kNotLoading,
       nothingChanges({empty("critical: Error(-1072896680): ",
                             "Quorbind:Book_Config::strMatchingBooksInfo")})},
      {{"strMatchingBooksInfo"}, kCatalogue, kForeign, nothingChanges()},
      {{"strMatchingBooksInfo"}, kOtherCatalogue, kAny, nothingChanges()},
      {properties, kCatalogue, kNotLoading, nothingChanges({kTrue})},
      {properties,
       kCatalogue,
       kForeign,
       nothingChanges({wide("Quorbind:Book_Config::mserQuorBookProperties"), kFalse})},
      {installations, kCatalogue, kNotLoading, nothingChanges()},
      {{kText, kPage},
       kCatalogue,
       kNotLoading,
       othersAsUsual({wide("Quorbind: Quor_Book::mbAddBookTocForBook"), kTrue})},
      {{kWorkbook},
       kCatalogue,
       kNotLoading,
       othersAsUsual(answering(twice(wide("Quorbind: Quor_Book::mbAddBookTocForBook")), kTrue))},
      // Without a catalogue the place that the book file states is not taken over.
      {{kBookFile},
       kCatalogue,
       kNotLoading,
       othersAsUsual(
           {"form frmBookFolder", wide("Quorbind: Quor_Book::mbAddBookTocForBook"), kTrue})},
  };
}

Rules bookFileRules() {
  constexpr const char* kRenamed = "Docs/Plant/Manual/Book_WRN.xml";
  constexpr const char* kCopied = "Docs/Plant/New/Book_ALM.xml";
  constexpr const char* kElsewhere = "mbsetQuorBookProperties in another folder";
  const std::string linkTold = wide("Quorbind:Book_Config::msetBookProperties");
  return {
      // The file moves with the bytes that it has.
      {{"strBookAcroInfo"}, kBook, kUnreadable, {{}, Files::kMovedToTarget, kRenamed}},
      {{"strBookAcroInfo"},
       kBook,
       kForeign,
       {{wide(kUpdateSource)}, Files::kMovedToTarget, kRenamed}},
      // The entry goes on naming the file that is not there.
      {{"strBookAcroInfo"},
       kBook,
       kNoFile,
       {{},
        Files::kTargetAlone,
        kCatalogue,
        "<Quor_Master>\r\n"
        "\t<Quor_Books>\r\n"
        "\t\t<Book>\r\n"
        "\t\t\t<Book_Name>Warnings</Book_Name>\r\n"
        "\t\t\t<Book_Acro>WRN</Book_Acro>\r\n"
        "\t\t\t<Book_Key id=\"\">Plant</Book_Key>\r\n"
        "\t\t\t<Book_Folder>Manual</Book_Folder>\r\n"
        "\t\t\t<Book_File>Book_ALM.xml</Book_File>\r\n"
        "\t\t\t<Book_Categories>\r\n"
        "\t\t\t\t<Book_Category>Safety</Book_Category>\r\n"
        "\t\t\t</Book_Categories>\r\n"
        "\t\t</Book>\r\n"
        "\t\t<Book>\r\n"
        "\t\t\t<Book_Name>Trends</Book_Name>\r\n"
        "\t\t\t<Book_Acro>TRD</Book_Acro>\r\n"
        "\t\t\t<Book_Key id=\"\">Plant</Book_Key>\r\n"
        "\t\t\t<Book_Folder>Manual</Book_Folder>\r\n"
        "\t\t\t<Book_File>Book_TRD.xml</Book_File>\r\n"
        "\t\t\t<Book_Categories/>\r\n"
        "\t\t</Book>\r\n"
        "\t</Quor_Books>\r\n"
        "</Quor_Master>\r\n"}},
      {{"UpdateBookNameAcro"}, kBook, kForeign, nothingChanges({wide(kUpdateSource)})},
      // The error ends the merge before the catalogue is saved.
      {{"strMatchingBooksInfo"},
       kBook,
       kForeign,
       nothingChanges({wide("Quorbind:Book_Config::strMatchingBooksInfo")})},
      {{"mbsetQuorBookProperties"}, kBook, kForeign, othersAsUsual({linkTold, kTrue})},
      {{kElsewhere}, kBook, kNoFile, nothingChanges({kFalse})},
      {{kElsewhere}, kBook, kUnreadable, {{kTrue}, Files::kCopiedToTarget, kCopied}},
      {{kElsewhere}, kBook, kForeign, {{linkTold, kTrue}, Files::kCopiedToTarget, kCopied}},
      {{kBookFile},
       kOtherBook,
       kNoFile,
       nothingChanges(
           {"critical: TOC not found at Path\rC:\\Docs\\Tools\\Guide\\Book_GDE.xml", kTrue})},
      {{kBookFile},
       kOtherBook,
       kUnreadable,
       nothingChanges({"critical: Line No:...", "clipboard: ...", kTrue})},
      {{kBookFile},
       kOtherBook,
       kForeign,
       nothingChanges({"information: Error:Book should have at least one heading", kTrue})},
  };
}

Rules categoryRules() {
  const std::string header = "    Information 'quorbind@example.com' -->\r\n";
  const std::string other =
      "<BookSet_Categories>\r\n\t<Category>\r\n"
      "\t\t<CategoryName>Other Category</CategoryName>\r\n"
      "\t</Category>\r\n</BookSet_Categories>";
  return {
      {{"bCheckIfDefaultCategory"}, kDefaults, kAny, nothingChanges({kFalse})},
      {{"bCheckCategoryinQuorBookCategories"},
       kCategories,
       kForeign,
       nothingChanges({"message: Error (91 ):Object variable or With block variable not set\r"
                       "Quorbind::Book_Config - bCheckCategoryinQuorBookCategories",
                       kFalse})},
      {{"AddBookCateToXMLFile"},
       kCategories,
       kNotLoading,
       nothingChanges(
           {empty("critical: Error(-1072896680):", "Quorbind-Book_Config::AddBookCateToXMLFile")})},
      {{"AddBookCateToXMLFile"},
       kCategories,
       kForeign,
       nothingChanges({tight("Quorbind-Book_Config::AddBookCateToXMLFile")})},
      {{"EditBookCateToXMLFile"},
       kCategories,
       kNotLoading,
       nothingChanges({empty("message: Error (-1072896680 ):",
                             "Quorbind::Book_Config - EditBookCateToXMLFile")})},
      {{"GetBookAcroInfo"},
       kCategories,
       kForeign,
       nothingChanges({underTitle("Quorbind::Book_Config-GetBookAcroInfo")})},
      {{"Addothercategory"},
       kCategories,
       kForeign,
       nothingChanges({underTitle("Quorbind::Book_Config-AddOtherCategoryBookAcro")})},
      {{"AddCategoryNode"}, kCategories, kForeign, nothingChanges({kNoCategory})},
      {{"CreateQuorBookNodeForSEntry"}, kCategories, kForeign, othersAsUsual(twice(kNoCategory))},
      {{kText, kPage, kBookFile, kWorkbook},
       kCategories,
       kForeign,
       othersAsUsual(answering(twice(kNoCategory), kTrue))},
      // What is made anew is made anew, whatever stood there.
      {{"CreateBookCateXmlFile",
        "CreateBookCateXmlFile without defaults",
        "CreateQuorBookNodeForSEntry with new categories"},
       kCategories,
       {Kind::kUnreadable, Kind::kMissing, Kind::kForeign},
       allAsUsual()},
      {{"CreateBookCateXmlFile", "CreateBookCateXmlFile without defaults"},
       kCategories,
       kFolder,
       nothingChanges({notAFile(kNewCategoriesSource)})},
      {{"CreateQuorBookNodeForSEntry with new categories"},
       kCategories,
       kFolder,
       othersAsUsual({notAFile(kNewCategoriesSource)})},
      // Published: the header alone.
      {{"CreateBookCateXmlFile", "CreateQuorBookNodeForSEntry with new categories"},
       kDefaults,
       kNotLoading,
       made({tight(kNewCategoriesSource)}, kCategories, header)},
      {{"CreateBookCateXmlFile"}, kDefaults, kForeign, made({}, kCategories, header + other)},
      {{"CreateQuorBookNodeForSEntry with new categories"},
       kDefaults,
       kForeign,
       made({},
            kCategories,
            header + "<BookSet_Categories>\r\n\t<Category>\r\n"
                     "\t\t<CategoryName>Safety</CategoryName>\r\n\t\t<BookAcro>PLN</BookAcro>\r\n"
                     "\t</Category>\r\n\t<Category>\r\n"
                     "\t\t<CategoryName>Other Category</CategoryName>\r\n"
                     "\t</Category>\r\n</BookSet_Categories>\r\n")},
  };
}

Rules keywordRules() {
  const Operations additions{kText, kPage, kBookFile, kWorkbook};
  return {
      {{"CreateKeywordXmlFile"},
       kKeywords,
       {Kind::kUnreadable, Kind::kMissing, Kind::kForeign},
       allAsUsual()},
      {{"CreateKeywordXmlFile", "AddKeywordsToXmlFile"},
       kKeywords,
       kFolder,
       nothingChanges({notAFile(kNewKeywordsSource)})},
      {{"AddKeywordsToXmlFile"}, kKeywords, kUnreadable, nothingChanges({kNothingLoaded})},
      {{"AddKeywordsToXmlFile"}, kKeywords, kForeign, nothingChanges({tight(kKeywordSource)})},
      {{"AddKeywordsToXmlFile"},
       kKeywords,
       kMissing,
       made({}, kKeywords, keywordsOf("Alarms", {"horn"}))},
      {{"EditKeywordsToXmlFile"}, kKeywords, kNotLoading, nothingChanges({kNothingLoaded})},
      {{"AddKeywords"}, kKeywords, kUnreadable, nothingChanges(twice(kNothingLoaded))},
      {{"AddKeywords"}, kKeywords, kForeign, nothingChanges(twice(tight(kKeywordSource)))},
      {{"AddKeywords"}, kKeywords, kFolder, nothingChanges(twice(notAFile(kNewKeywordsSource)))},
      {{"AddKeywords"},
       kKeywords,
       kMissing,
       made({}, kKeywords, keywordsOf("Alarms", {"horn", "hoot"}))},
      {{"CreateQuorBookNodeForSEntry"},
       kKeywords,
       kUnreadable,
       othersAsUsual(twice(kNothingLoaded))},
      {{"CreateQuorBookNodeForSEntry"},
       kKeywords,
       kForeign,
       othersAsUsual(twice(tight(kKeywordSource)))},
      {{"CreateQuorBookNodeForSEntry"},
       kKeywords,
       kFolder,
       othersAsUsual(twice(notAFile(kNewKeywordsSource)))},
      {{"CreateQuorBookNodeForSEntry"},
       kKeywords,
       kMissing,
       made({}, kKeywords, keywordsOf("Plan", {"horn", "hoot"}))},
      {additions, kKeywords, kUnreadable, othersAsUsual(answering(twice(kNothingLoaded), kTrue))},
      {additions,
       kKeywords,
       kForeign,
       othersAsUsual(answering(twice(tight(kKeywordSource)), kTrue))},
      {additions,
       kKeywords,
       kFolder,
       othersAsUsual(answering(twice(notAFile(kNewKeywordsSource)), kTrue))},
      {{kText, kPage},
       kKeywords,
       kMissing,
       made({kTrue}, kKeywords, keywordsOf("Pumps", {"horn", "hoot"}))},
      {{kBookFile},
       kKeywords,
       kMissing,
       made({kTrue}, kKeywords, keywordsOf("Guide", {"horn", "hoot"}))},
      {{kWorkbook},
       kKeywords,
       kMissing,
       made({kTrue},
            kKeywords,
            "<Books>\r\n" + bookOf("Lathe", {"turning"}) + bookOf("Saw", {"sawing"}) +
                "</Books>\r\n")},
  };
}

Rules linkRules() {
  const Operations recording{"AddToLinkIDFile", "GenerateBookLinkID"};
  const auto merged = [](const std::string& number) {
    return "message: Error(" + number + "\r" + kMergeSource;
  };
  const std::string ofWorkbook =
      linksOf(idOf("X4", "LTH", "@quor@@quor@The Lathe", "LTH\\chuck.htm#jaws") +
              idOf("X5", "SAW", "@quor@@quor@The Saw", "SAW\\blade.htm"));
  const std::string noFile = merged("75): Path/File access error");
  const std::string noList = merged("91): Object variable or With block variable not set");
  return {
      {recording, kLinks, kAnyFile, nothingChanges({tight(kLinkSource)})},
      {recording, kLinks, kFolder, nothingChanges({notAFile(kLinkSource)})},
      {recording, kLinks, kMissing, made({}, kLinks, linkOf("X3", "ALM"))},
      {{"UpdateQuorLinkIDFile"}, kLinks, kAnyFile, nothingChanges(twice(tight(kLinkSource)))},
      {{"UpdateQuorLinkIDFile"}, kLinks, kFolder, nothingChanges(twice(notAFile(kLinkSource)))},
      {{"UpdateQuorLinkIDFile"}, kLinks, kMissing, made({}, kLinks, ofWorkbook)},
      {{kPage}, kLinks, kAnyFile, othersAsUsual({tight(kLinkSource), kTrue})},
      {{kPage}, kLinks, kFolder, othersAsUsual({notAFile(kLinkSource), kTrue})},
      // Recorded before the run takes over what the book is called.
      {{kPage},
       kLinks,
       kMissing,
       made({kTrue}, kLinks, linksOf(idOf("X7", "", "@QUOR@Start@QUOR@Stop", "Pump\\stop.htm")))},
      {{kWorkbook}, kLinks, kAnyFile, othersAsUsual(answering(twice(tight(kLinkSource)), kTrue))},
      {{kWorkbook}, kLinks, kFolder, othersAsUsual(answering(twice(notAFile(kLinkSource)), kTrue))},
      {{kWorkbook}, kLinks, kMissing, made({kTrue}, kLinks, ofWorkbook)},
      {{"AddLinkIDInfo"},
       kLinks,
       kUnreadable,
       nothingChanges({unparsable("message", kLinks, kMergeSource)})},
      {{"AddLinkIDInfo"}, kLinks, kFolder, nothingChanges({noFile})},
      {{"AddLinkIDInfo"}, kLinks, kForeign, nothingChanges({noList})},
      {{"AddLinkIDInfo"}, kLinks, kMissing, made({}, kLinks, linkOf("X2", "GDE"))},
      {{"AddLinkIDInfo"},
       kOtherLinks,
       kUnreadable,
       nothingChanges({unparsable("message", kOtherLinks, kMergeSource)})},
      {{"AddLinkIDInfo"},
       kOtherLinks,
       {Kind::kMissing, Kind::kFolder, Kind::kForeign},
       nothingChanges()},
      {{kBookFile},
       kLinks,
       kUnreadable,
       othersAsUsual({unparsable("message", kLinks, kMergeSource), kTrue})},
      {{kBookFile}, kLinks, kFolder, othersAsUsual({noFile, kTrue})},
      {{kBookFile}, kLinks, kForeign, othersAsUsual({noList, kTrue})},
      {{kBookFile}, kLinks, kMissing, made({kTrue}, kLinks, linkOf("X2", "GDE"))},
      {{kBookFile},
       kOtherLinks,
       kUnreadable,
       {{unparsable("message", kOtherLinks, kMergeSource), kTrue}, Files::kTargetIsLeft, kLinks}},
      {{kBookFile},
       kOtherLinks,
       {Kind::kMissing, Kind::kFolder, Kind::kForeign},
       {{kTrue}, Files::kTargetIsLeft, kLinks}},
  };
}

const Rules& rules() {
  static const Rules kAll = [] {
    Rules all;
    for (const Rules& some : {selectionRules(),
                              catalogueQueryRules(),
                              catalogueChangeRules(),
                              bookFileRules(),
                              categoryRules(),
                              keywordRules(),
                              linkRules()}) {
      all.insert(all.end(), some.begin(), some.end());
    }
    return all;
  }();
  return kAll;
}

template <typename Values, typename Value>
bool holds(const Values& values, const Value& value) {
  return std::find(values.begin(), values.end(), value) != values.end();
}

}  // namespace

std::optional<DamagedEnd> publishedEnd(const std::string& operation,
                                       const std::string& file,
                                       XmlDamage::Kind kind) {
  for (const Rule& rule : rules()) {
    if (rule.file == file && holds(rule.operations, operation) && holds(rule.kinds, kind)) {
      return rule.end;
    }
  }
  return std::nullopt;
}

}  // namespace quorbind::testing
