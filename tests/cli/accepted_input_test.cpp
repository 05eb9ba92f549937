#include "platform/text_encoding.h"
#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

/// Input that looks unusual and is taken.
class AcceptedInput : public CommandTest {
 protected:
  void SetUp() override { initLibrary(); }

  /// The table of contents of a book with one heading, in UTF-8.
  static std::string tocWithHeading(const std::string& heading) {
    return std::string(kHeader) +
           "\r\n\r\n"
           "\"1\" \"Book\" \"Manual\\cover.htm\" \"\"\r\n"
           "\"2\" \"" +
           heading + "\" \"Manual\\a.htm\" \"\"\r\n";
  }

  static std::string bigEndian(std::string littleEndian) {
    for (std::size_t i = 0; i + 1 < littleEndian.size(); i += 2) {
      std::swap(littleEndian[i], littleEndian[i + 1]);
    }
    return littleEndian;
  }

  /// Adds a file of these bytes and expects the heading in the library.
  void expectHeading(const std::string& bytes, const std::string& heading) const {
    disk.write("toc.txt", bytes);
    const Outcome outcome = addAlarms();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(quorbind({"show", "--server", "server", "--library", "Plant", "ALM"}).out,
              "Alarms (ALM), folder Manual\n  " + heading + "  a.htm  (missing)\n");
  }
};

constexpr const char* kHeading = "Ger\xC3\xA4te \xE2\x82\xAC";

TEST_F(AcceptedInput, AHeaderWithASecondLineOnlyGivesABookWithoutHeadings) {
  disk.write("toc.txt", std::string(kHeader) + "\nanything\n");
  const Outcome outcome = addAlarms({"--folder", "Manual"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Added Alarms (ALM) to Plant, folder Manual: 1 file.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(quorbind({"show", "--server", "server", "--library", "Plant", "ALM"}).out,
            "Alarms (ALM), folder Manual\n");
}

TEST_F(AcceptedInput, Utf8) {
  expectHeading(tocWithHeading(kHeading), kHeading);
}

TEST_F(AcceptedInput, Utf8WithAMark) {
  expectHeading("\xEF\xBB\xBF" + tocWithHeading(kHeading), kHeading);
}

TEST_F(AcceptedInput, Utf16LittleEndian) {
  expectHeading(utf16File(tocWithHeading(kHeading)), kHeading);
}

TEST_F(AcceptedInput, Utf16BigEndian) {
  expectHeading(bigEndian(utf16File(tocWithHeading(kHeading))), kHeading);
}

TEST_F(AcceptedInput, Windows1252) {
  expectHeading(tocWithHeading("Ger\xE4te \x80"), kHeading);
}

TEST_F(AcceptedInput, ALineOfTenMegabytes) {
  const std::string name(10'000'000, 'x');
  expectHeading(tocWithHeading(name), name);
}

}  // namespace
}  // namespace quorbind::testing
