// An addition works on many files, and ends between any two of its changes when its process does.
// These are the states that it can leave a library in, and each of them can be brought to the end.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

#include "catalogue/book_deletion.h"
#include "platform/text.h"
#include "tests/bad_input/library_states.h"
#include "tests/bad_input/library_tree.h"
#include "tests/support/book_run.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/workbook_bytes.h"

namespace quorbind::testing {
namespace {

using namespace library_file;
using ::testing::ElementsAre;
using Tree = WholeLibrary::Tree;
using Steps = std::vector<std::string>;

/// The book file of the book Alarms once it is called Warnings.
constexpr const char* kRenamedBook = "Docs/Plant/Manual/Book_WRN.xml";

/// The one link identifier that the library has before.
constexpr const char* kOldIdentifier = "X1";

LibraryOperation additionOf(const std::string& toc, std::int16_t kind) {
  return {toc, [=](Module& module, ScriptedUserInterface& /*user*/) {
            module.state.rememberedBookFolder = "Guide";
            Quor_Book book(module);
            const bool isNamed = kind == 2 || kind == 4;
            runBook(book,
                    {.vstrtocpath = toc,
                     .vstrQuorTOcPath = componentPath(kCatalogue),
                     .vintType = kind,
                     .vstrProductName = "Plant",
                     .vstrBookName = isNamed ? "Pumps" : "",
                     .vstrBookAcro = isNamed ? "PMP" : "",
                     .vstrCategory = "Safety",
                     .vstrKeywordsPath = componentPath(kKeywords),
                     .vstrBookCategoryPath = componentPath(kCategories),
                     .strKeyWords = "horn;hoot",
                     .strCategory = "Safety;Maps",
                     .spath = componentPath(kKeywords),
                     .vlngInstallType = 0,
                     .blnChkCateFlag = false,
                     .strServerPath = "C:\\Docs\\"});
          }};
}

class InterruptedAddition : public ::testing::Test {
 protected:
  InterruptedAddition() {
    library_.files.write("in/books.xls",
                         workbookBytes(WorkbookKind::kXls,
                                       {headingSheet({{"1", "The Lathe", "Lathe\\cover.htm"},
                                                      {"2", "Chuck", "chuck.htm", "", "X8"},
                                                      {"1", "The Saw", "Saw\\cover.htm"},
                                                      {"2", "Blade", "blade.htm", "", "X9"}}),
                                        bookSheet({{"Lathe", "LTH", "turning", "Machines"},
                                                   {"Saw", "SAW", "cutting", "Machines"}})}));
    for (const char* page : {"Lathe/chuck", "Saw/blade"}) {
      library_.files.write("in/" + std::string(page) + ".htm", "<p>page</p>");
    }
    library_.files.write(
        kOtherBook,
        replaceAll(soundText(kOtherBook),
                   "</Book_Headings>",
                   "<Heading><HName>Parts</HName><HFile>parts.htm</HFile></Heading>"
                   "</Book_Headings>"));
    library_.files.write("Docs/Tools/Guide/guide.htm", "<p>guide <a href=\"parts.htm\"></p>");
    library_.files.write("Docs/Tools/Guide/parts.htm", "<p>parts <img src=\"parts.png\"></p>");
    library_.files.write("Docs/Tools/Guide/parts.png", "a picture");
    before_ = library_.files.contents();
  }

  void takeAwaySideFiles() {
    for (const char* file : {kCategories, kKeywords, kLinks}) {
      library_.files.remove(file);
    }
    before_ = library_.files.contents();
  }

  /// What happens to the files from one state to the next: `+` one that comes, `-` one that goes,
  /// `*` one that becomes another.
  Steps stepsOf(const LibraryOperation& addition) {
    const LibraryStates passed(addition, library_, before_);
    Steps steps;
    for (std::size_t state = 1; state < passed.states().size(); ++state) {
      const std::string step = stepBetween(passed.states()[state - 1], passed.states()[state]);
      if (!step.empty()) {
        steps.push_back(step);
      }
    }
    return steps;
  }

