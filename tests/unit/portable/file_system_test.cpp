// What the portable file system owes to the system below it: letter cases that are told apart,
// links, permissions, owners, full disks. What every file system of this component does is in the
// contract.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/portable/folder_index.h"
#include "platform/portable/portable_file_system.h"
#include "platform/portable/system_call.h"
#include "platform/temporary_name.h"
#include "platform/text.h"
#include "tests/support/raised_error.h"
#include "tests/support/small_disk.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

namespace {

namespace fs = std::filesystem;

using namespace std::chrono_literals;
using namespace std::string_literals;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::Not;
using ::testing::StartsWith;

constexpr uid_t kNobody = 65534;

bool isSuperUser() {
  return ::geteuid() == 0;
}

/// `C:\` is the folder `disk_`.
class PortableFiles : public ::testing::Test {
 protected:
  static void replaceBy(FileSystem& files, std::string_view path, std::string_view bytes) {
    const std::unique_ptr<FileReplacement> replacement = files.replace(path);
    replacement->write(bytes);
    replacement->commit();
  }
  void replaceBy(std::string_view path, std::string_view bytes) { replaceBy(files_, path, bytes); }

  std::int32_t errorOfOpening(std::string_view path) {
    return errorRaisedBy([&] { static_cast<void>(files_.open(path)); });
  }
  std::int32_t errorOfReplacing(std::string_view path) {
    return errorRaisedBy([&] { static_cast<void>(files_.replace(path)); });
  }

  [[nodiscard]] std::string systemPath(std::string_view name) const {
    return (disk_.path() / name).string();
  }
  void allow(std::string_view name, mode_t permissions) const {
    ASSERT_EQ(::chmod(systemPath(name).c_str(), permissions), 0);
  }
  [[nodiscard]] struct stat statusOf(std::string_view name) const {
    struct stat status {};
    EXPECT_EQ(::stat(systemPath(name).c_str(), &status), 0) << name;
    return status;
  }
  [[nodiscard]] mode_t permissionsOf(std::string_view name) const {
    return statusOf(name).st_mode & 07777U;
  }

  void giveAttribute(std::string_view name, const char* attribute, const std::string& value) const {
    ASSERT_EQ(::setxattr(systemPath(name).c_str(), attribute, value.data(), value.size(), 0), 0)
        << "the file system of " << disk_.path() << " has no " << attribute;
  }
  [[nodiscard]] std::optional<std::string> attributeOf(std::string_view name,
                                                       const char* attribute) const {
    std::array<char, 100> value{};
    const ssize_t size =
        ::getxattr(systemPath(name).c_str(), attribute, value.data(), value.size());
    return size < 0 ? std::nullopt
                    : std::optional(std::string(value.data(), static_cast<std::size_t>(size)));
  }

  TemporaryFolder disk_;
  PortableFileSystem files_{disk_.path()};
};

// Letter cases

TEST_F(PortableFiles, TheExactSpellingComesFirst) {
  disk_.write("Docs/a.txt", "small");
  disk_.write("Docs/A.TXT", "capital");
  disk_.write("DOCS/a.txt", "small in capitals");

  replaceBy("C:\\Docs\\a.txt", "1");
  replaceBy("C:\\Docs\\A.TXT", "2");
  replaceBy("C:\\DOCS\\a.txt", "3");

  EXPECT_EQ(disk_.read("Docs/a.txt"), "1");
  EXPECT_EQ(disk_.read("Docs/A.TXT"), "2");
  EXPECT_EQ(disk_.read("DOCS/a.txt"), "3");
}

TEST_F(PortableFiles, OfSeveralOtherSpellingsTheFirstByItsBytesIsTaken) {
  disk_.write("a.txt", "");
  disk_.write("A.txt", "");
  disk_.write("a.TXT", "");

  replaceBy("C:\\A.TXT", "found");

  EXPECT_EQ(disk_.read("A.txt"), "found");
}

TEST_F(PortableFiles, AFolderThatIsRenamedIsFoundUnderItsNewSpelling) {
  disk_.write("in/docs/a.txt", "");
  EXPECT_TRUE(files_.fileExists("C:\\IN\\DOCS\\a.txt"));

  fs::rename(disk_.path() / "in", disk_.path() / "In");
  EXPECT_TRUE(files_.fileExists("C:\\IN\\DOCS\\a.txt"));
  fs::rename(disk_.path() / "In", disk_.path() / "out");
  EXPECT_FALSE(files_.fileExists("C:\\IN\\DOCS\\a.txt"));
}

TEST_F(PortableFiles, AFolderInTheExactSpellingTakesThePlaceOfAnother) {
  disk_.write("docs/a.txt", "");
  EXPECT_TRUE(files_.fileExists("C:\\DOCS\\A.TXT"));

  disk_.makeFolder("DOCS");

  EXPECT_FALSE(files_.fileExists("C:\\DOCS\\A.TXT"));
}

TEST_F(PortableFiles, AFolderRenamedBackAndForthAndRemovedIsGone) {
  disk_.makeFolder("docs");
  EXPECT_FALSE(files_.fileExists("C:\\DOCS\\a.txt"));
  fs::rename(disk_.path() / "docs", disk_.path() / "DOCS");
  EXPECT_FALSE(files_.fileExists("C:\\docs\\a.txt"));
  fs::remove(disk_.path() / "DOCS");

  EXPECT_FALSE(files_.fileExists("C:\\DOCS\\a.txt"));
  EXPECT_FALSE(files_.fileExists("C:\\docs\\a.txt"));
}

TEST_F(PortableFiles, NamesThatAreNoUtf8AreListedWithReplacementCharacters) {
  disk_.write("caf\xE9.txt", "");

  EXPECT_THAT(files_.namesIn("C:\\"), ElementsAre("caf\uFFFD.txt"));
}

// Drives

TEST_F(PortableFiles, DrivesOtherThanCDoNotExist) {
  EXPECT_FALSE(files_.folderExists("D:\\"));
  EXPECT_FALSE(files_.fileExists("D:\\a.txt"));
  EXPECT_EQ(errorOfOpening("D:\\a.txt"), 76);
  EXPECT_EQ(errorOfReplacing("D:\\a.txt"), 76);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder("D:\\Docs"); }), 76);
  EXPECT_EQ(files_.absolutePath("D:\\a\\..\\b.txt"), "D:\\b.txt");
}

