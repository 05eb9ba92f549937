#include "tests/bad_input/library_operations.h"

#include <ostream>

#include "catalogue/book_config.h"
#include "platform/text.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/link_check.h"
#include "sidefiles/link_identifiers.h"
#include "tests/support/book_run.h"
#include "toc/excel_links.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::testing {

namespace {

using namespace library_file;
using Operations = std::vector<LibraryOperation>;
using User = ScriptedUserInterface;

std::string at(const char* file) {
  return componentPath(file);
}

std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) {
    all.append(&text == texts.data() ? "" : "|").append(text);
  }
  return "[" + all + "]";
}

void note(User& user, const std::string& answer) {
  user.note("answers " + answer);
}
void note(User& user, bool answer) {
  note(user, std::string(answer ? "True" : "False"));
}
void note(User& user, const std::vector<std::string>& answer) {
  note(user, answer.empty() ? "an unset array" : joined(answer));
}
void note(User& user, const TextArray& answer) {
  note(user, answer.texts);
}

/// As a host leaves the book dialog in front of a rename.
void fillDialog(Module& module) {
  module.bookInfo.txtBookName().setText("Warnings");
  module.bookInfo.txtBookAcro().setText("WRN");
}

Operations queries() {
  return {
      {"QuorLocation", [](Module& m, User& u) { note(u, Book_Config(m).QuorLocation("Tools")); }},
      {"QuorNames", [](Module& m, User& u) { note(u, Book_Config(m).QuorNames()); }},
      {"BookInfo", [](Module& m, User& u) { note(u, Book_Config(m).BookInfo(at(kCatalogue))); }},
      {"CategorieInfo",
       [](Module& m, User& u) { note(u, Book_Config(m).CategorieInfo(at(kCatalogue), "Alarms")); }},
      {"strFolderLinkInfo",
       [](Module& m, User& u) {
         std::string folder = "as it was";
         std::string link = "as it was";
         Book_Config(m).strFolderLinkInfo(at(kCatalogue), "Alarms", folder, link);
         note(u, {folder, link});
       }},
      {"GetBookAcro",
       [](Module& m, User& u) { note(u, Book_Config(m).GetBookAcro(at(kCatalogue), "Alarms")); }},
      {"GetBookAcroValue",
       [](Module& m, User& u) {
         m.state.currentCategoriesPath = at(kCategories);
         note(u, Book_Config(m).GetBookAcroValue("Safety", at(kCatalogue)));
       }},
      {"bCheckIfDefaultCategory",
       [](Module& m, User& u) {
         note(u, Book_Config(m).bCheckIfDefaultCategory(at(kDefaults), "Safety", 0));
       }},
      {"bCheckCategoryinQuorBookCategories",
       [](Module& m, User& u) {
         note(u, Book_Config(m).bCheckCategoryinQuorBookCategories(at(kCategories)));
       }},
      {"CheckDuplicateLinkID",
       [](Module& m, User& u) { note(u, CheckDuplicateLinkID(m.platform, "X3")); }},
      {"mbCheckQuorTOCForBook",
       [](Module& m, User& u) {
         note(u, Quor_Book(m).mbCheckQuorTOCForBook(at(kCatalogue), "New", "NEW"));
       }},
      {"mbGetFormInput",
       [](Module& m, User& u) {
         m.state.currentBookName = "New";
         m.state.currentBookAcro = "NEW";
         note(u, Quor_Book(m).mbGetFormInput(at(kCatalogue), 4));
       }},
  };
}

Operations catalogueChanges() {
  return {
      {"strBookAcroInfo",
       [](Module& m, User&) {
         fillDialog(m);
         Book_Config(m).strBookAcroInfo(at(kCatalogue), "Alarms");
       }},
      {"UpdateBookNameAcro",
       [](Module& m, User&) {
         fillDialog(m);
         Book_Config(m).UpdateBookNameAcro(at(kBook), "Alarms", "ALM");
       }},
      {"DeleteQuorNode",
       [](Module& m, User&) { Book_Config(m).DeleteQuorNode(at(kCatalogue), "Alarms"); }},
      {"strMatchingBooksInfo",
       [](Module& m, User&) {
         Book_Config(m).strMatchingBooksInfo(at(kCatalogue), at(kOtherCatalogue));
       }},
      {"mbsetQuorBookProperties",
       [](Module& m, User& u) {
         note(u,
              Book_Config(m).mbsetQuorBookProperties(
                  at(kCatalogue), "Alarms", {{"Maps", ""}}, "Manual", "link"));
       }},
      {"mbsetQuorBookProperties in another folder",
       [](Module& m, User& u) {
         note(u,
              Book_Config(m).mbsetQuorBookProperties(
                  at(kCatalogue), "Alarms", {{"Maps", ""}}, "New", "link"));
       }},
      {"CreateQuorBookNodeForSEntry",
       [](Module& m, User&) {
         Book_Config(m).CreateQuorBookNodeForSEntry("C:\\in\\plan.htm",
                                                    "plan.htm",
                                                    "",
                                                    "t",
                                                    "Plant",
                                                    0,
                                                    false,
                                                    {{"Plan", "PLN", "horn;hoot", "Safety;Maps"}});
       }},
      {"CreateQuorBookNodeForSEntry with new categories",
       [](Module& m, User&) {
         Book_Config(m).CreateQuorBookNodeForSEntry("C:\\in\\plan.htm",
                                                    "plan.htm",
                                                    "",
                                                    "t",
                                                    "Plant",
                                                    0,
                                                    true,
                                                    {{"Plan", "PLN", "", "Safety"}});
       }},
  };
}

