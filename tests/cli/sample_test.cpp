#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

/// The sample library as a newcomer adds it.
class Sample : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    fs::copy(QUORBIND_SAMPLES, disk.path() / "samples", fs::copy_options::recursive);
  }
  [[nodiscard]] Outcome addSample() const {
    return quorbind({"add",
                     "samples/pump-station/toc.txt",
                     "--server",
                     "server",
                     "--library",
                     "Plant",
                     "--name",
                     "Pump Station",
                     "--acro",
                     "PST"});
  }
};

TEST_F(Sample, BreaksNoRuleAndNamesNoDocumentThatIsNotThere) {
  const Outcome outcome = quorbind({"check", "samples/pump-station/toc.txt"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.find("missing"), std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Sample, HasBesideItWhatPrepareMakesOfIt) {
  const Outcome outcome = quorbind({"prepare", "samples/pump-station/toc.txt"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, disk.read("samples/pump-station/toc-prepared.txt"));
}

TEST_F(Sample, IsAddedWholeWithItsStyleSheetAndItsPictures) {
  const Outcome outcome = addSample();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out.find("missing"), std::string::npos) << outcome.out;

  Words expected = filesBelow("samples/pump-station/Manual/");
  expected.insert(expected.begin(), "Book_PST.xml");
  EXPECT_EQ(filesBelow("server/Docs/Plant/Manual/"), expected);
  for (const std::string& name : filesBelow("samples/pump-station/Manual/")) {
    EXPECT_EQ(disk.read("server/Docs/Plant/Manual/" + name),
              disk.read("samples/pump-station/Manual/" + name))
        << name;
  }
}

TEST_F(Sample, HasHeadingsOnSeveralLevels) {
  EXPECT_EQ(addSample().status, 0);
  const std::string tree =
      quorbind({"show", "--server", "server", "--library", "Plant", "PST"}).out;
  EXPECT_GE(std::count(tree.begin(), tree.end(), '\n'), 31);
  EXPECT_NE(tree.find("\n      "), std::string::npos) << tree;
}

}  // namespace
}  // namespace quorbind::testing
