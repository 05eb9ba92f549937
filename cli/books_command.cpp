#include "cli/books_command.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "catalogue/book_config.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/listing.h"
#include "cli/paths.h"
#include "cli/point_of_need.h"
#include "cli/text_list.h"
#include "cli/text_table.h"
#include "cli/toc_file.h"
#include "cli/wiring.h"
#include "cli/workbook_survey.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

std::vector<std::string> namesOf(Wiring& wiring, const std::string& catalogue) {
  // The component says of every catalogue that does not load that its format is not valid; this
  // says why and where.
  requireCatalogue(wiring.module.platform, catalogue);
  std::vector<std::string> names;
  callComponent(wiring, [&] { names = Book_Config(wiring.module).BookInfo(catalogue); });
  names = withoutLastEntry(std::move(names));
  std::transform(names.begin(), names.end(), names.begin(), readableName);
  return names;
}

void printAsText(const std::vector<SurveyedBook>& books) {
  std::vector<TableRow> rows{{"ACRONYM", "NAME", "FOLDER", "ROWS"}};
  for (const SurveyedBook& book : books) {
    rows.push_back({readableName(book.acronym),
                    readableName(book.name),
                    book.place.folder.value_or(""),
                    std::to_string(book.firstRow) + "-" + std::to_string(book.lastRow)});
  }
  printTable(rows);
}

void printAsJson(const std::vector<SurveyedBook>& books) {
  Json list = Json::array();
  for (const SurveyedBook& book : books) {
    list.push_back({{"acronym", readableName(book.acronym)},
                    {"name", readableName(book.name)},
                    {"folder", book.place.folder.value_or("")},
                    {"keywords", book.keywords},
                    {"categories", book.categories},
                    {"firstRow", book.firstRow},
                    {"lastRow", book.lastRow}});
  }
  printJson({{"books", list}});
}

ExitStatus listWorkbook(const std::string& name, bool json) {
  Wiring wiring("", processTerminal(/*mayAsk=*/false));
  return runListing(wiring, json, [&] {
    const TocFile workbook(wiring.files, name);
    wiring.ui.showPathAs(workbook.path, workbook.name);
    const WorkbookSurvey survey = surveyWorkbook(wiring.module.platform, workbook);
    tellViolations(wiring.ui, name, survey.violations);
    if (!survey.violations.empty()) {
      throw AlreadyTold(survey.status);
    }
    if (json) {
      printAsJson(survey.books);
    } else {
      printAsText(survey.books);
    }
  });
}

ExitStatus listLibrary(const BooksArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] {
    const std::vector<std::string> names = namesOf(wiring, library.catalogue);
    if (arguments.json) {
      printJson({{"books", names}});
      return;
    }
    for (const std::string& name : names) {
      std::cout << visibleText(name) << '\n';
    }
  });
}

}  // namespace

ExitStatus runBooks(const BooksArguments& arguments) {
  return arguments.workbook ? listWorkbook(*arguments.workbook, arguments.json)
                            : listLibrary(arguments);
}

}  // namespace quorbind
