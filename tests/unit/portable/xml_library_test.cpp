#include "platform/portable/xml_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/xmlsave.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/portable/bounded_xml_parser.h"
#include "platform/portable/portable_file_system.h"
#include "platform/portable/tree_parser.h"
#include "platform/portable/xml_handles.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "tests/support/raised_error.h"
#include "tests/support/random_xml.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

namespace {

using namespace std::chrono_literals;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::string_view kPath = "C:\\book.xml";

std::string repeated(int count, const std::function<std::string(int)>& piece) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += piece(i);
  }
  return text;
}

/// Is told and forgets.
class DeafHandler : public XmlScanHandler {
 public:
  void startElement(std::string_view /*name*/, const XmlScanAttributes& /*attributes*/) override {}
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override {}
};

/// Puts up to `size` bytes of a file into `buffer` and answers how many; 0 at the end.
using Source = std::function<std::size_t(char* buffer, std::size_t size)>;

/// A source that gives `text` and then does `atEnd`.
Source sourceOf(
    std::string text, std::function<void()> atEnd = [] {}) {
  return [text = std::move(text), atEnd = std::move(atEnd), at = std::size_t{0}](
             char* buffer, std::size_t size) mutable {
    if (at == text.size()) {
      atEnd();
    }
    const std::size_t count = text.copy(buffer, size, at);
    at += count;
    return count;
  };
}

/// A file system of one file, which is no file on a disk and can only be read and replaced.
class OneFile final : public FileSystem {
 public:
  /// What is read by opening the file.
  explicit OneFile(Source source) : source_(std::move(source)) {}

  /// From now on no more than `bytes` can be written.
  void limitRoom(std::size_t bytes) { room_ = bytes; }
  /// What the file was replaced by.
  [[nodiscard]] const std::string& saved() const { return saved_; }

  std::unique_ptr<ByteReader> open(std::string_view /*path*/) override {
    return std::make_unique<Reader>(source_);
  }
  std::unique_ptr<FileReplacement> replace(std::string_view /*path*/) override {
    return std::make_unique<Replacement>(*this);
  }

  bool fileExists(std::string_view /*path*/) override { return true; }
  bool folderExists(std::string_view /*path*/) override { return false; }
  void createFolder(std::string_view /*path*/) override { refuse(); }
  void copyFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void moveFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void deleteFile(std::string_view /*path*/) override { refuse(); }
  std::string absolutePath(std::string_view path) override { return std::string(path); }
  bool sameFile(std::string_view left, std::string_view right) override { return left == right; }
  std::vector<std::string> namesIn(std::string_view /*folder*/) override { return {}; }

 private:
  class Reader final : public ByteReader {
   public:
    explicit Reader(Source source) : source_(std::move(source)) {}
    std::size_t read(char* buffer, std::size_t size) override { return source_(buffer, size); }
    void rewind() override { FAIL() << "XML is read once"; }

   private:
    Source source_;
  };

  class Replacement final : public FileReplacement {
   public:
    explicit Replacement(OneFile& file) : file_(file) {}
    void write(std::string_view bytes) override {
      written_ += bytes;
      if (written_.size() > file_.room_) {
        raise(ErrorNumber::kDiskFull);
      }
    }
    void commit() override { file_.saved_ = written_; }

   private:
    OneFile& file_;
    std::string written_;
  };

  static void refuse() { raise(ErrorNumber::kPermissionDenied); }

  Source source_;
  std::size_t room_ = std::numeric_limits<std::size_t>::max();
  std::string saved_;
};

/// A document as the port tells it, and as it is saved.
struct SavedTree {
  std::string tree;
  std::string bytes;
};

SavedTree savedTreeOf(const std::string& bytes) {
  OneFile file(sourceOf(bytes));
  PortableXmlLibrary xml(file);
  const std::unique_ptr<XmlDocument> document = xml.createDocument();
  const XmlLoadResult result = document->load(kPath);
  EXPECT_TRUE(result) << result.reason;
  document->save(kPath);
  return {describeTree(document->documentElement()), file.saved()};
}

/// `C:\book.xml` is the file `book.xml` in the folder `disk_`.
class PortableXmlLibraryTest : public ::testing::Test {
 protected:
  XmlLoadResult load(std::string_view bytes) {
    disk_.write("book.xml", bytes);
    return document_->load(kPath);
  }

