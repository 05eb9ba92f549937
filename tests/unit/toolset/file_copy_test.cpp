#include "toolset/file_copy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>

#include "platform/runtime_error.h"
#include "tests/contract/adapters.h"
#include "tests/support/failing_files.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/unreadable_files.h"

namespace quorbind::testing {
namespace {

using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// A file system that tells what it was asked about, and whose copies can be made to fail.
class WatchedFileSystem final : public FileSystem {
 public:
  explicit WatchedFileSystem(FileSystem& files) : files_(files) {}

  /// From now on copies to this name end with this error.
  void failCopyTo(std::string_view path, ErrorNumber error) { failures_.emplace(path, error); }
  /// From now on no folder can be listed.
  void failToList() { canList_ = false; }
  /// Every name that was part of a call, in order.
  [[nodiscard]] const std::vector<std::string>& asked() const { return asked_; }
  [[nodiscard]] auto timesAsked(std::string_view path) const {
    return std::count(asked_.begin(), asked_.end(), path);
  }
  [[nodiscard]] auto timesOpened(std::string_view path) const {
    return std::count(opened_.begin(), opened_.end(), path);
  }
  [[nodiscard]] auto copiesTo(std::string_view path) const {
    return std::count(copied_.begin(), copied_.end(), path);
  }

  [[nodiscard]] bool fileExists(std::string_view path) override {
    return files_.fileExists(note(path));
  }
  [[nodiscard]] bool folderExists(std::string_view path) override {
    return files_.folderExists(note(path));
  }
  void createFolder(std::string_view path) override { files_.createFolder(note(path)); }
  void copyFile(std::string_view from, std::string_view to) override {
    note(from);
    copied_.emplace_back(note(to));
    if (const auto failure = failures_.find(std::string(to)); failure != failures_.end()) {
      raise(failure->second);
    }
    files_.copyFile(from, to);
  }
  void moveFile(std::string_view from, std::string_view to) override {
    files_.moveFile(note(from), note(to));
  }
  void deleteFile(std::string_view path) override { files_.deleteFile(note(path)); }
  [[nodiscard]] std::string absolutePath(std::string_view path) override {
    return files_.absolutePath(path);
  }
  [[nodiscard]] bool sameFile(std::string_view left, std::string_view right) override {
    return files_.sameFile(note(left), note(right));
  }
  [[nodiscard]] std::vector<std::string> namesIn(std::string_view folder) override {
    if (!canList_) {
      raise(ErrorNumber::kPermissionDenied);
    }
    return files_.namesIn(note(folder));
  }
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view path) override {
    opened_.emplace_back(note(path));
    return files_.open(path);
  }
  [[nodiscard]] std::unique_ptr<FileReplacement> replace(std::string_view path) override {
    return files_.replace(note(path));
  }

 private:
  std::string_view note(std::string_view path) {
    asked_.emplace_back(path);
    return path;
  }

