#include "cli/report.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

#include "cli/json_text.h"
#include "cli/message_story.h"
#include "cli/point_of_need.h"
#include "cli/text_list.h"
#include "cli/text_table.h"
#include "cli/toc_file.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

constexpr const char* kNotAccepted = "not accepted";

/// The lists of a report that may be long.
constexpr const char* kFiles = "files";
constexpr const char* kMissing = "missing";

/// Whether violations of a workbook have been told one by one.
template <typename Report>
bool hasViolations(const Report& report) {
  if constexpr (requires { report.violations; }) {
    return !report.violations.empty();
  } else {
    return false;
  }
}

Json toJson(const ListedBook& book) {
  Json object = {{"acronym", readableName(book.acronym)},
                 {"name", readableName(book.name)},
                 {"folder", book.folder},
                 {"file", book.bookFile}};
  if (book.fileType) {
    object["type"] = *book.fileType;
  }
  object["link"] = book.link;
  object["categories"] = book.categories;
  return object;
}

void addNumber(Json& object, const char* name, std::size_t number) {
  if (number > 0) {
    object[name] = number;
  }
}

void addText(Json& object, const char* name, std::string_view text) {
  if (!text.empty()) {
    object[name] = text;
  }
}

void addLine(Json& object, const LinePlace& place, const std::optional<std::string>& line) {
  addNumber(object, "line", place.line);
  addNumber(object, "column", place.column);
  addNumber(object, "length", place.length);
  if (line) {
    object["text"] = *line;
  }
}

/// What was refused, and what would have been accepted.
template <typename Report>
void addRefusal(Json& object, const Report& report, const std::vector<ShownMessage>& messages) {
  addLine(object, report.place, report.lineText);
  if (isRefusal(report.status) && !hasViolations(report) && !messages.empty()) {
    addText(object, "expected", acceptedInsteadOf(messages.back().text));
  }
}

void addPlace(Json& object, const CellPlace& cell) {
  addNumber(object, "sheet", static_cast<std::size_t>(cell.sheet));
  addNumber(object, "row", static_cast<std::size_t>(cell.row));
  addNumber(object, "column", static_cast<std::size_t>(cell.column));
}

void addViolations(Json& object, const std::vector<WorkbookViolation>& violations) {
  if (violations.empty()) {
    return;
  }
  Json list = Json::array();
  for (const WorkbookViolation& violation : violations) {
    Json entry = Json::object();
    addPlace(entry, violation.cell);
    entry["text"] = violation.box.text;
    addText(entry, "cell", violation.cellText);
    addText(entry, "expected", acceptedInsteadOf(violation.box.text));
    list.push_back(std::move(entry));
  }
  object["violations"] = std::move(list);
}

void printAddedBook(const AddedBook& added, const std::string& library) {
  const std::string what = "Added " + titleOf(added.book) + " to " + library + ", " +
                           placeOf(added.book) + ": " +
                           counted(added.files.size(), "file", "files") + ".";
  std::cout << visibleText(what) << '\n';
  for (std::size_t number = 0; number < added.missing.size(); ++number) {
    std::cout << "missing: " << visibleText(added.missing.at(number)) << '\n';
  }
}

Json toJson(const AddedBook& added) {
  return {{"acronym", readableName(added.book.acronym)},
          {"name", readableName(added.book.name)},
          {"folder", added.book.folder},
          {kFiles, added.files},
          {kMissing, added.missing.texts()}};
}

void addBooks(Json& object, const AdditionReport& report) {
  Json list = Json::array();
  for (const AddedBook& book : report.books) {
    list.push_back(toJson(book));
  }
  object["books"] = std::move(list);
}

/// Of the only book, its lists left out.
void addBook(Json& object, const AdditionReport& report) {
  object["folder"] = report.folder;
  object[kFiles] = nullptr;
  object[kMissing] = nullptr;
}

