#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

using Usage = CommandTest;

const std::vector<Words> kSubcommands{
    {"add"},
    {"prepare"},
    {"check"},
    {"init"},
    {"libraries"},
    {"where"},
    {"books"},
    {"show"},
    {"rename"},
    {"delete"},
    {"set"},
    {"install"},
    {"merge"},
    {"explain"},
    {"doctor"},
    {"categories"},
    {"categories", "list"},
    {"categories", "add"},
    {"categories", "rename"},
    {"categories", "file"},
    {"categories", "rebuild"},
    {"categories", "create"},
    {"keywords"},
    {"keywords", "list"},
    {"keywords", "find"},
    {"keywords", "add"},
    {"keywords", "rename"},
    {"links"},
    {"links", "list"},
    {"links", "add"},
    {"links", "check"},
    {"links", "merge"},
};

TEST_F(Usage, WithoutASubcommandIsWrong) {
  const Outcome outcome = quorbind({});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "A subcommand is required\n"
            "Run with --help for more information.\n");
}

TEST_F(Usage, AGroupWithoutASubcommandOfItsOwnIsWrong) {
  for (const char* group : {"categories", "keywords", "links"}) {
    const Outcome outcome = quorbind({group});
    EXPECT_EQ(outcome.status, 2) << group;
    EXPECT_EQ(outcome.out, "") << group;
    EXPECT_EQ(outcome.err,
              "A subcommand is required\n"
              "Run with --help for more information.\n");
  }
}

TEST_F(Usage, AFlagThatIsNotKnownIsWrong) {
  EXPECT_EQ(quorbind({"show", "--servre", "server", "--library", "Plant"}).status, 2);
}

TEST_F(Usage, AKindThatIsNotKnownIsWrong) {
  EXPECT_EQ(quorbind({"check", "toc.txt", "--kind", "word"}).status, 2);
}

TEST_F(Usage, AnInstallTypeThatIsNoNumberIsWrong) {
  EXPECT_EQ(add({"--install-type", "pro"}).status, 2);
}

TEST_F(Usage, ALibraryThatCanNotBeAFolderIsWrong) {
  for (const char* name : {"..", ".", "a/b", "a\\b", "C:", "nul", "a*b", "a\"b", "R&D", "", " x"}) {
    const Outcome outcome = quorbind({"init", "--server", "server", "--library", name});
    EXPECT_EQ(outcome.status, 2) << name;
    EXPECT_TRUE(disk.contents().empty()) << name;
  }
}

TEST_F(Usage, TheServerComesFromTheEnvironmentWhenItIsNotGiven) {
  initLibrary();
  EXPECT_EQ(quorbind({"show", "--library", "Plant"}).status, 2);
  environment["QUOR_SERVER"] = "server";
  EXPECT_EQ(quorbind({"show", "--library", "Plant"}).status, 0);
}

TEST_F(Usage, TheVersionIsToldOnTheStandardOutput) {
  const Outcome outcome = quorbind({"--version"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "quorbind " QUORBIND_VERSION "\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Usage, HelpOfTheWholeCommandNamesTheSubcommandsAndTheExitStatuses) {
  const Outcome outcome = quorbind({"--help"});
  EXPECT_EQ(outcome.status, 0);
  for (const Words& subcommand : kSubcommands) {
    EXPECT_NE(outcome.out.find("\n  " + subcommand.front() + " "), std::string::npos)
        << subcommand.front();
  }
  EXPECT_NE(outcome.out.find("Exit status: 0 done"), std::string::npos);
}

TEST_F(Usage, EverySubcommandHasHelp) {
  for (const Words& subcommand : kSubcommands) {
    std::string usage = "Usage: quorbind";
    for (const std::string& word : subcommand) {
      usage += " " + word;
    }
    const Outcome outcome = quorbind(joined(subcommand, {"--help"}));
    EXPECT_EQ(outcome.status, 0) << usage;
    EXPECT_NE(outcome.out.find(usage), std::string::npos) << outcome.out;
    EXPECT_EQ(outcome.err, "") << usage;
  }
}

TEST_F(Usage, HelpOfBooksSaysWhenALibraryIsNotNeeded) {
  const std::string help = quorbind({"books", "--help"}).out;
  EXPECT_NE(help.find("required unless --in is given"), std::string::npos) << help;
  EXPECT_EQ(help.find("; required\n"), std::string::npos) << help;
}

/// In a folder that is gone relative names mean nothing.
class InAFolderThatIsGone : public CommandTest {
 protected:
  [[nodiscard]] Outcome quorbindThere(const std::string& arguments) const {
    return runHere({"sh",
                    "-c",
                    "mkdir gone && cd gone && rmdir ../gone && exec " + quorbindExecutable() + " " +
                        arguments});
  }
};

TEST_F(InAFolderThatIsGone, AServerThatCanNotBeNamedIsAnInternalErrorToldAsOneObject) {
  const Outcome outcome = quorbindThere("show --server server --library Plant --json");
  EXPECT_EQ(outcome.status, 70);
  EXPECT_EQ(outcome.err.rfind("quorbind: internal error: ", 0), 0U) << outcome.err;
  EXPECT_EQ(outcome.out.rfind("{\n  \"format\": 1,\n"
                              "  \"status\": 70,\n"
                              "  \"messages\": [],\n"
                              "  \"note\": \"internal error: ",
                              0),
            0U)
      << outcome.out;
}

TEST_F(InAFolderThatIsGone, ATableThatCanNotBeNamedIsAnInternalErrorToldAsOneObject) {
  const Outcome outcome = quorbindThere("check toc.txt --json");
  EXPECT_EQ(outcome.status, 70);
  EXPECT_EQ(outcome.err.rfind("critical: internal error: ", 0), 0U) << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with("\nquorbind: toc.txt: not accepted\n")) << outcome.err;
  EXPECT_EQ(
      outcome.out.rfind("{\n  \"format\": 1,\n  \"status\": 70,\n  \"accepted\": false,\n", 0), 0U)
      << outcome.out;
  EXPECT_NE(outcome.out.find("\"text\": \"internal error: "), std::string::npos) << outcome.out;
}

TEST_F(Usage, AStandardOutputThatTakesNothingIsAFailedWrite) {
  initLibrary();
  const Outcome outcome = runHere(
      {"sh", "-c", quorbindExecutable() + " show --server server --library Plant > /dev/full"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "quorbind: the standard output could not be written\n");
}

}  // namespace
}  // namespace quorbind::testing