TEST_F(PortableFiles, NothingOutsideTheDriveIsReached) {
  const TemporaryFolder outside;
  outside.write("secret.txt", "");
  const std::string climb = "..\\..\\..\\..\\..\\..\\..\\.." + outside.path().string();

  EXPECT_FALSE(files_.fileExists("C:\\" + climb + "\\secret.txt"));
  EXPECT_FALSE(files_.fileExists(climb + "/secret.txt"));
}

TEST_F(PortableFiles, WithTheWorkingFolderOutsideTheDriveRelativeNamesStartAtItsRoot) {
  disk_.write("a.txt", "");
  const TemporaryFolder outside;
  const fs::path before = fs::current_path();
  fs::current_path(outside.path());

  EXPECT_EQ(files_.absolutePath("a.txt"), "C:\\a.txt");
  EXPECT_TRUE(files_.fileExists("a.txt"));
  fs::current_path(before);
}

TEST_F(PortableFiles, AFolderWhoseNameBeginsLikeTheDriveIsNotOnIt) {
  const fs::path beside = disk_.path().string() + "-beside";
  fs::create_directories(beside);
  const fs::path before = fs::current_path();
  fs::current_path(beside);

  EXPECT_EQ(files_.absolutePath("a.txt"), "C:\\a.txt");
  fs::current_path(before);
  fs::remove(beside);
}

TEST(PortableFilesOfTheWholeSystem, StandBelowItsRoot) {
  const TemporaryFolder folder;
  folder.write("a.txt", "a");
  PortableFileSystem files;

  EXPECT_TRUE(files.folderExists("C:\\"));
  EXPECT_TRUE(files.fileExists(folder.path().string() + "/A.TXT"));
  EXPECT_EQ(files.absolutePath("/a.txt"), "C:\\a.txt");
}

TEST_F(PortableFiles, DotsAreResolvedBeforeLinks) {
  disk_.write("a.txt", "");
  disk_.makeFolder("far/away");
  fs::create_directory_symlink("far/away", disk_.path() / "link");

  EXPECT_TRUE(files_.fileExists("C:\\link\\..\\a.txt"));
  EXPECT_EQ(files_.absolutePath("C:\\link\\..\\a.txt"), "C:\\a.txt");
}

// The folder index

class Index : public ::testing::Test {
 protected:
  bool finds(std::string_view name) {
    const FolderListing* names = index_.listingOf(folder_.path().string());
    return names != nullptr && names->spellingOf(name).has_value();
  }
  /// Changes the folder so that its time does not tell.
  void addUnseen(std::string_view name) {
    const auto time = fs::last_write_time(folder_.path());
    folder_.write(name, "");
    fs::last_write_time(folder_.path(), time);
  }
  void setFolderTime(fs::file_time_type time) { fs::last_write_time(folder_.path(), time); }

  TemporaryFolder folder_;
  FolderIndex index_;
};

TEST(AFolderListing, GivesTheFirstOfSeveralSpellingsInWhateverOrderTheyCame) {
  FolderListing names;
  names.add("a.txt");
  names.add("A.txt");
  names.add("a.TXT");

  EXPECT_EQ(names.spellingOf("A.TXT"), "A.txt");
}

