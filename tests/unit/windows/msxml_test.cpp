#include "platform/windows/msxml.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/msxml_library.h"
#include "tests/support/raised_error.h"

namespace quorbind::testing {
namespace {

using ::testing::HasSubstr;

/// One file, in memory, which may break off while it is read.
class OneFile final : public FileSystem {
 public:
  std::string bytes;
  /// Reading raises 57 from here on.
  std::size_t breaksAt = std::string::npos;

  std::unique_ptr<ByteReader> open(std::string_view) override {
    return std::make_unique<Reader>(*this);
  }
  bool fileExists(std::string_view) override { return true; }
  bool folderExists(std::string_view) override { return false; }
  void createFolder(std::string_view) override {}
  void copyFile(std::string_view, std::string_view) override {}
  void moveFile(std::string_view, std::string_view) override {}
  void deleteFile(std::string_view) override {}
  std::string absolutePath(std::string_view path) override { return std::string(path); }
  bool sameFile(std::string_view, std::string_view) override { return true; }
  std::vector<std::string> namesIn(std::string_view) override { return {}; }
  std::unique_ptr<FileReplacement> replace(std::string_view) override {
    raise(ErrorNumber::kPermissionDenied);
  }

 private:
  class Reader final : public ByteReader {
   public:
    explicit Reader(const OneFile& file) : file_(file) {}

    std::size_t read(char* buffer, std::size_t size) override {
      if (at_ >= file_.breaksAt) {
        raise(ErrorNumber::kDeviceIoError);
      }
      const std::size_t count = file_.bytes.copy(buffer, std::min(size, kPiece), at_);
      at_ += count;
      return count;
    }
    void rewind() override { at_ = 0; }

   private:
    static constexpr std::size_t kPiece = 1000;
    const OneFile& file_;
    std::size_t at_ = 0;
  };
};

class Nobody final : public XmlScanHandler {
 public:
  void startElement(std::string_view, const XmlScanAttributes&) override {}
  void text(std::string_view) override {}
  void endElement(std::string_view) override {}
};

class MsxmlTest : public ::testing::Test {
 protected:
  XmlLoadResult load(std::string bytes) {
    files_.bytes = std::move(bytes);
    return library_.createDocument()->load("book.xml");
  }
  XmlLoadResult scan(std::string bytes) {
    files_.bytes = std::move(bytes);
    Nobody handler;
    return library_.scan("book.xml", handler);
  }

 private:
  ComApartment apartment_;

 protected:
  OneFile files_;
  MsxmlLibrary library_{files_};
};

std::string nested(int depth) {
  std::string bytes;
  for (int i = 0; i < depth; ++i) {
    bytes += "<a>";
  }
  return bytes;
}

TEST_F(MsxmlTest, FilesAreReadInPieces) {
  EXPECT_TRUE(load("<a>" + std::string(100'000, 'x') + "</a>"));
  EXPECT_TRUE(scan("<a>" + std::string(100'000, 'x') + "</a>"));
}

TEST_F(MsxmlTest, AFileThatBreaksOffIsAFailedLoad) {
  files_.breaksAt = 50'000;
  const std::string bytes = "<a>" + std::string(100'000, 'x') + "</a>";

  EXPECT_EQ(load(bytes).reason, "Device I/O error");
  EXPECT_EQ(scan(bytes).reason, "Device I/O error");
}

TEST_F(MsxmlTest, ElementsWithoutEndInsideEachOtherAreRefusedAtTheBound) {
  EXPECT_THAT(load(nested(100'000)).reason, HasSubstr("More than 256 elements"));
  EXPECT_THAT(scan(nested(100'000)).reason, HasSubstr("More than 256 elements"));
}

TEST_F(MsxmlTest, EntitiesThatWouldExpandWithoutEndAreRefusedBeforeTheyDo) {
  std::string bytes = "<!DOCTYPE a [<!ENTITY e0 'laugh'>";
  for (int i = 1; i < 20; ++i) {
    const std::string inner = "&e" + std::to_string(i - 1) + ";";
    bytes += "<!ENTITY e" + std::to_string(i) + " '";
    for (int repeat = 0; repeat < 10; ++repeat) {
      bytes += inner;
    }
    bytes += "'>";
  }
  bytes += "]><a>&e19;</a>";

  EXPECT_THAT(load(bytes).reason, HasSubstr("document type declaration"));
  EXPECT_THAT(scan(bytes).reason, HasSubstr("document type declaration"));
}

TEST_F(MsxmlTest, NodesThatAreNoElementsHaveNoChildToTakeOut) {
  files_.bytes = "<a x='1'>text<b/></a>";
  const std::unique_ptr<XmlDocument> document = library_.createDocument();
  ASSERT_TRUE(document->load("book.xml"));
  const XmlNode a = document->documentElement();

  EXPECT_EQ(errorRaisedBy([&] { a.firstChild().remove(a.child("b")); }), 5);
  EXPECT_EQ(errorRaisedBy([&] { a.attribute("x").remove(a.firstChild()); }), 5);
}

TEST_F(MsxmlTest, ADocumentResolvesNothingAndValidatesNothing) {
  const ComPtr<IXMLDOMDocument2> document = createMsxmlDocument();
  VARIANT_BOOL isResolving = VARIANT_TRUE;
  VARIANT_BOOL isValidating = VARIANT_TRUE;
  requireSuccess(document->get_resolveExternals(&isResolving));
  requireSuccess(document->get_validateOnParse(&isValidating));
  EXPECT_EQ(isResolving, VARIANT_FALSE);
  EXPECT_EQ(isValidating, VARIANT_FALSE);
}

}  // namespace
}  // namespace quorbind::testing
