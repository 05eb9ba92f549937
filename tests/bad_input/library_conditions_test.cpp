// Every operation on a library whose files are in another encoding, that lacks a book's folder, or
// that stands on a disk that takes nothing more.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>

#include "platform/text.h"
#include "platform/xml_document.h"
#include "tests/bad_input/damage_rules.h"
#include "tests/bad_input/library_operations.h"
#include "tests/bad_input/library_tree.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using namespace library_file;
using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::Eq;
using ::testing::HasSubstr;
using Tree = WholeLibrary::Tree;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

class EveryOperation : public ::testing::TestWithParam<LibraryOperation> {
 protected:
  OperationEnd run() { return endOf(GetParam(), library_); }

  WholeLibrary library_;
};

// Encodings

/// A file's text whatever its encoding, without the declaration.
std::string plainText(std::string_view bytes) {
  std::string text(bytes);
  if (bytes.starts_with(kLittleEndianMark)) {
    text = fromUtf16File(bytes);
  } else if (bytes.starts_with(kBigEndianMark)) {
    std::string swapped(bytes);
    for (std::size_t at = 0; at < swapped.size(); at += 2) {
      std::swap(swapped[at], swapped[at + 1]);
    }
    text = fromUtf16File(swapped);
  } else if (bytes.starts_with(kUtf8Mark)) {
    text = bytes.substr(kUtf8Mark.size());
  }
  return text.starts_with("<?xml") ? text.substr(text.find("\r\n") + 2) : text;
}

bool isUtf16(std::string_view bytes) {
  return bytes.starts_with(kLittleEndianMark) || bytes.starts_with(kBigEndianMark);
}

class InEveryEncoding : public EveryOperation {
 protected:
  /// Runs on a library whose XML files are what `encoded` makes of them.
  void expectTheSame(const std::function<std::string(const std::string&)>& encoded) {
    const OperationEnd usual = run();
    library_.reset();
    for (const std::string& file : xmlFilesOfLibrary()) {
      library_.files.write(file, encoded(soundText(file)));
    }
    const bool isLibraryUtf16 = isUtf16(library_.files.read(kCatalogue));
    const OperationEnd end = run();

    EXPECT_EQ(end.record, usual.record);
    ASSERT_EQ(end.tree.size(), usual.tree.size());
    for (const auto& [name, bytes] : usual.tree) {
      const std::string& found = end.tree.at(name);
      EXPECT_EQ(plainText(found), plainText(bytes)) << name;
      if (name.ends_with(".xml")) {
        EXPECT_EQ(isUtf16(found), isLibraryUtf16 || isUtf16(bytes)) << name;
      }
    }
  }
};

TEST_P(InEveryEncoding, DeclaredUtf8IsTheSame) {
  expectTheSame([](const std::string& text) { return declarationOf("UTF-8") + text; });
}

TEST_P(InEveryEncoding, MarkedUtf8IsTheSame) {
  expectTheSame([](const std::string& text) {
    return std::string(kUtf8Mark) + declarationOf("UTF-8") + text;
  });
}

TEST_P(InEveryEncoding, LittleEndianUtf16IsTheSameAndIsKept) {
  expectTheSame([](const std::string& text) { return utf16File(declarationOf("UTF-16") + text); });
}

TEST_P(InEveryEncoding, BigEndianUtf16IsTheSameAndUtf16IsKept) {
  expectTheSame(
      [](const std::string& text) { return utf16BigEndianFile(declarationOf("UTF-16") + text); });
}

INSTANTIATE_TEST_SUITE_P(Of,
                         InEveryEncoding,
                         ::testing::ValuesIn(libraryOperations()),
                         identifierOf);

// A folder that vanished

class WithoutABooksFolder : public EveryOperation {};

