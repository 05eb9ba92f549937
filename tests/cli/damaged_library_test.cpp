// Every subcommand that works on a library, in one whose files are damaged, protected or very many.

#include <gmock/gmock.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "tests/cli/library_subcommands.h"
#include "tests/cli/open_toolbox.h"
#include "tests/support/damaged_xml.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;
using Kind = XmlDamage::Kind;

/// An addition that changes every file of the library.
Subcommand addition(const char* name, const char* toc) {
  return {name,
          {"add",
           toc,
           "--name",
           "Pumps",
           "--acro",
           "PMP",
           "--keywords",
           "horn",
           "--categories",
           "Safety"}};
}

const std::vector<Subcommand> kAdditions{
    addition("add", "toc.txt"),
    addition("add_page", "toc.htm"),
    kInstallWithKeywords,
};

const std::vector<Subcommand> kReadersOfCategories{{"categories_list", {"categories", "list"}}};

/// Some damages of each kind; the adapters are tested with all of them.
#if defined(__SANITIZE_ADDRESS__)
// With the sanitizer most of a run is its start.
constexpr std::array<std::string_view, 2> kDamages{"half", "another root"};
#else
constexpr std::array<std::string_view, 8> kDamages{"empty",
                                                   "missing",
                                                   "folder",
                                                   "half",
                                                   "half in UTF-16",
                                                   "UTF-8 that says UTF-16",
                                                   "a billion laughs",
                                                   "another root"};
#endif

class InADamagedLibrary : public CompleteLibrary {
 protected:
  void SetUp() override {
    CompleteLibrary::SetUp();
    writeBook();
    disk.write("toc.htm",
               "<HT><A HREF=\"Manual/cover.htm\">Pumps</A></HT>\n"
               "<K1><A HREF=\"Manual/alarms.htm\">Alarms</A><IBD><X7></IBD></K1>\n");
    sound_ = disk.contents();
  }

  [[nodiscard]] std::vector<XmlDamage> damagesOf(const std::string& file) const {
    const std::string whole = text(file);
    std::vector<XmlDamage> damages = xmlDamagesOf(whole.substr(whole.find("?>\n") + 3));
    std::erase_if(damages, [&](const XmlDamage& damage) {
      return std::find(kDamages.begin(), kDamages.end(), damage.name) == kDamages.end();
    });
    return damages;
  }

  void restore() const {
    if (disk.contents() == sound_) {
      return;
    }
    disk.remove("server");
    disk.remove("in");
    for (const auto& [name, bytes] : sound_) {
      if (bytes == "(folder)") {
        disk.makeFolder(name);
      } else {
        disk.write(name, bytes);
      }
    }
  }

  /// Either the run is done and has left the damaged file alone, or it names it and nothing has
  /// changed anywhere.
  void expectNothingLost(const std::string& file, const XmlDamage& damage) const {
    restore();
    damage.putInPlaceOf(disk, file);
    const Tree before = disk.contents();
    const Outcome outcome = quorbind(words());
    const Tree after = disk.contents();
    if (outcome.status == 0) {
      const bool isMade = damage.kind == Kind::kMissing || isMadeAnew(file);
      EXPECT_TRUE(isMade || bytesOf(after, file) == bytesOf(before, file));
      return;
    }
    EXPECT_EQ(after, before);
    if (damage.kind == Kind::kMissing && file == kKeywords) {
      EXPECT_EQ(outcome.err,
                "critical: Alarms (ALM) does not have the keyword bell\n"
                "quorbind: Plant: nothing was changed\n");
      return;
    }
    EXPECT_THAT(outcome.status, statusFor(damage.kind)) << outcome.err;
    EXPECT_NE(outcome.err.find("DISK/" + file), std::string::npos) << outcome.err;
  }

  [[nodiscard]] const Tree& sound() const { return sound_; }

 private:
  [[nodiscard]] static bool isMadeAnew(const std::string& file) {
    return std::string_view(GetParam().name) == "categories_create" && file == kCategories;
  }
  /// A folder can neither be read nor, where a file would be made, be written.
  static ::testing::Matcher<int> statusFor(Kind kind) {
    using ::testing::AnyOf;
    switch (kind) {
      case Kind::kMissing:
        return 3;
      case Kind::kFolder:
        return AnyOf(3, 5);
      case Kind::kUnreadable:
      case Kind::kForeign:
        break;
    }
    return 4;
  }
  static std::string bytesOf(const Tree& tree, const std::string& name) {
    const auto found = tree.find(name);
    return found == tree.end() ? "(missing)" : found->second;
  }

