#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "bench/sample.h"
#include "tests/support/workbook_bytes.h"
#include "tests/support/world.h"

namespace quorbind::bench {

/// A workbook on a disk of its own: books of a thousand rows, each row with a document of its own.
class Workbook {
 public:
  Workbook(std::size_t rows, testing::WorkbookKind kind, Documents documents);

  // Each answers whether it was done, without a message to the user.
  bool read();
  bool countBooks();
  bool checkAndExport();

  /// Its own, and that of the export of its last book, by the system.
  [[nodiscard]] std::string systemPath() const { return pathOf(name_); }
  [[nodiscard]] std::string lastExport() const;
  /// Where an export can be copied to.
  [[nodiscard]] std::string spare() const { return pathOf("export"); }
  /// By the system, as the check looks for them.
  [[nodiscard]] const std::vector<std::string>& documents() const { return documents_; }
  [[nodiscard]] std::size_t standing() const { return standing_; }
  [[nodiscard]] std::size_t rows() const { return documents_.size(); }

 private:
  [[nodiscard]] std::string pathOf(const std::string& name) const {
    return (world_.disk.path() / name).string();
  }

  testing::World world_{&testing::Adapters::spreadsheets};
  std::string name_;
  std::vector<std::string> documents_;
  std::size_t standing_ = 0;
};

/// The workbooks that were asked for; each is made once and stays until the end.
class Workbooks {
 public:
  Workbook& at(std::size_t rows, testing::WorkbookKind kind, Documents documents);

 private:
  std::map<std::tuple<std::size_t, testing::WorkbookKind, Documents>, std::unique_ptr<Workbook>>
      workbooks_;
};

/// What is measured of a workbook.
struct WorkbookStep {
  const char* name;
  testing::WorkbookKind kind;
  Documents documents;
  bool (*run)(Workbook&);
};

/// For every size.
void registerWorkbookStep(const std::shared_ptr<Workbooks>& workbooks, const WorkbookStep& step);

}  // namespace quorbind::bench
