#include "cli/workbook_addition.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "cli/failure.h"
#include "cli/taken_names.h"
#include "cli/text_list.h"
#include "platform/abandoned.h"
#include "platform/text.h"
#include "toc/excel_toc.h"

namespace quorbind {

namespace {

/// The row of the list of books that describes the book with that index, counted from 0.
std::int32_t listRow(std::size_t index) {
  return excel_toc::bookRow(static_cast<std::int32_t>(index) + 1);
}

std::vector<std::size_t> booksWithoutAcronym(const WorkbookSurvey& survey) {
  std::vector<std::size_t> books;
  for (std::size_t index = 0; index < survey.books.size(); ++index) {
    if (survey.books[index].acronym.empty()) {
      books.push_back(index);
    }
  }
  return books;
}

/// `sheet 2, column 2: row 4, row 6`
std::string cellsOfAcronyms(const std::vector<std::size_t>& books) {
  std::vector<std::string> rows(books.size());
  std::transform(books.begin(), books.end(), rows.begin(), [](std::size_t index) {
    return "row " + std::to_string(listRow(index));
  });
  return "sheet " + std::to_string(excel_toc::kBookSheet) + ", column " +
         std::to_string(excel_toc::kBookAcroColumn) + ": " + joined(rows, ", ");
}

}  // namespace

void takeNames(WorkbookSurvey& survey, const AddArguments& arguments, Wiring& wiring) {
  const std::vector<std::size_t> unnamed = booksWithoutAcronym(survey);
  if ((arguments.name || arguments.acronym) && unnamed.size() != 1) {
    throw CommandFailure(ExitStatus::kRefused,
                         "--name and --acro are for a single book that the list of books gives no "
                         "acronym; " +
                             (unnamed.empty() ? "it gives every book one"
                                              : "missing are " + cellsOfAcronyms(unnamed)));
  }
  const bool areGiven = isGiven(arguments.name) && isGiven(arguments.acronym);
  if (unnamed.empty()) {
    return;
  }
  if (areGiven) {
    const auto rules = wiring.toolset.createXmlTextRules();
    SurveyedBook& book = survey.books[unnamed.front()];
    book.name = rules->mstrCheckSpecialCharecters(*arguments.name);
    book.acronym = rules->mstrCheckSpecialCharecters(*arguments.acronym);
    book.nameText.clear();
    book.acronymText.clear();
  } else if (!wiring.mayAsk) {
    throw Abandoned(AbandonReason::kAnswerMissing,
                    (unnamed.size() == 1 ? "give --name and --acro, or the acronym in "
                                         : "give the acronyms in ") +
                        cellsOfAcronyms(unnamed));
  }
}

void considerFolders(const WorkbookSurvey& survey, const AddArguments& arguments, Wiring& wiring) {
  const bool allHaveOne =
      std::all_of(survey.books.begin(), survey.books.end(), [](const SurveyedBook& book) {
        return book.place.folder.has_value();
      });
  if (allHaveOne && arguments.folder) {
    tell(
        wiring,
        "--folder " + *arguments.folder + " is not used: every book of the workbook names its own");
  } else if (!allHaveOne && !isGiven(arguments.folder) && !wiring.mayAsk) {
    throw Abandoned(AbandonReason::kAnswerMissing, "give --folder");
  }
}

void tellOfUnusedRecords(const AddArguments& arguments, Wiring& wiring) {
  constexpr std::string_view kInTheList = " is not used: the list of books says it for each book";
  if (!arguments.keywords.empty()) {
    tell(wiring, std::string("--keywords").append(kInTheList));
  }
  if (!arguments.categories.empty()) {
    tell(wiring, std::string("--categories").append(kInTheList));
  }
  if (arguments.createCategories) {
    tell(wiring, "--create-categories is not used for a workbook");
  }
}

std::vector<WorkbookViolation> takenNames(const WorkbookSurvey& survey,
                                          const std::vector<ListedBook>& inLibrary,
                                          const Wiring& wiring) {
  TakenNames names(wiring.locale);
  for (const ListedBook& book : inLibrary) {
    names.take(book);
  }
  std::vector<WorkbookViolation> taken;
  const auto consider = [&](const std::optional<TakenName>& found,
                            const CellPlace& cell,
                            const std::string& cellText) {
    if (found && !(found->isExact && wiring.mayAsk)) {
      taken.push_back({.cell = cell, .box = found->box, .cellText = cellText});
    }
  };
  for (std::size_t index = 0; index < survey.books.size(); ++index) {
    const SurveyedBook& book = survey.books[index];
    const std::int32_t row = listRow(index);
    consider(names.takeName(book.name),
             {excel_toc::kBookSheet, row, excel_toc::kBookNameColumn},
             book.nameText);
    consider(names.takeAcronym(book.acronym),
             {excel_toc::kBookSheet, row, excel_toc::kBookAcroColumn},
             book.acronymText);
  }
  return taken;
}

}  // namespace quorbind
