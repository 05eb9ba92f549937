#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/cli/library_test.h"

namespace quorbind::testing {

/// One subcommand of a library, with arguments for which it is done.
struct Subcommand {
  const char* name;
  Words words;
};

inline void PrintTo(const Subcommand& subcommand, std::ostream* out) {
  *out << subcommand.name;
}

inline std::string nameOf(const ::testing::TestParamInfo<Subcommand>& info) {
  return info.param.name;
}

/// A library in which every subcommand finds what it needs.
class CompleteLibrary : public LibraryTest, public ::testing::WithParamInterface<Subcommand> {
 protected:
  void SetUp() override {
    LibraryTest::SetUp();
    disk.write(kCategories, categoriesFile(category("Safety") + category("Other Category")));
    disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell"})));
    disk.write(kLinks, linksFile(link("X1", "ALM@QUOR@Alarms", "Plant\\alarms.htm", "ALM")));
    disk.write("in/plan.htm", "<p>plan</p>");
    disk.write("in/Quor_TOC.xml", disk.read(kCatalogue));
    disk.write("in/Quor_LinkID.xml", linksFile(link("X2", "F", "Plant\\a.htm", "ALM")));
  }

  [[nodiscard]] Words words(const Words& more = {}) const {
    return plantWords(joined(GetParam().words, more));
  }

  /// What stands on the disk, and when it last changed.
  [[nodiscard]] Tree contentsAndTimes() const {
    Tree tree = disk.contents();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(disk.path())) {
      const std::string name = std::filesystem::relative(entry.path(), disk.path()).string();
      tree[name] += "@" + std::to_string(entry.last_write_time().time_since_epoch().count());
    }
    return tree;
  }
};

inline const std::vector<Subcommand> kReaders{
    {"books", {"books"}},
    {"show", {"show"}},
    {"show_book", {"show", "ALM"}},
    {"view", {"view"}},
    {"keywords_list", {"keywords", "list"}},
    {"keywords_find", {"keywords", "find", "bell"}},
    {"links_list", {"links", "list"}},
    {"links_check", {"links", "check"}},
};

inline const std::vector<Subcommand> kCatalogueWriters{
    {"rename", {"rename", "Alarms", "--name", "N", "--acro", "A", "--yes"}},
    {"delete", {"delete", "Alarms", "--yes"}},
    {"set", {"set", "Alarms", "--categories", "A", "--link", "L"}},
    {"install", {"install", "in/plan.htm", "--type", "t", "--name", "N", "--acro", "A"}},
    {"merge", {"merge", "--from", "in/Quor_TOC.xml"}},
    {"keywords_add", {"keywords", "add", "Alarms", "horn"}},
    {"keywords_rename", {"keywords", "rename", "Alarms", "bell", "horn"}},
    {"categories_file", {"categories", "file", "ALM", "Safety"}},
    {"categories_rebuild", {"categories", "rebuild"}},
    {"categories_create", {"categories", "create", "--replace"}},
    {"links_add", {"links", "add", "X3", "--full", "F", "--source", "s", "--acro", "ALM"}},
    {"links_merge", {"links", "merge", "--from", "in/Quor_LinkID.xml"}},
};

inline const std::vector<Subcommand> kCategoryWriters{
    {"categories_add", {"categories", "add", "Maps"}},
    {"categories_rename", {"categories", "rename", "Safety", "Maps"}},
};

inline const Subcommand kInstallWithKeywords{
    "install_with_keywords",
    {"install", "in/plan.htm", "--type", "t", "--name", "N", "--acro", "A", "--keywords", "horn"}};

inline std::vector<Subcommand> all(std::vector<Subcommand> some,
                                   const std::vector<Subcommand>& more) {
  some.insert(some.end(), more.begin(), more.end());
  return some;
}

/// Those that change a file.
inline const std::vector<Subcommand> kWriters = all(kCatalogueWriters, kCategoryWriters);

}  // namespace quorbind::testing
