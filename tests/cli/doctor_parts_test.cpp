#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "cli/doctor/finding.h"
#include "cli/doctor/mending_command.h"
#include "cli/doctor/server_examination.h"
#include "cli/paths.h"
#include "cli/rehearsed_files.h"
#include "cli/wiring.h"
#include "platform/portable/portable_file_system.h"
#include "platform/portable/xml_library.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/damaged_xml.h"
#include "tests/support/read_only_files.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

TEST(ShellWord, OfPlainCharactersStandsAsItIs) {
  EXPECT_EQ(shellWord("PST"), "PST");
  EXPECT_EQ(shellWord("/home/anna/docs-server/Docs_1.xml"), "/home/anna/docs-server/Docs_1.xml");
}

TEST(ShellWord, OfAnythingElseIsQuoted) {
  EXPECT_EQ(shellWord(""), "''");
  EXPECT_EQ(shellWord("Pump Station"), "'Pump Station'");
  EXPECT_EQ(shellWord("$(id)"), "'$(id)'");
  EXPECT_EQ(shellWord("Driver's"), R"('Driver'\''s')");
  EXPECT_EQ(shellWord("Übersicht"), "'Übersicht'");
}

TEST(MendingCommand, TiesAValueThatLooksLikeAFlagToItsOwn) {
  EXPECT_EQ(mendingCommand("rename", {"A"}, {{"--name", "-b"}}, {"/s", "-Plant"}),
            "quorbind rename A --name=-b --server /s --library=-Plant");
}

TEST(MendingCommand, PutsANameThatLooksLikeAFlagBehindTheMarkForNames) {
  EXPECT_EQ(mendingCommand("categories file", {"PST", "-x y"}, {}, {"/s", "Plant"}),
            "quorbind categories file --server /s --library Plant -- PST '-x y'");
}

struct FindingRow {
  std::string name;
  std::string id;
  std::string sentence;
  std::string remedy;
};

const std::vector<FindingRow> kRows{
#define QUOR_FINDING(name, id, severity, sentence, remedy) {#name, (id), (sentence), (remedy)},
#include "cli/doctor/findings.def"
#undef QUOR_FINDING
};

TEST(FindingTable, HasAnIdentifierOfItsOwnForEachFinding) {
  std::set<std::string> ids;
  for (const FindingRow& row : kRows) {
    EXPECT_TRUE(ids.insert(row.id).second) << row.name;
    EXPECT_THAT(row.id, ::testing::MatchesRegex("[a-z]+(-[a-z]+)*"));
  }
}

TEST(FindingTable, TellsWhatIsWrongBehindAFilesNameAndWhatToDoInASentence) {
  for (const FindingRow& row : kRows) {
    EXPECT_FALSE(row.sentence.ends_with('.')) << row.name;
    EXPECT_TRUE(row.remedy.ends_with('.')) << row.name;
  }
}

TEST(FindingTexts, NeedAValueForEachWordInBraces) {
  Findings findings;
  EXPECT_THROW(findings.add(FindingKind::kUnlistedLibrary, {"a"}), std::logic_error);
}

/// A sound server with a file of each kind.
class Examination : public ::testing::Test {
 protected:
  void SetUp() override {
    write("Docs/Quor_Selection.xml",
          "<Quor_Selection_List><Quors><Quor><Quor_Name>Plant</Quor_Name>"
          "<Quor_Location>Docs\\Plant</Quor_Location></Quor></Quors></Quor_Selection_List>");
    write("Docs/Quor_DefaultCategories.xml", "<Default_Categories></Default_Categories>");
    write("Docs/Plant/Quor_TOC.xml",
          "<Quor_Master><Quor_Books>" + bookEntry("Alarms", "ALM") + "</Quor_Books></Quor_Master>");
    write("Docs/Plant/Quor_BookCategories.xml", "<BookSet_Categories></BookSet_Categories>");
    write("Docs/Plant/Quor_SearchKeywords.xml", "<Books></Books>");
    write("Docs/Plant/Quor_LinkID.xml", "<LINKS><IBD/></LINKS>");
    write("Docs/Plant/Manual/Book_ALM.xml",
          "<Book_Master><Book><Book_Name>Alarms</Book_Name><Book_Acro>ALM</Book_Acro></Book>"
          "<Book_Headings><Heading><HName>A</HName><HFile>a.htm</HFile></Heading>"
          "</Book_Headings></Book_Master>");
    folder_.write("Docs/Plant/Manual/a.htm", "");
  }

  void write(const std::string& name, const std::string& bytes) {
    folder_.write(name, bytes);
    documents_[name] = bytes;
  }

  /// Examines the server on these files.
  ServerDiagnosis examineOn(FileSystem& files) {
    PortableXmlLibrary xml(files);
    const Platform platform{
        files, xml, wiring_.ui, wiring_.toolset, wiring_.locale, wiring_.spreadsheets};
    return examineServer(platform, folder_.path().string(), std::nullopt);
  }

  static std::set<std::string> filesIn(const ServerDiagnosis& diagnosis) {
    std::set<std::string> files;
    for (const Findings* findings : {&diagnosis.findings, &diagnosis.libraries.at(0).findings}) {
      for (const Finding& finding : findings->all()) {
        files.insert(nativeName(finding.file));
      }
    }
    return files;
  }

  TemporaryFolder folder_;
  std::map<std::string, std::string> documents_;
  Wiring wiring_{"", {.output = std::cerr}};
  PortableFileSystem disk_;
};

TEST_F(Examination, WritesNothing) {
  ReadOnlyFiles unchangeable(disk_);
  RehearsedFiles files(unchangeable, wiring_.locale);
  const ServerDiagnosis diagnosis = examineOn(files);
  EXPECT_EQ(diagnosis.count(Severity::kError), 0U);
  EXPECT_EQ(diagnosis.count(Severity::kWarning), 0U);
  ASSERT_EQ(diagnosis.libraries.size(), 1U);
  EXPECT_EQ(diagnosis.libraries[0].headings, 1U);
}

TEST_F(Examination, NamesADamagedFileAndComesToItsEnd) {
  RehearsedFiles files(disk_, wiring_.locale);
  for (const auto& [name, sound] : documents_) {
    for (const XmlDamage& damage : xmlDamagesOf(sound)) {
      SCOPED_TRACE(name + ": " + damage.name);
      damage.putInPlaceOf(folder_, name);
      const std::set<std::string> named = filesIn(examineOn(files));
      if (damage.kind == XmlDamage::Kind::kMissing) {
        const bool isNeeded = !name.ends_with("LinkID.xml") && !name.ends_with("Keywords.xml");
        EXPECT_EQ(named.empty(), !isNeeded);
      } else if (damage.kind == XmlDamage::Kind::kFolder) {
        EXPECT_FALSE(named.empty());
      } else {
        EXPECT_TRUE(named.contains((folder_.path() / name).string()));
      }
    }
    folder_.remove(name);
    folder_.write(name, sound);
  }
}

}  // namespace
}  // namespace quorbind::testing
