#include "cli/workbook_addition.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "cli/failure.h"
#include "cli/taken_names.h"
#include "cli/text_list.h"
#include "platform/abandoned.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "resources/form_layouts.h"
#include "resources/messages.h"
#include "resources/rule_texts.h"
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

/// A flag that names books does so for each that lacks an acronym, or for none.
void requireValueForEach(const std::vector<std::size_t>& unnamed,
                         std::string_view flag,
                         const std::vector<std::string>& values) {
  if (values.empty() || values.size() == unnamed.size()) {
    return;
  }
  throw brokenRule(unnamed.empty() ? RuleText::kValuesForNoBook : RuleText::kValuesForOtherBooks,
                   {{"FLAG", std::string(flag)},
                    {"TIMES", counted(values.size(), "time", "times")},
                    {"BOOKS", counted(unnamed.size(), "book", "books")},
                    {"CELLS", cellsOfAcronyms(unnamed)}});
}

/// The dialog would say so when the books in front are in the library.
void requireNoBlanks(const AddArguments& arguments, UserInterface& ui) {
  for (const auto* values : {&arguments.names, &arguments.acronyms}) {
    if (std::any_of(values->begin(), values->end(), [](const std::string& value) {
          return trimBlanks(value).empty();
        })) {
      ui.show(criticalMessage(std::string(text(RuleText::kNameOrAcroMissing))));
      throw AlreadyTold(ExitStatus::kRefused);
    }
  }
}

/// Names the book by the values of the flags with that index, as far as they are given.
void takeName(SurveyedBook& book,
              const AddArguments& arguments,
              std::size_t index,
              XmlTextRules& rules) {
  if (const auto name = valueAt(arguments.names, index)) {
    book.name = rules.mstrCheckSpecialCharecters(*name);
    book.nameText.clear();
  }
  if (const auto acronym = valueAt(arguments.acronyms, index)) {
    book.acronym = rules.mstrCheckSpecialCharecters(*acronym);
    book.acronymText.clear();
  }
}

/// Whether the box is what the component says before it asks for the same book again. Nobody has
/// been asked since.
bool tellsOfTakenName(const ShownMessage& box) {
  return !box.isSettled && box.text.ends_with(text(Message::kAlreadyExists)) &&
         (box.text.starts_with(text(Message::kErrorBookName)) ||
          box.text.starts_with(text(Message::kErrorBookAcro)));
}

}  // namespace

void takeNames(WorkbookSurvey& survey, const AddArguments& arguments, Wiring& wiring) {
  const std::vector<std::size_t> unnamed = booksWithoutAcronym(survey);
  requireValueForEach(unnamed, "--name", arguments.names);
  requireValueForEach(unnamed, "--acro", arguments.acronyms);
  requireNoBlanks(arguments, wiring.ui);
  const auto rules = wiring.toolset.createXmlTextRules();
  for (std::size_t index = 0; index < unnamed.size(); ++index) {
    takeName(survey.books[unnamed[index]], arguments, index, *rules);
  }
  const bool areGiven = !arguments.names.empty() && !arguments.acronyms.empty();
  if (!unnamed.empty() && !areGiven && !wiring.mayAsk) {
    throw Abandoned(
        AbandonReason::kAnswerMissing,
        (unnamed.size() == 1 ? "give --name and --acro, or the acronym in "
                             : "give --name and --acro once for each book, or the acronyms in ") +
            cellsOfAcronyms(unnamed));
  }
}

void answerBooksInTheirOrder(Wiring& wiring) {
  wiring.ui.knowReturnsBy([&ui = wiring.ui](const ModalForm& form) {
    return form.name() == layout::kBookInfo.name && !ui.shown().empty() &&
           tellsOfTakenName(ui.shown().back());
  });
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