TEST_F(Index, ListsAFolderAtRestOnce) {
  setFolderTime(fs::file_time_type::clock::now() - 1h);
  EXPECT_FALSE(finds("BOOK.XML"));

  addUnseen("book.xml");

  EXPECT_FALSE(finds("BOOK.XML"));
}

TEST_F(Index, DoesNotTrustTheTimeOfAFolderThatWasJustChanged) {
  // A time ahead stands for the tick in which the folder is listed, however slow the test runs.
  setFolderTime(fs::file_time_type::clock::now() + 1h);
  EXPECT_FALSE(finds("BOOK.XML"));

  addUnseen("book.xml");

  EXPECT_TRUE(finds("BOOK.XML"));
}

TEST_F(Index, TrustsATimeAheadOnceItHasBeenSeenForAWhile) {
  constexpr auto kMoreThanATick = 150ms;
  setFolderTime(fs::file_time_type::clock::now() + 1h);
  EXPECT_FALSE(finds("BOOK.XML"));
  std::this_thread::sleep_for(kMoreThanATick);
  EXPECT_FALSE(finds("BOOK.XML"));

  addUnseen("book.xml");

  EXPECT_FALSE(finds("BOOK.XML"));
}

TEST_F(Index, ListsAFolderAgainWhenItsTimeHasChanged) {
  setFolderTime(fs::file_time_type::clock::now() - 1h);
  EXPECT_FALSE(finds("BOOK.XML"));

  folder_.write("book.xml", "");

  EXPECT_TRUE(finds("BOOK.XML"));
}

TEST_F(Index, ListsAgainWhenAnotherFolderHasTakenTheName) {
  const auto time = fs::file_time_type::clock::now() - 1h;
  setFolderTime(time);
  EXPECT_FALSE(finds("BOOK.XML"));

  fs::rename(folder_.path(), folder_.path().string() + "-before");
  folder_.write("book.xml", "");
  setFolderTime(time);

  EXPECT_TRUE(finds("BOOK.XML"));
  fs::remove(folder_.path().string() + "-before");
}

TEST_F(Index, SeesEveryOneOfManyQuickChanges) {
  for (int change = 0; change < 500; ++change) {
    const std::string name = std::to_string(change) + "book";
    EXPECT_FALSE(finds(upperCaseAscii(name)));
    folder_.write(name, "");
    EXPECT_TRUE(finds(upperCaseAscii(name)));
  }
}

TEST_F(Index, KeepsBytesThatAreNoUtf8AsTheyAre) {
  folder_.write("caf\xE9.txt", "");

  EXPECT_TRUE(finds("CAF\xE9.TXT"));
  EXPECT_FALSE(finds("CAF\xC9.TXT"));
}

TEST_F(Index, HasNothingForWhatIsNoFolder) {
  folder_.write("a.txt", "");

  EXPECT_EQ(index_.listingOf(folder_.path().string() + "/a.txt"), nullptr);
  EXPECT_EQ(index_.listingOf(folder_.path().string() + "/missing"), nullptr);
}

TEST_F(Index, ForgetsTheOtherFoldersWhenItIsFull) {
  const TemporaryFolder other;
  other.write("a", "");
  other.write("b", "");
  index_ = FolderIndex(3);
  setFolderTime(fs::file_time_type::clock::now() - 1h);
  EXPECT_FALSE(finds("BOOK.XML"));
  index_.listingOf(other.path().string());

  addUnseen("book.xml");

  EXPECT_TRUE(finds("BOOK.XML"));
}

TEST_F(Index, KeepsTheFolderInUseHoweverManyNamesItHas) {
  folder_.write("a", "");
  folder_.write("b", "");
  index_ = FolderIndex(1);
  setFolderTime(fs::file_time_type::clock::now() - 1h);
  EXPECT_FALSE(finds("BOOK.XML"));

  addUnseen("book.xml");

  EXPECT_FALSE(finds("BOOK.XML"));
}

TEST_F(Index, RulesOutWhatAFolderAtRestDoesNotHold) {
  folder_.makeFolder("Docs");
  setFolderTime(fs::file_time_type::clock::now() - 1h);
  EXPECT_FALSE(finds("MANUAL"));
  const std::string folder = folder_.path().string();

  EXPECT_TRUE(index_.rulesOut(folder + "/Manual"));
  EXPECT_TRUE(index_.rulesOut(folder + "/Manual/Pumps/cover.htm"));
  EXPECT_FALSE(index_.rulesOut(folder + "/DOCS"));
  EXPECT_FALSE(index_.rulesOut(folder + "/DOCS/cover.htm"));
}

TEST_F(Index, RulesNothingOutInAFolderThatHasChanged) {
  setFolderTime(fs::file_time_type::clock::now() - 1h);
  EXPECT_FALSE(finds("MANUAL"));

  folder_.makeFolder("manual");

  EXPECT_FALSE(index_.rulesOut(folder_.path().string() + "/Manual/cover.htm"));
}

