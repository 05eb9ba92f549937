#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "tests/contract/adapters.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

namespace {

namespace fs = std::filesystem;

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

/// Makes a folder the working folder until the end of the test.
class WorkingFolder {
 public:
  explicit WorkingFolder(const fs::path& folder) : before_(fs::current_path()) {
    fs::current_path(folder);
  }
  ~WorkingFolder() { fs::current_path(before_); }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  fs::path before_;
};

/// `C:\` is the folder `disk_`.
class FileSystemContract : public ::testing::Test {
 protected:
  std::string textOf(std::string_view path) {
    const std::unique_ptr<ByteReader> reader = files_.open(path);
    std::string text;
    std::string piece(7, '\0');
    while (const std::size_t count = reader->read(piece.data(), piece.size())) {
      text.append(piece, 0, count);
    }
    return text;
  }

  void replaceBy(std::string_view path, std::string_view bytes) {
    const std::unique_ptr<FileReplacement> replacement = files_.replace(path);
    replacement->write(bytes);
    replacement->commit();
  }

  std::int32_t errorOfOpening(std::string_view path) {
    return errorRaisedBy([&] { static_cast<void>(files_.open(path)); });
  }
  std::int32_t errorOfReplacing(std::string_view path) {
    return errorRaisedBy([&] { static_cast<void>(files_.replace(path)); });
  }
  std::int32_t errorOfListing(std::string_view folder) {
    return errorRaisedBy([&] { static_cast<void>(files_.namesIn(folder)); });
  }

  void makeReadOnly(std::string_view name) const {
    fs::permissions(disk_.path() / name,
                    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
  }
  [[nodiscard]] bool isReadOnly(std::string_view name) const {
    const fs::perms permissions = fs::status(disk_.path() / name).permissions();
    return (permissions & fs::perms::owner_write) == fs::perms::none;
  }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  FileSystem& files_ = adapters_->files();
};

// Names

TEST_F(FileSystemContract, SlashesAndDoubledSeparatorsSeparateTheParts) {
  disk_.write("Docs/Library/book.xml", "book");

  EXPECT_EQ(textOf("C:\\Docs\\Library\\book.xml"), "book");
  EXPECT_EQ(textOf("C:/Docs/Library/book.xml"), "book");
  EXPECT_EQ(textOf("C:\\Docs\\\\Library//book.xml"), "book");
}

TEST_F(FileSystemContract, TheNameOfAFolderMayEndWithASeparator) {
  disk_.write("Docs/a.txt", "");

  EXPECT_TRUE(files_.folderExists("C:\\Docs\\"));
  EXPECT_THAT(files_.namesIn("C:\\Docs\\"), ElementsAre("a.txt"));
  files_.createFolder("C:\\Docs\\New\\");
  EXPECT_TRUE(files_.folderExists("C:\\Docs\\New"));
}

TEST_F(FileSystemContract, PartsAreFoundInAnyLetterCase) {
  disk_.write("Docs/Manual/Page.htm", "page");

  EXPECT_EQ(textOf("c:\\DOCS\\manual\\PAGE.HTM"), "page");
  EXPECT_TRUE(files_.folderExists("C:\\docs\\MANUAL"));
}

TEST_F(FileSystemContract, LetterCaseIsComparedCharacterByCharacter) {
  disk_.write("höhe über straße.htm", "");

  EXPECT_TRUE(files_.fileExists("C:\\HÖHE ÜBER STRAßE.HTM"));
  EXPECT_FALSE(files_.fileExists("C:\\HÖHE ÜBER STRASSE.HTM"));
}

TEST_F(FileSystemContract, APartThatDoesNotExistIsCreatedAsSpelled) {
  disk_.makeFolder("Docs");

  files_.createFolder("C:\\DOCS\\NewFolder");
  replaceBy("C:\\docs\\NEWFOLDER\\New.txt", "new");

  EXPECT_THAT(disk_.contents(),
              ElementsAre(std::pair("Docs"s, "(folder)"s),
                          std::pair("Docs/NewFolder"s, "(folder)"s),
                          std::pair("Docs/NewFolder/New.txt"s, "new"s)));
}

TEST_F(FileSystemContract, AFileIsReplacedUnderTheSpellingThatItHas) {
  disk_.write("Book.xml", "old");

  replaceBy("C:\\BOOK.XML", "new");

  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("Book.xml"s, "new"s)));
}

