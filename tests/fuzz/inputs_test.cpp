// Every input that is kept, seeds and former crashes alike, through its target.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/bad_input/library_operations.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/targets.h"

namespace quorbind::testing {

void PrintTo(const FuzzTarget& target, std::ostream* out) {
  *out << target.name;
}

namespace {

using Path = std::filesystem::path;

const Path& inputs() {
  static const Path kInputs(QUORBIND_FUZZ_INPUTS);
  return kInputs;
}

std::set<Path> filesIn(const Path& folder) {
  return {std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()};
}

std::string bytesOf(const Path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class KeptInputs : public ::testing::TestWithParam<FuzzTarget> {};

TEST_P(KeptInputs, BreakNoClaim) {
  const std::set<Path> files = filesIn(inputs() / GetParam().name);
  EXPECT_FALSE(files.empty());
  for (const Path& file : files) {
    EXPECT_NO_THROW(GetParam().run(bytesOf(file))) << file;
  }
}

TEST_P(KeptInputs, BreakNoClaimWhereverTheyAreCutOff) {
  constexpr std::size_t kPlaces = 16;
  for (const Path& file : filesIn(inputs() / GetParam().name)) {
    const std::string bytes = bytesOf(file);
    for (std::size_t place = 0; place < kPlaces; ++place) {
      const std::size_t size = bytes.size() * place / kPlaces;
      EXPECT_NO_THROW(GetParam().run(bytes.substr(0, size))) << file << " up to " << size;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of,
                         KeptInputs,
                         ::testing::ValuesIn(fuzzTargets().begin(), fuzzTargets().end()),
                         [](const auto& parameter) {
                           return replaceAll(parameter.param.name, "-", "_");
                         });

/// The names of the kept inputs for XML that say an operation and a file, each with what it
/// chooses.
std::map<std::string, std::string> namedXmlCases() {
  std::map<std::string, std::string> cases;
  for (const Path& file : filesIn(inputs() / "xml")) {
    const std::string name = file.filename().string();
    if (contains(name, "-Quor_") || contains(name, "-Book_")) {
      cases.emplace(name, xmlCaseOf(bytesOf(file)));
    }
  }
  return cases;
}

// An operation that comes in front of another in their list gives every input behind it another
// one.
TEST(FuzzInputs, ForXmlChooseTheOperationAndTheFileOfTheirNames) {
  for (const auto& [name, chosen] : namedXmlCases()) {
    EXPECT_EQ(name, chosen);
  }
}

TEST(FuzzInputs, ForXmlRunEveryAddition) {
  const auto cases = namedXmlCases();
  for (const LibraryOperation& operation : libraryOperations()) {
    const std::string beginning = replaceAll(operation.name, " ", "_") + "-";
    if (operation.name.starts_with("Book_Valuator")) {
      EXPECT_TRUE(std::any_of(cases.begin(), cases.end(), [&](const auto& one) {
        return one.second.starts_with(beginning);
      })) << operation.name;
    }
  }
}

TEST(FuzzInputs, AllBelongToATarget) {
  std::set<std::string> known;
  for (const FuzzTarget& target : fuzzTargets()) {
    known.insert(std::string(target.name));
    known.insert(std::string(target.name).append(".dict"));
  }
  for (const Path& path : filesIn(inputs())) {
    EXPECT_TRUE(known.contains(path.filename().string())) << path;
  }
}

}  // namespace
}  // namespace quorbind::testing