TEST_F(Index, RulesNothingOutInAFolderThatWasJustChanged) {
  setFolderTime(fs::file_time_type::clock::now() + 1h);
  EXPECT_FALSE(finds("MANUAL"));

  EXPECT_FALSE(index_.rulesOut(folder_.path().string() + "/Manual"));
}

TEST_F(Index, RulesNothingOutInAFolderThatItDoesNotKnow) {
  EXPECT_FALSE(index_.rulesOut(folder_.path().string() + "/Manual"));
}

// Links and other things that are no plain files

TEST_F(PortableFiles, ReplacingThroughALinkReplacesTheFileThatItLeadsTo) {
  disk_.write("real/book.xml", "old");
  fs::create_symlink("real/book.xml", disk_.path() / "near.xml");
  fs::create_symlink(disk_.path() / "near.xml", disk_.path() / "far.xml");

  replaceBy("C:\\far.xml", "new");

  EXPECT_EQ(disk_.read("real/book.xml"), "new");
  EXPECT_EQ(fs::read_symlink(disk_.path() / "near.xml"), "real/book.xml");
  EXPECT_TRUE(fs::is_symlink(disk_.path() / "far.xml"));
}

TEST_F(PortableFiles, ReplacingThroughALinkThatLeadsNowhereCreatesTheFileItLeadsTo) {
  disk_.makeFolder("real");
  fs::create_symlink("real/book.xml", disk_.path() / "link.xml");

  replaceBy("C:\\link.xml", "new");

  EXPECT_EQ(disk_.read("real/book.xml"), "new");
  EXPECT_TRUE(fs::is_symlink(disk_.path() / "link.xml"));
}

TEST_F(PortableFiles, LinksInACircleAreADeviceError) {
  fs::create_symlink("b", disk_.path() / "a");
  fs::create_symlink("a", disk_.path() / "b");

  EXPECT_FALSE(files_.fileExists("C:\\a"));
  EXPECT_EQ(errorOfOpening("C:\\a"), 57);
  EXPECT_EQ(errorOfReplacing("C:\\a"), 57);
}

TEST_F(PortableFiles, TwoLinksToAFileLeadToTheSameFile) {
  disk_.write("a.txt", "a");
  fs::create_symlink("a.txt", disk_.path() / "link.txt");

  EXPECT_TRUE(files_.sameFile("C:\\LINK.txt", "C:\\a.txt"));
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\a.txt", "C:\\link.txt"); }), 70);
}

TEST_F(PortableFiles, AFileMovedOntoItselfByAnotherWayStays) {
  disk_.write("real/a.txt", "a");
  fs::create_directory_symlink("real", disk_.path() / "link");

  files_.moveFile("C:\\link\\a.txt", "C:\\real\\a.txt");

  EXPECT_EQ(disk_.read("real/a.txt"), "a");
}

TEST_F(PortableFiles, ASecondNameOfTheFileIsAnotherFileToAMove) {
  disk_.write("a.txt", "a");
  fs::create_hard_link(disk_.path() / "a.txt", disk_.path() / "b.txt");

  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\a.txt", "C:\\b.txt"); }), 58);
  EXPECT_TRUE(disk_.has("a.txt"));
}

TEST_F(PortableFiles, APipeIsNoFile) {
  ASSERT_EQ(::mkfifo(systemPath("pipe").c_str(), 0600), 0);

  EXPECT_FALSE(files_.fileExists("C:\\pipe"));
  EXPECT_EQ(errorOfOpening("C:\\pipe"), 75);
  EXPECT_EQ(errorOfReplacing("C:\\pipe"), 75);
  EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile("C:\\pipe"); }), 75);
}

// Replacing

TEST_F(PortableFiles, ATemporaryStandsBesideTheFileAndIsKnownByItsName) {
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\book.xml");

  EXPECT_THAT(files_.namesIn("C:\\"),
              ElementsAre(AllOf(StartsWith("book.xml" + std::string(kTemporaryInfix)),
                                EndsWith(std::string(kTemporaryExtension)))));
}

TEST_F(PortableFiles, AFileOfTheLongestNameIsReplacedToo) {
  const std::string name(255, 'n');
  disk_.write(name, "old");

  replaceBy("C:\\" + name, "new");

  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair(name, "new"s)));
}

TEST_F(PortableFiles, WhoeverReadsTheOldFileGoesOnReadingIt) {
  disk_.write("a.txt", "old");
  const std::unique_ptr<ByteReader> reader = files_.open("C:\\a.txt");
  std::array<char, 10> bytes{};
  ASSERT_EQ(reader->read(bytes.data(), 1), 1U);

  replaceBy("C:\\a.txt", "new");

  EXPECT_EQ(reader->read(bytes.data(), bytes.size()), 2U);
  EXPECT_EQ(std::string_view(bytes.data(), 2), "ld");
}

