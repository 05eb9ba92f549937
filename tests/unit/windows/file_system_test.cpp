#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/com_types.h"
#include "platform/windows/windows_file_system.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

using namespace std::string_literals;
using ::testing::ElementsAre;

/// Folders inside each other, with a name that grows by a hundred characters with each.
class DeepFolder {
 public:
  DeepFolder(const fs::path& outer, int depth) : paths_{kExtended + outer.wstring()} {
    while (depth-- > 0) {
      paths_.push_back(paths_.back() + L'\\' + std::wstring(100, L'p'));
      ::CreateDirectoryW(paths_.back().c_str(), nullptr);
    }
  }
  ~DeepFolder() {
    for (; paths_.size() > 1; paths_.pop_back()) {
      ::RemoveDirectoryW(paths_.back().c_str());
    }
  }
  DeepFolder(const DeepFolder&) = delete;
  DeepFolder& operator=(const DeepFolder&) = delete;

  /// Of the innermost one, as a user writes it.
  [[nodiscard]] std::string path() const { return toUtf8(paths_.back().substr(kExtended.size())); }

 private:
  inline static const std::wstring kExtended = LR"(\\?\)";
  std::vector<std::wstring> paths_;
};

class WindowsFileSystemTest : public ::testing::Test {
 protected:
  [[nodiscard]] std::wstring wide(std::string_view name) const {
    return (disk_.path() / name).wstring();
  }
  [[nodiscard]] std::string path(std::string_view name) const { return toUtf8(wide(name)); }

  void replaceBy(std::string_view name, std::string_view bytes) {
    const std::unique_ptr<FileReplacement> replacement = files_.replace(path(name));
    replacement->write(bytes);
    replacement->commit();
  }
  std::string textOf(ByteReader& reader) {
    std::string text(100, '\0');
    text.resize(reader.read(text.data(), text.size()));
    return text;
  }

  /// Opens a file as a program does that shares it only so.
  [[nodiscard]] Handle heldByAnother(std::string_view name, DWORD sharing) const {
    return Handle(::CreateFileW(
        wide(name).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
  }

  [[nodiscard]] DWORD attributesOf(std::string_view name) const {
    return ::GetFileAttributesW(wide(name).c_str());
  }
  void mark(std::string_view name, DWORD attributes) const {
    ASSERT_NE(::SetFileAttributesW(wide(name).c_str(), attributes), 0);
    ASSERT_EQ(attributesOf(name), attributes);
  }

  [[nodiscard]] std::string accessRightsOf(std::string_view name) const {
    DWORD size = 0;
    ::GetFileSecurityW(wide(name).c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::string rights(size, '\0');
    ::GetFileSecurityW(wide(name).c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size);
    return rights;
  }

  void letEverybodyWrite(std::string_view name) const {
    std::array<std::byte, SECURITY_MAX_SID_SIZE> everybody{};
    std::array<std::byte, 512> list{};
    auto* const acl = reinterpret_cast<ACL*>(list.data());
    auto size = static_cast<DWORD>(everybody.size());
    ASSERT_NE(::CreateWellKnownSid(WinWorldSid, nullptr, everybody.data(), &size), 0);
    ASSERT_NE(::InitializeAcl(acl, static_cast<DWORD>(list.size()), ACL_REVISION), 0);
    ASSERT_NE(::AddAccessAllowedAce(acl, ACL_REVISION, GENERIC_ALL, everybody.data()), 0);
    SECURITY_DESCRIPTOR descriptor{};
    ASSERT_NE(::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION), 0);
    ASSERT_NE(::SetSecurityDescriptorDacl(&descriptor, TRUE, acl, FALSE), 0);
    ASSERT_NE(::SetFileSecurityW(wide(name).c_str(), DACL_SECURITY_INFORMATION, &descriptor), 0);
  }

  TemporaryFolder disk_;
  WindowsFileSystem files_;
};

// Names

TEST_F(WindowsFileSystemTest, NamesMayBeLongerThanTheOldLimit) {
  const DeepFolder deep(disk_.path(), 4);
  const std::string folder = deep.path();
  const std::string file = folder + "\\book.xml";
  const std::unique_ptr<FileReplacement> replacement = files_.replace(file);
  replacement->write("book");
  replacement->commit();

  EXPECT_TRUE(files_.fileExists(file));
  EXPECT_EQ(textOf(*files_.open(file)), "book");
  EXPECT_THAT(files_.namesIn(folder), ElementsAre("book.xml"));
  files_.moveFile(file, folder + "\\moved.xml");
  files_.copyFile(folder + "\\moved.xml", file);
  files_.deleteFile(file);
  files_.deleteFile(folder + "\\moved.xml");
  EXPECT_FALSE(files_.fileExists(file));
}

TEST_F(WindowsFileSystemTest, NamesOfDevicesRaise52) {
  for (const std::string& name : {"nul"s, "CON"s, "\\\\.\\COM1"s}) {
    EXPECT_EQ(errorRaisedBy([&] { (void)files_.open(name); }), 52) << name;
    EXPECT_EQ(errorRaisedBy([&] { (void)files_.replace(name); }), 52) << name;
    EXPECT_FALSE(files_.fileExists(name)) << name;
  }
}

TEST_F(WindowsFileSystemTest, ADriveThatIsNotThereRaises76) {
  EXPECT_EQ(errorRaisedBy([&] { (void)files_.open("Q:\\book.xml"); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { (void)files_.replace("Q:\\book.xml"); }), 76);
  EXPECT_EQ(errorRaisedBy([&] { (void)files_.namesIn("Q:\\"); }), 76);
}

// Replacing

TEST_F(WindowsFileSystemTest, AReadOnlyFileIsNotReplaced) {
  disk_.write("a.txt", "old");
  ::SetFileAttributesW(wide("a.txt").c_str(), FILE_ATTRIBUTE_READONLY);

  EXPECT_EQ(errorRaisedBy([&] { (void)files_.replace(path("a.txt")); }), 70);
  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("a.txt"s, "old"s)));
}

TEST_F(WindowsFileSystemTest, TheNewFileHasTheAttributesOfTheOldOne) {
  disk_.write("a.txt", "old");
  mark("a.txt", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE);

  replaceBy("a.txt", "new");

  EXPECT_EQ(disk_.read("a.txt"), "new");
  EXPECT_EQ(attributesOf("a.txt"),
            DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE});
}