  FileSystem& files_;
  std::map<std::string, ErrorNumber, std::less<>> failures_;
  bool canList_ = true;
  std::vector<std::string> asked_;
  std::vector<std::string> opened_;
  std::vector<std::string> copied_;
};

class FileCopyTest : public ::testing::Test {
 protected:
  /// Copies a book file with these headings from in/ to lib/.
  bool copyBook(const std::string& headings) {
    disk_.write("in/Book_B.xml", "<Book_Master>" + headings + "</Book_Master>");
    return copy_.mbCopyFiles("C:\\lib", "C:\\in\\Book_B.xml", 0, 0);
  }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  WatchedFileSystem files_{adapters_->files()};
  ReferenceFileCopy copy_{files_, adapters_->xml(), adapters_->locale()};
};

TEST_F(FileCopyTest, CopiesADocumentOnceHoweverManyHeadingsNameIt) {
  disk_.write("in/intro.htm", "");
  std::string headings;
  for (int heading = 0; heading < 1000; ++heading) {
    headings += "<HFile>" + std::string(heading % 2 == 0 ? "intro" : "INTRO") + ".htm#" +
                std::to_string(heading) + "</HFile>";
  }
  EXPECT_TRUE(copyBook(headings));
  EXPECT_EQ(files_.copiesTo("C:\\lib\\intro.htm"), 1);
  EXPECT_EQ(files_.copiesTo("C:\\lib\\INTRO.htm"), 0);
}

TEST_F(FileCopyTest, LooksIntoNoDocumentThatCanBeNeitherBookFileNorPage) {
  disk_.write("in/report.pdf", "bytes");
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\lib", "C:\\in\\report.pdf", 0, 0));
  EXPECT_EQ(files_.copiesTo("C:\\lib\\report.pdf"), 1);
  EXPECT_EQ(files_.timesOpened("C:\\in\\report.pdf"), 0);
}

TEST_F(FileCopyTest, CopiesALinkedFileOnceHoweverManyPagesLinkToIt) {
  disk_.write("in/one.htm", "<img src=logo.png><a href=two.htm>");
  disk_.write("in/two.htm", "<img src=LOGO.png><a href=one.htm>");
  disk_.write("in/logo.png", "");
  EXPECT_TRUE(copyBook("<HFile>one.htm</HFile><HFile>two.htm</HFile>"));
  EXPECT_EQ(files_.copiesTo("C:\\lib\\logo.png"), 1);
  EXPECT_EQ(files_.copiesTo("C:\\lib\\LOGO.png"), 0);
  EXPECT_EQ(files_.copiesTo("C:\\lib\\two.htm"), 1);
}

TEST_F(FileCopyTest, ListsAFolderOnceHoweverManyDocumentsAreMissing) {
  disk_.write("in/page.htm", "<img src=missing.png><img src=img/missing.png>");
  std::string headings = "<HFile>page.htm</HFile>";
  for (int heading = 0; heading < 1000; ++heading) {
    headings += "<HFile>page" + std::to_string(heading) + ".htm</HFile>";
  }
  EXPECT_TRUE(copyBook(headings));
  EXPECT_EQ(files_.timesAsked("C:\\in\\"), 1);
  EXPECT_LT(files_.asked().size(), 40U);
}

TEST_F(FileCopyTest, AsksNothingAboutTheFolderAboveABookFileThatWasNotMoved) {
  EXPECT_TRUE(copyBook("<HFile>missing.htm</HFile>"));
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\lib\\in", "C:\\in\\\\Book_B.xml", 0, 0));
  EXPECT_EQ(files_.timesAsked("C:\\missing.htm"), 0);
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\other\\IN", "C:\\in\\Book_B.xml", 0, 0));
  EXPECT_EQ(files_.timesAsked("C:\\missing.htm"), 1) << "nothing would have been asked otherwise";
}

TEST_F(FileCopyTest, CopiesALinkedFileOnceAlsoWhenThePagesAreHandedOverOneByOne) {
  disk_.write("in/one.htm", "<img src=logo.png>");
  disk_.write("in/two.htm", "<img src=LOGO.png>");
  disk_.write("in/logo.png", "");
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\lib", "C:\\in\\one.htm", 0, 0));
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\lib", "C:\\in\\two.htm", 0, 0));
  EXPECT_EQ(files_.copiesTo("C:\\lib\\logo.png"), 1);
  EXPECT_EQ(files_.copiesTo("C:\\lib\\LOGO.png"), 0);
}

TEST_F(FileCopyTest, CopiesALinkedFileAgainToAnotherFolder) {
  disk_.write("in/one.htm", "<img src=logo.png>");
  disk_.write("in/logo.png", "");
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\lib", "C:\\in\\one.htm", 0, 0));
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\other", "C:\\in\\one.htm", 0, 0));
  EXPECT_TRUE(disk_.has("lib/logo.png"));
  EXPECT_TRUE(disk_.has("other/logo.png"));
}

TEST_F(FileCopyTest, CopiesWhatAPageInPlaceLinksToOnceAndNothingOverIt) {
  disk_.write("in/one.htm", "<img src=logo.png><a href=two.htm>");
  disk_.write("in/two.htm", "<img src=LOGO.png><a href=one.htm>");
  disk_.write("in/logo.png", "");
  disk_.write("lib/one.htm", "old");
  copy_.copyLinkedFiles("C:\\lib", "C:\\in\\one.htm");
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\lib", "C:\\in\\two.htm", 0, 0));
  EXPECT_EQ(files_.copiesTo("C:\\lib\\logo.png"), 1);
  EXPECT_EQ(disk_.read("lib/one.htm"), "old");
}

TEST_F(FileCopyTest, FindsDocumentsInAFolderThatCannotBeListed) {
  disk_.write("in/intro.htm", "");
  files_.failToList();
  EXPECT_TRUE(copyBook("<HFile>intro.htm</HFile><HFile>missing.htm</HFile>"));
  EXPECT_TRUE(disk_.has("lib/intro.htm"));
}

TEST_F(FileCopyTest, AsksNothingAboutNamesThatLeadElsewhere) {
  disk_.write("in/page.htm",
              "<a href='../secret.htm'><a href='//server/secret'><a href='%5c%5cserver%5csecret'>"
              "<a href='nul'><a href='C:secret'><a href='http://server/secret'>");
  EXPECT_TRUE(
      copyBook("<HFile>page.htm</HFile><HFile>..\\secret.htm</HFile>"
               "<HFile>\\\\server\\share\\secret.htm</HFile><HFile>\\\\.\\C:\\secret.htm</HFile>"
               "<HFile>deep\\.. \\secret.htm</HFile><HFile>CON</HFile><HFile>nul.htm</HFile>"
               "<HFile>deep/COM1.txt</HFile><HFile>page.htm:secret</HFile>"
               "<HFile>D:\\secret.htm</HFile><HFile>file:///C:/secret.htm</HFile>"));
  EXPECT_THAT(files_.asked(), Each(StartsWith("C:")));
  for (const char* part : {"secret", "server", "CON", "nul", "COM1", ".."}) {
    EXPECT_THAT(files_.asked(), Each(Not(HasSubstr(part))));
  }
}

TEST_F(FileCopyTest, NeverPutsADocumentInThePlaceOfTheLibrarysOwnFiles) {
  disk_.write("in/page.htm", "<a href=quor_toc.XML>");
  disk_.write("in/Quor_TOC.xml", "another catalogue");
  disk_.write("in/Quor_LinkID.xml", "other links");
  disk_.write("lib/Quor_TOC.xml", "the catalogue");
  EXPECT_TRUE(
      copyBook("<HFile>page.htm</HFile><HFile>Quor_TOC.xml</HFile>"
               "<HFile>Quor_LinkID.xml#top</HFile>"));
  EXPECT_EQ(disk_.read("lib/Quor_TOC.xml"), "the catalogue");
  EXPECT_FALSE(disk_.has("lib/Quor_LinkID.xml"));
  EXPECT_TRUE(disk_.has("lib/page.htm"));
}

TEST_F(FileCopyTest, NeverPutsADocumentWhereWindowsWouldFindTheLibrarysOwnFiles) {
  disk_.write("in/page.htm", "<img src='Quor_TOC.xml.'><img src='Quor_TOC.xml%20'>");
  disk_.write("lib/Quor_TOC.xml", "the catalogue");
  std::string headings = "<HFile>page.htm</HFile>";
  const std::vector<std::string> names{
      "Quor_TOC.xml.", "Quor_TOC.xml ", "quor_linkid.XML. .", "QUOR_T~1.XML", "qu3f2a~1.xml"};
  for (const std::string& name : names) {
    disk_.write("in/" + name, "another catalogue");
    headings += "<HFile>" + name + "</HFile>";
  }
  EXPECT_TRUE(copyBook(headings));
  EXPECT_EQ(disk_.read("lib/Quor_TOC.xml"), "the catalogue");
  for (const std::string& name : names) {
    EXPECT_EQ(files_.copiesTo("C:\\lib\\" + name), 0) << name;
  }
  EXPECT_TRUE(disk_.has("lib/page.htm"));
}

TEST_F(FileCopyTest, BringsDocumentsWhoseNamesOnlyResembleThoseFiles) {
  disk_.write("lib/Quor_TOC.xml", "the catalogue");
  for (const char* name : {"Quor_TOC.xml.htm", "QUOR~1.htm", "quick-guide~2.xml", "Quorum.xml"}) {
    disk_.write(std::string("in/") + name, "");
    EXPECT_TRUE(copyBook(std::string("<HFile>") + name + "</HFile>"));
    EXPECT_TRUE(disk_.has(std::string("lib/") + name)) << name;
  }
}

TEST_F(FileCopyTest, BringsDocumentsOfSuchNamesIntoTheFolderOfABook) {
  disk_.write("in/page.htm", "<a href=Quor_Linked.xml>");
  disk_.write("in/Quor_Linked.xml", "");
  disk_.write("in/deep/Quor_TOC.xml", "");
  disk_.write("lib/Quor_TOC.xml", "the catalogue");
  disk_.write("in/Book_B.xml",
              "<Book_Master><HFile>page.htm</HFile><HFile>deep/Quor_TOC.xml</HFile></Book_Master>");
  EXPECT_TRUE(copy_.mbCopyFiles("C:\\lib\\Manual", "C:\\in\\Book_B.xml", 0, 0));
  EXPECT_TRUE(disk_.has("lib/Manual/Quor_Linked.xml"));
  EXPECT_TRUE(disk_.has("lib/Manual/deep/Quor_TOC.xml"));
  EXPECT_EQ(disk_.read("lib/Quor_TOC.xml"), "the catalogue");
}

TEST_F(FileCopyTest, FailsWhenTheDiskIsFullForTheFileItself) {
  disk_.write("in/intro.htm", "");
  files_.failCopyTo("C:\\lib\\Book_B.xml", ErrorNumber::kDiskFull);
  EXPECT_FALSE(copyBook("<HFile>intro.htm</HFile>"));
  EXPECT_FALSE(disk_.has("lib/intro.htm"));
}

TEST_F(FileCopyTest, SucceedsWhenOnlyADocumentCouldNotBeCopied) {
  disk_.write("in/intro.htm", "<img src=logo.png>");
  disk_.write("in/logo.png", "");
  disk_.write("in/setup.htm", "");
  files_.failCopyTo("C:\\lib\\intro.htm", ErrorNumber::kPermissionDenied);
  EXPECT_TRUE(copyBook("<HFile>intro.htm</HFile><HFile>setup.htm</HFile>"));
  EXPECT_FALSE(disk_.has("lib/intro.htm"));
  EXPECT_FALSE(disk_.has("lib/logo.png"));
  EXPECT_TRUE(disk_.has("lib/setup.htm"));
}

TEST_F(FileCopyTest, RaisesWhatItMeetsWhereTheNamesOfTheDocumentsCanNotBeRead) {
  disk_.write("in/Book_B.xml", "<Book_Master><HFile>intro.htm</HFile></Book_Master>");
  disk_.write("in/intro.htm", "");
  UnreadableFiles files(adapters_->files(), "C:\\in\\Book_B.xml");
  ReferenceFileCopy copy(files, adapters_->xml(), adapters_->locale());
  EXPECT_EQ(errorRaisedBy([&] { copy.mbCopyFiles("C:\\lib", "C:\\in\\Book_B.xml", 0, 0); }), 57);
  EXPECT_EQ(disk_.read("lib/Book_B.xml"), disk_.read("in/Book_B.xml"));
}

TEST_F(FileCopyTest, PassesOverWhatAPageLinksToThatCanNotBeRead) {
  disk_.write("in/one.htm", "<img src=logo.png>");
  disk_.write("in/logo.png", "");
  UnreadableFiles files(adapters_->files(), "C:\\in\\one.htm");
  ReferenceFileCopy copy(files, adapters_->xml(), adapters_->locale());
  EXPECT_TRUE(copy.mbCopyFiles("C:\\lib", "C:\\in\\one.htm", 0, 0));
  EXPECT_TRUE(disk_.has("lib/one.htm"));
  EXPECT_FALSE(disk_.has("lib/logo.png"));
}

/// What one object changes until it goes, with a book file and a page handed over.
class FlushedFileCopy : public FileCopyTest {
 protected:
  using Kind = ChangingCall::Kind;