TEST_F(PortableFiles, ACommitThatFailsLeavesNothingBehind) {
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\a.txt");
  replacement->write("new");
  disk_.makeFolder("a.txt");

  EXPECT_EQ(errorRaisedBy([&] { replacement->commit(); }), 75);
  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("a.txt"s, "(folder)"s)));
}

TEST_F(PortableFiles, AFailedReplacementIsNotTriedAgain) {
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\a.txt");
  disk_.makeFolder("a.txt");
  ASSERT_EQ(errorRaisedBy([&] { replacement->commit(); }), 75);
  fs::remove(disk_.path() / "a.txt");

  EXPECT_EQ(errorRaisedBy([&] { replacement->write("new"); }), 57);
  EXPECT_EQ(errorRaisedBy([&] { replacement->commit(); }), 57);
  EXPECT_FALSE(disk_.has("a.txt"));
}

// Permissions and owners

TEST_F(PortableFiles, ANewFileHasWhatTheProcessGivesNewFiles) {
  const mode_t before = ::umask(027);
  replaceBy("C:\\a.txt", "a");
  ::umask(before);

  EXPECT_EQ(permissionsOf("a.txt"), 0640U);
}

TEST_F(PortableFiles, AReplacedFileKeepsItsPermissions) {
  for (const mode_t permissions : {0600U, 0664U, 0755U}) {
    disk_.write("a.txt", "old");
    allow("a.txt", permissions);

    replaceBy("C:\\a.txt", "new");

    EXPECT_EQ(permissionsOf("a.txt"), permissions);
  }
}

TEST_F(PortableFiles, ATemporaryIsNoMoreOpenThanTheFileItReplaces) {
  disk_.write("a.txt", "old");
  allow("a.txt", 0600);
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\a.txt");

  for (const std::string& name : files_.namesIn("C:\\")) {
    EXPECT_EQ(permissionsOf(name), 0600U) << name;
  }
}

TEST_F(PortableFiles, ACopyHasThePermissionsOfItsSource) {
  disk_.write("a.txt", "a");
  disk_.write("b.txt", "b");
  allow("a.txt", 0750);
  allow("b.txt", 0606);

  files_.copyFile("C:\\a.txt", "C:\\b.txt");
  files_.copyFile("C:\\a.txt", "C:\\c.txt");

  EXPECT_EQ(permissionsOf("b.txt"), 0750U);
  EXPECT_EQ(permissionsOf("c.txt"), 0750U);
}

TEST_F(PortableFiles, AReplacedFileKeepsItsOwner) {
  if (!isSuperUser()) {
    GTEST_SKIP() << "only the super-user can give files away";
  }
  disk_.write("a.txt", "old");
  ASSERT_EQ(::chown(systemPath("a.txt").c_str(), kNobody, kNobody), 0);

  replaceBy("C:\\a.txt", "new");

  EXPECT_EQ(statusOf("a.txt").st_uid, kNobody);
  EXPECT_EQ(statusOf("a.txt").st_gid, kNobody);
}

// The owner, another user, the group, the most that both may have, and everybody else.
TEST_F(PortableFiles, AReplacedFileKeepsItsAccessListAndItsExtendedAttributes) {
  const std::string list =
      "\2\0\0\0"
      "\1\0\6\0\xFF\xFF\xFF\xFF"
      "\2\0\4\0\xFE\xFF\0\0"
      "\4\0\0\0\xFF\xFF\xFF\xFF"
      "\x10\0\4\0\xFF\xFF\xFF\xFF"
      "\x20\0\0\0\xFF\xFF\xFF\xFF"s;
  disk_.write("a.txt", "old");
  giveAttribute("a.txt", "system.posix_acl_access", list);
  giveAttribute("a.txt", "user.origin", "by hand");
  giveAttribute("a.txt", "user.empty", "");

  replaceBy("C:\\a.txt", "new");

  EXPECT_EQ(disk_.read("a.txt"), "new");
  EXPECT_EQ(attributeOf("a.txt", "system.posix_acl_access"), list);
  EXPECT_EQ(attributeOf("a.txt", "user.origin"), "by hand");
  EXPECT_EQ(attributeOf("a.txt", "user.empty"), "");
}

/// Runs statements as a user who owns nothing. `C:\` can be read and entered by everybody.
class PortableFilesOfAnOrdinaryUser : public PortableFiles {
 protected:
  void SetUp() override {
    if (!isSuperUser()) {
      GTEST_SKIP() << "only the super-user can become another user";
    }
    allow(".", 0755);
  }