  /// Loads and scans a file that is made to take long, and answers the reason why it does not load.
  std::string reasonForBomb(std::string_view bytes) {
    const auto start = std::chrono::steady_clock::now();
    const XmlLoadResult loaded = load(bytes);
    DeafHandler handler;
    const XmlLoadResult scanned = xml_.scan(kPath, handler);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    EXPECT_FALSE(loaded);
    EXPECT_FALSE(scanned);
    EXPECT_EQ(loaded.reason, scanned.reason);
    EXPECT_EQ(loaded.line, scanned.line);
    return loaded.reason;
  }

  TemporaryFolder disk_;
  PortableFileSystem files_{disk_.path()};
  PortableXmlLibrary xml_{files_};
  std::unique_ptr<XmlDocument> document_ = xml_.createDocument();
};

TEST_F(PortableXmlLibraryTest, NoColumnIsToldOfBytesThatAreNoCharacters) {
  std::string bytes = "\xFF\xFE";
  appendUtf16LittleEndian(bytes, "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<Book a=\"");
  bytes.append("\x00\xD8", 2);
  appendUtf16LittleEndian(bytes, "\"/>");
  const XmlLoadResult result = load(bytes);
  EXPECT_FALSE(result);
  EXPECT_EQ(result.column, 0) << "the parser stands elsewhere";
}

// Files made to take long

