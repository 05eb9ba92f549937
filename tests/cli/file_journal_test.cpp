#include "cli/file_journal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/portable/portable_file_system.h"
#include "tests/support/failing_files.h"
#include "tests/support/raised_error.h"
#include "tests/support/read_only_files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/unreadable_files.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kind = FileChange::Kind;

class Journal : public ::testing::Test {
 protected:
  void SetUp() override { folder_.write("a.txt", "first"); }

  /// A name in the folder, which is the drive.
  [[nodiscard]] static std::string at(std::string_view name) { return "C:\\" + std::string(name); }

  TemporaryFolder folder_;
  PortableFileSystem disk_{folder_.path()};
  FileJournal journal_{disk_};
};

TEST_F(Journal, NotesChangesInTheirOrderUnderFullNames) {
  journal_.createFolder("C:/sub");
  journal_.copyFile(at("a.txt"), at("sub\\copy.txt"));
  journal_.moveFile(at("sub\\copy.txt"), "C:/sub/moved.txt");
  journal_.deleteFile(at("a.txt"));
  EXPECT_THAT(journal_.changes(),
              ElementsAre(FileChange{Kind::kFolderMade, "C:\\sub"},
                          FileChange{Kind::kWritten, "C:\\sub\\copy.txt"},
                          FileChange{Kind::kMoved, "C:\\sub\\copy.txt", "C:\\sub\\moved.txt"},
                          FileChange{Kind::kDeleted, "C:\\a.txt"}));
  EXPECT_FALSE(journal_.failedWrite());
}

TEST_F(Journal, NotesAReplacementWhenItIsCommittedAndOnce) {
  journal_.replace(at("a.txt"))->write("dropped");
  EXPECT_THAT(journal_.changes(), IsEmpty());
  for (const char* text : {"one", "two"}) {
    const std::unique_ptr<FileReplacement> replacement = journal_.replace(at("a.txt"));
    replacement->write(text);
    replacement->commit();
  }
  EXPECT_THAT(journal_.changes(), ElementsAre(FileChange{Kind::kWritten, "C:\\a.txt"}));
  EXPECT_EQ(folder_.read("a.txt"), "two");
}

TEST_F(Journal, AMoveThatIsUndoneIsNoChange) {
  journal_.moveFile(at("a.txt"), at("b.txt"));
  journal_.moveFile(at("b.txt"), at("a.txt"));
  EXPECT_THAT(journal_.changes(), IsEmpty());
}

TEST_F(Journal, RemembersTheFirstWriteThatFailed) {
  ReadOnlyFiles readOnly(disk_);
  FileJournal journal(readOnly);
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(journal.replace(at("a.txt"))); }), 70);
  EXPECT_EQ(errorRaisedBy([&] { journal.createFolder(at("sub")); }), 70);
  EXPECT_EQ(journal.failedWrite(), "C:\\a.txt");
  EXPECT_THAT(journal.changes(), IsEmpty());
}

TEST_F(Journal, NotesTheCopiesOfASeries) {
  const std::unique_ptr<CopySeries> copies = journal_.beginCopies();
  copies->copy(at("a.txt"), at("b.txt"));
  copies->flush();
  EXPECT_THAT(journal_.changes(), ElementsAre(FileChange{Kind::kWritten, "C:\\b.txt"}));
  EXPECT_FALSE(journal_.failedWrite());
}

TEST_F(Journal, RemembersTheLastCopyOfASeriesThatCouldNotBeFlushed) {
  FailingFiles failing(disk_);
  FileJournal journal(failing);
  const std::unique_ptr<CopySeries> copies = journal.beginCopies();
  failing.failAt(2, faultsOf(ChangingCall::Kind::kFlush).front());
  copies->copy(at("a.txt"), at("b.txt"));
  copies->copy(at("a.txt"), at("c.txt"));
  EXPECT_EQ(errorRaisedBy([&] { copies->flush(); }), 57);
  EXPECT_EQ(journal.failedWrite(), "C:\\c.txt");
}

TEST_F(Journal, RemembersTheFirstReadThatFailed) {
  folder_.write("b.txt", "second");
  UnreadableFiles unreadable(disk_, at("b.txt"));
  FileJournal journal(unreadable);
  char byte = 0;
  EXPECT_EQ(journal.open(at("a.txt"))->read(&byte, 1), 1U);
  EXPECT_FALSE(journal.failedRead());
  EXPECT_EQ(errorRaisedBy([&] { journal.open(at("b.txt"))->read(&byte, 1); }), 57);
  EXPECT_EQ(journal.failedRead(), "C:\\b.txt");
  EXPECT_FALSE(journal.failedWrite());
}

TEST_F(Journal, TakesAFileThatIsNotThereForNoFailedRead) {
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(journal_.open(at("b.txt"))); }), 53);
  EXPECT_FALSE(journal_.failedRead());
}

TEST_F(Journal, TakesACopyWhoseSourceCanNotBeReadForAFailedRead) {
  UnreadableFiles unreadable(disk_, at("a.txt"));
  unreadable.failToCopy();
  FileJournal journal(unreadable);
  EXPECT_EQ(errorRaisedBy([&] { journal.copyFile(at("a.txt"), at("b.txt")); }), 57);
  EXPECT_EQ(journal.failedRead(), "C:\\a.txt");
  EXPECT_FALSE(journal.failedWrite());
}

TEST_F(Journal, RemembersOfAMoveTheFolderThatTakesNothingAndElseTheFile) {
  FailingFiles failing(disk_);
  FileJournal journal(failing);
  failing.failAt(0, faultsOf(ChangingCall::Kind::kMoveFile).front());
  EXPECT_THROW(journal.moveFile(at("a.txt"), at("b.txt")), RunTimeError);
  EXPECT_EQ(journal.failedWrite(), "C:\\a.txt");

  FileJournal other(disk_);
  EXPECT_EQ(errorRaisedBy([&] { other.moveFile(at("a.txt"), at("none\\a.txt")); }), 76);
  EXPECT_EQ(other.failedWrite(), "C:\\none");
}

TEST_F(Journal, WhatIsInTheWayIsNoFailedWrite) {
  folder_.write("b.txt", "second");
  EXPECT_EQ(errorRaisedBy([&] { journal_.moveFile(at("a.txt"), at("b.txt")); }), 58);
  EXPECT_FALSE(journal_.failedWrite());
  EXPECT_THAT(journal_.changes(), IsEmpty());
}

}  // namespace
}  // namespace quorbind::testing
