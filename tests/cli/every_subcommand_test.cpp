#include <sys/mount.h>

#include <cstring>
#include <fstream>

#include "tests/cli/library_subcommands.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

/// Those that look at the catalogue.
class CatalogueUse : public CompleteLibrary {
 protected:
  void expectEnd(int status, const std::string& beginningOfErrors) const {
    const Tree before = disk.contents();
    const Outcome outcome = quorbind(words());
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with(beginningOfErrors)) << outcome.err;
    const Outcome asObject = quorbind(words({"--json"}));
    EXPECT_EQ(asObject.status, status);
    EXPECT_TRUE(asObject.out.starts_with(
        "{\n  \"format\": 1,\n  \"status\": " + std::to_string(status) + ",\n"))
        << asObject.out;
    EXPECT_EQ(disk.contents(), before);
  }
};

TEST_P(CatalogueUse, IsDoneInACompleteLibrary) {
  EXPECT_EQ(quorbind(words()).status, 0);
}

TEST_P(CatalogueUse, WithoutOneIsMissingInput) {
  fs::remove(disk.path() / kCatalogue);
  expectEnd(3, "critical: DISK/server/Docs/Plant/Quor_TOC.xml: File not found\n");
}

TEST_P(CatalogueUse, OfAnEmptyOneIsNotParseable) {
  disk.write(kCatalogue, "");
  expectEnd(4, "critical: DISK/server/Docs/Plant/Quor_TOC.xml");
}

TEST_P(CatalogueUse, OfATruncatedOneNamesTheLine) {
  const std::string whole = disk.read(kCatalogue);
  disk.write(kCatalogue, whole.substr(0, whole.size() / 2));
  expectEnd(4, "critical: DISK/server/Docs/Plant/Quor_TOC.xml:");
}

TEST_P(CatalogueUse, OfOneWithAnotherRootIsNotParseable) {
  disk.write(kCatalogue, "<Catalogue><Quor_Books/></Catalogue>");
  expectEnd(4,
            "critical: DISK/server/Docs/Plant/Quor_TOC.xml: the element Quor_Books is missing\n");
}

TEST_P(CatalogueUse, OfALibraryThatIsNotThereIsMissingInput) {
  const Outcome outcome =
      quorbind(joined(GetParam().words, {"--server", "server", "--library", "Tools"}));
  EXPECT_EQ(outcome.status, 3);
}

INSTANTIATE_TEST_SUITE_P(Of,
                         CatalogueUse,
                         ::testing::ValuesIn(all(kReaders, kCatalogueWriters)),
                         nameOf);

/// Those that need the categories file.
class CategoriesUse : public CatalogueUse {};

TEST_P(CategoriesUse, WithoutTheFileIsMissingInput) {
  fs::remove(disk.path() / kCategories);
  expectEnd(3, "critical: DISK/server/Docs/Plant/Quor_BookCategories.xml: File not found\n");
}

TEST_P(CategoriesUse, OfADamagedOneIsNotParseable) {
  for (const char* damaged : {"", "<BookSet_Categories>\n<Category>"}) {
    disk.write(kCategories, damaged);
    expectEnd(4, "critical: DISK/server/Docs/Plant/Quor_BookCategories.xml");
  }
}

TEST_P(CategoriesUse, OfOneWithAnotherRootIsNotParseable) {
  disk.write(kCategories, "<Categories/>");
  expectEnd(4,
            "critical: DISK/server/Docs/Plant/Quor_BookCategories.xml: the element "
            "BookSet_Categories is missing\n");
}

INSTANTIATE_TEST_SUITE_P(Of,
                         CategoriesUse,
                         ::testing::ValuesIn(all(kCategoryWriters,
                                                 {{"list", {"categories", "list"}},
                                                  {"file", {"categories", "file", "ALM", "Safety"}},
                                                  {"rebuild", {"categories", "rebuild"}}})),
                         nameOf);

/// Those that read the keywords file.
class KeywordsUse : public CatalogueUse {};

TEST_P(KeywordsUse, OfADamagedFileIsNotParseable) {
  for (const char* damaged : {"", "<Books>\n<Book>"}) {
    disk.write(kKeywords, damaged);
    expectEnd(4, "critical: DISK/server/Docs/Plant/Quor_SearchKeywords.xml");
  }
}

TEST_P(KeywordsUse, OfAFileWithAnotherRootIsNotParseable) {
  disk.write(kKeywords, "<Keywords/>");
  expectEnd(
      4,
      "critical: DISK/server/Docs/Plant/Quor_SearchKeywords.xml: the element Books is missing\n");
}

INSTANTIATE_TEST_SUITE_P(
    Of,
    KeywordsUse,
    ::testing::Values(Subcommand{"list", {"keywords", "list"}},
                      Subcommand{"find", {"keywords", "find", "bell"}},
                      Subcommand{"add", {"keywords", "add", "Alarms", "horn"}},
                      Subcommand{"rename", {"keywords", "rename", "Alarms", "bell", "horn"}},
                      kInstallWithKeywords),
    nameOf);

/// Those that read the file of link identifiers.
class LinksUse : public CatalogueUse {};

TEST_P(LinksUse, OfADamagedFileIsNotParseable) {
  for (const char* damaged : {"", "<LINKS>\n<IBD>"}) {
    disk.write(kLinks, damaged);
    expectEnd(4, "critical: DISK/server/Docs/Plant/Quor_LinkID.xml");
  }
}