  Tree sound_;
};

TEST_P(InADamagedLibrary, IsDoneWithoutTheFileOrNamesItAndChangesNothing) {
  for (const auto& [file, bytes] : sound()) {
    if (!file.ends_with(".xml")) {
      continue;
    }
    restore();
    for (const XmlDamage& damage : damagesOf(file)) {
      SCOPED_TRACE(file + ": " + damage.name);
      expectNothingLost(file, damage);
    }
  }
}

TEST_P(InADamagedLibrary, ABooksFolderThatVanishedStopsItWithNothingChangedOrNotAtAll) {
  disk.remove("server/Docs/Plant/Manual");
  const Tree before = disk.contents();
  const Outcome outcome = quorbind(words());
  if (outcome.status != 0) {
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.err.find("critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml: "), 0U)
        << outcome.err;
    EXPECT_EQ(disk.contents(), before);
  }
}

INSTANTIATE_TEST_SUITE_P(Of,
                         InADamagedLibrary,
                         ::testing::ValuesIn(all(all(kReaders, kReadersOfCategories),
                                                 all(kWriters, kAdditions))),
                         nameOf);

/// The library of somebody else: its folders may be written, its files only read.
class InAProtectedLibrary : public CompleteLibrary {
 protected:
  void SetUp() override {
    if (geteuid() != 0) {
      GTEST_SKIP() << "only root can run a command as another user";
    }
    CompleteLibrary::SetUp();
    writeBook();
    for (const fs::path& folder : {disk.path(), disk.path() / "server"}) {
      fs::permissions(folder, fs::perms::others_all, fs::perm_options::add);
    }
    for (const auto& entry : fs::recursive_directory_iterator(disk.path())) {
      const bool isFolder = entry.is_directory();
      fs::permissions(entry.path(),
                      isFolder ? fs::perms::others_all : fs::perms::others_read,
                      fs::perm_options::add);
    }
    ASSERT_NE(runHere(asNobody({"sh", "-c", std::string("echo >>") + kCatalogue})).status, 0)
        << "a plain write is not refused";
  }

  [[nodiscard]] Outcome quorbindAsNobody(const Words& arguments) const {
    return runHere(asNobody(joined({toolbox_.executable()}, arguments)));
  }

 private:
  OpenToolbox toolbox_;
};

TEST_P(InAProtectedLibrary, NothingIsChangedAndTheFileIsNamed) {
  const Tree before = disk.contents();
  for (const Words& flags : {Words{}, Words{"--dry-run"}}) {
    const Outcome outcome = quorbindAsNobody(words(flags));
    EXPECT_EQ(outcome.status, 5);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("critical: DISK/server/Docs/Plant/")) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with(".xml could not be written; nothing was changed\n"))
        << outcome.err;
    EXPECT_EQ(disk.contents(), before);
  }
}

INSTANTIATE_TEST_SUITE_P(Of, InAProtectedLibrary, ::testing::ValuesIn(kWriters), nameOf);

/// A library with a hundred thousand books.
class LargeCatalogue : public LibraryTest {
 protected:
  static constexpr int kBooks = 100'000;

  void SetUp() override {
    LibraryTest::SetUp();
    disk.write(kCatalogue, catalogueWith(entries(kBooks)));
  }
  static std::string entries(int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
      all += bookEntry("Book " + std::to_string(i), "B" + std::to_string(i));
    }
    return all;
  }
};

TEST_F(LargeCatalogue, IsListedWhole) {
  const Outcome outcome = inPlant({"books"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), kBooks);
  EXPECT_TRUE(outcome.out.ends_with("Book 99999\n"));
}

TEST_F(LargeCatalogue, LosesTheLastBookAlone) {
  const Outcome outcome = inPlant({"delete", "Book 99999", "--yes"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_TRUE(text(kCatalogue) == catalogueWith(entries(kBooks - 1)));
}

}  // namespace
}  // namespace quorbind::testing
