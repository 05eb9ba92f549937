// Files that another program holds open, as a scanner does.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/windows/com_types.h"
#include "platform/windows/windows_file_system.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::Le;
using ::testing::Pair;

constexpr DWORD kMoment = 300;  // milliseconds, as the next ones
constexpr ULONGLONG kPatience = 2000;
/// What the machine may take in addition.
constexpr ULONGLONG kDelay = 1500;

/// One of the calls that a held file is in the way of.
struct Call {
  std::string name;
  /// Which of the files `a.txt` and `b.txt` is held, and what its holder lets others do.
  std::string held;
  DWORD sharing = 0;
  std::function<void(FileSystem&, const std::string& a, const std::string& b)> run;
  /// What they hold afterwards; empty for one that is gone.
  std::string a = "a";
  std::string b = "b";
};

void PrintTo(const Call& call, std::ostream* out) {
  *out << call.name;
}

void replaceBy(FileSystem& files, const std::string& path, std::string_view bytes) {
  const std::unique_ptr<FileReplacement> replacement = files.replace(path);
  replacement->write(bytes);
  replacement->commit();
}

class HeldFile : public ::testing::TestWithParam<Call> {
 protected:
  HeldFile() {
    disk_.write("a.txt", "a");
    disk_.write("b.txt", "b");
  }

  [[nodiscard]] std::string path(const std::string& name) const {
    return toUtf8((disk_.path() / name).wstring());
  }
  [[nodiscard]] std::string textOf(const std::string& name) const {
    return disk_.has(name) ? disk_.read(name) : "";
  }

  /// Opens a file as another program does.
  [[nodiscard]] Handle hold(const std::string& name, DWORD sharing) const {
    Handle held(::CreateFileW(
        toWide(path(name)).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(held);
    return held;
  }
  [[nodiscard]] Handle hold(const Call& call) const { return hold(call.held, call.sharing); }

  std::int32_t errorOf(const Call& call) {
    return errorRaisedBy([&] { call.run(files_, path("a.txt"), path("b.txt")); });
  }
  /// Runs the call while the file is held; tells how long it took.
  ULONGLONG timeOfFailing(const Call& call) {
    const ULONGLONG start = ::GetTickCount64();
    EXPECT_EQ(errorOf(call), 70);
    return ::GetTickCount64() - start;
  }

  TemporaryFolder disk_;
  WindowsFileSystem files_;
};

TEST_P(HeldFile, IsWaitedFor) {
  Handle held = hold(GetParam());
  std::thread holder([&held] {
    ::Sleep(kMoment);
    held.close();
  });
  const std::int32_t error = errorOf(GetParam());
  holder.join();

  EXPECT_EQ(error, 0);
  EXPECT_EQ(textOf("a.txt"), GetParam().a);
  EXPECT_EQ(textOf("b.txt"), GetParam().b);
}

TEST_P(HeldFile, ThatStaysSoIsError70AfterTwoSecondsAndAtOnceForCallsThatFollow) {
  {
    const Handle held = hold(GetParam());
    EXPECT_THAT(timeOfFailing(GetParam()), AllOf(Ge(kPatience), Le(kPatience + kDelay)));
    for (int again = 0; again < 5; ++again) {
      EXPECT_LE(timeOfFailing(GetParam()), kDelay);
    }
  }
  EXPECT_THAT(disk_.contents(), ElementsAre(Pair("a.txt", "a"), Pair("b.txt", "b")));
  EXPECT_EQ(errorOf(GetParam()), 0);
}

const std::vector<Call>& calls() {
  static const std::vector<Call> kCalls{
      {.name = "Open",
       .held = "a.txt",
       .run = [](FileSystem& files,
                 const std::string& a,
                 const std::string&) { (void)files.open(a); }},
      {.name = "Replace",
       .held = "a.txt",
       .sharing = FILE_SHARE_READ,
       .run = [](FileSystem& files,
                 const std::string& a,
                 const std::string&) { replaceBy(files, a, "new"); },
       .a = "new"},
      {.name = "CopyFrom",
       .held = "a.txt",
       .run = [](FileSystem& files,
                 const std::string& a,
                 const std::string& b) { files.copyFile(a, b); },
       .b = "a"},
      {.name = "CopyOnto",
       .held = "b.txt",
       .sharing = FILE_SHARE_READ,
       .run = [](FileSystem& files,
                 const std::string& a,
                 const std::string& b) { files.copyFile(a, b); },
       .b = "a"},
      {.name = "Move",
       .held = "a.txt",
       .sharing = FILE_SHARE_READ,
       .run = [](FileSystem& files,
                 const std::string& a,
                 const std::string& b) { files.moveFile(a, b + ".moved"); },
       .a = ""},
      {.name = "Delete",
       .held = "a.txt",
       .sharing = FILE_SHARE_READ,
       .run =
           [](FileSystem& files, const std::string& a, const std::string&) { files.deleteFile(a); },
       .a = ""},
  };
  return kCalls;
}

INSTANTIATE_TEST_SUITE_P(, HeldFile, ::testing::ValuesIn(calls()), [](const auto& call) {
  return call.param.name;
});

using HeldFiles = HeldFile;

TEST_F(HeldFiles, AreWaitedForOneByOne) {
  const Handle first = hold("a.txt", 0);
  const Handle second = hold("b.txt", 0);
  for (const std::string name : {"a.txt", "b.txt"}) {
    const ULONGLONG start = ::GetTickCount64();
    EXPECT_EQ(errorRaisedBy([&] { (void)files_.open(path(name)); }), 70);
    EXPECT_GE(::GetTickCount64() - start, kPatience) << name;
  }
}

TEST_F(HeldFiles, OfOneCallAreWaitedForTwoSecondsInAll) {
  constexpr DWORD kAlmostTwoSeconds = 1900;
  Handle source = hold("a.txt", 0);
  const Handle target = hold("b.txt", FILE_SHARE_READ);
  const ULONGLONG start = ::GetTickCount64();
  std::thread holder([&source] {
    ::Sleep(kAlmostTwoSeconds);
    source.close();
  });
  const std::int32_t error = errorRaisedBy([&] { files_.copyFile(path("a.txt"), path("b.txt")); });
  const ULONGLONG taken = ::GetTickCount64() - start;
  holder.join();

  EXPECT_EQ(error, 70);
  EXPECT_THAT(taken, AllOf(Ge(kPatience), Le(kPatience + kDelay)));
  EXPECT_THAT(disk_.contents(), ElementsAre(Pair("a.txt", "a"), Pair("b.txt", "b")));
}

TEST_F(HeldFiles, DoNotKeepAnybodyFromAFileThatIsNotThere) {
  const ULONGLONG start = ::GetTickCount64();
  EXPECT_EQ(errorRaisedBy([&] { (void)files_.open(path("missing.txt")); }), 53);
  EXPECT_LT(::GetTickCount64() - start, kPatience);
}

}  // namespace
}  // namespace quorbind::testing
