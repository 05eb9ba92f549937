#include "bench/toc_texts.h"

#include <array>
#include <string_view>

#include "tests/support/temporary_folder.h"
#include "toc/text_form.h"

namespace quorbind::bench {

namespace {

/// Chapters with sections, and subsections in some of them.
constexpr std::array<int, 10> kLevels{2, 3, 3, 4, 4, 4, 3, 4, 3, 3};
constexpr std::size_t kEntriesPerBookmark = 10;

int levelOf(std::size_t index) {
  return index == 0 ? 1 : kLevels.at((index - 1) % kLevels.size());
}

std::string inQuotes(std::string_view field) {
  return std::string("\"").append(field).append("\" ");
}

std::string nameOf(std::size_t index) {
  return "Setting " + std::to_string(index) + " of the pump, in \xC2\xB5s";
}

std::string subLinkOf(std::size_t index) {
  return index % kEntriesPerBookmark == 0 ? "#range" : "";
}

std::string lineOf(std::size_t index) {
  const std::string name = nameOf(index);
  const std::string file = kBookFolder + ("\\" + documentOf(index));
  const std::string subLink = subLinkOf(index);
  const text_form::Entry entry{
      .level = levelOf(index), .name = name, .file = file, .subLink = subLink};
  return inQuotes(std::to_string(entry.level)) + inQuotes(name) + inQuotes(file) +
         inQuotes(subLink) + text_form::lineOf(entry) + "\r\n";
}

/// One heading of a page, on a line of its own.
std::string headingOf(std::size_t index) {
  const std::string level = std::to_string(levelOf(index) - 1);
  return "<p><K" + level + "><A HREF=\"" + kBookFolder + "/" + documentOf(index) +
         subLinkOf(index) + "\" FLINKVALUE=\"F" + std::to_string(index) + "\">" + nameOf(index) +
         "</A></K" + level + "></p>\r\n";
}

}  // namespace

std::string documentOf(std::size_t index) {
  return "page" + std::to_string(index) + ".htm";
}

std::string pageContent() {
  std::string page = "<html><head><link rel=\"stylesheet\" href=\"" +
                     std::string(kFilesOfPages[0]) +
                     "\"></head>\r\n<body class=\"manual\"><p><img alt=\"\" src=\"" +
                     kFilesOfPages[1] + "\"></p>\r\n<p>";
  const std::string end = "</p></body></html>\r\n";
  page.append(kDocumentSize - page.size() - end.size(), 'x');
  return page + end;
}

void writeTextToc(std::ostream& out, std::size_t entries) {
  out << inQuotes("Node Level") << inQuotes("Node Name") << inQuotes("File Name")
      << inQuotes("Sub Link") << "\r\n\r\n";
  for (std::size_t index = 0; index < entries; ++index) {
    out << lineOf(index);
  }
}

void writePage(std::ostream& out, std::size_t entries) {
  out << "<html><body>\r\n";
  for (std::size_t index = 1; index < entries; ++index) {
    out << headingOf(index);
  }
  out << "</body></html>\r\n";
}

void writePageOfLikeEnds(std::ostream& out, std::size_t entries) {
  for (std::size_t index = 1; index < entries; ++index) {
    out << "<K1>" << index << "<K1>HREF=\"" << kBookFolder << "/page.htm\" Title</K1>\r\n";
  }
}

void writePageOfTags(std::ostream& out, std::size_t entries) {
  out << "<K1><A HREF=\"" << kBookFolder << "/page.htm\">Title";
  for (std::size_t index = 1; index < entries; ++index) {
    out << '<' << index << "<b>";
  }
  out << "</A></K1>\r\n";
}

std::string documentOfRow(std::size_t row, std::size_t rowsOfABook) {
  const std::string document = documentOf(row);
  return row % rowsOfABook == 0 ? kBookFolder + ("\\" + document) : document;
}

std::vector<testing::HeadingRow> headingRows(std::size_t rows, std::size_t rowsOfABook) {
  std::vector<testing::HeadingRow> list;
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t inBook = row % rowsOfABook;
    list.push_back({inBook == 0 ? "1" : std::to_string(2 + (inBook - 1) % 3),
                    "Heading number " + std::to_string(row),
                    documentOfRow(row, rowsOfABook)});
  }
  return list;
}

std::string workbookExport(std::size_t rowsOfABook) {
  std::string text = "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\r\n\r\n";
  for (const testing::HeadingRow& row : headingRows(rowsOfABook, rowsOfABook)) {
    const text_form::Entry entry{.level = std::stoi(row.level), .name = row.name, .file = row.file};
    text += text_form::lineOf(entry) + "\r\n";
  }
  return testing::utf16File(text);
}

std::vector<testing::BookRow> bookRows(std::size_t rows, std::size_t rowsOfABook) {
  std::vector<testing::BookRow> list;
  for (std::size_t book = 0; book * rowsOfABook < rows; ++book) {
    list.push_back({"Bench " + std::to_string(book), "BEN" + std::to_string(book)});
  }
  return list;
}

}  // namespace quorbind::bench