TEST_F(FileSystemContract, RelativeNamesStartAtTheWorkingFolder) {
  disk_.write("Docs/Library/book.xml", "book");
  const WorkingFolder docs(disk_.path() / "Docs");

  EXPECT_EQ(textOf("Library\\book.xml"), "book");
  EXPECT_EQ(textOf(".\\library\\..\\Library\\BOOK.xml"), "book");
  EXPECT_EQ(textOf("C:Library\\book.xml"), "book");
}

TEST_F(FileSystemContract, NamesThatBeginWithASeparatorStartAtTheRootOfTheDrive) {
  disk_.write("book.xml", "at the root");
  disk_.write("Docs/book.xml", "in the folder");
  const WorkingFolder docs(disk_.path() / "Docs");

  EXPECT_EQ(textOf("\\book.xml"), "at the root");
  EXPECT_EQ(textOf("/book.xml"), "at the root");
}

TEST_F(FileSystemContract, WhatComesAndGoesIsSeenAtOnce) {
  disk_.makeFolder("Docs");
  EXPECT_FALSE(files_.fileExists("C:\\DOCS\\PAGE.HTM"));

  disk_.write("Docs/page.htm", "");
  EXPECT_TRUE(files_.fileExists("C:\\DOCS\\PAGE.HTM"));

  fs::rename(disk_.path() / "Docs/page.htm", disk_.path() / "Docs/Other.htm");
  EXPECT_FALSE(files_.fileExists("C:\\DOCS\\PAGE.HTM"));
  EXPECT_TRUE(files_.fileExists("C:\\DOCS\\OTHER.HTM"));
}

// Errors

TEST_F(FileSystemContract, AMissingFileRaises53) {
  disk_.makeFolder("Docs");

  EXPECT_EQ(errorOfOpening("C:\\Docs\\missing.txt"), 53);
  EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile("C:\\Docs\\missing.txt"); }), 53);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\Docs\\missing.txt", "C:\\b.txt"); }), 53);
  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\Docs\\missing.txt", "C:\\b.txt"); }), 53);
  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("Docs"s, "(folder)"s)));
}

TEST_F(FileSystemContract, AMissingFolderRaises76) {
  disk_.write("a.txt", "a");

  EXPECT_EQ(errorOfOpening("C:\\Missing\\a.txt"), 76);
  EXPECT_EQ(errorOfReplacing("C:\\Missing\\a.txt"), 76);
  EXPECT_EQ(errorOfListing("C:\\Missing"), 76);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder("C:\\Missing\\Docs"); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile("C:\\Missing\\a.txt"); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\Missing\\a.txt", "C:\\b.txt"); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\a.txt", "C:\\Missing\\a.txt"); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\Missing\\a.txt", "C:\\b.txt"); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\a.txt", "C:\\Missing\\a.txt"); }), 76);
  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("a.txt"s, "a"s)));
}

TEST_F(FileSystemContract, AFileInThePlaceOfItsFolderRaises76) {
  disk_.write("a.txt", "a");

  EXPECT_EQ(errorOfOpening("C:\\a.txt\\b.txt"), 76);
  EXPECT_EQ(errorOfReplacing("C:\\a.txt\\b.txt"), 76);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder("C:\\a.txt\\Docs"); }), 76);
}

TEST_F(FileSystemContract, AFolderInThePlaceOfAFileRaises75) {
  disk_.write("a.txt", "a");
  disk_.makeFolder("Docs");

  EXPECT_EQ(errorOfOpening("C:\\Docs"), 75);
  EXPECT_EQ(errorOfReplacing("C:\\Docs"), 75);
  EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile("C:\\Docs"); }), 75);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\Docs", "C:\\b"); }), 75);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\a.txt", "C:\\Docs"); }), 75);
  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\Docs", "C:\\b"); }), 75);
  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\a.txt", "C:\\Docs"); }), 75);
  EXPECT_THAT(disk_.contents(),
              ElementsAre(std::pair("Docs"s, "(folder)"s), std::pair("a.txt"s, "a"s)));
}

