#include "platform/folder_listings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/runtime_error.h"
#include "tests/contract/adapters.h"
#include "tests/support/memory_files.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

/// Counts what is asked, and may refuse to list.
class CountingFiles : public MemoryFiles {
 public:
  bool fileExists(std::string_view path) override {
    ++asked;
    return MemoryFiles::fileExists(path);
  }
  std::vector<std::string> fileNamesIn(std::string_view folder) override {
    ++listed;
    if (!canList) {
      raise(ErrorNumber::kPermissionDenied);
    }
    return MemoryFiles::fileNamesIn(folder);
  }

  int asked = 0;
  int listed = 0;
  bool canList = true;
};

class FolderListingsTest : public ::testing::Test {
 protected:
  static constexpr int kManyFiles = 100;

  static std::string pathOf(int number) {
    return "C:\\Docs\\page " + std::to_string(number) + ".htm";
  }
  /// Looks up as many as make a listing worth while.
  void lookUpMany() {
    for (int number = 0; number < kManyFiles; ++number) {
      (void)listings_.hasFile(pathOf(number));
    }
    files_.asked = 0;
    files_.listed = 0;
  }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  CountingFiles files_;
  FolderListings listings_{files_, adapters_->locale()};
};

TEST_F(FolderListingsTest, TellsWhichFilesThereAreInAnyLetterCase) {
  for (int number = 0; number < kManyFiles; number += 2) {
    files_.write("Docs/PAGE " + std::to_string(number) + ".htm", "");
  }
  for (int number = 0; number < kManyFiles; ++number) {
    EXPECT_EQ(listings_.hasFile(pathOf(number)), number % 2 == 0) << number;
  }
}

TEST_F(FolderListingsTest, AsksForFewFilesAndListsTheFolderForMany) {
  files_.write("Docs/page 99.htm", "");

  EXPECT_FALSE(listings_.hasFile(pathOf(0)));
  EXPECT_EQ(files_.listed, 0);
  lookUpMany();
  EXPECT_TRUE(listings_.hasFile(pathOf(99)));
  EXPECT_FALSE(listings_.hasFile(pathOf(98)));
  EXPECT_EQ(files_.asked, 0);
  EXPECT_EQ(files_.listed, 0);
}

TEST_F(FolderListingsTest, AFolderIsNoFile) {
  files_.makeFolder("Docs/page 99.htm");
  lookUpMany();

  EXPECT_FALSE(listings_.hasFile(pathOf(99)));
}

TEST_F(FolderListingsTest, NothingStandsInAFolderThatIsNotThere) {
  lookUpMany();

  EXPECT_FALSE(listings_.hasFile(pathOf(99)));
  EXPECT_EQ(files_.asked, 0);
}

TEST_F(FolderListingsTest, AsksForEveryFileOfAFolderThatCanNotBeListed) {
  files_.write("Docs/page 99.htm", "");
  files_.canList = false;
  lookUpMany();

  EXPECT_TRUE(listings_.hasFile(pathOf(99)));
  EXPECT_FALSE(listings_.hasFile(pathOf(98)));
  EXPECT_EQ(files_.asked, 2);
  EXPECT_EQ(files_.listed, 0);
}

TEST_F(FolderListingsTest, AsksForEveryNameThatAFileMayHaveBesideTheListedOne) {
  lookUpMany();
  for (const char* name : {"PAGE~1.HTM", "page.htm.", "page.htm "}) {
    files_.write(std::string("Docs/") + name, "");
    EXPECT_TRUE(listings_.hasFile(std::string("C:\\Docs\\") + name)) << name;
  }
  EXPECT_EQ(files_.asked, 3);
}

TEST_F(FolderListingsTest, DoNotRememberEveryFolderThatWasAskedForOnce) {
  for (int number = 0; number < 12; ++number) {
    static_cast<void>(listings_.hasFile(pathOf(number)));
  }
  for (int folder = 0; folder < 20'000; ++folder) {
    static_cast<void>(listings_.hasFile("C:\\" + std::to_string(folder) + "\\page.htm"));
  }
  for (int number = 0; number < 12; ++number) {
    static_cast<void>(listings_.hasFile(pathOf(number)));
  }
  EXPECT_EQ(files_.listed, 0) << "the folder has been asked for 12 files as far as it knows";
}

/// A disk on which every folder has as many files, and letter case counts.
class LargeFolders : public MemoryFiles {
 public:
  bool fileExists(std::string_view path) override {
    ++asked;
    return path.ends_with("exact");
  }
  std::vector<std::string> fileNamesIn(std::string_view /*folder*/) override {
    ++listed;
    std::vector<std::string> names{"EXACT", "exact"};
    for (int i = 0; i < 100'000; ++i) {
      names.push_back("file" + std::to_string(i));
    }
    return names;
  }

  int asked = 0;
  int listed = 0;
};

class LargeFolderListings : public ::testing::Test {
 protected:
  /// Asks for so many that the folder is listed, if any is.
  void fill(const std::string& folder) {
    for (int i = 0; i < 20; ++i) {
      static_cast<void>(listings_.hasFile(folder + "file" + std::to_string(i)));
    }
    files_.asked = 0;
  }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  LargeFolders files_;
  FolderListings listings_{files_, adapters_->locale()};
};

TEST_F(LargeFolderListings, EndWhenManyNamesHaveBeenListed) {
  for (int i = 0; i < 20; ++i) {
    fill("C:\\" + std::to_string(i) + "\\");
  }
  EXPECT_EQ(files_.listed, 5);
  EXPECT_FALSE(listings_.hasFile("C:\\19\\file30"));
  EXPECT_EQ(files_.asked, 1) << "the disk is asked where nothing was listed";
  EXPECT_TRUE(listings_.hasFile("C:\\0\\file30"));
  EXPECT_EQ(files_.asked, 1);
}

TEST_F(LargeFolderListings, LeaveToTheDiskWhatIsListedInAnotherSpellingOnly) {
  fill("C:\\");
  EXPECT_FALSE(listings_.hasFile("C:\\FILE30")) << "something else may stand under this very name";
  EXPECT_EQ(files_.asked, 1);
  EXPECT_TRUE(listings_.hasFile("C:\\EXACT"));
  EXPECT_TRUE(listings_.hasFile("C:\\exact"));
  EXPECT_EQ(files_.asked, 2) << "of the second spelling of two";
  EXPECT_FALSE(listings_.hasFile("C:\\none"));
  EXPECT_EQ(files_.asked, 2);
}

TEST_F(LargeFolderListings, LeaveToTheDiskWhatMayBeNoUnicode) {
  fill("C:\\");
  EXPECT_FALSE(listings_.hasFile("C:\\\xEF\xBF\xBD.htm"));
  EXPECT_EQ(files_.asked, 1);
}

TEST(NameSet, TakesNamesInDifferentLetterCaseForOneAndKeepsTheFirstSpelling) {
  const TemporaryFolder disk;
  const auto adapters = makeAdapters(disk.path());
  NameSet names(adapters->locale());
  EXPECT_TRUE(names.add("Ma\xC3\x9F\\\xC3\x84nderung.htm"));
  EXPECT_TRUE(names.add("b"));
  EXPECT_FALSE(names.add("mA\xC3\x9F\\\xC3\xA4NDERUNG.HTM"));
  EXPECT_FALSE(names.add("B"));
  ASSERT_EQ(names.size(), 2U);
  EXPECT_EQ(names.at(0), "Ma\xC3\x9F\\\xC3\x84nderung.htm");
}

}  // namespace
}  // namespace quorbind::testing
