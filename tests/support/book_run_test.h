#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/support/book_run.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/world.h"

namespace quorbind::testing {

/// Runs of the driver that add to the library `Prod`, whose catalogue has the book Alarms (ALM).
class BookRunTest : public ::testing::Test {
 protected:
  /// The runs take the table of contents `tocPath`, which is of that kind. The library stands in
  /// the folder `library`, named as on the disk. Workbooks are read as World says.
  BookRunTest(const std::string& tocPath,
              std::int16_t kind,
              const std::string& library,
              Spreadsheets& (Adapters::*reader)() = nullptr)
      : world_(reader), catalogue_(library + "/Quor_TOC.xml") {
    const std::string folder = "C:\\" + replaceAll(library, "/", "\\") + "\\";
    arguments_.vstrtocpath = tocPath;
    arguments_.vintType = kind;
    arguments_.vstrQuorTOcPath = folder + "Quor_TOC.xml";
    arguments_.vstrProductName = "Prod";
    arguments_.vstrKeywordsPath = folder + "Quor_SearchKeywords.xml";
    arguments_.vstrBookCategoryPath = folder + "Quor_BookCategories.xml";
    // The folder around the library's own.
    arguments_.strServerPath = folder.substr(0, folder.rfind('\\', folder.size() - 2) + 1);
    world_.disk.write(catalogue_, catalogueWith(bookEntry("Alarms", "ALM")));
  }

  bool run() { return runBook(book_, arguments_); }
  /// A run that is given a name and an acronym.
  bool run(const std::string& name, const std::string& acronym) {
    arguments_.vstrBookName = name;
    arguments_.vstrBookAcro = acronym;
    return run();
  }
  [[nodiscard]] std::string catalogue() const { return world_.disk.read(catalogue_); }

  /// The record of a run that adds so many books without a word and ends with a folder.
  static std::vector<std::string> everyStage(const std::string& folder, int books = 1) {
    std::vector<std::string> record{"progress 0/10 ",
                                    "progress 0/10 Toc Validation in Progress..."};
    for (int book = 0; book < books; ++book) {
      record.emplace_back(book == 0 ? "progress 2/10 Toc Validation in Progress..."
                                    : "progress 2/10 Toc Addition Complete");
      record.insert(record.end(),
                    {"progress 2/10 TOC to XML Conversion in Progress...",
                     "progress 2/10 TOC to XML Conversion in Progress...",
                     "progress 4/10 TOC to XML Conversion in Progress...",
                     "progress 4/10 File copying in progress...",
                     "progress 8/10 File copying in progress...",
                     "progress 8/10 Adding Book to Quor_TOC.XML....",
                     "progress 8/10 Toc Addition Complete"});
    }
    record.insert(record.end(), {"progress unloaded", "event [" + folder + "]"});
    return record;
  }

  World world_;
  BookValuatorArguments arguments_;
  NotingEvents events_{world_.user};
  Quor_Book book_{world_.module, &events_};

 private:
  std::string catalogue_;
};

}  // namespace quorbind::testing
