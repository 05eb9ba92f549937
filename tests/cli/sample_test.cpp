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
  for (const auto& [toc, entries] : {std::pair{"samples/pump-station/toc.txt", "55"},
                                     {"samples/weather-mast/toc.htm", "44"},
                                     {"samples/site-safety/Book_SAF.xml", "12"}}) {
    const Outcome outcome = quorbind({"check", toc});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, std::string(toc) + ": accepted, " + entries + " entries.\n");
    EXPECT_EQ(outcome.err, "");
  }
}

TEST_F(Sample, OfAPageIsAddedWholeWithItsLinkIdentifiers) {
  const Outcome outcome =
      addFile("samples/weather-mast/toc.htm", {"--name", "Weather Mast", "--acro", "WMH"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "Added Weather Mast (WMH) to Plant, folder Handbook: 9 files.\n");

  Words expected = filesBelow("samples/weather-mast/Handbook/");
  expected.insert(expected.begin(), "Book_WMH.xml");
  EXPECT_EQ(filesBelow("server/Docs/Plant/Handbook/"), expected);

  const std::string links = libraryText("Quor_LinkID.xml");
  EXPECT_NE(links.find("<LinkID>WeatherMast</LinkID>\n"
                       "\t\t\t<FullLink>WMH@QUOR@Weather Mast Handbook</FullLink>"),
            std::string::npos)
      << links;
  EXPECT_NE(links.find("<LinkID>RainGauge</LinkID>\n"
                       "\t\t\t<FullLink>WMH@QUOR@The mast and its instruments@QUOR@Rain gauge"
                       "</FullLink>\n"
                       "\t\t\t<LinkIDSourceFile>Plant\\Handbook\\mast.htm#rain</LinkIDSourceFile>\n"
                       "\t\t\t<BookAcro>WMH</BookAcro>"),
            std::string::npos)
      << links;
  EXPECT_NE(
      libraryText("Handbook/Book_WMH.xml").find("<HName FLinkValue=\"wind-speed\">Anemometer"),
      std::string::npos);
}

TEST_F(Sample, OfABookFileIsAddedWhole) {
  const Outcome outcome = addFile("samples/site-safety/Book_SAF.xml");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "Added Site Safety (SAF) to Plant, folder Safety: 5 files.\n");
  EXPECT_EQ(filesBelow("server/Docs/Plant/Safety/"), filesBelow("samples/site-safety/"));
  EXPECT_NE(libraryText("Safety/Book_SAF.xml").find("<Book_Path>Plant\\Safety</Book_Path>"),
            std::string::npos);
}

TEST_F(Sample, OfAWorkbookIsAddedBookByBookFromBothKindsOfFile) {
  for (const auto& [workbook, library] : {std::pair{"samples/workshop/books.xlsx", "Plant"},
                                          {"samples/workshop/books.xls", "Works"}}) {
    ASSERT_EQ(quorbind({"init", "--server", "server", "--library", library}).status, 0);
    EXPECT_EQ(quorbind({"check", workbook}).out,
              std::string(workbook) + ": accepted, 3 books, 20 entries.\n");
    const Outcome outcome = quorbind({"add", workbook, "--server", "server", "--library", library});
    EXPECT_EQ(outcome.status, 0);
    const std::string to = std::string(" to ") + library;
    EXPECT_EQ(outcome.out,
              "Added The Lathe (LTH)" + to + ", folder Lathe: 5 files.\n" +
                  "Added The Drill Press (DRL)" + to + ", folder Drill: 4 files.\n" +
                  "Added The Band Saw (SAW)" + to + ", folder Saw: 4 files.\n");
    for (const char* folder : {"Lathe", "Drill", "Saw"}) {
      for (const std::string& name : filesBelow(std::string("samples/workshop/") + folder + "/")) {
        EXPECT_EQ(disk.read(std::string("server/Docs/") + library + "/" + folder + "/" + name),
                  disk.read(std::string("samples/workshop/") + folder + "/" + name))
            << name;
      }
    }
  }
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
