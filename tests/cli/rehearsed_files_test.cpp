#include "cli/rehearsed_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/portable/portable_file_system.h"
#include "platform/portable/portable_locale.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/unreadable_files.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;

/// Two files and a folder on the disk. No test changes what stands there.
class Rehearsed : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_.write("a.txt", "first");
    folder_.write("b.txt", "second");
    folder_.makeFolder("sub");
    before_ = folder_.contents();
  }
  void TearDown() override { EXPECT_EQ(folder_.contents(), before_); }

  [[nodiscard]] std::string at(std::string_view name) const {
    return folder_.path().string() + "/" + std::string(name);
  }
  [[nodiscard]] std::string read(std::string_view name) {
    const std::unique_ptr<ByteReader> reader = files_.open(at(name));
    std::string text;
    std::string piece(3, '\0');
    while (const std::size_t count = reader->read(piece.data(), piece.size())) {
      text.append(piece, 0, count);
    }
    return text;
  }
  void replaceBy(std::string_view name, std::string_view bytes) {
    const std::unique_ptr<FileReplacement> replacement = files_.replace(at(name));
    replacement->write(bytes);
    replacement->commit();
  }

  TemporaryFolder folder_;
  PortableLocale locale_;
  PortableFileSystem disk_;
  RehearsedFiles files_{disk_, locale_};

 private:
  std::map<std::string, std::string> before_;
};

TEST_F(Rehearsed, ACopyOfWhatCanNotBeReadFails) {
  UnreadableFiles unreadable(disk_, disk_.absolutePath(at("a.txt")));
  RehearsedFiles files(unreadable, locale_);
  EXPECT_EQ(errorRaisedBy([&] { files.copyFile(at("a.txt"), at("sub/copy.txt")); }), 57);
  EXPECT_FALSE(files.fileExists(at("sub/copy.txt")));
  files.moveFile(at("a.txt"), at("sub/moved.txt"));
  EXPECT_TRUE(files.fileExists(at("sub/moved.txt")));
}

TEST_F(Rehearsed, APipeIsNoFileAsOnTheDisk) {
  const TemporaryFolder folder;
  const std::string pipe = folder.path().string() + "/pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (FileSystem* files : {static_cast<FileSystem*>(&disk_), static_cast<FileSystem*>(&files_)}) {
    EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(files->open(pipe)); }), 75);
    EXPECT_EQ(errorRaisedBy([&] { files->copyFile(pipe, at("copy.txt")); }), 75);
  }
}

TEST_F(Rehearsed, WhatStandsOnTheDiskIsRead) {
  EXPECT_EQ(read("a.txt"), "first");
  EXPECT_TRUE(files_.fileExists(at("A.TXT")));
  EXPECT_TRUE(files_.folderExists(at("sub")));
  EXPECT_THAT(files_.namesIn(at("")), ElementsAre("a.txt", "b.txt", "sub"));
}

TEST_F(Rehearsed, WhatWasWrittenIsReadInAnyLetterCase) {
  replaceBy("A.txt", "changed");
  replaceBy("sub/new.txt", "made");
  EXPECT_EQ(read("a.TXT"), "changed");
  EXPECT_EQ(read("SUB/new.txt"), "made");
  EXPECT_THAT(files_.namesIn(at("sub")), ElementsAre("new.txt"));
}

TEST_F(Rehearsed, AReaderStartsAgainAtTheFirstByte) {
  replaceBy("a.txt", "changed");
  const std::unique_ptr<ByteReader> reader = files_.open(at("a.txt"));
  std::string piece(100, '\0');
  EXPECT_EQ(reader->read(piece.data(), piece.size()), 7U);
  EXPECT_EQ(reader->read(piece.data(), piece.size()), 0U);
  reader->rewind();
  EXPECT_EQ(reader->read(piece.data(), piece.size()), 7U);
}

TEST_F(Rehearsed, AReplacementWithoutACommitChangesNothing) {
  files_.replace(at("a.txt"))->write("changed");
  EXPECT_EQ(read("a.txt"), "first");
}

TEST_F(Rehearsed, ACopyIsWhatItsSourceWas) {
  files_.copyFile(at("a.txt"), at("sub/copy.txt"));
  replaceBy("a.txt", "changed");
  EXPECT_EQ(read("sub/copy.txt"), "first");
}

TEST_F(Rehearsed, AFileIsNotCopiedOntoItself) {
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile(at("a.txt"), at("A.TXT")); }), 70);
  replaceBy("a.txt", "changed");
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile(at("a.txt"), at("A.TXT")); }), 70);
}

TEST_F(Rehearsed, AMovedFileStandsAtItsNewNameAlone) {
  files_.moveFile(at("a.txt"), at("sub/moved.txt"));
  EXPECT_FALSE(files_.fileExists(at("a.txt")));
  EXPECT_EQ(read("sub/moved.txt"), "first");
  EXPECT_THAT(files_.namesIn(at("")), ElementsAre("b.txt", "sub"));
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(files_.open(at("a.txt"))); }), 53);
}

TEST_F(Rehearsed, AFileMovesToAnotherCaseOfItsName) {
  files_.moveFile(at("a.txt"), at("A.txt"));
  EXPECT_EQ(read("a.txt"), "first");
  EXPECT_THAT(files_.namesIn(at("")), ElementsAre("A.txt", "b.txt", "sub"));
}

TEST_F(Rehearsed, MovingOntoAnotherFileRaises58) {
  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile(at("a.txt"), at("b.txt")); }), 58);
  EXPECT_EQ(read("a.txt"), "first");
}

TEST_F(Rehearsed, ADeletedFileIsGone) {
  files_.deleteFile(at("a.txt"));
  EXPECT_FALSE(files_.fileExists(at("a.txt")));
  EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile(at("a.txt")); }), 53);
}

TEST_F(Rehearsed, AFolderThatWasMadeTakesFiles) {
  files_.createFolder(at("new"));
  EXPECT_TRUE(files_.folderExists(at("NEW")));
  replaceBy("new/a.txt", "made");
  EXPECT_EQ(read("new/a.txt"), "made");
  EXPECT_THAT(files_.namesIn(at("new")), ElementsAre("a.txt"));
}

TEST_F(Rehearsed, AFolderIsMadeOnceAndWhereItsOwnStands) {
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder(at("sub")); }), 58);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder(at("a.txt")); }), 58);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder(at("no/new")); }), 76);
}

TEST_F(Rehearsed, AFolderIsNoFile) {
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(files_.open(at("sub"))); }), 75);
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(files_.replace(at("sub"))); }), 75);
}

TEST_F(Rehearsed, AMissingFileRaises53AndAMissingFolder76) {
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(files_.open(at("no.txt"))); }), 53);
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(files_.open(at("no/a.txt"))); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(files_.replace(at("no/a.txt"))); }), 76);
}

TEST_F(Rehearsed, WhatWasWrittenIsTheSameFileUnderEachOfItsNames) {
  replaceBy("new.txt", "made");
  EXPECT_TRUE(files_.sameFile(at("new.txt"), at("sub/../NEW.txt")));
  EXPECT_FALSE(files_.sameFile(at("new.txt"), at("a.txt")));
  files_.deleteFile(at("new.txt"));
  EXPECT_FALSE(files_.sameFile(at("new.txt"), at("new.txt")));
}

}  // namespace
}  // namespace quorbind::testing