TEST_F(PortableXmlLibraryTest, AHundredThousandElementsInsideEachOtherEndQuickly) {
  EXPECT_EQ(reasonForBomb(repeated(100'000, [](int) { return "<a>"; })),
            "More than 256 elements stand inside each other.");
}

TEST_F(PortableXmlLibraryTest, EntitiesThatMultiplyEndQuickly) {
  const std::string entities = repeated(40, [](int i) {
    const std::string former = "&e" + std::to_string(i) + ";";
    return "<!ENTITY e" + std::to_string(i + 1) + " '" + former + former + "'>\n";
  });

  EXPECT_EQ(reasonForBomb("<!DOCTYPE a [\n<!ENTITY e0 'ha'>\n" + entities + "]>\n<a>&e40;</a>"),
            "A document type declaration is not allowed.");
}

TEST_F(PortableXmlLibraryTest, AHundredThousandAttributesEndQuickly) {
  EXPECT_EQ(
      reasonForBomb(
          "<a" + repeated(100'000, [](int i) { return " a" + std::to_string(i) + "=''"; }) + "/>"),
      "An element has too many attributes or namespaces.");
}

TEST_F(PortableXmlLibraryTest, AHundredThousandNamespacesEndQuickly) {
  EXPECT_EQ(
      reasonForBomb(
          "<a" + repeated(100'000, [](int i) { return " xmlns:a" + std::to_string(i) + "='u'"; }) +
          "/>"),
      "An element has too many attributes or namespaces.");
}

TEST_F(PortableXmlLibraryTest, NamesOfMegabytesEndQuickly) {
  const std::string name(2'000'000, 'a');

  EXPECT_EQ(reasonForBomb("<" + name + "/>"), "A name is too long.");
  EXPECT_EQ(reasonForBomb("<a " + name + "=''/>"), "A name is too long.");
}

TEST_F(PortableXmlLibraryTest, AMegabyteOfMarksThatNothingFollowsEndsQuickly) {
  EXPECT_THAT(reasonForBomb("<a>" + std::string(1'000'000, '<')), Not(IsEmpty()));
  EXPECT_THAT(reasonForBomb("<a>" + std::string(1'000'000, '&')), Not(IsEmpty()));
}

TEST_F(PortableXmlLibraryTest, AsManyAttributesAsTheBoundLoad) {
  const std::string attributes = repeated(
      kMaximumXmlAttributes, [](int i) { return " a" + std::to_string(i) + "='" + "x" + "'"; });

  EXPECT_TRUE(load("<a" + attributes + "/>"));
  EXPECT_FALSE(load("<a" + attributes + " b=''/>"));
}

TEST_F(PortableXmlLibraryTest, AsManyPartsAsTheSizeOfTheFileAllowsLoad) {
  const auto elements = [](std::size_t count, std::string_view element) {
    std::string text = "<a>";
    for (std::size_t i = 0; i < count; ++i) {
      text += element;
    }
    return text + "</a>";
  };

  EXPECT_TRUE(load(elements(kPartsOfAnyTree - 1, "<a/>")));
  EXPECT_TRUE(load(elements(3 * kPartsOfAnyTree, "<b>aaa</b>")));
  EXPECT_EQ(load(elements(2 * kPartsOfAnyTree, "<a/>")).reason,
            "There are too many elements and attributes for its size.");
}

TEST_F(PortableXmlLibraryTest, NamesAsLongAsTheBoundLoad) {
  const std::string name(kMaximumXmlNameLength, 'a');

  EXPECT_TRUE(load("<" + name + " " + name + "=''/>"));
  EXPECT_FALSE(load("<" + name + "a/>"));
  EXPECT_FALSE(load("<a " + name + "a=''/>"));
}

// Nothing but the file, and nothing printed

TEST_F(PortableXmlLibraryTest, NothingIsEverPrinted) {
  ::testing::internal::CaptureStderr();
  ::testing::internal::CaptureStdout();
  EXPECT_FALSE(load("<a><b></a>"));
  EXPECT_FALSE(load("<q:a/>"));
  EXPECT_FALSE(load("<!DOCTYPE a SYSTEM 'http://localhost:9/a.dtd'><a/>"));
  EXPECT_FALSE(load("<?xml version='1.0' encoding='nonsense'?><a/>"));
  EXPECT_FALSE(load("<?xml version='1.0' encoding='UTF-8'?><a>\xE9</a>"));
  EXPECT_FALSE(load("\xFF\xFE<\0a\0>\0\x00\xD8"));
  EXPECT_FALSE(load(utf16File("<a/>") + std::string("\x00\xD8<\0", 4)));
  ASSERT_TRUE(load("<?xml version='1.0' encoding='US-ASCII'?><a xmlns:q='not a URI'/>"));
  EXPECT_EQ(errorRaisedBy([&] { (void)document_->select("a["); }), kInvalidQueryError);
  EXPECT_EQ(errorRaisedBy([&] { (void)document_->select("q:a"); }), kInvalidQueryError);
  EXPECT_EQ(errorRaisedBy([&] { (void)document_->select("none()"); }), kInvalidQueryError);
  document_->documentElement().setText("\xE9 目");
  document_->save(kPath);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), IsEmpty());
  EXPECT_THAT(::testing::internal::GetCapturedStdout(), IsEmpty());
}

TEST_F(PortableXmlLibraryTest, BytesThatAreNotInTheEncodingAreAFailureWithItsLine) {
  const XmlLoadResult result =
      load("<?xml version='1.0' encoding='UTF-8'?>\n<a>\n caf\xE9 au lait\n</a>");

  EXPECT_FALSE(result);
  EXPECT_EQ(result.line, 3);
  EXPECT_THAT(result.reason, HasSubstr("UTF-8"));
}

TEST_F(PortableXmlLibraryTest, BrokenUtf16BehindTheRootIsAFailure) {
  EXPECT_FALSE(load(utf16File("<a/>") + std::string("\x00\xD8<\0", 4)));
}

TEST_F(PortableXmlLibraryTest, AByteThatMeansNothingInWindows1252IsAFailure) {
  EXPECT_FALSE(load("<?xml version='1.0' encoding='windows-1252'?><a>\x81</a>"));
}

TEST_F(PortableXmlLibraryTest, NamespacesNeedNotBeProperAddresses) {
  EXPECT_TRUE(load("<a xmlns='two words' xmlns:q='relative'><q:b/></a>"));
}

TEST_F(PortableXmlLibraryTest, AnInvalidQueryIsDescribedInALine) {
  ASSERT_TRUE(load("<a/>"));
  try {
    (void)document_->select("a[");
    ADD_FAILURE() << "it was evaluated";
  } catch (const RunTimeError& error) {
    EXPECT_THAT(error.description(), Not(IsEmpty()));
    EXPECT_THAT(error.description(), Not(HasSubstr("\n")));
  }
}

TEST_F(PortableXmlLibraryTest, ADocumentInAnEncodingThatHidesTheDeclarationIsNotSaved) {
  const std::string bytes = "<?xml version='1.0' encoding='UTF-7'?><a>+AOQ-</a>";
  ASSERT_TRUE(load(bytes));
  ASSERT_EQ(document_->documentElement().text(), "ä");

  EXPECT_EQ(errorRaisedBy([&] { document_->save(kPath); }), 57);
  EXPECT_EQ(disk_.read("book.xml"), bytes);
}

TEST_F(PortableXmlLibraryTest, EncodingsOfAllKindsAreSavedAsTheyWereLoaded) {
  const auto document = [](const std::string& encoding, const std::string& text) {
    return R"(<?xml version="1.0" encoding=")" + encoding + "\"?>\r\n<a>" + text + "</a>\r\n";
  };
  const auto withoutMark = [](const std::string& text) { return utf16File(text).substr(2); };
  const std::vector<std::pair<std::string, std::string>> cases{
      {document("Shift_JIS", "\x96\xDA\x98\x5E"), "目録"},
      {document("ISO-2022-JP", "\x1B$BL\\O?\x1B(B"), "目録"},
      {document("GB18030", "\xC4\xBF\x94\x39\xFC\x36"), "目😀"},
      {document("KOI8-R", "\xEB\xCE\xC9\xC7\xC1"), "Книга"},
      {document("ISO-8859-15", "\xA4"), "€"},
      {withoutMark(document("UTF-16LE", "目😀")), "目😀"},
      {utf16File(document("ISO-10646-UCS-2", "目录")), "目录"},
  };
  for (const auto& [bytes, text] : cases) {
    const XmlLoadResult result = load(bytes);
    ASSERT_TRUE(result) << text << ": " << result.reason;
    EXPECT_EQ(document_->documentElement().text(), text);
    document_->save(kPath);
    EXPECT_EQ(disk_.read("book.xml"), bytes) << text;
  }
}

// Files that fail under way

TEST_F(PortableXmlLibraryTest, AFileThatFailsWhileItIsReadIsAFailedLoad) {
  OneFile file(sourceOf("<a>\n", [] { raise(ErrorNumber::kDeviceIoError); }));
  PortableXmlLibrary xml(file);
  const auto document = xml.createDocument();
  const XmlLoadResult loaded = document->load(kPath);
  EXPECT_FALSE(loaded);
  EXPECT_EQ(loaded.line, 0);
  EXPECT_EQ(loaded.reason, "Device I/O error");
  EXPECT_FALSE(document->documentElement());
}

TEST_F(PortableXmlLibraryTest, AFileThatFailsBehindItsRootIsAFailedScan) {
  OneFile file(sourceOf("<a/>\n", [] { raise(ErrorNumber::kDeviceIoError); }));
  PortableXmlLibrary xml(file);
  DeafHandler handler;
  const XmlLoadResult scanned = xml.scan(kPath, handler);
  EXPECT_FALSE(scanned);
  EXPECT_EQ(scanned.reason, "Device I/O error");
}

TEST_F(PortableXmlLibraryTest, AnyOtherExceptionPassesThroughTheParser) {
  OneFile file(sourceOf("<a>", [] { throw std::bad_alloc(); }));
  PortableXmlLibrary xml(file);
  const auto document = xml.createDocument();
  EXPECT_THROW(document->load(kPath), std::bad_alloc);
  EXPECT_FALSE(document->documentElement());
}

TEST_F(PortableXmlLibraryTest, AFullDiskComesOutOfSaveInEveryEncoding) {
  for (const std::string encoding : {"UTF-8", "UTF-16", "windows-1252"}) {
    const std::string text =
        "<?xml version='1.0' encoding='" + encoding + "'?><a>" +
        repeated(10'000, [](int i) { return "<b>" + std::to_string(i) + "</b>"; }) + "</a>";
    OneFile file(sourceOf(encoding == "UTF-16" ? utf16File(text) : text));
    file.limitRoom(50'000);
    PortableXmlLibrary xml(file);
    const auto document = xml.createDocument();
    ASSERT_TRUE(document->load(kPath)) << encoding;

    EXPECT_EQ(errorRaisedBy([&] { document->save(kPath); }), 61) << encoding;
    EXPECT_EQ(file.saved(), "") << encoding;
  }
}

// Any document

TEST(PortableXmlDocument, IsTheSameTreeAfterSavingAndTheSameBytesAfterSavingAgain) {
  constexpr unsigned kDocuments = 1000;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    const std::string bytes = randomXml(seed);
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + bytes);
    const SavedTree first = savedTreeOf(bytes);
    const SavedTree second = savedTreeOf(first.bytes);

    ASSERT_EQ(second.tree, first.tree);
    ASSERT_EQ(second.bytes, first.bytes);
  }
}

/// `bytes`, parsed and written again by libxml2 alone, which keeps all white space.
std::string spelledByLibxml2(const std::string& bytes) {
  const XmlDocHandle document(
      xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr, 0));
  const XmlBufferHandle buffer(xmlBufferCreate());
  xmlSaveCtxt* const save = xmlSaveToBuffer(buffer.get(), "UTF-8", XML_SAVE_NO_DECL);
  xmlSaveDoc(save, document.get());
  xmlSaveClose(save);
  return reinterpret_cast<const char*>(xmlBufferContent(buffer.get()));
}

TEST(PortableXmlDocument, IsSpelledAsLibxml2WouldSpellItButForLineEnds) {
  constexpr unsigned kDocuments = 200;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    std::string saved = savedTreeOf(randomXml(seed)).bytes;
    if (saved.starts_with("<?xml ")) {
      saved.erase(0, saved.find('<', 1));
    }

    ASSERT_EQ(replaceAll(spelledByLibxml2(saved), "\n", "\r\n"), saved) << "seed " << seed;
  }
}