TEST_F(FileSystemContract, ANameThatEndsWithASeparatorStandsForAFolder) {
  disk_.write("a.txt", "a");

  EXPECT_FALSE(files_.fileExists("C:\\a.txt\\"));
  EXPECT_EQ(errorOfOpening("C:\\a.txt\\"), 75);
  EXPECT_EQ(errorOfReplacing("C:\\new.txt\\"), 75);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\a.txt", "C:\\b.txt\\"); }), 75);
  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\a.txt", "C:\\b.txt/"); }), 75);
}

TEST_F(FileSystemContract, AFileInThePlaceOfAFolderRaises75) {
  disk_.write("a.txt", "a");

  EXPECT_EQ(errorOfListing("C:\\a.txt"), 75);
}

TEST_F(FileSystemContract, NamesThatNoFileCanHaveRaise52) {
  for (const std::string& name : {""s, "C:\\a\0.txt"s, "C:\\" + std::string(300, 'a')}) {
    EXPECT_EQ(errorOfOpening(name), 52);
    EXPECT_EQ(errorOfReplacing(name), 52);
    EXPECT_EQ(errorRaisedBy([&] { files_.createFolder(name); }), 52);
    EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile(name); }), 52);
  }
  EXPECT_EQ(errorRaisedBy([&] { static_cast<void>(files_.absolutePath("")); }), 52);
}

TEST_F(FileSystemContract, ANameTooLongForAnyFileHasAFullNameAndIsNotThere) {
  const std::string name = "C:\\" + std::string(300, 'a');
  EXPECT_EQ(files_.absolutePath(name), name);
  EXPECT_FALSE(files_.fileExists(name));
  EXPECT_FALSE(files_.folderExists(name));
}

// Existence

TEST_F(FileSystemContract, AFileExistsAsAFileOnly) {
  disk_.write("a.txt", "");

  EXPECT_TRUE(files_.fileExists("C:\\a.txt"));
  EXPECT_FALSE(files_.folderExists("C:\\a.txt"));
}

TEST_F(FileSystemContract, AFolderExistsAsAFolderOnly) {
  disk_.makeFolder("Docs");

  EXPECT_TRUE(files_.folderExists("C:\\Docs"));
  EXPECT_TRUE(files_.folderExists("C:\\"));
  EXPECT_FALSE(files_.fileExists("C:\\Docs"));
  EXPECT_FALSE(files_.fileExists("C:\\"));
}

TEST_F(FileSystemContract, WhatCanNotBeLookedAtDoesNotExist) {
  disk_.write("a.txt", "");

  for (const std::string& name : {""s,
                                  "C:\\missing"s,
                                  "C:\\Missing\\a.txt"s,
                                  "C:\\a.txt\\b.txt"s,
                                  "C:\\a.txt\0"s,
                                  "C:\\" + std::string(100'000, 'a')}) {
    EXPECT_FALSE(files_.fileExists(name));
    EXPECT_FALSE(files_.folderExists(name));
  }
}

TEST_F(FileSystemContract, ANameOfCountlessPartsDoesNotExist) {
  std::string name = "C:";
  for (int part = 0; part < 1'000'000; ++part) {
    name += "\\a";
  }
  EXPECT_FALSE(files_.fileExists(name));
}

// Folders

TEST_F(FileSystemContract, CreatingAFolderThatExistsRaises58) {
  disk_.makeFolder("Docs");
  disk_.write("a.txt", "a");

  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder("C:\\Docs"); }), 58);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder("C:\\DOCS\\"); }), 58);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder("C:\\a.txt"); }), 58);
  EXPECT_EQ(errorRaisedBy([&] { files_.createFolder("C:\\"); }), 58);
}

TEST_F(FileSystemContract, TheNamesInAFolderAreSortedByTheirBytes) {
  disk_.write("Docs/b.txt", "");
  disk_.write("Docs/é.txt", "");
  disk_.write("Docs/Z.txt", "");
  disk_.makeFolder("Docs/a");

  EXPECT_THAT(files_.namesIn("C:\\DOCS"), ElementsAre("Z.txt", "a", "b.txt", "é.txt"));
}

