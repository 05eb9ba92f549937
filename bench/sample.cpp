#include "bench/sample.h"

#include <array>
#include <filesystem>
#include <fstream>

#include "tests/support/catalogue_text.h"
#include "toc/text_form.h"
#include "toc/toc_check.h"
#include "workflow/driver/quor_book.h"

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

/// One entry in the quotes that the check reads and the markers that the generator reads.
std::string lineOf(std::size_t index) {
  const std::string name = nameOf(index);
  const std::string file = kBookFolder + ("\\" + Sample::documentOf(index));
  const std::string subLink = subLinkOf(index);
  const text_form::Entry entry{
      .level = levelOf(index), .name = name, .file = file, .subLink = subLink};
  return inQuotes(std::to_string(entry.level)) + inQuotes(name) + inQuotes(file) +
         inQuotes(subLink) + text_form::lineOf(entry) + "\r\n";
}

/// One heading of a page, on a line of its own.
std::string headingOf(std::size_t index) {
  const std::string level = std::to_string(levelOf(index) - 1);
  return "<p><K" + level + "><A HREF=\"" + kBookFolder + "/" + Sample::documentOf(index) +
         subLinkOf(index) + "\" FLINKVALUE=\"F" + std::to_string(index) + "\">" + nameOf(index) +
         "</A></K" + level + "></p>\r\n";
}

}  // namespace

Sample::Sample(std::size_t entries, Documents documents)
    : entries_(entries), documents_(documents) {
  world.disk.makeFolder(std::string("in/") + kBookFolder);
  world.disk.makeFolder(std::string("library/") + kBookFolder);
  writeToc();
  if (documents == Documents::kStanding) {
    writeDocuments();
  }
  resetLibrary();
}

std::string Sample::documentOf(std::size_t index) {
  return "page" + std::to_string(index) + ".htm";
}

std::size_t Sample::tocSize() const {
  return std::filesystem::file_size(systemPath(kTocFile));
}

std::string Sample::systemPath(std::string_view name) const {
  return (world.disk.path() / name).string();
}

void Sample::resetLibrary() const {
  world.disk.write(kCatalogueFile, testing::catalogueWith(testing::bookEntry("Other", "OTH")));
}

void Sample::writeToc() const {
  std::ofstream toc(systemPath(kTocFile), std::ios::binary);
  toc << inQuotes("Node Level") << inQuotes("Node Name") << inQuotes("File Name")
      << inQuotes("Sub Link") << "\r\n\r\n";
  for (std::size_t index = 0; index < entries_; ++index) {
    toc << lineOf(index);
  }
}

void Sample::writePage() const {
  std::ofstream page(systemPath(kPageFile), std::ios::binary);
  page << "<html><body>\r\n";
  for (std::size_t index = 1; index < entries_; ++index) {
    page << headingOf(index);
  }
  page << "</body></html>\r\n";
}

void Sample::writePageOfLikeEnds() const {
  std::ofstream page(systemPath(kPageOfLikeEndsFile), std::ios::binary);
  for (std::size_t index = 1; index < entries_; ++index) {
    page << "<K1>" << index << "<K1>HREF=\"" << kBookFolder << "/page.htm\" Title</K1>\r\n";
  }
}

void Sample::writePageOfTags() const {
  std::ofstream page(systemPath(kPageOfTagsFile), std::ios::binary);
  page << "<K1><A HREF=\"" << kBookFolder << "/page.htm\">Title";
  for (std::size_t index = 1; index < entries_; ++index) {
    page << '<' << index << "<b>";
  }
  page << "</A></K1>\r\n";
}

void Sample::writeDocuments() const {
  world.disk.makeFolder(kBookFolder);
  for (std::size_t index = 0; index < entries_; ++index) {
    std::ofstream(systemPath(kBookFolder + ("/" + documentOf(index))));
  }
}

bool addBook(Sample& sample) {
  Quor_Book book(sample.world.module);
  sample.world.user.forget();
  const bool finished = book.Book_Valuator(kToc,
                                           kCatalogue,
                                           TocCheck::kText,
                                           kProduct,
                                           kBookName,
                                           kBookAcro,
                                           /*vstrCategory=*/"",
                                           /*vstrKeywordsPath=*/"",
                                           /*vstrBookCategoryPath=*/"",
                                           /*strKeyWords=*/"",
                                           /*strCategory=*/"",
                                           /*spath=*/"",
                                           /*vlngInstallType=*/0,
                                           /*blnChkCateFlag=*/false,
                                           /*strServerPath=*/"");
  return finished && sample.world.user.messages().empty();
}

}  // namespace quorbind::bench