std::vector<LongList> listsOf(const AdditionReport& report) {
  if (report.isWorkbook) {
    return {};
  }
  static const AddedBook kNone;
  const AddedBook& book = report.books.empty() ? kNone : report.books.front();
  return {
      {kFiles, book.files.size(), [&](std::size_t number) { return book.files[number]; }},
      {kMissing, book.missing.size(), [&](std::size_t number) { return book.missing.at(number); }}};
}

Json withoutLists(const AdditionReport& report, const std::vector<ShownMessage>& messages) {
  Json object = {{"status", static_cast<int>(report.status)}, {"added", report.added}};
  if (report.isWorkbook) {
    addBooks(object, report);
  } else {
    addBook(object, report);
  }
  object["messages"] = toJson(messages);
  addRefusal(object, report, messages);
  addViolations(object, report.violations);
  if (!report.note.empty()) {
    object["note"] = report.note;
  }
  return object;
}

void printCheckAsText(const CheckReport& report) {
  for (std::size_t number = 0; number < report.missing.size(); ++number) {
    const auto& [line, cell] = report.missing.placeOf(number);
    const std::string place =
        cell.sheet > 0 ? placeIn(report.toc, cell) + ": " : placeIn(report.toc, line);
    std::cout << visibleText(place + "missing: ") << visibleText(report.missing.fileOf(number))
              << '\n';
  }
  if (report.status == ExitStatus::kDone) {
    std::cout << visibleText(report.toc) << ": accepted, "
              << (report.books ? counted(*report.books, "book", "books") + ", " : std::string())
              << counted(report.entries, "entry", "entries") << ".\n";
  }
}

Json missingDocument(const CheckReport& report, std::size_t number) {
  const auto& [line, cell] = report.missing.placeOf(number);
  Json entry = Json::object();
  addNumber(entry, "line", line);
  addPlace(entry, cell);
  entry["file"] = report.missing.fileOf(number);
  return entry;
}

void printCheckAsJson(const CheckReport& report, const std::vector<ShownMessage>& messages) {
  Json object = {{"status", static_cast<int>(report.status)},
                 {"accepted", report.status == ExitStatus::kDone}};
  if (report.books) {
    object["books"] = *report.books;
  }
  object["entries"] = report.entries;
  object[kMissing] = nullptr;
  object["messages"] = toJson(messages);
  addRefusal(object, report, messages);
  addViolations(object, report.violations);
  if (report.status != ExitStatus::kDone) {
    object["note"] = kNotAccepted;
  }
  printJson(std::move(object), {{kMissing, report.missing.size(), [&](std::size_t number) {
                                   return missingDocument(report, number);
                                 }}});
}

void printPreparationAsJson(const PreparationReport& report,
                            const std::vector<ShownMessage>& messages) {
  const bool isDone = report.status == ExitStatus::kDone;
  Json object = {{"status", static_cast<int>(report.status)},
                 {"written", isDone},
                 {"file", report.output},
                 {"entries", report.entries},
                 {"messages", toJson(messages)}};
  addRefusal(object, report, messages);
  if (!isDone) {
    object["note"] = kNothingWritten;
  }
  printJson(std::move(object));
}

void printBooksAsText(const std::vector<ListedBook>& books) {
  std::vector<TableRow> rows{{"ACRONYM", "NAME", "FOLDER"}};
  for (const ListedBook& book : books) {
    rows.push_back({readableName(book.acronym), readableName(book.name), book.folder});
  }
  printTable(rows);
}

void printBooksAsJson(const std::vector<ListedBook>& books) {
  Json list = Json::array();
  for (const ListedBook& book : books) {
    list.push_back(toJson(book));
  }
  printJson({{"books", list}});
}

void printDetail(std::string_view label, const std::string& text) {
  if (!text.empty()) {
    std::cout << label << ": " << visibleText(text) << '\n';
  }
}

std::string_view missingMark(bool isMissing) {
  return isMissing ? "  (missing)" : "";
}