  /// The number of the error that `statement` ends with in a process of that user.
  template <typename Statement>
  static int errorRaisedFor(Statement statement) {
    const pid_t child = ::fork();
    if (child == 0) {
      const bool became =
          ::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
      ::_exit(became ? errorRaisedBy(statement) : kCouldNotBecome);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    return WEXITSTATUS(status);
  }

  /// What a plain call of the system to open the file says: these tests prove nothing for a user
  /// who may do everything.
  [[nodiscard]] int plainErrorOfOpening(std::string_view name, int flags) const {
    return errorRaisedFor([path = systemPath(name), flags] {
      if (::open(path.c_str(), flags, 0666) == -1 && errno == EACCES) {
        raise(ErrorNumber::kPermissionDenied);
      }
    });
  }

  static constexpr int kCouldNotBecome = 255;
  static constexpr gid_t kOtherGroup = 1;
};

TEST_F(PortableFilesOfAnOrdinaryUser, AFileWhoseGroupCanNotBeKeptIsNotOpenedToAnother) {
  allow(".", 0777);
  for (const auto& [before, after] : {std::pair<mode_t, mode_t>{0640, 0600},
                                      {0660, 0600},
                                      {0664, 0644},
                                      {0666, 0666},
                                      {0604, 0600},
                                      {0750, 0700}}) {
    disk_.write("a.txt", "old");
    ASSERT_EQ(::chown(systemPath("a.txt").c_str(), kNobody, kOtherGroup), 0);
    allow("a.txt", before);

    EXPECT_EQ(errorRaisedFor([&] { replaceBy("C:\\a.txt", "new"); }), 0);

    EXPECT_EQ(disk_.read("a.txt"), "new");
    EXPECT_EQ(statusOf("a.txt").st_gid, kNobody);
    EXPECT_EQ(permissionsOf("a.txt"), after) << std::oct << before;
  }
}

// The owner, another user, the group, the most that both may have, and everybody else.
TEST_F(PortableFilesOfAnOrdinaryUser, AnAccessListWhoseGroupCanNotBeKeptIsNotOpenedToAnother) {
  const auto list = [](char ofGroup) {
    return "\2\0\0\0"
           "\1\0\6\0\xFF\xFF\xFF\xFF"
           "\2\0\4\0\xFE\xFF\0\0"
           "\4\0"s +
           ofGroup +
           "\0\xFF\xFF\xFF\xFF"
           "\x10\0\6\0\xFF\xFF\xFF\xFF"
           "\x20\0\0\0\xFF\xFF\xFF\xFF"s;
  };
  allow(".", 0777);
  disk_.write("a.txt", "old");
  giveAttribute("a.txt", "system.posix_acl_access", list('\6'));
  ASSERT_EQ(::chown(systemPath("a.txt").c_str(), kNobody, kOtherGroup), 0);

  EXPECT_EQ(errorRaisedFor([&] { replaceBy("C:\\a.txt", "new"); }), 0);

  EXPECT_EQ(disk_.read("a.txt"), "new");
  EXPECT_EQ(statusOf("a.txt").st_gid, kNobody);
  EXPECT_EQ(attributeOf("a.txt", "system.posix_acl_access"), list('\0'));
}

TEST_F(PortableFilesOfAnOrdinaryUser, AReadOnlyFileIsNotReplaced) {
  disk_.makeFolder("open");
  allow("open", 0777);
  disk_.write("open/a.txt", "old");
  allow("open/a.txt", 0444);
  disk_.write("b.txt", "b");
  ASSERT_EQ(plainErrorOfOpening("open/a.txt", O_WRONLY), 70);

  EXPECT_EQ(errorRaisedFor([&] { replaceBy("C:\\open\\a.txt", "new"); }), 70);
  EXPECT_EQ(errorRaisedFor([&] { files_.copyFile("C:\\b.txt", "C:\\open\\a.txt"); }), 70);
  EXPECT_EQ(disk_.read("open/a.txt"), "old");
  EXPECT_THAT(files_.namesIn("C:\\open"), ElementsAre("a.txt"));
}

TEST_F(PortableFilesOfAnOrdinaryUser, NothingIsWrittenIntoAReadOnlyFolder) {
  disk_.write("closed/a.txt", "old");
  allow("closed/a.txt", 0666);
  ASSERT_EQ(plainErrorOfOpening("closed/new.txt", O_WRONLY | O_CREAT), 70);

  EXPECT_EQ(errorRaisedFor([&] { replaceBy("C:\\closed\\new.txt", "new"); }), 70);
  EXPECT_EQ(errorRaisedFor([&] { replaceBy("C:\\closed\\a.txt", "new"); }), 70);
  EXPECT_EQ(errorRaisedFor([&] { files_.createFolder("C:\\closed\\Docs"); }), 70);
  EXPECT_EQ(errorRaisedFor([&] { files_.deleteFile("C:\\closed\\a.txt"); }), 70);
  EXPECT_EQ(errorRaisedFor([&] { files_.moveFile("C:\\closed\\a.txt", "C:\\closed\\b.txt"); }), 70);
  EXPECT_EQ(disk_.read("closed/a.txt"), "old");
  EXPECT_THAT(files_.namesIn("C:\\closed"), ElementsAre("a.txt"));
}

TEST_F(PortableFilesOfAnOrdinaryUser, AFileThatMayNotBeReadIsNotOpened) {
  disk_.write("a.txt", "a");
  allow("a.txt", 0600);
  ASSERT_EQ(plainErrorOfOpening("a.txt", O_RDONLY), 70);

  EXPECT_EQ(errorRaisedFor([&] { static_cast<void>(files_.open("C:\\a.txt")); }), 70);
  EXPECT_EQ(errorRaisedFor([&] { files_.copyFile("C:\\a.txt", "C:\\b.txt"); }), 70);
}

TEST_F(PortableFilesOfAnOrdinaryUser, InAFolderThatMayNotBeListedExactNamesAreFound) {
  disk_.write("dark/a.txt", "a");
  allow("dark", 0711);
  ASSERT_EQ(plainErrorOfOpening("dark", O_RDONLY | O_DIRECTORY), 70);

  const auto raiseUnless = [](bool condition) {
    if (!condition) {
      raise(ErrorNumber::kFileNotFound);
    }
  };
  EXPECT_EQ(errorRaisedFor([&] { raiseUnless(files_.fileExists("C:\\dark\\a.txt")); }), 0);
  EXPECT_EQ(errorRaisedFor([&] { raiseUnless(files_.fileExists("C:\\DARK\\a.txt")); }), 0);
  EXPECT_EQ(errorRaisedFor([&] { raiseUnless(files_.fileExists("C:\\dark\\A.TXT")); }), 53);
  EXPECT_EQ(errorRaisedFor([&] { static_cast<void>(files_.namesIn("C:\\dark")); }), 70);
}

// Disks

/// A disk of 64 KiB at `C:\small`.
class PortableFilesOnASmallDisk : public PortableFiles {
 protected:
  void SetUp() override {
    disk_.makeFolder("small");
    small_.emplace(systemPath("small"));
    ASSERT_TRUE(small_->isMounted()) << SmallDisk::kNotMounted << std::strerror(errno);
  }

