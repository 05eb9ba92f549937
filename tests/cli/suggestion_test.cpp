#include "cli/suggestion.h"

#include <gtest/gtest.h>

#include <utility>

#include "cli/command_line.h"
#include "cli/grammar.h"

namespace quorbind::testing {
namespace {

using Words = std::vector<std::string>;

/// What a wrong command line is answered with.
std::string answerTo(const Words& words) {
  std::vector<const char*> arguments{"quorbind"};
  for (const std::string& word : words) {
    arguments.push_back(word.c_str());
  }
  ::testing::internal::CaptureStderr();
  const auto parsed = readCommandLine(static_cast<int>(arguments.size()), arguments.data());
  std::string told = ::testing::internal::GetCapturedStderr();
  const auto* status = std::get_if<ExitStatus>(&parsed);
  EXPECT_TRUE(status != nullptr && *status == ExitStatus::kWrongUsage) << told;
  return told;
}

constexpr const char* kMoreInformation = "\nRun with --help for more information.\n";

/// The word with each letter left out, and with each two neighbours swapped, from `begin` on.
Words slipsOf(const std::string& word, std::size_t begin) {
  Words slips;
  for (std::size_t at = begin; at < word.size(); ++at) {
    slips.push_back(word.substr(0, at) + word.substr(at + 1));
    if (at + 1 < word.size() && word[at] != word[at + 1]) {
      slips.push_back(word);
      std::swap(slips.back()[at], slips.back()[at + 1]);
    }
  }
  return slips;
}

/// Calls `visit` with every subcommand and the words that lead to it.
template <typename Visit>
void forEachSubcommand(const CLI::App& app, const Words& path, const Visit& visit) {
  for (const CLI::App* subcommand : app.get_subcommands(std::function<bool(const CLI::App*)>())) {
    Words words = path;
    words.push_back(subcommand->get_name());
    visit(*subcommand, words);
    forEachSubcommand(*subcommand, words, visit);
  }
}

class UnknownWord : public ::testing::Test {
 protected:
  void SetUp() override { declareCommand(app_, task_); }