TEST_P(WithoutABooksFolder, EndsAsWithoutTheBooksFile) {
  library_.files.remove(kBook);
  const OperationEnd withoutFile = run();
  library_.reset();
  library_.files.remove("Docs/Plant/Manual");
  const OperationEnd end = run();

  Tree expected = withoutFile.tree;
  erase(expected, "Docs/Plant/Manual");
  EXPECT_EQ(end.record, withoutFile.record);
  EXPECT_EQ(end.tree, expected);
}

INSTANTIATE_TEST_SUITE_P(Of,
                         WithoutABooksFolder,
                         ::testing::ValuesIn(libraryOperations()),
                         identifierOf);

// Disks that take nothing

class OnADiskThatRefuses : public EveryOperation {
 protected:
  /// More files than any of the operations writes.
  static constexpr std::size_t kEnoughRoom = 100;
  /// Of a workbook's books, one after the other.
  static constexpr const char* kExport = "IN/BOOKS_Temp.txt";

  /// Every file is as it was or as the operation makes it, but for those that are written in steps,
  /// which load.
  void expectOldOrNewFiles(const Tree& before, const Tree& usual, const Tree& after) {
    for (const std::string& name : differences(before, after)) {
      SCOPED_TRACE(name);
      if (name == kExport) {
        continue;
      }
      const auto found = after.find(name);
      const auto wanted = usual.find(name);
      if (found == after.end()) {
        EXPECT_EQ(wanted, usual.end()) << "is gone";
        continue;
      }
      if (wanted != usual.end() && found->second == wanted->second) {
        continue;
      }
      ASSERT_TRUE(name.ends_with(".xml"));
      const auto document = library_.platform().xml.createDocument();
      EXPECT_TRUE(document->load(componentPath(name)));
    }
  }
};

TEST_P(OnADiskThatRefuses, AProtectedFileStaysAndThatIsTold) {
  const OperationEnd usual = run();
  for (const std::string& name : differences(library_.sound(), usual.tree)) {
    if (!library_.sound().contains(name)) {
      continue;
    }
    SCOPED_TRACE(name);
    library_.reset();
    library_.files.protect(name);
    const OperationEnd end = run();

    EXPECT_EQ(end.tree.at(name), library_.sound().at(name));
    expectOldOrNewFiles(library_.sound(), usual.tree, end.tree);
    EXPECT_THAT(end.record,
                Contains(AnyOf(HasSubstr("Permission denied"),
                               Eq("critical: Please close file Book_ALM.xml"))));
  }
}

TEST_P(OnADiskThatRefuses, AFullDiskLeavesEveryFileOldOrNewAndThatIsTold) {
  const OperationEnd usual = run();
  for (const std::size_t limit : {0U, 50U, 200U, 400U, 800U, 1200U, 1600U, 2400U}) {
    SCOPED_TRACE(limit);
    library_.reset();
    library_.files.limitFilesTo(limit);
    const OperationEnd end = run();

    expectOldOrNewFiles(library_.sound(), usual.tree, end.tree);
    if (end.tree != usual.tree) {
      EXPECT_NE(end.record, usual.record);
    }
  }
}

TEST_P(OnADiskThatRefuses, ADiskThatFillsUpOnTheWayLeavesEveryFileOldOrNewAndThatIsTold) {
  const OperationEnd usual = run();
  OperationEnd end;
  std::size_t room = 0;
  for (; end.tree != usual.tree && room < kEnoughRoom; ++room) {
    SCOPED_TRACE(room);
    library_.reset();
    library_.files.fillUpAfter(room);
    end = run();

    expectOldOrNewFiles(library_.sound(), usual.tree, end.tree);
    if (end.tree != usual.tree) {
      EXPECT_NE(end.record, usual.record);
    }
  }
  EXPECT_LT(room, kEnoughRoom);
}

INSTANTIATE_TEST_SUITE_P(Of,
                         OnADiskThatRefuses,
                         ::testing::ValuesIn(libraryOperations()),
                         identifierOf);

}  // namespace
}  // namespace quorbind::testing
