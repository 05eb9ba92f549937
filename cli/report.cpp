#include "cli/report.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

#include "cli/toc_file.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kNotAccepted = "not accepted";

// Texts come out of files and off the command line; one that is no valid UTF-8 must not end the
// report.
void print(const Json& object) {
  constexpr int kIndent = 2;
  std::cout << object.dump(kIndent, ' ', false, Json::error_handler_t::replace) << '\n';
}

Json toJson(const std::vector<ShownMessage>& messages) {
  Json list = Json::array();
  for (const ShownMessage& message : messages) {
    list.push_back({{"icon", wordFor(message.icon)},
                    {"title", message.title},
                    {"text", message.text},
                    {"clipboard", message.clipboard ? Json(*message.clipboard) : Json(nullptr)}});
  }
  return list;
}

Json toJson(const CatalogueEntry& book) {
  return {{"acronym", readableName(book.acronym)},
          {"name", readableName(book.name)},
          {"folder", book.folder},
          {"file", book.bookFile}};
}

void addNumber(Json& object, const char* name, std::size_t number) {
  if (number > 0) {
    object[name] = number;
  }
}

void addPlace(Json& object, std::size_t line, std::size_t column) {
  addNumber(object, "line", line);
  addNumber(object, "column", column);
}

std::string inFolder(const std::string& folder) {
  return folder.empty() ? "the library's own folder" : "folder " + folder;
}

std::string counted(std::size_t count, std::string_view one, std::string_view several) {
  return std::to_string(count).append(" ").append(count == 1 ? one : several);
}

void printAdditionAsText(const AdditionReport& report) {
  if (!report.added) {
    return;
  }
  const std::string what = "Added " + readableName(report.book.name) + " (" +
                           readableName(report.book.acronym) + ") to " + report.library + ", " +
                           inFolder(report.folder) + ": " +
                           counted(report.files.size(), "file", "files") + ".";
  std::cout << visibleText(what) << '\n';
  for (const std::string& document : report.missing) {
    std::cout << "missing: " << visibleText(document) << '\n';
  }
}

void printAdditionAsJson(const AdditionReport& report, const std::vector<ShownMessage>& messages) {
  Json object = {{"status", static_cast<int>(report.status)},
                 {"added", report.added},
                 {"folder", report.folder},
                 {"files", report.files},
                 {"missing", report.missing},
                 {"messages", toJson(messages)}};
  addPlace(object, report.line, report.column);
  if (!report.note.empty()) {
    object["note"] = report.note;
  }
  print(object);
}

void printCheckAsText(const CheckReport& report) {
  for (const MissingDocument& document : report.missing) {
    std::cout << visibleText(placeIn(report.toc, document.line) + "missing: " + document.file)
              << '\n';
  }
  if (report.status == ExitStatus::kDone) {
    std::cout << visibleText(report.toc) << ": accepted, "
              << counted(report.entries, "entry", "entries") << ".\n";
  }
}

void printCheckAsJson(const CheckReport& report, const std::vector<ShownMessage>& messages) {
  Json missing = Json::array();
  for (const MissingDocument& document : report.missing) {
    Json entry = Json::object();
    addNumber(entry, "line", document.line);
    entry["file"] = document.file;
    missing.push_back(std::move(entry));
  }
  Json object = {{"status", static_cast<int>(report.status)},
                 {"accepted", report.status == ExitStatus::kDone},
                 {"entries", report.entries},
                 {"missing", missing},
                 {"messages", toJson(messages)}};
  addPlace(object, report.line, report.column);
  if (report.status != ExitStatus::kDone) {
    object["note"] = kNotAccepted;
  }
  print(object);
}

using Row = std::array<std::string, 3>;

std::size_t columnsOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](unsigned char byte) { return (byte & 0xC0U) != 0x80U; }));
}

void printTable(const std::vector<Row>& rows) {
  Row::size_type last = Row().size() - 1;
  std::array<std::size_t, 3> widths{};
  for (const Row& row : rows) {
    for (std::size_t column = 0; column < last; ++column) {
      widths.at(column) = std::max(widths.at(column), columnsOf(row.at(column)));
    }
  }
  for (const Row& row : rows) {
    for (std::size_t column = 0; column < last; ++column) {
      const std::string& cell = row.at(column);
      std::cout << cell << std::string(widths.at(column) - columnsOf(cell) + 2, ' ');
    }
    std::cout << row.at(last) << '\n';
  }
}

void printBooksAsText(const std::vector<CatalogueEntry>& books) {
  std::vector<Row> rows{{"ACRONYM", "NAME", "FOLDER"}};
  for (const CatalogueEntry& book : books) {
    rows.push_back({visibleText(readableName(book.acronym)),
                    visibleText(readableName(book.name)),
                    visibleText(book.folder)});
  }
  printTable(rows);
}

void printBooksAsJson(const std::vector<CatalogueEntry>& books) {
  Json list = Json::array();
  for (const CatalogueEntry& book : books) {
    list.push_back(toJson(book));
  }
  print({{"books", list}});
}

void printBookAsText(const CatalogueEntry& book, const std::vector<BookHeading>& headings) {
  std::cout << visibleText(readableName(book.name) + " (" + readableName(book.acronym) + "), " +
                           inFolder(book.folder))
            << '\n';
  for (const BookHeading& heading : headings) {
    const std::string place = heading.document + heading.bookmark;
    std::cout << std::string(2 * (heading.depth + 1), ' ') << visibleText(heading.title)
              << (place.empty() ? "" : "  " + visibleText(place)) << '\n';
  }
}

void printBookAsJson(const CatalogueEntry& book, const std::vector<BookHeading>& headings) {
  Json list = Json::array();
  for (const BookHeading& heading : headings) {
    list.push_back({{"level", heading.depth + 1},
                    {"title", heading.title},
                    {"file", heading.document},
                    {"bookmark", heading.bookmark}});
  }
  Json object = toJson(book);
  object["headings"] = list;
  print(object);
}

template <typename Report>
void tellFailure(const Report& report, const std::string& note) {
  std::cerr << "quorbind: " << visibleText(placeIn(report.toc, report.line, report.column) + note)
            << '\n';
}

}  // namespace

void printFailure(ExitStatus status,
                  const std::vector<ShownMessage>& messages,
                  const std::string& note) {
  print({{"status", static_cast<int>(status)}, {"messages", toJson(messages)}, {"note", note}});
}

void printAddition(const AdditionReport& report,
                   const std::vector<ShownMessage>& messages,
                   bool json) {
  if (report.status != ExitStatus::kDone) {
    tellFailure(report, report.note);
  }
  if (json) {
    printAdditionAsJson(report, messages);
  } else {
    printAdditionAsText(report);
  }
}

void printCheck(const CheckReport& report, const std::vector<ShownMessage>& messages, bool json) {
  if (report.status != ExitStatus::kDone) {
    tellFailure(report, kNotAccepted);
  }
  if (json) {
    printCheckAsJson(report, messages);
  } else {
    printCheckAsText(report);
  }
}

void printBooks(const std::vector<CatalogueEntry>& books, bool json) {
  if (json) {
    printBooksAsJson(books);
  } else {
    printBooksAsText(books);
  }
}

void printBook(const CatalogueEntry& book, const std::vector<BookHeading>& headings, bool json) {
  if (json) {
    printBookAsJson(book, headings);
  } else {
    printBookAsText(book, headings);
  }
}

}  // namespace quorbind