TEST_F(FileSystemContract, TheFileNamesInAFolderLeaveItsFoldersOut) {
  disk_.write("Docs/b.txt", "");
  disk_.write("Docs/Z.txt", "");
  disk_.write("Docs/a/c.txt", "");

  EXPECT_THAT(files_.fileNamesIn("C:\\DOCS"), UnorderedElementsAre("Z.txt", "b.txt"));
}

TEST_F(FileSystemContract, AnEmptyFolderHasNoNames) {
  disk_.makeFolder("Docs");

  EXPECT_THAT(files_.namesIn("C:\\Docs"), IsEmpty());
  EXPECT_THAT(files_.fileNamesIn("C:\\Docs"), IsEmpty());
}

TEST_F(FileSystemContract, AFolderThatIsNotThereCanNotBeListed) {
  disk_.write("a.txt", "");

  for (const auto& [folder, error] : {std::pair{"C:\\missing", 76}, std::pair{"C:\\a.txt", 75}}) {
    EXPECT_EQ(errorRaisedBy([&] { (void)files_.namesIn(folder); }), error) << folder;
    EXPECT_EQ(errorRaisedBy([&] { (void)files_.fileNamesIn(folder); }), error) << folder;
  }
}

// Copying

TEST_F(FileSystemContract, ACopyHasTheContentsOfItsSource) {
  const std::string bytes = "first\r\nsecond\0\xFF"s + std::string(300'000, 'x');
  disk_.write("a.bin", bytes);

  files_.copyFile("C:\\a.bin", "C:\\b.bin");

  EXPECT_EQ(disk_.read("b.bin"), bytes);
  EXPECT_EQ(disk_.read("a.bin"), bytes);
}

TEST_F(FileSystemContract, ACopyReplacesItsTargetWhole) {
  disk_.write("a.txt", "new");
  disk_.write("Docs/b.txt", "a longer old text");

  files_.copyFile("C:\\a.txt", "C:\\DOCS\\B.TXT");

  EXPECT_THAT(disk_.contents(),
              ElementsAre(std::pair("Docs"s, "(folder)"s),
                          std::pair("Docs/b.txt"s, "new"s),
                          std::pair("a.txt"s, "new"s)));
}

TEST_F(FileSystemContract, ASeriesCopiesAsASingleCopyDoes) {
  const std::string bytes(300'000, 'x');
  disk_.write("a.bin", bytes);
  disk_.write("b.txt", "new");
  disk_.write("Docs/b.txt", "a longer old text");
  makeReadOnly("b.txt");

  const std::unique_ptr<CopySeries> copies = files_.beginCopies();
  copies->copy("C:\\a.bin", "C:\\Docs\\a.bin");
  copies->copy("C:\\b.txt", "C:\\DOCS\\B.TXT");
  copies->flush();

  EXPECT_THAT(disk_.contents(),
              ElementsAre(std::pair("Docs"s, "(folder)"s),
                          std::pair("Docs/a.bin"s, bytes),
                          std::pair("Docs/b.txt"s, "new"s),
                          std::pair("a.bin"s, bytes),
                          std::pair("b.txt"s, "new"s)));
  EXPECT_TRUE(isReadOnly("Docs/b.txt"));
}

TEST_F(FileSystemContract, ACopyOfASeriesIsWholeBeforeItIsFlushed) {
  disk_.write("a.txt", "a");
  const std::unique_ptr<CopySeries> copies = files_.beginCopies();

  copies->copy("C:\\a.txt", "C:\\b.txt");

  EXPECT_EQ(disk_.read("b.txt"), "a");
  EXPECT_THAT(files_.namesIn("C:\\"), ElementsAre("a.txt", "b.txt"));
}

TEST_F(FileSystemContract, ASeriesRefusesWhatASingleCopyRefuses) {
  disk_.write("a.txt", "a");
  disk_.makeFolder("Docs");
  const std::unique_ptr<CopySeries> copies = files_.beginCopies();

  EXPECT_EQ(errorRaisedBy([&] { copies->copy("C:\\missing.txt", "C:\\b.txt"); }), 53);
  EXPECT_EQ(errorRaisedBy([&] { copies->copy("C:\\a.txt", "C:\\Missing\\a.txt"); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { copies->copy("C:\\a.txt", "C:\\Docs"); }), 75);
  copies->flush();
  EXPECT_THAT(disk_.contents(),
              ElementsAre(std::pair("Docs"s, "(folder)"s), std::pair("a.txt"s, "a"s)));
}

TEST_F(FileSystemContract, ASeriesLeavesAFileAloneThatIsThereAlready) {
  disk_.write("a.txt", "a");
  const std::unique_ptr<CopySeries> copies = files_.beginCopies();

  EXPECT_FALSE(copies->copy("C:\\a.txt", "C:\\A.TXT"));
  EXPECT_TRUE(copies->copy("C:\\a.txt", "C:\\b.txt"));

  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("a.txt"s, "a"s), std::pair("b.txt"s, "a"s)));
}

TEST_F(FileSystemContract, ASeriesFindsWhatItHasCopiedInAnyLetterCase) {
  disk_.write("a.txt", "a");
  disk_.write("b.txt", "b");
  disk_.write("Docs/Old.txt", "old");
  const std::unique_ptr<CopySeries> copies = files_.beginCopies();

  copies->copy("C:\\a.txt", "C:\\docs\\New.txt");
  copies->copy("C:\\b.txt", "C:\\Docs\\NEW.TXT");
  copies->copy("C:\\a.txt", "C:\\Docs\\OLD.txt");
  copies->copy("C:\\b.txt", "C:\\DOCS\\old.TXT");
  copies->copy("C:\\a.txt", "C:\\docs\\Two.txt");
  copies->copy("C:\\a.txt", "C:\\Docs\\TWO.txt");

  EXPECT_THAT(files_.namesIn("C:\\Docs"), ElementsAre("New.txt", "Old.txt", "Two.txt"));
  EXPECT_EQ(disk_.read("Docs/New.txt"), "b");
  EXPECT_EQ(disk_.read("Docs/Old.txt"), "b");
}

TEST_F(FileSystemContract, ASeriesMayBeFlushedAsOftenAsWanted) {
  disk_.write("a.txt", "a");
  const std::unique_ptr<CopySeries> copies = files_.beginCopies();
  copies->flush();
  copies->copy("C:\\a.txt", "C:\\b.txt");
  copies->flush();
  copies->copy("C:\\a.txt", "C:\\c.txt");
  // Somebody else takes it away before it is flushed.
  files_.deleteFile("C:\\c.txt");
  copies->flush();

  EXPECT_THAT(files_.namesIn("C:\\"), ElementsAre("a.txt", "b.txt"));
}

TEST_F(FileSystemContract, TheCopyOfAReadOnlyFileIsReadOnly) {
  disk_.write("a.txt", "a");
  makeReadOnly("a.txt");

  files_.copyFile("C:\\a.txt", "C:\\b.txt");

  EXPECT_EQ(disk_.read("b.txt"), "a");
  EXPECT_TRUE(isReadOnly("b.txt"));
}

TEST_F(FileSystemContract, AFileIsNotCopiedOntoItself) {
  disk_.write("Docs/a.txt", "a");
  fs::create_hard_link(disk_.path() / "Docs/a.txt", disk_.path() / "same.txt");

  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\Docs\\a.txt", "C:\\Docs\\a.txt"); }), 70);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\Docs\\a.txt", "C:\\docs\\..\\DOCS/A.txt"); }),
            70);
  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile("C:\\Docs\\a.txt", "C:\\same.txt"); }), 70);
  EXPECT_EQ(disk_.read("Docs/a.txt"), "a");
}

