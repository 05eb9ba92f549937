// In which order files are written, flushed, closed and renamed: what is told to be done outlasts
// the machine.

#include <gmock/gmock.h>

#include "tests/cli/interrupted_command.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;

/// Before it begins, the command asks whether a file can be replaced: a temporary comes and goes.
///
/// What was done to the files of the library, in order: the call and the file, a temporary by the
/// name of its file with a `*`, a file without a name by a `*` in its folder, also once it has one.
/// Calls of one kind to one file in a row are one.
class FlushOrder : public LibraryTest {
 protected:
  [[nodiscard]] Words stepsOf(const Words& words, const Words& tracerOptions = {}) const {
    const TemporaryFolder trace;
    Words steps;
    for (const SystemCall& call : callsOf(
             {.words = joined({quorbindExecutable()}, words),
     .folder = disk.path().string(),
     .environment = environment},
             (trace.path() / "trace").string(),
             joined({"-y",
                     "-e",
                     "trace=write,copy_file_range,fsync,syncfs,close,rename,linkat,unlink,mkdir"},
                    tracerOptions))) {
      const std::string step = stepOf(call);
      if (!step.empty() && (steps.empty() || steps.back() != step)) {
        steps.push_back(step);
      }
    }
    return steps;
  }

  /// Runs the command with a call that fails.
  [[nodiscard]] Outcome withFailureOf(const std::string& call, const Words& words) const {
    return runHere(joined({"env",
                           "ASAN_OPTIONS=detect_leaks=0",
                           "strace",
                           "-o",
                           "/dev/null",
                           "-e",
                           "inject=" + call,
                           quorbindExecutable()},
                          words));
  }
  /// Follows the folder of that name instead of the libraries.
  void follow(const std::string& folder) { followed_ = folder; }

 private:
  /// Nothing for a call that has nothing to do with changing what is followed.
  [[nodiscard]] std::string stepOf(const SystemCall& call) const {
    const std::string library = (disk.path() / followed_).string() + "/";
    const bool isLastOfItsFiles = call.name == "copy_file_range" || call.name == "linkat";
    const std::size_t begin = isLastOfItsFiles ? call.text.rfind(library) : call.text.find(library);
    if (begin == std::string::npos) {
      return {};
    }
    const std::string path = call.text.substr(begin, call.text.find_first_of(">\"", begin) - begin);
    std::string name = path.substr(library.size());
    if (name.ends_with(kTemporaryExtension)) {
      name.replace(name.rfind(kTemporaryInfix), std::string::npos, "*");
    } else if (const std::size_t number = name.find("/#"); number != std::string::npos) {
      name.replace(number + 1, std::string::npos, "*");
    }
    if (call.name == "close" && !name.ends_with('*')) {
      return {};
    }
    const bool failed = call.text.find("= -1 ") != std::string::npos;
    return call.name + " " + name + (failed ? " fails" : "");
  }

  std::string followed_ = "server/Docs";
};

TEST_F(FlushOrder, OfASideFileIsWriteFlushCloseRenameAndTheFolder) {
  disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell"})));
  EXPECT_THAT(stepsOf(plantWords({"keywords", "add", "Alarms", "horn"})),
              ElementsAre("close Plant/Quor_SearchKeywords.xml*",
                          "unlink Plant/Quor_SearchKeywords.xml*",
                          "write Plant/Quor_SearchKeywords.xml*",
                          "fsync Plant/Quor_SearchKeywords.xml*",
                          "close Plant/Quor_SearchKeywords.xml*",
                          "rename Plant/Quor_SearchKeywords.xml*",
                          "fsync Plant"));
}

TEST_F(FlushOrder, OfANewLibraryFlushesWhereItsFoldersAreToo) {
  follow("work");
  disk.makeFolder("work");
  EXPECT_EQ(stepsOf({"init", "--server", "work/server", "--library", "Plant"}),
            (Words{"mkdir server",
                   "mkdir server/Docs",
                   "fsync server",
                   "mkdir server/Docs/Plant",
                   "fsync server/Docs",
                   "write server/Docs/Plant/Quor_TOC.xml*",
                   "fsync server/Docs/Plant/Quor_TOC.xml*",
                   "close server/Docs/Plant/Quor_TOC.xml*",
                   "rename server/Docs/Plant/Quor_TOC.xml*",
                   "fsync server/Docs/Plant",
                   "write server/Docs/Quor_DefaultCategories.xml*",
                   "fsync server/Docs/Quor_DefaultCategories.xml*",
                   "close server/Docs/Quor_DefaultCategories.xml*",
                   "rename server/Docs/Quor_DefaultCategories.xml*",
                   "fsync server/Docs",
                   "write server/Docs/Plant/Quor_BookCategories.xml*",
                   "fsync server/Docs/Plant/Quor_BookCategories.xml*",
                   "close server/Docs/Plant/Quor_BookCategories.xml*",
                   "rename server/Docs/Plant/Quor_BookCategories.xml*",
                   "fsync server/Docs/Plant",
                   "write server/Docs/Quor_Selection.xml*",
                   "fsync server/Docs/Quor_Selection.xml*",
                   "close server/Docs/Quor_Selection.xml*",
                   "rename server/Docs/Quor_Selection.xml*",
                   "fsync server/Docs"}));
}