  [[nodiscard]] bool makeReadOnly() const {
    return ::mount(
               "tmpfs", systemPath("small").c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=64k") ==
           0;
  }

 private:
  std::optional<SmallDisk> small_;
};

TEST_F(PortableFilesOnASmallDisk, AFullDiskRaises61AndTheOldFileStands) {
  disk_.write("small/a.txt", "old");
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\small\\a.txt");

  EXPECT_EQ(errorRaisedBy([&] {
              replacement->write(std::string(100'000, 'n'));
              replacement->commit();
            }),
            61);
  EXPECT_THAT(disk_.contents(),
              ElementsAre(std::pair("small"s, "(folder)"s), std::pair("small/a.txt"s, "old"s)));
}

TEST_F(PortableFilesOnASmallDisk, WhatIsOnlyBufferedMeetsTheFullDiskInTheCommit) {
  disk_.write("small/a.txt", "old");
  disk_.write("small/ballast", std::string(49'152, 'b'));
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\small\\a.txt");
  replacement->write(std::string(40'000, 'n'));

  EXPECT_EQ(errorRaisedBy([&] { replacement->commit(); }), 61);
  EXPECT_EQ(errorRaisedBy([&] { replacement->commit(); }), 57);
  EXPECT_EQ(disk_.read("small/a.txt"), "old");
  EXPECT_THAT(files_.namesIn("C:\\small"), ElementsAre("a.txt", "ballast"));
}

TEST_F(PortableFilesOnASmallDisk, ACopyThatDoesNotFitRaises61) {
  disk_.write("large.bin", std::string(200'000, 'x'));
  disk_.write("small/a.bin", "old");

  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\large.bin", "C:\\small\\a.bin"); }), 61);
  EXPECT_EQ(disk_.read("small/a.bin"), "old");
  EXPECT_THAT(files_.namesIn("C:\\small"), ElementsAre("a.bin"));
}

TEST_F(PortableFilesOnASmallDisk, ACopyBetweenDisksIsWhole) {
  const std::string bytes(40'000, 'x');
  disk_.write("a.bin", bytes);

  files_.copyFile("C:\\a.bin", "C:\\small\\a.bin");

  EXPECT_EQ(disk_.read("small/a.bin"), bytes);
}

TEST_F(PortableFiles, ASeriesOfCopiesReplacesTheSpellingThatItNamesOfSeveral) {
  disk_.write("new.png", "new");
  disk_.write("Docs/C.png", "C");
  disk_.write("Docs/c.png", "c");
  const std::unique_ptr<CopySeries> copies = files_.beginCopies();

  copies->copy("C:\\new.png", "C:\\Docs\\other.png");
  copies->copy("C:\\new.png", "C:\\Docs\\c.png");

  EXPECT_EQ(disk_.read("Docs/C.png"), "C");
  EXPECT_EQ(disk_.read("Docs/c.png"), "new");
}

TEST_F(PortableFiles, EachCopyOfASeriesHasThePermissionsOfItsSource) {
  // The last are refused to new files.
  const std::array<unsigned, 3> permissions{0644, 0600, 0666};
  const mode_t before = ::umask(022);
  const std::unique_ptr<CopySeries> copies = files_.beginCopies();
  for (const std::string folder : {"one/", "two/"}) {
    disk_.makeFolder(folder);
    for (const unsigned each : permissions) {
      const std::string source = std::to_string(each);
      disk_.write(source, source);
      allow(source, each);
      for (const std::string number : {".1", ".2"}) {
        const std::string copy = folder + source + number;
        copies->copy("C:\\" + source, "C:\\" + copy);
        EXPECT_EQ(disk_.read(copy), source);
        EXPECT_EQ(permissionsOf(copy), each) << copy;
      }
    }
  }
  ::umask(before);
}

TEST_F(PortableFiles, AFileThatNoPathCanNameIsNotListed) {
  disk_.write("Docs/a\\..\\b.txt", "");
  disk_.write("Docs/b.txt", "");

  EXPECT_THAT(files_.namesIn("C:\\Docs"), ElementsAre("b.txt"));
  EXPECT_THAT(files_.fileNamesIn("C:\\Docs"), ElementsAre("b.txt"));
}

TEST_F(PortableFilesOnASmallDisk, ASeriesOfCopiesMayFillSeveralDisks) {
  disk_.write("a.bin", std::string(40'000, 'x'));
  const std::unique_ptr<CopySeries> copies = files_.beginCopies();

  copies->copy("C:\\a.bin", "C:\\b.bin");
  copies->copy("C:\\a.bin", "C:\\small\\a.bin");
  EXPECT_EQ(errorRaisedBy([&] { copies->copy("C:\\a.bin", "C:\\small\\b.bin"); }), 61);
  copies->flush();

  EXPECT_EQ(disk_.read("b.bin"), disk_.read("small/a.bin"));
  EXPECT_THAT(files_.namesIn("C:\\small"), ElementsAre("a.bin"));
}

TEST_F(PortableFilesOnASmallDisk, AFileMovesToAnotherDisk) {
  disk_.write("a.txt", "a");
  allow("a.txt", 0640);

  files_.moveFile("C:\\a.txt", "C:\\small\\b.txt");

  EXPECT_FALSE(disk_.has("a.txt"));
  EXPECT_EQ(disk_.read("small/b.txt"), "a");
  EXPECT_EQ(permissionsOf("small/b.txt"), 0640U);
}

TEST_F(PortableFilesOnASmallDisk, AFileThatDoesNotFitOnTheOtherDiskStays) {
  disk_.write("large.bin", std::string(200'000, 'x'));

  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\large.bin", "C:\\small\\b.bin"); }), 61);
  EXPECT_TRUE(disk_.has("large.bin"));
  EXPECT_THAT(files_.namesIn("C:\\small"), Not(Contains("b.bin")));
}

TEST_F(PortableFilesOnASmallDisk, AReadOnlyDiskRaises70) {
  disk_.write("small/a.txt", "old");
  disk_.write("b.txt", "b");
  ASSERT_TRUE(makeReadOnly());
  ASSERT_EQ(::open(systemPath("small/a.txt").c_str(), O_WRONLY), -1);

  EXPECT_EQ(errorOfReplacing("C:\\small\\a.txt"), 70);
  EXPECT_EQ(errorOfReplacing("C:\\small\\new.txt"), 70);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\b.txt", "C:\\small\\a.txt"); }), 70);
  EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile("C:\\small\\a.txt"); }), 70);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder("C:\\small\\Docs"); }), 70);
  EXPECT_EQ(disk_.read("small/a.txt"), "old");
}

TEST_F(PortableFilesOnASmallDisk, AFileOfAReadOnlyDiskDoesNotMoveAway) {
  disk_.write("small/a.txt", "a");
  ASSERT_TRUE(makeReadOnly());

  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\small\\a.txt", "C:\\a.txt"); }), 70);
  EXPECT_TRUE(disk_.has("small/a.txt"));
  EXPECT_FALSE(disk_.has("a.txt"));
}

// System calls

TEST(AnInterruptedCall, IsMadeAgainUntilItIsThrough) {
  int calls = 0;
  const int result = uninterrupted([&] {
    errno = EINTR;
    return ++calls < 3 ? -1 : 7;
  });

  EXPECT_EQ(result, 7);
  EXPECT_EQ(calls, 3);
}

TEST(ACallThatFails, IsNotMadeAgain) {
  int calls = 0;
  const int result = uninterrupted([&] {
    ++calls;
    errno = EIO;
    return -1;
  });

  EXPECT_EQ(result, -1);
  EXPECT_EQ(calls, 1);
}

}  // namespace

}  // namespace quorbind::testing
