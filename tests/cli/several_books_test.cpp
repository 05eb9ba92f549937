#include <algorithm>

#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

/// Three tables of contents, of which `bad.txt` breaks a rule.
class SeveralBooks : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    disk.write("a.txt",
               tocOf("\"1\" \"Alarms\" \"A\\a.htm\" \"\"\n\"2\" \"Bells\" \"A\\a.htm\" \"\"\n"));
    disk.write("bad.txt", tocOf("\"7\" \"Bad\" \"B\\b.htm\" \"\"\n"));
    disk.write("c.txt", tocOf("\"1\" \"Cables\" \"c.htm\" \"\"\n\"2\" \"Cores\" \"c.htm\" \"\"\n"));
  }

  static std::string tocOf(const std::string& entries) {
    return std::string(kHeader) + "\n\n" + entries;
  }
  static std::string book(const std::string& toc, const std::string& acro) {
    return "[[book]]\ntoc = \"" + toc + "\"\nname = \"" + acro + "\"\nacro = \"" + acro + "\"\n";
  }
  [[nodiscard]] Outcome runJob(const std::string& text, const Words& more = {}) const {
    disk.write("job.toml", text);
    return quorbind(joined({"add", "--job", "job.toml"}, more));
  }
  /// Runs a job that is refused as a whole, and expects this box, the line under it included, with
  /// nothing changed. A fault with a line is told what would be accepted.
  void expectRefusal(const std::string& text, int status, const std::string& box) const {
    disk.write("job.toml", text);
    const Tree before = disk.contents();
    const Outcome outcome =
        quorbind({"add", "--job", "job.toml", "--server", "server", "--library", "Plant"});
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    const std::string accepted =
        box.starts_with("job.toml:") && box[9] != ' '
            ? "accepted: Well-formed XML; of a job file, TOML with the keys and the values that it "
              "may have.\n"
            : "";
    EXPECT_EQ(outcome.err + outcome.help, "critical: " + box + accepted);
    EXPECT_EQ(disk.contents(), before);
  }
  /// The acronyms of the books in the library, one a line.
  [[nodiscard]] std::string books() const {
    return quorbind({"books", "--server", "server", "--library", "Plant"}).out;
  }

  const Words place_{"--server", "server", "--library", "Plant"};
  const std::string inPlant_ = "server = \"server\"\nlibrary = \"Plant\"\n";
};