TEST_F(FlushOrder, AFolderWhoseNameCanNotBeFlushedIsTakenAwayAgain) {
  disk.makeFolder("work");
  const Outcome outcome = withFailureOf("fsync:error=EIO:when=1",
                                        {"init", "--server", "work/server", "--library", "Plant"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "critical: DISK/work/server: Device I/O error\n");
  EXPECT_FALSE(disk.has("work/server"));
}

TEST_F(FlushOrder, ANewFileWhoseNameCanNotBeFlushedIsTakenAwayAgain) {
  disk.makeFolder("work");
  // Behind those of three folders and of the file itself.
  const Outcome outcome = withFailureOf("fsync:error=EIO:when=5",
                                        {"init", "--server", "work/server", "--library", "Plant"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "critical: DISK/work/server/Docs/Plant/Quor_TOC.xml: Device I/O error\n");
  EXPECT_FALSE(disk.has("work/server/Docs/Plant/Quor_TOC.xml"));
}

TEST_F(FlushOrder, OfARename) {
  EXPECT_THAT(stepsOf(plantWords({"rename", "Alarms", "--name", "W", "--acro", "WRN", "--yes"})),
              ElementsAre("close Plant/Quor_TOC.xml*",
                          "unlink Plant/Quor_TOC.xml*",
                          "close Plant/Manual/Book_ALM.xml*",
                          "unlink Plant/Manual/Book_ALM.xml*",
                          "write Plant/Manual/Book_WRN.xml*",
                          "fsync Plant/Manual/Book_WRN.xml*",
                          "close Plant/Manual/Book_WRN.xml*",
                          "rename Plant/Manual/Book_WRN.xml*",
                          "fsync Plant/Manual",
                          "write Plant/Quor_TOC.xml*",
                          "fsync Plant/Quor_TOC.xml*",
                          "close Plant/Quor_TOC.xml*",
                          "rename Plant/Quor_TOC.xml*",
                          "fsync Plant"));
}

/// The steps of an addition of two documents, up to this flush of theirs. The first of them stands
/// in the library already.
Words stepsUpTo(const std::string& flush) {
  return {"close Plant/Quor_TOC.xml*",
          "unlink Plant/Quor_TOC.xml*",
          "copy_file_range Plant/Manual/Book_PMP.xml*",
          "fsync Plant/Manual/Book_PMP.xml*",
          "close Plant/Manual/Book_PMP.xml*",
          "rename Plant/Manual/Book_PMP.xml*",
          "fsync Plant/Manual",
          "copy_file_range Plant/Manual/alarms.htm*",
          "close Plant/Manual/alarms.htm*",
          "rename Plant/Manual/alarms.htm*",
          "copy_file_range Plant/Manual/*",
          "linkat Plant/Manual/trends.htm",
          "close Plant/Manual/*",
          flush};
}

TEST_F(FlushOrder, OfAnAdditionFlushesItsDocumentsOnceAndBeforeTheCatalogueNamesThem) {
  writeBook();
  EXPECT_EQ(stepsOf(addWords({"--name", "Pumps", "--acro", "PMP"})),
            (joined(stepsUpTo("syncfs Plant/Manual/alarms.htm"),
                    {"write Plant/Quor_TOC.xml*",
                     "fsync Plant/Quor_TOC.xml*",
                     "close Plant/Quor_TOC.xml*",
                     "rename Plant/Quor_TOC.xml*",
                     "fsync Plant"})));
}

TEST_F(FlushOrder, AFailedFlushIsNotTriedAgain) {
  disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell"})));
  EXPECT_THAT(stepsOf(plantWords({"keywords", "add", "Alarms", "horn"}),
                      {"-e", "inject=fsync:error=EIO:when=1"}),
              ElementsAre("close Plant/Quor_SearchKeywords.xml*",
                          "unlink Plant/Quor_SearchKeywords.xml*",
                          "write Plant/Quor_SearchKeywords.xml*",
                          "fsync Plant/Quor_SearchKeywords.xml* fails",
                          "close Plant/Quor_SearchKeywords.xml*",
                          "unlink Plant/Quor_SearchKeywords.xml*"));
}

TEST_F(FlushOrder, AFailedFlushOfTheFolderIsNotTriedAgainAndIsToldThoughTheFileIsNew) {
  disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell"})));
  EXPECT_EQ(stepsOf(plantWords({"keywords", "add", "Alarms", "horn"}),
                    {"-e", "inject=fsync:error=EIO:when=2"}),
            (Words{"close Plant/Quor_SearchKeywords.xml*",
                   "unlink Plant/Quor_SearchKeywords.xml*",
                   "write Plant/Quor_SearchKeywords.xml*",
                   "fsync Plant/Quor_SearchKeywords.xml*",
                   "close Plant/Quor_SearchKeywords.xml*",
                   "rename Plant/Quor_SearchKeywords.xml*",
                   "fsync Plant fails"}));
  EXPECT_NE(text(kKeywords).find("horn"), std::string::npos);

  const Outcome outcome =
      withFailureOf("fsync:error=EIO:when=2", plantWords({"keywords", "add", "Alarms", "siren"}));
  EXPECT_EQ(outcome.status, 5);
  EXPECT_TRUE(outcome.err.starts_with("critical: Error(57):Device I/O error\n")) << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with("quorbind: Plant: DISK/" + std::string(kKeywords) +
                                    " could not be flushed; only a part was done: write DISK/" +
                                    std::string(kKeywords) + "\n"))
      << outcome.err;
}

TEST_F(FlushOrder, AFolderWhoseDiskFlushesNoFoldersIsNoFailure) {
  for (const char* error : {"EINVAL", "EOPNOTSUPP"}) {
    disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell"})));
    const Outcome outcome = withFailureOf(std::string("fsync:when=2:error=") + error,
                                          plantWords({"keywords", "add", "Alarms", "horn"}));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(text(kKeywords).find("horn"), std::string::npos);
  }
}

TEST_F(FlushOrder, OfWhatAnAdditionOfAPageMakesInTheFolderOfItsAuthor) {
  follow("work");
  disk.write("work/author/toc.htm",
             "<K1><A HREF=\"Manual/a.htm\">A</A><IBD><A1></IBD></K1>"
             "<K2><A HREF=\"Manual/b.htm\">B</A><IBD><A2></IBD></K2>");
  disk.write("work/author/Manual/a.htm", "");
  disk.write("work/author/Manual/b.htm", "");
  EXPECT_EQ(stepsOf(addFileWords("work/author/toc.htm", {"--name", "Pumps", "--acro", "PMP"})),
            (Words{"close author/TOC_Temp.txt*",
                   "unlink author/TOC_Temp.txt*",
                   "write author/TOC_Temp.txt*",
                   "fsync author/TOC_Temp.txt*",
                   "close author/TOC_Temp.txt*",
                   "rename author/TOC_Temp.txt*",
                   "fsync author",
                   "write author/Book_PMP.xml*",
                   "fsync author/Book_PMP.xml*",
                   "close author/Book_PMP.xml*",
                   "rename author/Book_PMP.xml*",
                   "fsync author",
                   "copy_file_range author/Manual/Book_PMP.xml",
                   "unlink author/Manual/Book_PMP.xml",
                   "unlink author/TOC_Temp.txt"}));
}

TEST_F(FlushOrder, AFailedFlushOfDocumentsIsNotTriedAgainAndTheCatalogueDoesNotNameThem) {
  writeBook();
  EXPECT_EQ(stepsOf(addWords({"--name", "Pumps", "--acro", "PMP"}),
                    {"-e", "inject=syncfs:error=EIO:when=1"}),
            stepsUpTo("syncfs Plant/Manual/alarms.htm fails"));
}

TEST_F(FlushOrder, AFailedFlushOfDocumentsIsToldAndTheNoteNamesOne) {
  writeBook();
  const std::vector<std::string> before = filesBelow("Manual/");
  const Outcome outcome =
      withFailureOf("syncfs:error=EIO:when=1", addWords({"--name", "Pumps", "--acro", "PMP"}));
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err,
            "critical: Error(57): Device I/O error\n"
            "Quorbind: Quor_Book::Book_Valuator\n"
            "quorbind: toc.txt: DISK/server/Docs/Plant/Manual/trends.htm could not be written; "
            "nothing was added\n");
  EXPECT_EQ(filesBelow("Manual/"), before);
}

}  // namespace
}  // namespace quorbind::testing