void printBookAsText(const ListedBook& book,
                     bool isMissing,
                     const std::vector<LibraryHeading>& headings) {
  std::cout << visibleText(titleOf(book) + ", " + placeOf(book)) << '\n';
  printDetail("file",
              book.fileType ? book.bookFile + " of type " + *book.fileType +
                                  std::string(missingMark(isMissing))
                            : "");
  printDetail("link", book.link);
  printDetail("categories", joined(book.categories, "; "));
  for (const auto& [heading, document] : headings) {
    const std::string place = heading.document + heading.bookmark;
    std::cout << std::string(2 * (heading.depth + 1), ' ')
              << visibleText(legibleName(heading.title))
              << (place.empty() ? "" : "  " + visibleText(place))
              << missingMark(document.isMissing()) << '\n';
  }
}

void printBookAsJson(const ListedBook& book,
                     bool isMissing,
                     const std::vector<LibraryHeading>& headings) {
  Json list = Json::array();
  for (const auto& [heading, document] : headings) {
    list.push_back({{"level", heading.depth + 1},
                    {"title", heading.title},
                    {"file", heading.document},
                    {"bookmark", heading.bookmark},
                    {"missing", document.isMissing()}});
  }
  Json object = toJson(book);
  if (book.fileType) {
    object["missing"] = isMissing;
  }
  object["headings"] = list;
  printJson(std::move(object));
}

template <typename Report>
void tellFailure(const Report& report,
                 const std::vector<ShownMessage>& messages,
                 const std::string& note) {
  if (isRefusal(report.status)) {
    std::cerr << helpWith(messages, report.place, report.lineText);
  }
  const std::string place = placeIn(report.toc, report.place.line, report.place.column);
  std::cerr << "quorbind: " << visibleText(place + note) << '\n';
}

}  // namespace

void printFailure(ExitStatus status,
                  const std::vector<ShownMessage>& messages,
                  const std::string& note,
                  const std::optional<FaultyLine>& blamed) {
  Json object = {{"status", static_cast<int>(status)}, {"messages", toJson(messages)}};
  if (blamed) {
    addLine(object, blamed->place, blamed->text);
  }
  object["note"] = note;
  printJson(std::move(object));
}

void tellAddition(const AdditionReport& report, const std::vector<ShownMessage>& messages) {
  if (report.status != ExitStatus::kDone) {
    tellFailure(report, messages, report.note);
  }
}

void printAddedBooks(const AdditionReport& report) {
  for (const AddedBook& book : report.books) {
    printAddedBook(book, report.library);
  }
}

void printAddition(const AdditionReport& report, const std::vector<ShownMessage>& messages) {
  printJson(withoutLists(report, messages), listsOf(report));
}

Json toJson(const AdditionReport& report, const std::vector<ShownMessage>& messages) {
  Json object = withoutLists(report, messages);
  for (const LongList& list : listsOf(report)) {
    Json entries = Json::array();
    for (std::size_t number = 0; number < list.size; ++number) {
      entries.push_back(list.entry(number));
    }
    object[std::string(list.member)] = std::move(entries);
  }
  return object;
}

void printCheck(const CheckReport& report, const std::vector<ShownMessage>& messages, bool json) {
  if (report.status != ExitStatus::kDone) {
    tellFailure(report, messages, kNotAccepted);
  }
  if (json) {
    printCheckAsJson(report, messages);
  } else {
    printCheckAsText(report);
  }
}

void printPreparation(const PreparationReport& report,
                      const std::vector<ShownMessage>& messages,
                      bool json) {
  // What stands on the standard output when a write fails can't be taken back.
  if (report.status == ExitStatus::kRefused) {
    tellFailure(report, messages, kNothingWritten);
  } else {
    tellAccepted(report.status, messages);
  }
  if (json) {
    printPreparationAsJson(report, messages);
  }
}

void printBooks(const std::vector<ListedBook>& books, bool json) {
  if (json) {
    printBooksAsJson(books);
  } else {
    printBooksAsText(books);
  }
}

void printBook(const ListedBook& book,
               bool isMissing,
               const std::vector<LibraryHeading>& headings,
               bool json) {
  if (json) {
    printBookAsJson(book, isMissing, headings);
  } else {
    printBookAsText(book, isMissing, headings);
  }
}

}  // namespace quorbind