  FlushedFileCopy() {
    disk_.makeFolder("lib");
    disk_.write("in/Book_B.xml", "<Book_Master><HFile>intro.htm</HFile></Book_Master>");
    disk_.write("in/intro.htm", "<img src=logo.png>");
    disk_.write("in/logo.png", "");
    disk_.write("in/setup.htm", "");
  }

  /// Answers the error of the flush, 0 when it ended well.
  std::int32_t copyAllAndFlush() {
    ReferenceFileCopy copy(calls_, adapters_->xml(), adapters_->locale());
    copyAll(copy);
    return errorRaisedBy([&] { copy.flush(); });
  }
  static void copyAll(ReferenceFileCopy& copy) {
    EXPECT_TRUE(copy.mbCopyFiles("C:\\lib", "C:\\in\\Book_B.xml", 0, 0));
    EXPECT_TRUE(copy.mbCopyFiles("C:\\lib", "C:\\in\\setup.htm", 0, 0));
  }

  FailingFiles calls_{adapters_->files()};
};

TEST_F(FlushedFileCopy, FlushesABookFileAtOnceAndAllDocumentsTogether) {
  EXPECT_EQ(copyAllAndFlush(), 0);
  EXPECT_EQ(calls_.calls(),
            (std::vector<ChangingCall>{{Kind::kCopyFile, "C:\\lib\\Book_B.xml"},
                                       {Kind::kCopy, "C:\\lib\\intro.htm"},
                                       {Kind::kCopy, "C:\\lib\\logo.png"},
                                       {Kind::kCopy, "C:\\lib\\setup.htm"},
                                       {Kind::kFlush, ""}}));
}

TEST_F(FlushedFileCopy, RaisesAFailedFlushAndDoesNotTryItAgain) {
  calls_.failAt(4, faultsOf(Kind::kFlush).front());
  EXPECT_EQ(copyAllAndFlush(), 57);
  EXPECT_EQ(calls_.calls().size(), 5U);
}

TEST_F(FlushedFileCopy, FlushesWhenItGoesWhatNobodyHasFlushed) {
  {
    ReferenceFileCopy copy(calls_, adapters_->xml(), adapters_->locale());
    copyAll(copy);
    EXPECT_EQ(calls_.calls().size(), 4U);
  }
  EXPECT_EQ(calls_.calls().back(), (ChangingCall{Kind::kFlush, ""}));
}

}  // namespace
}  // namespace quorbind::testing