// Memory and threads

/// The memory of this process that is in use, in bytes.
std::size_t residentBytes() {
  constexpr std::size_t kPageSize = 4096;
  std::ifstream file("/proc/self/statm");
  std::size_t total = 0;
  std::size_t resident = 0;
  file >> total >> resident;
  return resident * kPageSize;
}

TEST_F(PortableXmlLibraryTest, AScanTakesNoMoreMemoryForALongerFile) {
  constexpr std::size_t kElements = 2'000'000;
  constexpr std::size_t kAllowed = std::size_t{16} * 1024 * 1024;
  const std::string_view element = "<Book ID='1'><Name>Alarms &amp; more</Name></Book>\n";
  std::size_t written = 0;
  std::string pending = "<Books>";
  OneFile file([&](char* buffer, std::size_t size) {
    while (pending.size() < size && written <= kElements) {
      pending += written++ < kElements ? element : "</Books>";
    }
    const std::size_t count = pending.copy(buffer, size);
    pending.erase(0, count);
    return count;
  });
  class MemoryWatch final : public DeafHandler {
   public:
    void endElement(std::string_view name) override {
      if (name == "Book" && ++books_ % 10'000 == 0) {
        most_ = std::max(most_, residentBytes());
      }
    }
    [[nodiscard]] std::size_t books() const { return books_; }
    [[nodiscard]] std::size_t most() const { return most_; }

   private:
    std::size_t books_ = 0;
    std::size_t most_ = 0;
  } watch;
  PortableXmlLibrary xml(file);
  const std::size_t before = residentBytes();

  EXPECT_TRUE(xml.scan(kPath, watch));
  EXPECT_EQ(watch.books(), kElements);
  EXPECT_LT(watch.most(), before + kAllowed);
}

TEST_F(PortableXmlLibraryTest, DocumentsOfDifferentThreadsDoNotMeet) {
  disk_.write("good.xml", "<a>" + repeated(2'000, [](int) { return "<b>1</b>"; }) + "</a>");
  disk_.write("bad.xml", "<a>\n<b>\n</a>");
  const auto work = [root = disk_.path()] {
    PortableFileSystem files(root);
    PortableXmlLibrary xml(files);
    for (int i = 0; i < 50; ++i) {
      const auto good = xml.createDocument();
      EXPECT_TRUE(good->load("C:\\good.xml"));
      EXPECT_EQ(good->selectAll("//b[.='1']").size(), 2'000U);
      EXPECT_EQ(xml.createDocument()->load("C:\\bad.xml").line, 3);
    }
  };
  std::thread other(work);
  work();
  other.join();
}

}  // namespace

}  // namespace quorbind::testing