TEST_F(WindowsFileSystemTest, ACopyOfASeriesHasTheAttributesOfItsSourceAndIsFlushedAllTheSame) {
  disk_.write("a.txt", "a");
  disk_.write("b.txt", "b");
  mark("a.txt", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE);
  mark("b.txt", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);

  const std::unique_ptr<CopySeries> copies = files_.beginCopies();
  copies->copy(path("a.txt"), path("c.txt"));
  copies->copy(path("b.txt"), path("d.txt"));
  copies->flush();

  EXPECT_EQ(attributesOf("c.txt"), DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE});
  EXPECT_EQ(attributesOf("d.txt"), DWORD{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE});
}

TEST_F(WindowsFileSystemTest, ACopyHasTheAttributesOfItsSource) {
  disk_.write("a.txt", "a");
  disk_.write("b.txt", "b");
  mark("a.txt", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);
  mark("b.txt", FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE);

  files_.copyFile(path("a.txt"), path("b.txt"));

  EXPECT_EQ(disk_.read("b.txt"), "a");
  EXPECT_EQ(attributesOf("b.txt"),
            DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE});
}

TEST_F(WindowsFileSystemTest, ACopyOverAFileHasTheAccessRightsOfThatFile) {
  disk_.write("a.txt", "a");
  disk_.write("b.txt", "b");
  letEverybodyWrite("b.txt");
  const std::string rights = accessRightsOf("b.txt");
  ASSERT_NE(accessRightsOf("a.txt"), rights);

  files_.copyFile(path("a.txt"), path("b.txt"));

  EXPECT_EQ(disk_.read("b.txt"), "a");
  EXPECT_EQ(accessRightsOf("b.txt"), rights);
}

TEST_F(WindowsFileSystemTest, AReadOnlyFileIsNeitherCopiedOntoNorDeleted) {
  disk_.write("a.txt", "new");
  disk_.write("b.txt", "old");
  mark("b.txt", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);

  EXPECT_EQ(errorRaisedBy([&] { files_.copyFile(path("a.txt"), path("b.txt")); }), 70);
  EXPECT_EQ(errorRaisedBy([&] { files_.deleteFile(path("b.txt")); }), 70);
  EXPECT_EQ(disk_.read("b.txt"), "old");
  EXPECT_EQ(attributesOf("b.txt"), DWORD{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE});
}

TEST_F(WindowsFileSystemTest, TheNewFileHasTheAccessRightsOfTheOldOne) {
  disk_.write("a.txt", "old");
  letEverybodyWrite("a.txt");
  const std::string rights = accessRightsOf("a.txt");
  disk_.write("b.txt", "");
  ASSERT_NE(accessRightsOf("b.txt"), rights);

  replaceBy("a.txt", "new");

  EXPECT_EQ(accessRightsOf("a.txt"), rights);
}

TEST_F(WindowsFileSystemTest, AReplacementThatFailedIsOver) {
  disk_.write("a.txt", "old");
  const Handle held = heldByAnother("a.txt", FILE_SHARE_READ);
  const std::unique_ptr<FileReplacement> replacement = files_.replace(path("a.txt"));
  EXPECT_EQ(errorRaisedBy([&] { replacement->commit(); }), 70);

  EXPECT_EQ(errorRaisedBy([&] { replacement->write("new"); }), 57);
  EXPECT_EQ(errorRaisedBy([&] { replacement->commit(); }), 57);
}

}  // namespace
}  // namespace quorbind::testing