  /// From each state before the end: the entries of the books taken out, where there are some, and
  /// the same again.
  void expectTheSameEndFromEachState(const LibraryOperation& operation,
                                     const std::vector<std::string>& books) {
    const LibraryStates passed(operation, library_, before_);
    for (std::size_t number = 0; number < passed.calls().size(); ++number) {
      const Tree& state = passed.states()[number];
      SCOPED_TRACE(stepBetween(before_, state));
      put(state);
      bringBack(books);
      const OperationEnd end = endOf(operation, library_);
      EXPECT_EQ(end.record, passed.end().record);
      EXPECT_EQ(differences(end.tree, passed.end().tree), std::vector<std::string>());
    }
    states_ += static_cast<int>(passed.calls().size());
    RecordProperty("states", states_);
  }

 private:
  void put(const Tree& state) {
    library_.files.restore(before_);
    for (const std::string& name : differences(before_, state)) {
      if (!state.contains(name)) {
        library_.files.remove(name);
      } else if (state.at(name) == "(folder)") {
        library_.files.makeFolder(name);
      } else {
        library_.files.write(name, state.at(name));
      }
    }
  }

  /// What the author's folder has of the run goes, and so do the entries of the books, and their
  /// link identifiers.
  void bringBack(const std::vector<std::string>& books) {
    for (const auto& [name, bytes] : library_.files.contents()) {
      if (!before_.contains(name) && upperCaseAscii(name).starts_with("IN/")) {
        library_.files.remove(name);
      }
    }
    for (const std::string& book : books) {
      DeleteQuorNode(library_.platform(), componentPath(kCatalogue), book);
    }
    if (library_.files.has(kRenamedBook)) {
      library_.files.moveFile(componentPath(kRenamedBook), componentPath(kBook));
    }
    takeOutNewIdentifiers();
  }

  void takeOutNewIdentifiers() {
    const auto links = library_.platform().xml.createDocument();
    if (!library_.files.has(kLinks) || !links->load(componentPath(kLinks))) {
      return;
    }
    for (const XmlNode& entry : links->selectAll("LINKS/IBD/ID")) {
      if (entry.child("LinkID").text() != kOldIdentifier) {
        links->select("LINKS/IBD").remove(entry);
      }
    }
    links->save(componentPath(kLinks));
  }

  static std::string stepBetween(const Tree& before, const Tree& after) {
    std::string step;
    for (const std::string& name : differences(before, after)) {
      const char* sign = !before.contains(name) ? "+" : !after.contains(name) ? "-" : "*";
      step.append(step.empty() ? "" : " ").append(sign).append(name);
    }
    return step;
  }

 protected:
  WholeLibrary library_;
  Tree before_;