// Moving

TEST_F(FileSystemContract, AFileMovesToAnotherNameInAnotherFolder) {
  disk_.write("Docs/a.txt", "a");
  disk_.makeFolder("Library");

  files_.moveFile("C:\\DOCS\\A.TXT", "C:\\library\\b.txt");

  EXPECT_THAT(disk_.contents(),
              ElementsAre(std::pair("Docs"s, "(folder)"s),
                          std::pair("Library"s, "(folder)"s),
                          std::pair("Library/b.txt"s, "a"s)));
}

TEST_F(FileSystemContract, MovingOntoAnotherFileRaises58) {
  disk_.write("a.txt", "a");
  disk_.write("b.txt", "b");

  EXPECT_EQ(errorRaisedBy([&] { files_.moveFile("C:\\a.txt", "C:\\B.TXT"); }), 58);
  EXPECT_EQ(disk_.read("a.txt"), "a");
  EXPECT_EQ(disk_.read("b.txt"), "b");
}

TEST_F(FileSystemContract, AFileMovedOntoItselfStays) {
  disk_.write("Docs/a.txt", "a");

  files_.moveFile("C:\\Docs\\a.txt", "C:\\Docs\\a.txt");
  files_.moveFile("C:\\Docs\\a.txt", "C:\\DOCS\\.\\a.txt");

  EXPECT_EQ(disk_.read("Docs/a.txt"), "a");
}

