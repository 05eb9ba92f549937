#pragma once

#include <memory>

#include "bench/benchmarks.h"
#include "bench/copied_folder.h"
#include "bench/library.h"
#include "bench/sample.h"
#include "bench/side_files.h"
#include "bench/workbook.h"

namespace quorbind::bench {

/// The samples of all benchmarks, so that both sides of a pair work on the same.
struct Store {
  std::shared_ptr<Samples> samples = std::make_shared<Samples>();
  std::shared_ptr<MadeOnce<PlainFolder>> plainFolders = std::make_shared<MadeOnce<PlainFolder>>();
  std::shared_ptr<MadeOnce<PageFolder>> pageFolders = std::make_shared<MadeOnce<PageFolder>>();
  std::shared_ptr<MadeOnce<Library>> libraries = std::make_shared<MadeOnce<Library>>();
  std::shared_ptr<MadeOnce<SideFiles>> sideFiles = std::make_shared<MadeOnce<SideFiles>>();
  std::shared_ptr<MadeOnce<Categories>> categories = std::make_shared<MadeOnce<Categories>>();
  std::shared_ptr<Workbooks> workbooks = std::make_shared<Workbooks>();
};

}  // namespace quorbind::bench