 private:
  int states_ = 0;
};

const LibraryOperation& published(const std::string& name) {
  const auto& all = libraryOperations();
  return *std::find_if(all.begin(), all.end(), [&](const LibraryOperation& operation) {
    return operation.name == name;
  });
}

const LibraryOperation kOfAText = additionOf("C:\\in\\toc.txt", 4);
const LibraryOperation kOfAPage = additionOf("C:\\in\\toc.htm", 2);
const LibraryOperation kOfABookFile = additionOf(componentPath(kOtherBook), 1);
const LibraryOperation kOfAWorkbook = additionOf("C:\\in\\books.xls", 3);

TEST_F(InterruptedAddition, OfATextTakesTheseSteps) {
  EXPECT_THAT(stepsOf(kOfAText),
              ElementsAre("+in/Book_PMP.xml",
                          "-in/Book_PMP.xml +in/Pump/Book_PMP.xml",
                          "+Docs/Plant/Pump",
                          "+Docs/Plant/Pump/Book_PMP.xml",
                          "+Docs/Plant/Pump/start.htm",
                          "-in/Pump/Book_PMP.xml",
                          "*Docs/Plant/Quor_TOC.xml",
                          "*Docs/Plant/Quor_SearchKeywords.xml",
                          "*Docs/Plant/Quor_BookCategories.xml"));
}
TEST_F(InterruptedAddition, OfAPageTakesTheseSteps) {
  EXPECT_THAT(stepsOf(kOfAPage),
              ElementsAre("+IN/TOC_Temp.txt",
                          "*Docs/Plant/Quor_LinkID.xml",
                          "+IN/Book_PMP.xml",
                          "-IN/Book_PMP.xml +IN/Pump/Book_PMP.xml",
                          "+Docs/Plant/Pump",
                          "+Docs/Plant/Pump/Book_PMP.xml",
                          "+Docs/Plant/Pump/start.htm",
                          "+Docs/Plant/Pump/stop.htm",
                          "-IN/Pump/Book_PMP.xml",
                          "*Docs/Plant/Quor_TOC.xml",
                          "*Docs/Plant/Quor_SearchKeywords.xml",
                          "*Docs/Plant/Quor_BookCategories.xml"));
}
TEST_F(InterruptedAddition, OfABookFileTakesTheseSteps) {
  EXPECT_THAT(stepsOf(kOfABookFile),
              ElementsAre("+Docs/Plant/Guide",
                          "+Docs/Plant/Guide/Book_GDE.xml",
                          "+Docs/Plant/Guide/guide.htm",
                          "+Docs/Plant/Guide/parts.htm",
                          "+Docs/Plant/Guide/parts.png",
                          "*Docs/Plant/Guide/Book_GDE.xml",
                          "*Docs/Plant/Quor_LinkID.xml",
                          "*Docs/Plant/Quor_TOC.xml",
                          "*Docs/Plant/Quor_SearchKeywords.xml",
                          "*Docs/Plant/Quor_BookCategories.xml"));
}
TEST_F(InterruptedAddition, OfAWorkbookTakesTheseSteps) {
  EXPECT_THAT(stepsOf(kOfAWorkbook),
              ElementsAre("+IN/BOOKS_Temp.txt",
                          "+IN/Book_LTH.xml",
                          "-IN/Book_LTH.xml +IN/Lathe/Book_LTH.xml",
                          "+Docs/Plant/Lathe",
                          "+Docs/Plant/Lathe/Book_LTH.xml",
                          "+Docs/Plant/Lathe/chuck.htm",
                          "-IN/Lathe/Book_LTH.xml",
                          "*Docs/Plant/Quor_TOC.xml",
                          "*Docs/Plant/Quor_SearchKeywords.xml",
                          "*Docs/Plant/Quor_BookCategories.xml",
                          "*IN/BOOKS_Temp.txt",
                          "+IN/Book_SAW.xml",
                          "-IN/Book_SAW.xml +IN/Saw/Book_SAW.xml",
                          "+Docs/Plant/Saw",
                          "+Docs/Plant/Saw/Book_SAW.xml",
                          "+Docs/Plant/Saw/blade.htm",
                          "-IN/Saw/Book_SAW.xml",
                          "*Docs/Plant/Quor_TOC.xml",
                          "*Docs/Plant/Quor_SearchKeywords.xml",
                          "*Docs/Plant/Quor_BookCategories.xml",
                          "*Docs/Plant/Quor_LinkID.xml"));
}

TEST_F(InterruptedAddition, OfAPageMakesTheSideFilesThatAreMissingInTheseSteps) {
  takeAwaySideFiles();
  EXPECT_THAT(stepsOf(kOfAPage),
              ElementsAre("+IN/TOC_Temp.txt",
                          "+Docs/Plant/Quor_LinkID.xml",
                          "*Docs/Plant/Quor_LinkID.xml",
                          "*Docs/Plant/Quor_LinkID.xml",
                          "+IN/Book_PMP.xml",
                          "-IN/Book_PMP.xml +IN/Pump/Book_PMP.xml",
                          "+Docs/Plant/Pump",
                          "+Docs/Plant/Pump/Book_PMP.xml",
                          "+Docs/Plant/Pump/start.htm",
                          "+Docs/Plant/Pump/stop.htm",
                          "-IN/Pump/Book_PMP.xml",
                          "*Docs/Plant/Quor_TOC.xml",
                          "+Docs/Plant/Quor_SearchKeywords.xml",
                          "*Docs/Plant/Quor_SearchKeywords.xml",
                          "*Docs/Plant/Quor_SearchKeywords.xml"));
}

/// The other operations that change more than one file.
TEST_F(InterruptedAddition, AndEveryOtherOperationOverManyFilesTakesTheseSteps) {
  std::map<std::string, Steps> steps;
  for (const LibraryOperation& operation : libraryOperations()) {
    const bool isAddition = operation.name.starts_with("Book_Valuator");
    if (Steps some = stepsOf(operation); some.size() > 1 && !isAddition) {
      steps.emplace(operation.name, std::move(some));
    }
  }
  const std::map<std::string, Steps> expected{
      {"CreateQuorBookNodeForSEntry",
       {"*Docs/Plant/Quor_TOC.xml",
        "+Docs/Plant/PLN",
        "+Docs/Plant/PLN/plan.htm",
        "*Docs/Plant/Quor_SearchKeywords.xml",
        "*Docs/Plant/Quor_BookCategories.xml"}},
      {"CreateQuorBookNodeForSEntry with new categories",
       {"*Docs/Plant/Quor_TOC.xml",
        "+Docs/Plant/PLN",
        "+Docs/Plant/PLN/plan.htm",
        "*Docs/Plant/Quor_BookCategories.xml",
        "*Docs/Plant/Quor_BookCategories.xml"}},
      {"mbsetQuorBookProperties", {"*Docs/Plant/Quor_TOC.xml", "*Docs/Plant/Manual/Book_ALM.xml"}},
      {"mbsetQuorBookProperties in another folder",
       {"+Docs/Plant/New",
        "+Docs/Plant/New/Book_ALM.xml",
        "+Docs/Plant/New/bells.htm",
        "*Docs/Plant/Quor_TOC.xml",
        "*Docs/Plant/New/Book_ALM.xml"}},
      {"strBookAcroInfo",
       {"-Docs/Plant/Manual/Book_ALM.xml +Docs/Plant/Manual/Book_WRN.xml",
        "*Docs/Plant/Manual/Book_WRN.xml",
        "*Docs/Plant/Quor_TOC.xml"}},
      {"strMatchingBooksInfo", {"*Docs/Plant/Manual/Book_ALM.xml", "*Docs/Plant/Quor_TOC.xml"}}};
  EXPECT_EQ(steps, expected);
}

TEST_F(InterruptedAddition, OfATextCanBeRunAgainToTheEnd) {
  expectTheSameEndFromEachState(kOfAText, {"Pumps"});
}
TEST_F(InterruptedAddition, OfAPageCanBeRunAgainToTheEnd) {
  expectTheSameEndFromEachState(kOfAPage, {"Pumps"});
}
TEST_F(InterruptedAddition, OfABookFileCanBeRunAgainToTheEnd) {
  expectTheSameEndFromEachState(kOfABookFile, {"Guide"});
}
TEST_F(InterruptedAddition, OfAWorkbookCanBeRunAgainToTheEnd) {
  expectTheSameEndFromEachState(kOfAWorkbook, {"Lathe", "Saw"});
}
TEST_F(InterruptedAddition, OfEachKindCanBeRunAgainToTheEndWhereThereAreNoSideFiles) {
  takeAwaySideFiles();
  expectTheSameEndFromEachState(kOfAText, {"Pumps"});
  expectTheSameEndFromEachState(kOfAPage, {"Pumps"});
  expectTheSameEndFromEachState(kOfABookFile, {"Guide"});
  expectTheSameEndFromEachState(kOfAWorkbook, {"Lathe", "Saw"});
}
TEST_F(InterruptedAddition, OtherOperationsCanBeRunAgainToTheEnd) {
  for (const char* name : {"mbsetQuorBookProperties",
                           "mbsetQuorBookProperties in another folder",
                           "strMatchingBooksInfo"}) {
    SCOPED_TRACE(name);
    expectTheSameEndFromEachState(published(name), {});
  }
  expectTheSameEndFromEachState(published("CreateQuorBookNodeForSEntry"), {"Plan"});
}

// A book file that had got its new name inside as well is told not to have the old one.
TEST_F(InterruptedAddition, ARenameCanBeRunAgainToTheEnd) {
  const LibraryOperation rename{"strBookAcroInfo", [](Module& module, ScriptedUserInterface& user) {
                                  published("strBookAcroInfo").run(module, user);
                                  user.forget();
                                }};
  expectTheSameEndFromEachState(rename, {});
}

}  // namespace
}  // namespace quorbind::testing