TEST_P(LinksUse, OfAFileWithAnotherRootIsNotParseable) {
  disk.write(kLinks, "<IBD/>");
  expectEnd(4, "critical: DISK/server/Docs/Plant/Quor_LinkID.xml: the element LINKS is missing\n");
}

INSTANTIATE_TEST_SUITE_P(
    Of,
    LinksUse,
    ::testing::Values(
        Subcommand{"list", {"links", "list"}},
        Subcommand{"check", {"links", "check"}},
        Subcommand{"add", {"links", "add", "X3", "--full", "F", "--source", "s", "--acro", "ALM"}},
        Subcommand{"merge", {"links", "merge", "--from", "in/Quor_LinkID.xml"}}),
    nameOf);

/// Those that change the library.
class Changing : public CompleteLibrary {};

TEST_P(Changing, ADryRunTouchesNothingAndNamesTheFilesThatTheRunThenChanges) {
  const Tree before = contentsAndTimes();
  const Outcome rehearsed = quorbind(words({"--dry-run", "--json"}));
  EXPECT_EQ(rehearsed.status, 0) << rehearsed.err;
  EXPECT_EQ(contentsAndTimes(), before);

  const Outcome real = quorbind(words({"--json"}));
  EXPECT_EQ(real.status, 0) << real.err;
  EXPECT_NE(disk.contents(), Tree()) << "the library is gone";
  const auto changesIn = [](const std::string& object) {
    const std::size_t begin = object.find("\"changes\"");
    return object.substr(begin, object.find("\"messages\"") - begin);
  };
  EXPECT_EQ(changesIn(rehearsed.out), changesIn(real.out));
}

/// On a disk that takes nothing.
class OnAReadOnlyDisk : public CompleteLibrary {
 protected:
  void SetUp() override {
    CompleteLibrary::SetUp();
    const std::string folder = server();
    if (mount(folder.c_str(), folder.c_str(), nullptr, MS_BIND, nullptr) != 0) {
      GTEST_SKIP() << "a folder can't be mounted here: " << std::strerror(errno);
    }
    mounted_ = true;
    ASSERT_EQ(mount(nullptr, folder.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr),
              0);
    ASSERT_NE(runHere({"touch", "server/new"}).status, 0) << "a plain write is not refused";
  }
  void TearDown() override {
    if (mounted_) {
      umount2(server().c_str(), MNT_DETACH);
    }
  }

 private:
  [[nodiscard]] std::string server() const { return (disk.path() / "server").string(); }

  bool mounted_ = false;
};

TEST_P(OnAReadOnlyDisk, NothingIsChangedAndTheFileIsNamed) {
  const Tree before = disk.contents();
  for (const Words& flags : {Words{}, Words{"--dry-run"}}) {
    const Outcome outcome = quorbind(words(flags));
    EXPECT_EQ(outcome.status, 5);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("critical: DISK/server/Docs/Plant/")) << outcome.err;
    EXPECT_NE(outcome.err.find(": Permission denied\nquorbind: Plant: DISK/server/Docs/Plant/"),
              std::string::npos)
        << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with(" could not be written; nothing was changed\n"))
        << outcome.err;
  }
  EXPECT_EQ(disk.contents(), before);
}

/// On a disk that is full as soon as the library stands on it.
class OnAFullDisk : public CompleteLibrary {
 protected:
  void SetUp() override {
    disk.makeFolder("server");
    if (mount("tmpfs", server().c_str(), "tmpfs", 0, "size=256k") != 0) {
      GTEST_SKIP() << "a small disk can't be mounted here: " << std::strerror(errno);
    }
    mounted_ = true;
    CompleteLibrary::SetUp();
    std::ofstream filler(disk.path() / "server/filler", std::ios::binary);
    const std::string page(4096, 'x');
    while (filler.write(page.data(), static_cast<std::streamsize>(page.size())).flush()) {
    }
  }
  void TearDown() override {
    if (mounted_) {
      umount2(server().c_str(), MNT_DETACH);
    }
  }

 private:
  [[nodiscard]] std::string server() const { return (disk.path() / "server").string(); }

  bool mounted_ = false;
};

TEST_P(OnAFullDisk, EveryFileIsAsItWasAndTheOneThatDidNotFitIsNamed) {
  const Tree before = disk.contents();
  const Outcome outcome = quorbind(words());
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.out, "");
  EXPECT_NE(outcome.err.find("Disk full"), std::string::npos) << outcome.err;
  EXPECT_NE(outcome.err.find("\nquorbind: Plant: DISK/server/Docs/Plant/"), std::string::npos)
      << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with(" could not be written; nothing was changed\n")) << outcome.err;
  EXPECT_EQ(disk.contents(), before);
}

INSTANTIATE_TEST_SUITE_P(Of, Changing, ::testing::ValuesIn(kWriters), nameOf);
INSTANTIATE_TEST_SUITE_P(Of, OnAFullDisk, ::testing::ValuesIn(kWriters), nameOf);
INSTANTIATE_TEST_SUITE_P(Of, OnAReadOnlyDisk, ::testing::ValuesIn(kWriters), nameOf);

}  // namespace
}  // namespace quorbind::testing
