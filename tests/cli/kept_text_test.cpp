// Texts that no XML file can hold, from every flag whose text goes into one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/cli/library_subcommands.h"

namespace quorbind::testing {
namespace {

using ::testing::StartsWith;

constexpr const char* kNotKept = "a\x01z";
constexpr const char* kRefusal =
    "critical: the text a\\x01z can not be kept: it holds a character that no XML file can hold\n";

class NotKept : public CompleteLibrary {};

TEST_P(NotKept, IsRefusedBeforeAnythingIsWritten) {
  disk.write("toc.txt",
             std::string(kHeader) + "\r\n\r\n\"1\" \"Pumps\" \"Manual\\g.htm\" \"\"\r\n");
  disk.write("job.toml",
             "server = \"server\"\nlibrary = \"Plant\"\n\n[[book]]\ntoc = \"toc.txt\"\n"
             "name = \"a\\u0001z\"\nacro = \"PMP\"\n");
  const Tree before = disk.contents();
  const bool isJob = GetParam().words.back() == "job.toml";
  const Outcome outcome = isJob ? quorbind(GetParam().words) : quorbind(words());
  EXPECT_EQ(outcome.status, 1) << outcome.err;
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, StartsWith(kRefusal));
  EXPECT_EQ(disk.contents(), before);
}

const std::vector<Subcommand> kSubcommands{
    {"name_of_an_addition", {"add", "toc.txt", "--name", kNotKept, "--acro", "PMP", "--no-input"}},
    {"acronym_of_an_addition",
     {"add", "toc.txt", "--name", "Pumps", "--acro", kNotKept, "--no-input"}},
    {"folder_of_an_addition",
     {"add", "toc.txt", "--name", "Pumps", "--acro", "PMP", "--folder", kNotKept, "--no-input"}},
    {"category_of_an_addition",
     {"add", "toc.txt", "--name", "Pumps", "--acro", "PMP", "--category", kNotKept, "--no-input"}},
    {"name_in_a_job_file", {"add", "--job", "job.toml"}},
    {"name_of_a_document",
     {"install", "in/plan.htm", "--name", kNotKept, "--acro", "PLN", "--type", "htm"}},
    {"acronym_of_a_document",
     {"install", "in/plan.htm", "--name", "Plan", "--acro", kNotKept, "--type", "htm"}},
    {"type_of_a_document",
     {"install", "in/plan.htm", "--name", "Plan", "--acro", "PLN", "--type", kNotKept}},
    {"file_of_a_document",
     {"install",
      "in/plan.htm",
      "--name",
      "Plan",
      "--acro",
      "PLN",
      "--type",
      "htm",
      "--file-name",
      kNotKept}},
    {"new_name", {"rename", "Alarms", "--name", kNotKept, "--acro", "ALM", "--yes"}},
    {"new_acronym", {"rename", "Alarms", "--name", "Alarms", "--acro", kNotKept, "--yes"}},
    {"new_folder", {"set", "Alarms", "--folder", kNotKept}},
    {"new_categories", {"set", "Alarms", "--categories", kNotKept}},
    {"new_link", {"set", "Alarms", "--link", kNotKept}},
    {"identifier",
     {"links", "add", kNotKept, "--full", "ALM@QUOR@A", "--source", "a.htm", "--acro", "ALM"}},
    {"full_link", {"links", "add", "X3", "--full", kNotKept, "--source", "a.htm", "--acro", "ALM"}},
    {"source",
     {"links", "add", "X3", "--full", "ALM@QUOR@A", "--source", kNotKept, "--acro", "ALM"}},
};

INSTANTIATE_TEST_SUITE_P(From, NotKept, ::testing::ValuesIn(kSubcommands), nameOf);

class StatedFolder : public CompleteLibrary {};

TEST_P(StatedFolder, ThatIsNotKeptIsRefusedWithTheTable) {
  disk.write("toc.txt",
             std::string(kHeader) + "\r\n\r\n\"1\" \"Pumps\" \"" + kNotKept + "\\g.htm\" \"\"\r\n");
  disk.write("toc.htm", std::string("<K1><A HREF=\"") + kNotKept + "/g.htm\">Pumps</A></K1>");
  const Tree before = disk.contents();
  const Outcome outcome =
      quorbind(GetParam().words.front() == "check" ? GetParam().words : words());
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, StartsWith(kRefusal));
  EXPECT_EQ(disk.contents(), before);
}

const std::vector<Subcommand> kTables{
    {"add_text", {"add", "toc.txt", "--name", "Pumps", "--acro", "PMP", "--no-input"}},
    {"add_page", {"add", "toc.htm", "--name", "Pumps", "--acro", "PMP", "--no-input"}},
    {"check_text", {"check", "toc.txt"}},
    {"check_page", {"check", "toc.htm"}},
};

INSTANTIATE_TEST_SUITE_P(In, StatedFolder, ::testing::ValuesIn(kTables), nameOf);

class NewLibrary : public CommandTest {};

TEST_F(NewLibrary, IsNotMadeWithANameThatIsNotKept) {
  const Outcome outcome = quorbind({"init", "--server", "server", "--library", kNotKept});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, StartsWith(kRefusal));
  EXPECT_TRUE(disk.contents().empty());
}

}  // namespace
}  // namespace quorbind::testing