Operations categoryChanges() {
  return {
      {"AddBookCateToXMLFile",
       [](Module& m, User&) { Book_Config(m).AddBookCateToXMLFile(at(kCategories), "Maps"); }},
      {"EditBookCateToXMLFile",
       [](Module& m, User&) {
         Book_Config(m).EditBookCateToXMLFile(at(kCategories), "Maps", "Safety");
       }},
      {"CreateBookCateXmlFile",
       [](Module& m, User&) {
         Book_Config(m).CreateBookCateXmlFile("C:\\Docs\\", at(kCategories), 0);
       }},
      {"CreateBookCateXmlFile without defaults",
       [](Module& m, User&) {
         Book_Config(m).CreateBookCateXmlFile("C:\\Docs\\", at(kCategories), 0, true);
       }},
      {"GetBookAcroInfo",
       [](Module& m, User&) { Book_Config(m).GetBookAcroInfo(at(kCategories), at(kCatalogue)); }},
      {"AddBookAcro",
       [](Module& m, User&) {
         Book_Config(m).AddBookAcro("Safety", {{"", "NEW"}}, at(kCategories));
       }},
      {"Addothercategory",
       [](Module& m, User&) {
         Book_Config(m).Addothercategory("Safety", {{"", "NEW", "X"}}, at(kCategories));
       }},
      {"AddCategoryNode",
       [](Module& m, User&) { Quor_Book(m).AddCategoryNode("Maps", "NEW", at(kCategories)); }},
  };
}

Operations keywordAndLinkChanges() {
  return {
      {"CreateKeywordXmlFile",
       [](Module& m, User&) { Quor_Book(m).CreateKeywordXmlFile(at(kKeywords)); }},
      {"AddKeywordsToXmlFile",
       [](Module& m, User&) {
         Quor_Book(m).AddKeywordsToXmlFile(at(kKeywords), "Alarms", "horn");
       }},
      {"EditKeywordsToXmlFile",
       [](Module& m, User&) {
         Quor_Book(m).EditKeywordsToXmlFile(at(kKeywords), "Alarms", "horn", "bell");
       }},
      {"AddKeywords",
       [](Module& m, User&) {
         m.state.currentBookName = "Alarms";
         Quor_Book(m).AddKeywords({{"horn", "hoot"}}, at(kKeywords));
       }},
      {"AddToLinkIDFile",
       [](Module& m, User&) {
         Quor_Book(m).AddToLinkIDFile(at(kLinks), "X3", "ALM@QUOR@Bells", "a.htm", "Plant", "ALM");
       }},
      {"GenerateBookLinkID",
       [](Module& m, User&) {
         m.state.currentProductName = "Plant";
         GenerateBookLinkID(m.platform, m.state, "ALM", "C:\\in\\links.txt");
       }},
      {"UpdateQuorLinkIDFile",
       [](Module& m, User&) {
         m.state.currentProductName = "Plant";
         UpdateQuorLinkIDFile(m.platform, m.state, m.platform.spreadsheets, "C:\\in\\books.xls");
       }},
      {"AddLinkIDInfo",
       [](Module& m, User&) {
         m.state.currentProductName = "Plant";
         AddLinkIDInfo(m.platform, m.state, "C:\\Docs\\", "C:\\Docs\\Tools\\Guide\\");
       }},
  };
}

Operations additions() {
  return {
      {"Book_Valuator of a text",
       [](Module& m, User& u) {
         Quor_Book book(m);
         note(u, runBook(book, additionOf("C:\\in\\toc.txt", 4)));
       }},
      {"Book_Valuator of a book file",
       [](Module& m, User& u) {
         // Asked for where the catalogue does not load.
         m.state.rememberedBookFolder = "Guide";
         Quor_Book book(m);
         note(u, runBook(book, additionOf(at(kOtherBook), 1)));
       }},
      {"Book_Valuator of a workbook",
       [](Module& m, User& u) {
         Quor_Book book(m);
         note(u, runBook(book, additionOf("C:\\in\\books.xls", 3)));
       }},
      {"Book_Valuator of a page",
       [](Module& m, User& u) {
         Quor_Book book(m);
         note(u, runBook(book, additionOf("C:\\in\\toc.htm", 2)));
       }},
  };
}

}  // namespace

BookValuatorArguments additionOf(const std::string& toc, std::int16_t kind) {
  return {.vstrtocpath = toc,
          .vstrQuorTOcPath = at(kCatalogue),
          .vintType = kind,
          .vstrProductName = "Plant",
          .vstrBookName = kind == 1 ? "" : "Pumps",
          .vstrBookAcro = kind == 1 ? "" : "PMP",
          .vstrCategory = "Safety",
          .vstrKeywordsPath = at(kKeywords),
          .vstrBookCategoryPath = at(kCategories),
          .strKeyWords = "horn;hoot",
          .strCategory = "Safety;Maps",
          .spath = at(kKeywords),
          .vlngInstallType = 0,
          .blnChkCateFlag = false,
          .strServerPath = "C:\\Docs\\"};
}

const std::vector<LibraryOperation>& libraryOperations() {
  static const Operations kAll = [] {
    Operations all;
    for (const Operations& some :
         {queries(), catalogueChanges(), categoryChanges(), keywordAndLinkChanges(), additions()}) {
      all.insert(all.end(), some.begin(), some.end());
    }
    return all;
  }();
  return kAll;
}

void PrintTo(const LibraryOperation& operation, std::ostream* out) {
  *out << operation.name;
}

std::string identifierOf(const ::testing::TestParamInfo<LibraryOperation>& parameter) {
  return replaceAll(parameter.param.name, " ", "_");
}

OperationEnd endOf(const LibraryOperation& operation, WholeLibrary& library) {
  library.user.forget();
  Module module(library.platform());
  operation.run(module, library.user);
  return {library.user.recordWithoutProgress(), library.files.contents()};
}

}  // namespace quorbind::testing
