// `doctor` where files are protected, where texts are hostile, and in a very large library.

#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/cli/doctor_test.h"
#include "tests/cli/open_toolbox.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// Run by a user who may read everything, and write what is not forbidden.
class DoctorWithoutRights : public DoctorTest {
 protected:
  void SetUp() override {
    if (geteuid() != 0) {
      GTEST_SKIP() << "only root can run a command as another user";
    }
    DoctorTest::SetUp();
    fs::permissions(disk.path(), fs::perms::others_all, fs::perm_options::add);
    for (const auto& entry : fs::recursive_directory_iterator(disk.path())) {
      fs::permissions(entry.path(), fs::perms::others_all, fs::perm_options::add);
    }
  }

  void forbid(const std::string& name, fs::perms rights) const {
    fs::permissions(disk.path() / name, rights, fs::perm_options::remove);
  }
  void expectAsNobody(const std::string& report, const std::string& closing, int status) const {
    const Tree before = disk.contents();
    const Outcome outcome =
        runHere(asNobody({toolbox_.executable(), "doctor", "--server", "server"}));
    EXPECT_EQ(outcome.out, report);
    EXPECT_EQ(outcome.err, closing);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(disk.contents(), before);
  }

 private:
  OpenToolbox toolbox_;
};

TEST_F(DoctorWithoutRights, FindsNothingInALibraryThatEverybodyMayWrite) {
  expectAsNobody(std::string(kSoundServer) + kSoundPlant + "0 errors, 0 warnings.\n", "", 0);
}

TEST_F(DoctorWithoutRights, FindsAFileThatMayNotBeReplaced) {
  forbid(kBookFile, fs::perms::others_write);
  expectAsNobody(
      "DISK/server: sound\n"
      "Plant, 1 book, 1 heading:\n"
      "  warning: DISK/server/Docs/Plant/Manual/Book_ALM.xml: it may not be replaced "
      "[read-only-file]\n"
      "    Take its read-only mark away, and give the authors the right to write here.\n"
      "0 errors, 1 warning.\n",
      "",
      0);
}

TEST_F(DoctorWithoutRights, TellsOfALibraryOfSomebodyElseOnce) {
  forbid("server/Docs/Plant", fs::perms::others_write);
  forbid(kCatalogue, fs::perms::others_write);
  expectAsNobody(
      "DISK/server: sound\n"
      "Plant, 1 book, 1 heading:\n"
      "  warning: DISK/server/Docs/Plant: this user may not write here [read-only-library]\n"
      "    Have a user who may change what is to be changed.\n"
      "0 errors, 1 warning.\n",
      "",
      0);
}

TEST_F(DoctorWithoutRights, FindsAFileThatCanNotBeReadAndGoesOn) {
  forbid(kCatalogue, fs::perms::others_read);
  forbid(kCategories, fs::perms::others_read);
  expectAsNobody(
      "DISK/server: sound\n"
      "Plant, 0 books, 0 headings:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml: it can't be read: Permission denied "
      "[unreadable-file]\n"
      "    Give everybody who uses the library the right to read it, or take it from the backup.\n"
      "  error: DISK/server/Docs/Plant/Quor_BookCategories.xml: it can't be read: Permission "
      "denied "
      "[unreadable-file]\n"
      "    Give everybody who uses the library the right to read it, or take it from the backup.\n",
      "quorbind: DISK/server: 2 errors, 0 warnings\n",
      1);
}

TEST_F(DoctorWithoutRights, FindsAFolderThatCanNotBeListed) {
  forbid("server/Docs/Plant/Manual", fs::perms::others_read);
  expectAsNobody(
      "DISK/server: sound\n"
      "Plant, 1 book, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Manual: it can't be listed: Permission denied "
      "[unreadable-folder]\n"
      "    Give everybody who uses the library the right to read it.\n",
      "quorbind: DISK/server: 1 error, 0 warnings\n",
      1);
}

using DoctorOfHostility = DoctorTest;

TEST_F(DoctorOfHostility, NamesNothingThatAShellWouldTakeForMoreThanAWord) {
  const std::string name = "-x; touch \"$HOME\" `id` $(id) \\ *";
  const std::string inFile = replaceAll(name, "\"", "&amp;quot;");
  writeEntries(bookEntry("Alarms", "ALM") + bookEntry(inFile, "X&amp;quot;"));
  const Outcome outcome = doctor();
  EXPECT_THAT(
      outcome.out,
      HasSubstr("    quorbind delete --server DISK/server --library Plant -- '" + name + "'\n"));
  const std::string command = replaceAll(commandIn(outcome.out), " -- ", " --yes -- ");
  EXPECT_EQ(shell(command).status, 0);
  expectSound();
}

TEST_F(DoctorOfHostility, WritesOutWhatWouldMoveTheCursor) {
  changeBookFile(">alarms.htm<", ">a&#x9B;2J&#10;.htm<");
  EXPECT_THAT(doctor().out, HasSubstr("the document a\\x9B2J\\x0A.htm of Alarms (ALM)"));
}

TEST_F(DoctorOfHostility, TakesWordsInBracesForWhatTheyAre) {
  changeBookFile(">alarms.htm<", ">{BOOK}.htm<");
  EXPECT_THAT(doctor().out,
              HasSubstr("the document {BOOK}.htm of Alarms (ALM) is not there [missing-document]"));
}

TEST_F(DoctorOfHostility, LooksForNoDocumentOnTheNetworkOrOnADevice) {
  for (const char* name : {"\\\\host\\share\\a.htm", "nul.txt", "C:\\a.htm", "http://host/a.htm"}) {
    changeBookFile(">alarms.htm<", ">" + std::string(name) + "<");
    EXPECT_THAT(doctor().out,
                HasSubstr("the document " + std::string(name) +
                          " of Alarms (ALM) lies outside the book's folder and is never looked for "
                          "[outside-document]\n"));
  }
}

/// One that nobody should have.
using DoctorOfAVeryLargeLibrary = DoctorTest;

TEST_F(DoctorOfAVeryLargeLibrary, ComesToItsEnd) {
  constexpr std::size_t kBooks = 20'000;
  std::string entries;
  std::string filed;
  std::string keywords;
  std::string links;
  for (std::size_t number = 0; number < kBooks; ++number) {
    const std::string acronym = "B" + std::to_string(number);
    entries += bookEntry("Manual " + acronym, acronym);
    filed += "<BookAcro>X" + acronym + "</BookAcro>\n";
    keywords += keywordsOf("Else " + acronym, {"bell"});
    links += link("X" + acronym, "F", "Plant\\a.htm", "X" + acronym);
  }
  writeEntries(entries);
  disk.write(
      kCategories,
      categoriesFile("<Category><CategoryName>Safety</CategoryName>\n" + filed + "</Category>"));
  disk.write(kKeywords, keywordsFile(keywords));
  disk.write(kLinks, linksFile(links));
  const Outcome outcome = doctor();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "quorbind: DISK/server: 20000 errors, 60001 warnings\n");
}

}  // namespace
}  // namespace quorbind::testing