  CLI::App app_;
  Task task_;
};

TEST_F(UnknownWord, OneLetterLeftOutOrSwappedInASubcommandIsAnsweredWithTheSubcommand) {
  std::size_t slips = 0;
  forEachSubcommand(app_, {}, [&](const CLI::App& /*subcommand*/, const Words& path) {
    for (const std::string& slip : slipsOf(path.back(), 0)) {
      Words words = path;
      words.back() = slip;
      const std::string told = answerTo(words);
      EXPECT_NE(told.find("'" + slip + "'. Did you mean "), std::string::npos) << told;
      EXPECT_NE(told.find("'" + path.back() + "'", told.find(" mean ")), std::string::npos) << told;
      ++slips;
    }
  });
  EXPECT_GT(slips, 200U);
}

TEST_F(UnknownWord, OneLetterLeftOutOrSwappedInAFlagIsAnsweredWithTheFlag) {
  std::size_t slips = 0;
  forEachSubcommand(app_, {}, [&](const CLI::App& subcommand, const Words& path) {
    for (const CLI::Option* option : subcommand.get_options()) {
      for (const std::string& name : option->get_lnames()) {
        for (const std::string& slip : slipsOf("--" + name, 2)) {
          Words words = path;
          words.push_back(slip);
          const std::string told = answerTo(words);
          EXPECT_NE(told.find(" has no flag '" + slip + "'. Did you mean "), std::string::npos)
              << told;
          EXPECT_NE(told.find("'--" + name + "'"), std::string::npos) << told;
          ++slips;
        }
      }
    }
  });
  EXPECT_GT(slips, 1000U);
}

TEST_F(UnknownWord, IsToldWholeWithTheWordThatWasProbablyMeant) {
  EXPECT_EQ(
      answerTo({"chekc", "toc.txt"}),
      std::string("There is no subcommand 'chekc'. Did you mean 'check'?") + kMoreInformation);
  EXPECT_EQ(answerTo({"categories", "lits", "--server", "s", "--library", "P"}),
            std::string("'categories' has no subcommand 'lits'. Did you mean 'list'?") +
                kMoreInformation);
  EXPECT_EQ(
      answerTo({"show", "--servre=s", "--library", "P"}),
      std::string("'show' has no flag '--servre=s'. Did you mean '--server'?") + kMoreInformation);
  EXPECT_EQ(
      answerTo({"links", "list", "--jsno"}),
      std::string("'links list' has no flag '--jsno'. Did you mean '--json'?") + kMoreInformation);
}

TEST_F(UnknownWord, InAnotherLetterCaseIsAnsweredWithTheOneThatThereIs) {
  EXPECT_EQ(answerTo({"ADD", "toc.txt"}),
            std::string("There is no subcommand 'ADD'. Did you mean 'add'?") + kMoreInformation);
  EXPECT_EQ(answerTo({"Categories", "list"}),
            std::string("There is no subcommand 'Categories'. Did you mean 'categories'?") +
                kMoreInformation);
  EXPECT_EQ(
      answerTo({"show", "--LIBRARY", "P"}),
      std::string("'show' has no flag '--LIBRARY'. Did you mean '--library'?") + kMoreInformation);
}

TEST_F(UnknownWord, AfterASingleHyphenIsAnsweredWithTheFlagAfterTwo) {
  EXPECT_EQ(
      answerTo({"show", "-server", "s", "--library", "P"}),
      std::string("'show' has no flag '-server'. Did you mean '--server'?") + kMoreInformation);
  EXPECT_EQ(
      answerTo({"show", "-libary=P", "--server", "s"}),
      std::string("'show' has no flag '-libary=P'. Did you mean '--library'?") + kMoreInformation);
  // There is a flag -y, which would take the rest for more flags.
  EXPECT_EQ(answerTo({"delete", "Alarms", "-yes", "--server", "s", "--library", "P"}),
            std::string("'delete' has no flag '-yes'. Did you mean '--yes'?") + kMoreInformation);
}

TEST_F(UnknownWord, ThatResemblesNothingIsToldWithoutASuggestion) {
  EXPECT_EQ(answerTo({"frobnicate"}),
            std::string("There is no subcommand 'frobnicate'.") + kMoreInformation);
  EXPECT_EQ(answerTo({"check", "toc.txt", "--frobnicate"}),
            std::string("'check' has no flag '--frobnicate'.") + kMoreInformation);
  EXPECT_EQ(answerTo({"check", "toc.txt", "-x"}),
            std::string("'check' has no flag '-x'.") + kMoreInformation);
}

TEST_F(UnknownWord, IsNoValueOfAFlagAndNothingBehindTheEndOfFlags) {
  EXPECT_EQ(answerTo({"rename", "Alarms", "--server", "chekc", "--name", "x"}),
            std::string("--library is required") + kMoreInformation);
  const std::string told = answerTo({"check", "--kind", "text", "--", "--toc", "--jsno"});
  EXPECT_TRUE(told.starts_with("The following arguments were not expected: ")) << told;
}

TEST_F(UnknownWord, HasItsControlCharactersWrittenOut) {
  EXPECT_EQ(answerTo({"\x1B[2Jchek"}),
            std::string("There is no subcommand '\\x1B[2Jchek'.") + kMoreInformation);
}

TEST(EditDistance, CountsLettersLeftOutPutInExchangedOrSwapped) {
  EXPECT_EQ(editDistance("check", "check"), 0U);
  EXPECT_EQ(editDistance("chek", "check"), 1U);
  EXPECT_EQ(editDistance("checkk", "check"), 1U);
  EXPECT_EQ(editDistance("chack", "check"), 1U);
  EXPECT_EQ(editDistance("chekc", "check"), 1U);
  EXPECT_EQ(editDistance("", "check"), 5U);
  EXPECT_EQ(editDistance("show", "set"), 3U);
}

TEST_F(UnknownWord, InTheSingularOrCutShortIsAnsweredWithTheWholeWord) {
  const auto answer = [](const std::string& what) { return what + kMoreInformation; };
  EXPECT_EQ(answerTo({"category", "list"}),
            answer("There is no subcommand 'category'. Did you mean 'categories'?"));
  EXPECT_EQ(answerTo({"library"}),
            answer("There is no subcommand 'library'. Did you mean 'libraries'?"));
  EXPECT_EQ(answerTo({"del", "Alarms"}),
            answer("There is no subcommand 'del'. Did you mean 'delete'?"));
  EXPECT_EQ(answerTo({"show", "--lib", "Plant"}),
            answer("'show' has no flag '--lib'. Did you mean '--library'?"));
  EXPECT_EQ(answerTo({"add", "toc.txt", "--cat", "Maps"}),
            answer("'add' has no flag '--cat'. Did you mean '--category' or '--categories'?"));
}

TEST(Suggestion, IsNoneForTwoLettersOfAWord) {
  EXPECT_EQ(suggestionFor("ca", {"categories"}), "");
  EXPECT_EQ(suggestionFor("--ca", {"--categories"}), "");
}

TEST(Suggestion, OfAWordThatIsThereIsNoLongerOne) {
  EXPECT_EQ(suggestionFor("LINK", {"links", "link"}), " Did you mean 'link'?");
}

TEST(Suggestion, NamesAllThatAreEquallyNear) {
  EXPECT_EQ(suggestionFor("--cat", {"--cut", "--cap", "--other"}),
            " Did you mean '--cut' or '--cap'?");
}

}  // namespace
}  // namespace quorbind::testing
