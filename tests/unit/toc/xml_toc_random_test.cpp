// The check of book files against what was meant by those who wrote them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/random_book_file.h"
#include "tests/support/world.h"
#include "toc/toc_check.h"

namespace quorbind::testing {
namespace {

using Texts = std::vector<std::string>;

/// What the check of a book file leaves behind.
struct XmlTocOutcome {
  bool accepted = false;
  Texts record;
  std::string name;
  std::string acronym;
  std::string recordedAcronym;
  std::string folder;
  std::string file;
  std::string bookmark;
  Texts missingFiles;

  bool operator==(const XmlTocOutcome&) const = default;
};

void PrintTo(const XmlTocOutcome& outcome, std::ostream* stream) {
  *stream << (outcome.accepted ? "accepted" : "refused") << ", "
          << ::testing::PrintToString(outcome.record) << ", book " << outcome.name << ", "
          << outcome.acronym << ", " << outcome.recordedAcronym << ", folder " << outcome.folder
          << ", file " << outcome.file << outcome.bookmark << ", missing "
          << ::testing::PrintToString(outcome.missingFiles);
}

std::string folderIn(const std::string& path) {
  const std::string below = replaceAll(path, "/", "\\");
  const std::size_t begin = below.find('\\');
  return begin == std::string::npos
             ? ""
             : below.substr(begin + 1, below.find('\\', begin + 1) - begin - 1);
}

/// Why it is refused, as the user is told; empty when it is not.
std::string refusalOf(const RandomBookFile& file) {
  if (file.documents.empty()) {
    return "information: Error:Book should have at least one heading";
  }
  if (file.path && folderIn(file.path->text) == "..") {
    return "critical: Error:Book Folder leads out of the library: " + file.path->text;
  }
  if (file.acronym && file.acronym->text == "A:B") {
    return "critical: Book Acro can not contain  (/\\:*?\"<>)";
  }
  return "";
}

XmlTocOutcome meantBy(const RandomBookFile& file) {
  XmlTocOutcome outcome;
  const std::string refusal = refusalOf(file);
  if (!refusal.empty()) {
    outcome.record = {refusal};
    return outcome;
  }
  outcome.accepted = true;
  outcome.name = file.name ? file.name->text : "";
  outcome.acronym = file.acronym ? file.acronym->text : "";
  outcome.recordedAcronym = outcome.acronym;
  outcome.folder = file.path ? folderIn(file.path->text) : "";
  for (const StatedDocument& document : file.documents) {
    if (document.name.empty()) {
      continue;
    }
    const Pieces parts(document.name, "#");
    outcome.file = parts.at(0);
    outcome.bookmark = parts.count() > 1 ? "#" + std::string(parts.at(1)) : "";
    const auto found = fileOfName(document.name);
    if (!found || documentsBeside().count(*found) == 0) {
      outcome.missingFiles.push_back(document.name);
    }
  }
  return outcome;
}

class RandomBookFiles : public ::testing::Test {
 protected:
  RandomBookFiles() {
    for (const std::string& document : documentsBeside()) {
      world_.disk.write("in/" + document, "");
    }
    world_.disk.write("lib/Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM")));
    world_.state().currentCataloguePath = "C:\\lib\\Quor_TOC.xml";
  }

  XmlTocOutcome checked(const std::string& bytes) {
    world_.disk.write("in/book.xml", bytes);
    world_.user.forget();
    ProcessState& state = world_.state();
    for (std::string* text :
         {&state.currentBookName, &state.currentBookAcro, &state.recordedXmlAcro}) {
      text->clear();
    }
    TocCheck check(world_.module);
    std::string path = "C:\\in\\book.xml";
    XmlTocOutcome outcome;
    outcome.accepted = check.mbValidateTocFile(path, TocCheck::kXml);
    outcome.record = world_.user.record();
    outcome.name = state.currentBookName;
    outcome.acronym = state.currentBookAcro;
    outcome.recordedAcronym = state.recordedXmlAcro;
    outcome.folder = check.mstrBookFolder();
    outcome.file = check.mstrCurFile();
    outcome.bookmark = check.mstrCurBookMark();
    outcome.missingFiles = check.marrsMissingFiles();
    return outcome;
  }

  World world_;
  RandomChoices random_{20260102};
};

TEST_F(RandomBookFiles, AreCheckedAsTheyWereMeant) {
  int accepted = 0;
  for (int round = 0; round < 250 && !HasFailure(); ++round) {
    const RandomBookFile file = randomBookFile(random_);
    const XmlTocOutcome outcome = checked(file.bytes);
    EXPECT_EQ(outcome, meantBy(file)) << file.bytes;
    accepted += outcome.accepted ? 1 : 0;
  }
  EXPECT_GT(accepted, 100);
}

}  // namespace
}  // namespace quorbind::testing
