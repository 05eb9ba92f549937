// Listings of folders against asking the file system for each name, and copies in a series against
// copies one by one, in random trees.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/error_trap.h"
#include "platform/folder_listings.h"
#include "platform/text.h"
#include "tests/contract/adapters.h"
#include "tests/support/memory_files.h"
#include "tests/support/random_choices.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using Texts = std::vector<std::string>;

/// Names of files and folders, few enough to meet again in another letter case.
class RandomNames {
 public:
  RandomNames(RandomChoices& random, std::size_t pages) : random_(random), pages_(pages) {}

  /// From the root, with `/`.
  std::string path() {
    std::string path = random_.oneOf(kFolders) + fileName();
    return random_.oneIn(8) ? upperCaseAscii(path) : path;
  }
  std::string folder() {
    const std::string folder = random_.oneOf(kFolders);
    return folder.substr(0, folder.size() - (folder.empty() ? 0 : 1));
  }

 private:
  std::string fileName() {
    const std::string number = std::to_string(random_.below(pages_));
    return random_.oneIn(4) ? random_.oneOf(kNames)
                            : random_.textOf({"page", "page", "Page", "PAGE"}, 1) + number +
                                  random_.textOf({".htm", ".htm", ".HTM"}, 1);
  }

  const Texts kFolders{"", "docs/", "docs/", "Docs/", "docs/deep/", "DOCS/Deep/er/", "a.b/"};
  const Texts kNames{"a",
                     "A",
                     "a.b.c",
                     ".hidden",
                     "two words.htm",
                     "\u00E4.htm",
                     "\u00C4.HTM",
                     "ma\u00DFe",
                     "a~1.htm",
                     "page1.htm.old",
                     "deep",
                     "\u0131.htm",
                     "a$#%.htm"};
  RandomChoices& random_;
  std::size_t pages_;
};

std::string componentPath(const std::string& name) {
  return "C:\\" + replaceAll(name, "/", "\\");
}

bool isBelowFile(MemoryFiles& files, const std::string& name) {
  for (std::size_t end = name.find('/'); end != std::string::npos; end = name.find('/', end + 1)) {
    if (files.fileExists(componentPath(name.substr(0, end)))) {
      return true;
    }
  }
  return false;
}

/// Where names are asked for and files come to stand.
struct RandomDisk {
  FileSystem& files;
  /// Each may fail, where a file stands in the way of a folder.
  std::function<void(const std::string&)> write;
  std::function<void(const std::string&)> makeFolder;
  std::function<void(const std::string&)> remove;
};

class RandomTrees : public ::testing::Test {
 protected:
  /// Changes the tree again and again, and looks up names in between, each time with new listings.
  /// The names are asked for by `asked`. Answers how many stood.
  int compare(const RandomDisk& disk, FileSystem& asked, int rounds) {
    int standing = 0;
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
      change(disk);
      standing += lookUp(disk.files, asked);
    }
    return standing;
  }

  RandomChoices random_{20260102};
  RandomNames names_{random_, 40};
  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());

 private:
  void change(const RandomDisk& disk) {
    if (random_.oneIn(3)) {
      disk.remove(names_.folder());
    }
    for (std::size_t count = random_.below(40); count > 0; --count) {
      disk.write(names_.path());
    }
    for (std::size_t count = random_.below(4); count > 0; --count) {
      disk.makeFolder(names_.path());
      disk.remove(names_.path());
    }
  }

  int lookUp(FileSystem& listed, FileSystem& asked) {
    FolderListings listings(listed, adapters_->locale());
    Texts paths;
    for (int count = 0; count < 200; ++count) {
      paths.push_back(asked.absolutePath(componentPath(askedName())));
    }
    int standing = 0;
    for (const std::string& path : paths) {
      const bool isThere = asked.fileExists(path);
      EXPECT_EQ(listings.hasFile(path), isThere) << path;
      standing += isThere ? 1 : 0;
    }
    return standing;
  }

  /// What a book may say for a file.
  std::string askedName() {
    const std::string name = names_.path();
    switch (random_.below(12)) {
      case 0:
        return name + random_.textOf({".", " ", "/", "/x", "\\..\\a"}, 1);
      case 1:
        return "docs/../" + name;
      case 2:
        return upperCaseAscii(name);
      default:
        return name;
    }
  }
};

