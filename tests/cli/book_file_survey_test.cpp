// What the command finds out of a book file before and after it is added, against what was meant by
// those who wrote it.

#include "cli/book_file_survey.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cli/book_file.h"
#include "cli/paths.h"
#include "cli/wiring.h"
#include "platform/text.h"
#include "tests/support/random_book_file.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using Documents = std::vector<StatedDocument>;

Documents withMainFiles(const RandomBookFile& file) {
  Documents documents = file.mainFiles;
  documents.insert(documents.end(), file.documents.begin(), file.documents.end());
  return documents;
}

/// The line that is told of a refusal; 0 for none.
std::size_t lineOfRefusal(const RandomBookFile& file) {
  const bool leadsOut = file.path && contains(file.path->text, "..");
  const bool isUnusable = file.acronym && contains(file.acronym->text, ":");
  if (file.documents.empty() || (!leadsOut && !isUnusable)) {
    return 0;
  }
  return leadsOut ? file.path->line : file.acronym->line;
}

bool isRefused(const RandomBookFile& file) {
  return file.documents.empty() || lineOfRefusal(file) != 0;
}

class Nobody final : public XmlScanHandler {
 public:
  void startElement(std::string_view /*name*/, const XmlScanAttributes& /*attributes*/) override {}
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override {}
};

class RandomBookFileSurvey : public ::testing::Test {
 protected:
  RandomBookFileSurvey() {
    for (const std::string& document : documentsBeside()) {
      disk_.write("in/" + document, "");
    }
  }

  BookFileSurvey surveyed(const RandomBookFile& file) {
    disk_.write("in/book.xml", file.bytes);
    return surveyBookFile(wiring_.module.platform,
                          TocFile(wiring_.files, (disk_.path() / "in/book.xml").string()));
  }
  BookDocuments found(const RandomBookFile& file) {
    disk_.write("in/book.xml", file.bytes);
    return findDocuments(wiring_.module.platform,
                         componentFolder(disk_.path().string()) + "\\in\\book.xml");
  }

  BookDocuments foundByWalkForAnother(const RandomBookFile& file) {
    const auto named = namedIn(file.bytes);
    EXPECT_TRUE(named.has_value());
    return findDocuments(wiring_.module.platform,
                         componentFolder(disk_.path().string()) + "\\in\\book.xml",
                         named.value_or(NamedFiles()));
  }
  /// What a walk over these bytes, which is about something else, leaves behind.
  std::optional<NamedFiles> namedIn(const std::string& bytes) {
    disk_.write("in/book.xml", bytes);
    ScanWatch scans(wiring_.xml);
    Nobody nobody;
    static_cast<void>(scans.scan(
        wiring_.files.open(componentFolder(disk_.path().string()) + "\\in\\book.xml"), nobody));
    return scans.take();
  }

  RandomChoices random_{20260102};

 private:
  TemporaryFolder disk_;
  Wiring wiring_{"", processTerminal(false)};
};

TEST_F(RandomBookFileSurvey, FindsEveryDocumentWithItsLine) {
  int accepted = 0;
  for (int round = 0; round < 400 && !HasFailure(); ++round) {
    const RandomBookFile file = randomBookFile(random_);
    SCOPED_TRACE(file.bytes);
    const BookFileSurvey survey = surveyed(file);
    ASSERT_EQ(survey.refusal.has_value(), isRefused(file));
    if (survey.refusal) {
      EXPECT_EQ(survey.refusal->place.line, lineOfRefusal(file));
      continue;
    }
    Documents documents;
    for (const NamedDocument& document : survey.documents) {
      documents.push_back({document.name, document.line});
    }
    EXPECT_TRUE(documents == withMainFiles(file));
    EXPECT_EQ(survey.headings, file.documents.size());
    EXPECT_EQ(survey.name, file.name ? file.name->text : "");
    EXPECT_EQ(survey.acronym, file.acronym ? file.acronym->text : "");
    EXPECT_EQ(survey.missingElement.value_or(""),
              !file.hasKey ? "Book_Key"
              : !file.path ? "Book_Path"
                           : "");
    ++accepted;
  }
  EXPECT_GT(accepted, 160);
}

TEST_F(RandomBookFileSurvey, FindsEachDocumentThatIsThereAndEachThatIsMissingOnce) {
  std::size_t present = 0;
  for (int round = 0; round < 400 && !HasFailure(); ++round) {
    const RandomBookFile file = randomBookFile(random_);
    std::vector<std::string> expectedPresent;
    std::vector<std::string> expectedMissing;
    std::set<std::string> seen;
    for (const StatedDocument& document : withMainFiles(file)) {
      const std::string name = document.name.substr(0, document.name.find('#'));
      const auto beside = fileOfName(name);
      if (name.empty() || !seen.insert(upperCaseAscii(beside.value_or(name))).second) {
        continue;
      }
      const bool isThere = beside && documentsBeside().count(*beside) > 0;
      (isThere ? expectedPresent : expectedMissing).push_back(name);
    }
    const BookDocuments documents = found(file);
    EXPECT_EQ(documents.present, expectedPresent) << file.bytes;
    EXPECT_EQ(documents.missing.texts(), expectedMissing) << file.bytes;
    present += expectedPresent.size();
  }
  EXPECT_GT(present, 1500U);
}

TEST_F(RandomBookFileSurvey, FindsTheSameByWhatAWalkForAnotherFoundNamed) {
  for (int round = 0; round < 200 && !HasFailure(); ++round) {
    const RandomBookFile file = randomBookFile(random_);
    const BookDocuments byItself = found(file);
    const BookDocuments byWalk = foundByWalkForAnother(file);
    EXPECT_EQ(byWalk.present, byItself.present) << file.bytes;
    EXPECT_EQ(byWalk.missing.texts(), byItself.missing.texts()) << file.bytes;
  }
}

TEST_F(RandomBookFileSurvey, KnowsNothingOfAWalkThatDidNotComeToItsEnd) {
  ASSERT_TRUE(namedIn("<A><HFile>a.htm</HFile></A>").has_value());
  EXPECT_FALSE(namedIn("<A><HFile>a.htm</HFile>").has_value());
}

}  // namespace
}  // namespace quorbind::testing
