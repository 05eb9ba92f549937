#include "bench/sample.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "bookxml/toc_to_xml.h"
#include "tests/support/catalogue_text.h"
#include "toc/toc_check.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::bench {

Sample::Sample(std::size_t entries, Documents documents)
    : entries_(entries), documents_(documents) {
  world.disk.makeFolder(std::string("in/") + kBookFolder);
  world.disk.makeFolder(std::string("library/") + kBookFolder);
  write(kTocFile, writeTextToc);
  resetLibrary();
  if (documents == Documents::kStanding) {
    writeDocuments();
  } else {
    writeOtherKinds();
  }
}

std::string Sample::systemPath(std::string_view name) const {
  return (world.disk.path() / name).string();
}

void Sample::resetLibrary() {
  world.disk.write(kCatalogueFile, testing::catalogueWith(testing::bookEntry("Other", "OTH")));
  world.user.forget();
  world.state() = {};
  world.state().currentCataloguePath = kCatalogue;
  world.state().currentBookName = kBookName;
  world.state().currentBookAcro = kBookAcro;
}

void Sample::write(const char* name, void (*text)(std::ostream&, std::size_t)) const {
  std::ofstream file(systemPath(name), std::ios::binary);
  text(file, entries_);
}

void Sample::writeOtherKinds() {
  write(kPageFile, writePage);
  write(kPageOfLikeEndsFile, writePageOfLikeEnds);
  write(kPageOfTagsFile, writePageOfTags);
  if (!generateBook(*this)) {
    throw std::runtime_error("the book file of a sample could not be written");
  }
  std::filesystem::copy_file(systemPath(kGeneratedFile), systemPath(kBookTocFile));
}

void Sample::writeDocuments() const {
  world.disk.makeFolder(kBookFolder);
  for (std::size_t index = 0; index < entries_; ++index) {
    std::ofstream(systemPath(kBookFolder + ("/" + documentOf(index))));
  }
}

Sample& Samples::at(std::size_t entries, Documents documents) {
  auto& sample = samples_[{entries, documents}];
  if (!sample) {
    sample = std::make_unique<Sample>(entries, documents);
  }
  return *sample;
}

namespace {

bool check(Sample& sample, std::string toc, std::int16_t kind, std::size_t missing) {
  TocCheck check(sample.world.module);
  return check.mbValidateTocFile(toc, kind) && check.marrsMissingFiles().size() == missing &&
         sample.world.user.messages().empty();
}

}  // namespace

bool checkText(Sample& sample) {
  const bool isMissing = sample.documents() == Documents::kMissing;
  return check(sample, kToc, TocCheck::kText, isMissing ? sample.entries() : std::size_t{0});
}

bool exportPage(Sample& sample, const std::string& page, std::size_t headings) {
  return check(sample, page, TocCheck::kHtml, headings);
}

bool checkBookFile(Sample& sample) {
  return check(sample, kBookToc, TocCheck::kXml, sample.headings());
}

bool generateBook(Sample& sample) {
  CTOCToXML generator(sample.world.module);
  const std::string folder =
      generator.mstrGenerateXMLFromTOC(kToc, kCatalogue, kBookName, kBookAcro, "", kProduct);
  return folder == kBookFolder && sample.world.user.messages().empty();
}

bool addBook(Sample& sample) {
  Quor_Book book(sample.world.module);
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