TEST_F(SeveralBooks, OfAJobFileAreAddedInItsOrderEachWithItsOwnFlags) {
  const Outcome outcome = runJob(inPlant_ + "category = \"Manuals\"\n" + book("a.txt", "ALM") +
                                 "keywords = [\"bell\", \"horn\"]\n" + book("c.txt", "CBL") +
                                 "folder = \"Cab\"\ncategory = [\"Power\", \"Wires\"]\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added ALM (ALM) to Plant, folder A: 1 file.\n"
            "missing: a.htm\n"
            "Added CBL (CBL) to Plant, folder Cab: 1 file.\n"
            "missing: c.htm\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(books(), "ALM\nCBL\n");
  const auto show = [&](const char* acronym) {
    return quorbind(joined({"show", acronym}, place_)).out;
  };
  EXPECT_NE(show("ALM").find("\ncategories: Manuals\n"), std::string::npos);
  EXPECT_NE(show("CBL").find("\ncategories: Power; Wires\n"), std::string::npos);
  EXPECT_EQ(quorbind(joined({"keywords", "list", "ALM"}, place_)).out,
            "BOOK  KEYWORDS\nALM   bell, horn\n");
}

TEST_F(SeveralBooks, DoNotStopAtOneThatFailsAndEndWithItsStatus) {
  const Outcome outcome = runJob(inPlant_ + book("bad.txt", "BAD") + book("none.txt", "NON") +
                                 book("c.txt", "CBL") + "folder = \"Cab\"\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "Added CBL (CBL) to Plant, folder Cab: 1 file.\n"
            "missing: c.htm\n");
  EXPECT_EQ(outcome.err,
            "critical: Line: \"7\" \"Bad\" \"B\\b.htm\" \"\"\n"
            "Error:Invalid Node Level Sequence \n"
            "offending line: \"7\" \"Bad\" \"B\\b.htm\" \"\"\n"
            "quorbind: bad.txt:3:1: nothing was added\n"
            "critical: TOC not found at Path\n"
            "none.txt\n"
            "quorbind: none.txt: nothing was added\n"
            "quorbind: 1 of 3 tables of contents added\n");
  EXPECT_EQ(books(), "CBL\n");
}

TEST_F(SeveralBooks, StopAtTheFirstThatFailsWhenTheFlagOrTheJobFileSaysSo) {
  const std::string text = book("none.txt", "NON") + book("a.txt", "ALM");
  for (const Outcome& outcome : {runJob(inPlant_ + text, {"--stop-at-first"}),
                                 runJob("stop-at-first = true\n" + inPlant_ + text)}) {
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(
        outcome.err.ends_with("quorbind: none.txt: nothing was added\n"
                              "quorbind: a.txt: not tried\n"
                              "quorbind: 0 of 2 tables of contents added\n"))
        << outcome.err;
  }
  EXPECT_EQ(books(), "");
}

TEST_F(SeveralBooks, DoNotStopWhereTheCommandLineOverrulesTheJobFile) {
  const Outcome outcome =
      runJob("stop-at-first = true\n" + inPlant_ + book("none.txt", "NON") + book("a.txt", "ALM"),
             {"--stop-at-first=false"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(books(), "ALM\n");
}

TEST_F(SeveralBooks, KeepNothingOfTheOneBefore) {
  // A process remembers the folder that its first dialog was given, and would not ask again.
  disk.write("d.txt", tocOf("\"1\" \"Drums\" \"d.htm\" \"\"\n\"2\" \"Drives\" \"d.htm\" \"\"\n"));
  const Outcome outcome =
      runJob(inPlant_ + book("c.txt", "CBL") + "folder = \"Cab\"\n" + book("d.txt", "DRM"));
  EXPECT_EQ(outcome.status, 6);
  EXPECT_EQ(outcome.err,
            "quorbind: d.txt: nothing was added: give --folder\n"
            "quorbind: 1 of 2 tables of contents added\n");
  EXPECT_EQ(books(), "CBL\n");
}

TEST_F(SeveralBooks, OfTheCommandLineShareItsFlags) {
  const Outcome outcome = quorbind(joined({"add", "bad.txt", "none.txt"}, place_));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(
      outcome.err.ends_with("quorbind: none.txt: nothing was added\n"
                            "quorbind: 0 of 2 tables of contents added\n"))
      << outcome.err;
}

TEST_F(SeveralBooks, AreToldAsOneObject) {
  const Outcome outcome =
      runJob(inPlant_ + book("a.txt", "ALM") + book("none.txt", "NON") + book("c.txt", "CBL"),
             {"--json", "--stop-at-first"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"status\": 3,\n"
            "  \"added\": false,\n"
            "  \"additions\": [\n"
            "    {\n"
            "      \"toc\": \"a.txt\",\n"
            "      \"status\": 0,\n"
            "      \"added\": true,\n"
            "      \"folder\": \"A\",\n"
            "      \"files\": [\n"
            "        \"Book_ALM.xml\"\n"
            "      ],\n"
            "      \"missing\": [\n"
            "        \"a.htm\"\n"
            "      ],\n"
            "      \"messages\": []\n"
            "    },\n"
            "    {\n"
            "      \"toc\": \"none.txt\",\n"
            "      \"status\": 3,\n"
            "      \"added\": false,\n"
            "      \"folder\": \"\",\n"
            "      \"files\": [],\n"
            "      \"missing\": [],\n"
            "      \"messages\": [\n"
            "        {\n"
            "          \"icon\": \"critical\",\n"
            "          \"title\": \"Quorbind\",\n"
            "          \"text\": \"TOC not found at Path\\rnone.txt\",\n"
            "          \"clipboard\": null,\n"
            "          \"expected\": \"The name of a file that is there.\"\n"
            "        }\n"
            "      ],\n"
            "      \"expected\": \"The name of a file that is there.\",\n"
            "      \"note\": \"nothing was added\"\n"
            "    }\n"
            "  ],\n"
            "  \"notTried\": [\n"
            "    \"c.txt\"\n"
            "  ],\n"
            "  \"note\": \"1 of 3 tables of contents added\"\n"
            "}\n");
}

TEST_F(SeveralBooks, AreFoundBesideTheirJobFile) {
  disk.write("jobs/b.txt", disk.read("a.txt"));
  disk.write("jobs/job.toml",
             "server = \"../server\"\nlibrary = \"Plant\"\n" + book("b.txt", "ALM"));
  EXPECT_EQ(quorbind({"add", "--job", "jobs/job.toml"}).status, 0);
  EXPECT_EQ(books(), "ALM\n");
}

TEST_F(SeveralBooks, TakeFromTheCommandLineWhatTheJobFileLeavesOpen) {
  EXPECT_EQ(runJob(book("a.txt", "ALM"), place_).out,
            "Added ALM (ALM) to Plant, folder A: 1 file.\n"
            "missing: a.htm\n");
}

TEST_F(SeveralBooks, TakeABooksOwnWordBeforeTheOneAtTheTop) {
  ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Other"}).status, 0);
  EXPECT_EQ(runJob(inPlant_ + "folder = \"Top\"\n" + book("c.txt", "CBL") + "folder = \"Cab\"\n" +
                   "library = \"Other\"\n" + book("c.txt", "COR"))
                .out,
            "Added CBL (CBL) to Other, folder Cab: 1 file.\n"
            "missing: c.htm\n"
            "Added COR (COR) to Plant, folder Top: 1 file.\n"
            "missing: c.htm\n");
}

TEST_F(SeveralBooks, TakeTheCommandLinesWordBeforeAllOfTheFile) {
  ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Trial"}).status, 0);
  const Outcome outcome =
      runJob("server = \"nowhere\"\nlibrary = \"Plant\"\nno-input = false\nfolder = \"Top\"\n" +
                 book("c.txt", "CBL") + "library = \"Plant\"\nfolder = \"Cab\"\n",
             {"--server", "server", "--library", "Trial", "--folder", "Own", "--no-input"});
  EXPECT_EQ(outcome.out,
            "Added CBL (CBL) to Trial, folder Own: 1 file.\n"
            "missing: c.htm\n");
  EXPECT_EQ(books(), "");
}

TEST_F(SeveralBooks, TakeAnEmptyListOfTheCommandLineBeforeThatOfTheFile) {
  EXPECT_EQ(runJob(inPlant_ + book("a.txt", "ALM") + "keywords = [\"bell\"]\n", {"--keywords", ""})
                .status,
            0);
  EXPECT_EQ(quorbind(joined({"keywords", "list", "ALM"}, place_)).out, "BOOK  KEYWORDS\nALM\n");
}

TEST_F(SeveralBooks, TakeTheServerOfTheEnvironmentWhereNothingElseNamesOne) {
  environment["QUOR_SERVER"] = "nowhere";
  EXPECT_EQ(runJob(inPlant_ + book("a.txt", "ALM")).status, 0);
  environment["QUOR_SERVER"] = "server";
  EXPECT_EQ(runJob("library = \"Plant\"\n" + book("c.txt", "CBL") + "folder = \"Cab\"\n").status,
            0);
  EXPECT_EQ(quorbind({"add", "none.txt", "--library", "Plant"}).status, 3);
  EXPECT_EQ(books(), "ALM\nCBL\n");
}

TEST_F(SeveralBooks, HaveToBeRightInTheJobFileAlsoWhereTheCommandLineOverrulesIt) {
  const Outcome outcome =
      runJob("kind = \"word\"\n" + book("a.txt", "ALM"), joined(place_, {"--kind", "text"}));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "critical: job.toml:1:8: kind has to be xml, html, excel or text\n");
}

TEST_F(SeveralBooks, HaveAKeyForEveryFlagButThoseOfTheRunAsAWhole) {
  const Words ofTheRun{"help", "job", "json"};
  const std::string help = quorbind({"add", "--help"}).out;
  std::size_t keys = 0;
  for (std::size_t at = help.find("--"); at != std::string::npos; at = help.find("--", at + 2)) {
    const std::size_t end = help.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", at);
    const std::string flag = help.substr(at + 2, end - at - 2);
    const bool isOfTheRun = std::find(ofTheRun.begin(), ofTheRun.end(), flag) != ofTheRun.end();
    // No key takes a time of day, so that one that there is complains of its value.
    const std::string line = flag + " = 10:00:00\n";
    const std::string oneBook = "[[book]]\ntoc = \"a.txt\"\n";
    const std::string complaint = ": " + flag + " has to be ";
    const bool isKey = contains(runJob(line + oneBook).err, complaint) ||
                       contains(runJob(oneBook + line).err, complaint);
    keys += isKey ? 1 : 0;
    EXPECT_NE(isKey, isOfTheRun) << flag;
  }
  EXPECT_GE(keys, 13U);
}

TEST_F(SeveralBooks, HaveNoNameInCommon) {
  for (const Words& words :
       {Words{"a.txt", "c.txt", "--name", "N"}, Words{"--job", "j", "--acro", "A"}}) {
    const Outcome outcome = quorbind(joined({"add"}, joined(words, place_)));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err,
              "--name and --acro are for a single table of contents; a job file names each book\n"
              "Run with --help for more information.\n");
  }
}

TEST_F(SeveralBooks, NeedATableOfContentsAServerAndALibraryWithoutAJobFile) {
  const std::string more = "\nRun with --help for more information.\n";
  EXPECT_EQ(quorbind({"add"}).err, "TOC or --job is required" + more);
  EXPECT_EQ(quorbind({"add", "a.txt"}).err, "--server is required" + more);
  EXPECT_EQ(quorbind({"add", "a.txt", "--server", "server"}).err, "--library is required" + more);
  EXPECT_EQ(quorbind({"add", "a.txt", "--job", "job.toml"}).status, 2);
}

TEST_F(SeveralBooks, OfAJobFileThatIsNotThereAreMissingInput) {
  const Outcome outcome = quorbind({"add", "--job", "none.toml"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "critical: none.toml: File not found\n");
}

TEST_F(SeveralBooks, OfAJobFileThatIsFarTooLargeAreNotAdded) {
  disk.write("job.toml", std::string(std::size_t{2} << 20U, '#'));
  const Outcome outcome = quorbind({"add", "--job", "job.toml"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err, "critical: job.toml: it is too large for a job file\n");
}

TEST_F(SeveralBooks, OfAJobFileWithAKeyOfFarTooManyPartsAreNotAdded) {
  expectRefusal("a" + std::string(65, '.') + "a = 1\n",
                4,
                "job.toml:1:1: there are too many dots in a line\n"
                "  1 | a" +
                    std::string(65, '.') +
                    "a = 1\n"
                    "    | ^\n");
}

TEST_F(SeveralBooks, OfAJobFileWithAByteOrderMarkAndCrLfAreShownWithoutThem) {
  expectRefusal("\xEF\xBB\xBFlibraryy = \"x\"\r\n",
                1,
                "job.toml:1:1: there is no key 'libraryy' here. Did you mean 'library'?\n"
                "  1 | libraryy = \"x\"\n"
                "    | ^^^^^^^^\n");
}

TEST_F(SeveralBooks, OfAJobFileThatDoesNotParseAreNotAdded) {
  disk.write("job.toml", "[[book]]\ntoc = a.txt\n");
  const Outcome outcome = quorbind({"add", "--job", "job.toml", "--json"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_TRUE(outcome.err.starts_with("critical: job.toml:2:")) << outcome.err;
  EXPECT_TRUE(outcome.out.ends_with("  \"note\": \"nothing was added\"\n}\n")) << outcome.out;
  EXPECT_EQ(books(), "");
}

TEST_F(SeveralBooks, OfAJobFileTellAProgramTheLineAtFault) {
  disk.write("job.toml", "libraryy = \"x\"\n");
  EXPECT_EQ(quorbind({"add", "--job", "job.toml", "--json"}).out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"critical\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"job.toml:1:1: there is no key 'libraryy' here. Did you mean "
            "'library'?\",\n"
            "      \"clipboard\": null,\n"
            "      \"expected\": \"Well-formed XML; of a job file, TOML with the keys and the "
            "values that it may have.\"\n"
            "    }\n"
            "  ],\n"
            "  \"line\": 1,\n"
            "  \"column\": 1,\n"
            "  \"length\": 8,\n"
            "  \"text\": \"libraryy = \\\"x\\\"\",\n"
            "  \"note\": \"nothing was added\"\n"
            "}\n");
}

TEST_F(SeveralBooks, OfAJobFileWithAKeyThatIsNotKnownAreRefusedWithTheLine) {
  expectRefusal(book("a.txt", "ALM") + "\tcategorys = \"x\"\n",
                1,
                "job.toml:5:2: there is no key 'categorys' here. Did you mean 'category'?\n"
                "  5 |     categorys = \"x\"\n"
                "    |     ^^^^^^^^^\n");
  expectRefusal("name = \"N\"\n" + book("a.txt", "ALM"),
                1,
                "job.toml:1:1: there is no key 'name' here.\n"
                "  1 | name = \"N\"\n"
                "    | ^^^^\n");
  expectRefusal(book("a.txt", "ALM") + "stop-at-first = true\n",
                1,
                "job.toml:5:1: there is no key 'stop-at-first' here.\n"
                "  5 | stop-at-first = true\n"
                "    | ^^^^^^^^^^^^^\n");
}

TEST_F(SeveralBooks, OfAJobFileWithAValueThatDoesNotBelongThereAreRefusedWithTheLine) {
  const auto refusal =
      [](const std::string& line, const std::string& mark, const std::string& what) {
        const std::size_t column = line.find(mark) + 1;
        return "job.toml:5:" + std::to_string(column) + ": " + what + "\n  5 | " + line +
               "\n    | " + std::string(column - 1, ' ') + std::string(mark.size(), '^') + "\n";
      };
  struct Case {
    std::string line;
    std::string mark;
    std::string what;
  };
  for (const Case& wrong : std::vector<Case>{
           {"kind = \"word\"", "\"word\"", "kind has to be xml, html, excel or text"},
           {"folder = 7", "7", "folder has to be a text"},
           {"folder = [\"F\"]", "[\"F\"]", "folder has to be a text"},
           {"install-type = \"x\"", "\"x\"", "install-type has to be a whole number"},
           {"install-type = 3000000000", "3000000000", "install-type is out of range"},
           {"no-input = \"yes\"", "\"yes\"", "no-input has to be true or false"},
           {"keywords = 7", "7", "keywords has to be a text or a list of texts"},
           {"keywords = [\"a;b\"]", "\"a;b\"", "an entry of keywords must not hold ;"},
           {"category = [\"a, b\"]", "\"a, b\"", "an entry of category must not hold ,"},
           {"categories = [\"a\", \"b,c\"]", "\"b,c\"", "an entry of categories must not hold ,"},
           {"server = \"\"", "\"\"", "server must not be empty"},
           {"library = \"..\"",
            "\"..\"",
            "a library is a folder, and '..' can not be the name of one"}}) {
    expectRefusal(
        book("a.txt", "ALM") + wrong.line + "\n", 1, refusal(wrong.line, wrong.mark, wrong.what));
  }
}

TEST_F(SeveralBooks, OfAJobFileThatNamesABookByWhatIsNoTextAreRefusedWithTheLine) {
  const std::string beginning = "[[book]]\ntoc = \"a.txt\"\n";
  expectRefusal(beginning + "name = 7\n",
                1,
                "job.toml:3:8: name has to be a text or a list of texts\n"
                "  3 | name = 7\n"
                "    |        ^\n");
  expectRefusal(beginning + "acro = [\"A\", 7]\n",
                1,
                "job.toml:3:14: acro has to be a text or a list of texts\n"
                "  3 | acro = [\"A\", 7]\n"
                "    |              ^\n");
}

TEST_F(SeveralBooks, HaveOneNameEachUnlessTheyAreThoseOfAWorkbook) {
  const Tree before = disk.contents();
  const Outcome outcome = runJob(inPlant_ +
                                 "[[book]]\ntoc = \"a.txt\"\nname = [\"A\", \"B\"]\nacro = "
                                 "[\"A\", \"B\"]\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: --name is given 2 times, and the table of contents is of one book\n"
            "quorbind: a.txt: nothing was added\n"
            "quorbind: 0 of 1 table of contents added\n");
  const Outcome flags =
      quorbind(joined({"add", "a.txt", "--name", "A", "--acro", "A", "--acro", "B"}, place_));
  EXPECT_EQ(flags.status, 1);
  EXPECT_EQ(flags.err,
            "critical: --acro is given 2 times, and the table of contents is of one book\n"
            "quorbind: a.txt: nothing was added\n");
  std::filesystem::remove(disk.path() / "job.toml");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(SeveralBooks, OfAJobFileThatLacksWhatItNeedsAreRefused) {
  expectRefusal("",
                1,
                "job.toml: there is no [[book]]: each table of contents has one\n"
                "accepted: A [[book]] with a toc for each table of contents.\n");
  expectRefusal("book = 1\n",
                1,
                "job.toml:1:8: write [[book]] in front of what belongs to a table of contents\n"
                "  1 | book = 1\n"
                "    |        ^\n");
  expectRefusal("[[book]]\nname = \"N\"\n",
                1,
                "job.toml:1:1: the book has no toc, which names its table of contents\n"
                "  1 | [[book]]\n"
                "    | ^^^^^^^^\n");
  EXPECT_EQ(runJob(book("a.txt", "ALM"), {"--server", "server"}).status, 1);
}

}  // namespace
}  // namespace quorbind::testing