TEST_F(RandomTrees, InMemoryAreListedAsTheyAreAsked) {
  MemoryFiles files;
  const RandomDisk disk{
      files,
      [&](const std::string& name) {
        if (!files.folderExists(componentPath(name)) && !isBelowFile(files, name)) {
          files.write(name, "");
        }
      },
      [&](const std::string& name) {
        if (!files.has(name) && !isBelowFile(files, name)) {
          files.makeFolder(name);
        }
      },
      [&](const std::string& name) {
        if (!name.empty()) {
          files.remove(name);
        }
      }};
  EXPECT_GT(compare(disk, files, 60), 1000);
}

/// The file system that lists has seen every state of the tree; the one that is asked has seen
/// none before.
TEST_F(RandomTrees, OnDiskAreListedAsTheyAreAskedAfresh) {
  const auto ignoringFaults = [](const std::function<void()>& change) {
    try {
      change();
    } catch (const std::filesystem::filesystem_error&) {
      // A file stands where a folder would, or the other way round.
    }
  };
  const RandomDisk disk{
      adapters_->files(),
      [&](const std::string& name) { ignoringFaults([&] { disk_.write(name, ""); }); },
      [&](const std::string& name) { ignoringFaults([&] { disk_.makeFolder(name); }); },
      [&](const std::string& name) {
        if (!name.empty()) {
          ignoringFaults([&] { disk_.remove(name); });
        }
      }};
  int standing = 0;
  for (int round = 0; round < 25 && !HasFailure(); ++round) {
    const auto fresh = makeAdapters(disk_.path());
    standing += compare(disk, fresh->files(), 1);
  }
  EXPECT_GT(standing, 500);
}

/// Two trees that hold the same in the beginning.
class RandomCopies : public ::testing::Test {
 protected:
  void write(const std::string& name, const std::string& bytes) {
    for (const TemporaryFolder* disk : {&one_, &other_}) {
      try {
        disk->write(name, bytes);
      } catch (const std::filesystem::filesystem_error&) {
        // A file stands where a folder would.
      }
    }
  }

  RandomChoices random_{20260102};
  /// So few that many stand in several letter cases.
  RandomNames names_{random_, 3};
  TemporaryFolder one_;
  TemporaryFolder other_;
};

TEST_F(RandomCopies, InASeriesLeaveTheTreeThatSingleCopiesLeave) {
  constexpr int kSources = 12;
  for (int source = 0; source < kSources; ++source) {
    write("from/" + std::to_string(source) + ".htm", "source " + std::to_string(source));
  }
  for (int count = 0; count < 40; ++count) {
    write("to/" + names_.path(), "old " + std::to_string(count));
  }
  const auto adapters = makeAdapters(one_.path());
  FileSystem& files = adapters->files();
  const auto series = files.beginCopies();
  int failed = 0;
  for (int count = 0; count < 60; ++count) {
    const std::string from =
        componentPath("from/" + std::to_string(random_.below(kSources + 1)) + ".htm");
    const std::string to = componentPath("to/" + names_.path());
    const auto error = errorOf([&] { series->copy(from, to); });
    // One that knows nothing of what came before.
    const auto expected = errorOf([&] { makeAdapters(other_.path())->files().copyFile(from, to); });
    ASSERT_EQ(error ? error->number() : 0, expected ? expected->number() : 0) << to;
    if (count % 20 == 0) {
      ASSERT_EQ(one_.contents(), other_.contents()) << to;
    }
    failed += error ? 1 : 0;
  }
  series->flush();
  EXPECT_EQ(one_.contents(), other_.contents());
  EXPECT_GT(failed, 3);
  EXPECT_LT(failed, 50);
}

}  // namespace
}  // namespace quorbind::testing
