// Files of a library that another program holds open, or that may not be written.

#include <windows.h>

#include <memory>
#include <thread>

#include "platform/windows/com_types.h"
#include "tests/operations/operations_test.h"
#include "tests/support/book_text.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kCatalogue = "C:\\Quor_TOC.xml";

/// Another program, which lets others read the file and no more. Only that program has it open.
class ProgramReading {
 public:
  explicit ProgramReading(const std::filesystem::path& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const Handle file(::CreateFileW(
        path.c_str(), GENERIC_READ, FILE_SHARE_READ, &inherited, OPEN_EXISTING, 0, nullptr));
    HANDLE input = nullptr;
    HANDLE output = nullptr;
    EXPECT_TRUE(::CreatePipe(&input, &output, &inherited, 0));
    const Handle itsInput(input);
    input_ = Handle(output);
    ::SetHandleInformation(output, HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = itsInput.get();
    // It reads its input to the end.
    std::wstring command = L"cmd.exe /q";
    PROCESS_INFORMATION started{};
    EXPECT_TRUE(::CreateProcessW(
        nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &started));
    const Handle thread(started.hThread);
    process_ = Handle(started.hProcess);
  }
  ProgramReading(const ProgramReading&) = delete;
  ProgramReading& operator=(const ProgramReading&) = delete;
  ~ProgramReading() {
    input_.close();
    ::WaitForSingleObject(process_.get(), INFINITE);
  }

 private:
  Handle input_;
  Handle process_;
};

class HeldFiles : public OperationsTest {
 protected:
  HeldFiles() {
    write("Quor_TOC.xml", catalogueWith(entryOf(alarms)));
    write("Manual/Book_ALM.xml", bookXmlOf(alarms));
  }

  [[nodiscard]] std::filesystem::path pathOf(const char* name) {
    return host().disk().path() / name;
  }

  const BookCase alarms{"Alarms", "ALM", "ALM@QUOR@1", {"Operation"}};
};

TEST_P(HeldFiles, StopARenameWhenTheyAreTheBookFile) {
  host().willEnter("Warnings", "WRN");
  EXPECT_EQ(call("mbGetFormInput", {"", 1}), "True");
  EXPECT_THAT(shown(), ElementsAre("form frmBookInfo"));
  {
    const ProgramReading other(pathOf("Manual/Book_ALM.xml"));
    expectRefused("strBookAcroInfo",
                  {kCatalogue, "Alarms"},
                  "nothing",
                  "critical: Please close file Book_ALM.xml");
  }
  EXPECT_EQ(call("strBookAcroInfo", {kCatalogue, "Alarms"}), "nothing");
  EXPECT_TRUE(has("Manual/Book_WRN.xml"));
}

TEST_P(HeldFiles, AreWaitedForWhenTheyAreHeldForAMomentOnly) {
  auto other = std::make_unique<ProgramReading>(pathOf("Quor_TOC.xml"));
  std::thread itsEnd([&other] {
    ::Sleep(500);
    other.reset();
  });
  EXPECT_EQ(call("DeleteQuorNode", {kCatalogue, "Alarms"}), "nothing");
  itsEnd.join();
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(call("BookInfo", {kCatalogue}), R"([""])");
}

TEST_P(HeldFiles, CanNotBeReplacedWhenTheyAreTheCatalogue) {
  const ProgramReading other(pathOf("Quor_TOC.xml"));
  expectRefused("DeleteQuorNode",
                {kCatalogue, "Alarms"},
                "nothing",
                "critical: Error(70): Permission denied\nQuorbind:Book_Config::DeleteNode");
}

TEST_P(HeldFiles, CanNotBeReplacedWhenTheCatalogueIsReadOnly) {
  ::SetFileAttributesW(pathOf("Quor_TOC.xml").c_str(), FILE_ATTRIBUTE_READONLY);
  const std::string catalogue = bytes("Quor_TOC.xml");
  expectRefused("DeleteQuorNode",
                {kCatalogue, "Alarms"},
                "nothing",
                "critical: Error(70): Permission denied\nQuorbind:Book_Config::DeleteNode");
  EXPECT_EQ(
      call("mbsetQuorBookProperties", {kCatalogue, "Alarms", array({"Safety"}), "Manual", "link"}),
      "True");
  EXPECT_THAT(shown(),
              ElementsAre("critical: Error(70): Permission denied\n"
                          "Quorbind:Book_Config::msetQuorProperties"));
  EXPECT_EQ(bytes("Quor_TOC.xml"), catalogue);
  ::SetFileAttributesW(pathOf("Quor_TOC.xml").c_str(), FILE_ATTRIBUTE_NORMAL);
}

QUOR_IN_EVERY_WAY(HeldFiles);

}  // namespace
}  // namespace quorbind::testing