TEST_F(FileSystemContract, AFileMovedToAnotherCaseOfItsNameIsSpelledSo) {
  disk_.write("Docs/book.xml", "book");

  files_.moveFile("C:\\Docs\\BOOK.XML", "C:\\DOCS\\Book.XML");

  EXPECT_THAT(disk_.contents(),
              ElementsAre(std::pair("Docs"s, "(folder)"s), std::pair("Docs/Book.XML"s, "book"s)));
}

// Deleting

TEST_F(FileSystemContract, ADeletedFileIsGone) {
  disk_.write("Docs/a.txt", "a");
  disk_.write("Docs/b.txt", "b");

  files_.deleteFile("C:\\docs\\A.txt");

  EXPECT_THAT(files_.namesIn("C:\\Docs"), ElementsAre("b.txt"));
}

TEST_F(FileSystemContract, AReadOnlyFileIsNotDeleted) {
  disk_.write("a.txt", "a");
  makeReadOnly("a.txt");

  EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile("C:\\a.txt"); }), 70);
  EXPECT_EQ(disk_.read("a.txt"), "a");
}

// Full names

TEST_F(FileSystemContract, AnAbsolutePathHasADriveAndNothingToResolve) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"C:\\Docs\\book.xml", "C:\\Docs\\book.xml"},
      {"\\Docs\\..\\book.xml", "C:\\book.xml"},
      {"/Docs//./Library\\book.xml", "C:\\Docs\\Library\\book.xml"},
      {"C:\\Docs\\Library\\", "C:\\Docs\\Library"},
      {"C:\\..\\..\\book.xml", "C:\\book.xml"},
      {"\\a\\b\\..\\..\\..", "C:\\"},
      {"\\", "C:\\"},
  };
  for (const auto& [path, full] : cases) {
    EXPECT_EQ(files_.absolutePath(path), full) << path;
  }
}

TEST_F(FileSystemContract, AnAbsolutePathNeedsNothingToExist) {
  EXPECT_EQ(files_.absolutePath("C:\\Missing\\x\\..\\a.txt"), "C:\\Missing\\a.txt");
}

TEST_F(FileSystemContract, AnAbsolutePathStandsForTheRelativeOne) {
  disk_.makeFolder("Docs/Library");
  const WorkingFolder docs(disk_.path() / "Docs");

  EXPECT_EQ(files_.absolutePath("book.xml"), "C:\\Docs\\book.xml");
  EXPECT_EQ(files_.absolutePath("..\\Library\\.\\book.xml"), "C:\\Library\\book.xml");
  EXPECT_EQ(files_.absolutePath("."), "C:\\Docs");
}

// Identity

TEST_F(FileSystemContract, NamesOfOneFileLeadToTheSameFile) {
  disk_.write("Docs/a.txt", "a");
  fs::create_hard_link(disk_.path() / "Docs/a.txt", disk_.path() / "b.txt");

  EXPECT_TRUE(files_.sameFile("C:\\Docs\\a.txt", "C:\\Docs\\a.txt"));
  EXPECT_TRUE(files_.sameFile("C:\\Docs\\a.txt", "\\DOCS\\x\\..\\A.TXT"));
  EXPECT_TRUE(files_.sameFile("C:\\Docs\\a.txt", "C:\\b.txt"));
}

TEST_F(FileSystemContract, EqualContentsDoNotMakeOneFile) {
  disk_.write("a.txt", "a");
  disk_.write("b.txt", "a");

  EXPECT_FALSE(files_.sameFile("C:\\a.txt", "C:\\b.txt"));
}

TEST_F(FileSystemContract, WhatIsNoExistingFileIsNotTheSameFile) {
  disk_.makeFolder("Docs");

  EXPECT_FALSE(files_.sameFile("C:\\missing.txt", "C:\\missing.txt"));
  EXPECT_FALSE(files_.sameFile("C:\\Docs", "C:\\Docs"));
  EXPECT_FALSE(files_.sameFile("", ""));
}

// Reading

TEST_F(FileSystemContract, AReaderGives0AtTheEndOnly) {
  disk_.write("a.txt", "abc");
  const std::unique_ptr<ByteReader> reader = files_.open("C:\\a.txt");
  std::string piece(2, '\0');

  std::string text;
  for (std::size_t count = 1; text.size() < 3; text.append(piece, 0, count)) {
    count = reader->read(piece.data(), piece.size());
    ASSERT_GT(count, 0U);
  }
  EXPECT_EQ(text, "abc");
  EXPECT_EQ(reader->read(piece.data(), piece.size()), 0U);
}

TEST_F(FileSystemContract, ARewoundReaderStartsAtTheFirstByte) {
  disk_.write("a.txt", "a");
  const std::unique_ptr<ByteReader> reader = files_.open("C:\\a.txt");
  std::string piece(2, '\0');
  ASSERT_EQ(reader->read(piece.data(), piece.size()), 1U);
  ASSERT_EQ(reader->read(piece.data(), piece.size()), 0U);

  reader->rewind();

  EXPECT_EQ(reader->read(piece.data(), piece.size()), 1U);
  EXPECT_EQ(piece[0], 'a');
}

TEST_F(FileSystemContract, AnEmptyFileIsAtItsEnd) {
  disk_.write("empty.txt", "");

  EXPECT_EQ(textOf("C:\\empty.txt"), "");
}

// Replacing

TEST_F(FileSystemContract, AReplacementPutsEveryPieceUnderTheNameInOrder) {
  std::string expected;
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\new.txt");
  for (const std::size_t size : {1U, 0U, 70'000U, 3U, 65'536U, 65'535U, 1U, 200'000U}) {
    const std::string piece(size, static_cast<char>('a' + expected.size() % 26));
    replacement->write(piece);
    expected += piece;
  }
  replacement->commit();

  EXPECT_EQ(disk_.read("new.txt"), expected);
}

TEST_F(FileSystemContract, TheOldFileStandsUntilTheCommit) {
  disk_.write("a.txt", "old");
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\a.txt");
  replacement->write(std::string(200'000, 'n'));

  EXPECT_EQ(disk_.read("a.txt"), "old");
  replacement->commit();
  EXPECT_EQ(disk_.read("a.txt"), std::string(200'000, 'n'));
}

TEST_F(FileSystemContract, ANewFileHasNoNameBeforeTheCommit) {
  const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\a.txt");
  replacement->write("new");

  EXPECT_FALSE(files_.fileExists("C:\\a.txt"));
  replacement->commit();
  EXPECT_TRUE(files_.fileExists("C:\\a.txt"));
}

TEST_F(FileSystemContract, ACommitLeavesNothingButTheNewFile) {
  disk_.write("a.txt", "old");

  replaceBy("C:\\a.txt", "new");

  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("a.txt"s, "new"s)));
}

TEST_F(FileSystemContract, AReplacementWithoutACommitLeavesNothingBehind) {
  disk_.write("a.txt", "old");
  {
    const std::unique_ptr<FileReplacement> replacement = files_.replace("C:\\a.txt");
    replacement->write(std::string(200'000, 'n'));
    const std::unique_ptr<FileReplacement> ofNewFile = files_.replace("C:\\b.txt");
  }
  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("a.txt"s, "old"s)));
}

TEST_F(FileSystemContract, TwoReplacementsOfOneFileDoNotMix) {
  const std::unique_ptr<FileReplacement> first = files_.replace("C:\\a.txt");
  const std::unique_ptr<FileReplacement> second = files_.replace("C:\\a.txt");
  first->write("first");
  second->write("second");
  second->commit();
  first->commit();

  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("a.txt"s, "first"s)));
}

}  // namespace

}  // namespace quorbind::testing
