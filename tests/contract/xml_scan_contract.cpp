#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/xml_document.h"
#include "tests/contract/adapters.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::string_view kPath = "C:\\book.xml";

/// Writes down what it is told: `<name`, the text, `name>`. Pieces of one text are put together.
class ScanRecord final : public XmlScanHandler {
 public:
  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    lines_.push_back("<" + std::string(name));
    lastWasText_ = false;
    if (showsLines_) {
      lines_.back().append(" ").append(std::to_string(attributes.line()));
    }
    for (const std::string& attribute : asked_) {
      lines_.back().append(" ").append(attribute).append("=").append(attributes.value(attribute));
    }
  }
  void text(std::string_view text) override {
    if (!lastWasText_) {
      lines_.emplace_back();
    }
    lines_.back() += text;
    lastWasText_ = true;
  }
  void endElement(std::string_view name) override {
    lines_.push_back(std::string(name) + ">");
    lastWasText_ = false;
  }

  /// From now on the record shows the attributes of these names at every element.
  void ask(std::vector<std::string> names) { asked_ = std::move(names); }
  /// From now on the record shows the line of every element.
  void showLines() { showsLines_ = true; }
  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }

 private:
  bool showsLines_ = false;
  std::vector<std::string> asked_;
  std::vector<std::string> lines_;
  bool lastWasText_ = false;
};

/// Throws in the call named.
template <typename Exception>
class ThrowingHandler final : public XmlScanHandler {
 public:
  ThrowingHandler(std::string_view call, Exception exception)
      : call_(call), exception_(std::move(exception)) {}

  void startElement(std::string_view /*name*/, const XmlScanAttributes& /*attributes*/) override {
    throwIn("start");
  }
  void text(std::string_view /*text*/) override { throwIn("text"); }
  void endElement(std::string_view /*name*/) override { throwIn("end"); }

  [[nodiscard]] int callsAfterThrowing() const { return callsAfterThrowing_; }

 private:
  void throwIn(std::string_view call) {
    if (thrown_) {
      ++callsAfterThrowing_;
    } else if (call == call_) {
      thrown_ = true;
      throw exception_;
    }
  }

  std::string_view call_;
  Exception exception_;
  bool thrown_ = false;
  int callsAfterThrowing_ = 0;
};

/// Bytes that are no file. Behind them stands their end, or an exception.
class GivenBytes final : public ByteReader {
 public:
  explicit GivenBytes(std::string bytes, std::exception_ptr end = nullptr)
      : bytes_(std::move(bytes)), end_(std::move(end)) {}

  std::size_t read(char* buffer, std::size_t size) override {
    const std::size_t count = bytes_.copy(buffer, size, position_);
    position_ += count;
    if (count == 0 && end_ != nullptr) {
      std::rethrow_exception(end_);
    }
    return count;
  }
  void rewind() override { position_ = 0; }

 private:
  std::string bytes_;
  std::exception_ptr end_;
  std::size_t position_ = 0;
};

/// `C:\book.xml` is the file `book.xml` in the folder `disk_`.
class XmlScanContract : public ::testing::Test {
 protected:
  XmlLoadResult scanFile(std::string_view bytes) { return scanFile(bytes, record_); }
  XmlLoadResult scanFile(std::string_view bytes, XmlScanHandler& handler) {
    disk_.write("book.xml", bytes);
    return adapters_->xml().scan(kPath, handler);
  }
  /// What is told of a document that is expected to parse.
  std::vector<std::string> scanned(std::string_view bytes) {
    const XmlLoadResult result = scanFile(bytes);
    EXPECT_TRUE(result) << result.reason;
    return record_.lines();
  }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  ScanRecord record_;
};

TEST_F(XmlScanContract, ElementsAndTextsAreToldInOrder) {
  EXPECT_THAT(scanned("<Book><Name>Alarms</Name><Key/></Book>"),
              ElementsAre("<Book", "<Name", "Alarms", "Name>", "<Key", "Key>", "Book>"));
}

TEST_F(XmlScanContract, TextIsThatOfTheInnermostOpenElement) {
  EXPECT_THAT(scanned("<a>1<b>2</b>3</a>"), ElementsAre("<a", "1", "<b", "2", "b>", "3", "a>"));
}

TEST_F(XmlScanContract, WhiteSpaceIsTold) {
  EXPECT_THAT(scanned("<a>\r\n\t<b> </b></a>"), ElementsAre("<a", "\n\t", "<b", " ", "b>", "a>"));
}

TEST_F(XmlScanContract, ReferencesAndCharacterDataAreText) {
  EXPECT_THAT(scanned("<a>1 &lt; 2 &amp; <![CDATA[<3>]]>&#52;</a>"),
              ElementsAre("<a", "1 < 2 & <3>4", "a>"));
}

TEST_F(XmlScanContract, CommentsAndInstructionsAreNotTold) {
  EXPECT_THAT(scanned("<!--1--><?b c?><a><!--2--><?d e?></a><!--3-->"), ElementsAre("<a", "a>"));
}

TEST_F(XmlScanContract, AttributesAreFoundByTheirExactName) {
  record_.ask({"ID", "id", "kind"});

  EXPECT_THAT(scanned("<a ID='7' kind='&lt;&amp;&quot;&#65;'><b/></a>"),
              ElementsAre("<a ID=7 id= kind=<&\"A", "<b ID= id= kind=", "b>", "a>"));
}

TEST_F(XmlScanContract, AStartTagTellsTheLineOnWhichItEnds) {
  record_.showLines();

  EXPECT_THAT(
      scanned("<?xml version='1.0'?>\n<a>\r\n<b\nx='1'/><c/>\n\n<d>\n</d></a>"),
      ElementsAre("<a 2", "\n", "<b 4", "b>", "<c 4", "c>", "\n\n", "<d 6", "\n", "d>", "a>"));
}

TEST_F(XmlScanContract, NamesHaveTheirPrefixes) {
  record_.ask({"q:ID", "ID"});

  EXPECT_THAT(scanned("<q:a xmlns:q='urn:q' q:ID='1' ID='2'/>"),
              ElementsAre("<q:a q:ID=1 ID=2", "q:a>"));
}

TEST_F(XmlScanContract, EncodingsAreThoseOfLoading) {
  const std::string text = "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>Ü 目录 😀</a>";

  EXPECT_THAT(scanned(utf16File(text)), ElementsAre("<a", "Ü 目录 😀", "a>"));
}

TEST_F(XmlScanContract, ALongTextIsToldWhole) {
  const std::string text(3'000'000, 'x');

  EXPECT_TRUE(scanned("<a>" + text + "</a>").at(1) == text);
}

TEST_F(XmlScanContract, ASuccessSaysSo) {
  const XmlLoadResult result = scanFile("<a/>");

  EXPECT_TRUE(result.loaded);
  EXPECT_THAT(result.reason, IsEmpty());
}

TEST_F(XmlScanContract, AFileThatIsNotThereIsAFailure) {
  EXPECT_FALSE(adapters_->xml().scan("C:\\missing.xml", record_));
  EXPECT_THAT(record_.lines(), IsEmpty());
}

TEST_F(XmlScanContract, WhatWasToldBeforeAFailureStaysTold) {
  const XmlLoadResult result = scanFile("<a><b>1</b></c></a>");

  EXPECT_FALSE(result);
  EXPECT_THAT(record_.lines(), ElementsAre("<a", "<b", "1", "b>"));
}

TEST_F(XmlScanContract, LineAndReasonTellWhereAFileDoesNotParse) {
  const XmlLoadResult result = scanFile("<a>\n<b>\n</a>");

  EXPECT_EQ(result.line, 3);
  EXPECT_THAT(result.reason, Not(IsEmpty()));
}

TEST_F(XmlScanContract, WhatDoesNotLoadForBeingBeyondBoundsIsAFailureHereToo) {
  std::string nested;
  for (int depth = 0; depth <= kMaximumXmlDepth; ++depth) {
    nested += "<a>";
  }

  EXPECT_FALSE(scanFile("<!DOCTYPE a><a/>"));
  EXPECT_FALSE(scanFile("<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"));
  EXPECT_FALSE(scanFile("<q:a/>"));
  EXPECT_THAT(record_.lines(), IsEmpty());
  EXPECT_FALSE(scanFile(nested));
}

TEST_F(XmlScanContract, AnExceptionOfTheHandlerComesOutAndEndsTheScan) {
  for (const std::string_view call : {"start", "text", "end"}) {
    ThrowingHandler handler(call, std::logic_error("mine"));
    EXPECT_THROW(scanFile("<a>1<b/>2</a>", handler), std::logic_error) << call;
    EXPECT_EQ(handler.callsAfterThrowing(), 0) << call;
  }
}

TEST_F(XmlScanContract, ARunTimeErrorOfTheHandlerComesOutAsItIs) {
  ThrowingHandler handler("text", RunTimeError(ErrorNumber::kDiskFull));

  EXPECT_EQ(errorRaisedBy([&] { scanFile("<a>1<b/>2</a>", handler); }), 61);
}

TEST_F(XmlScanContract, BytesThatAreNoFileAreToldAlike) {
  EXPECT_TRUE(adapters_->xml().scan(std::make_unique<GivenBytes>("<a>1<b/></a>"), record_));
  EXPECT_THAT(record_.lines(), ElementsAre("<a", "1", "<b", "b>", "a>"));
}

TEST_F(XmlScanContract, BytesBeyondBoundsAreAFailure) {
  EXPECT_FALSE(adapters_->xml().scan(std::make_unique<GivenBytes>("<!DOCTYPE a><a/>"), record_));
  EXPECT_THAT(record_.lines(), IsEmpty());
}

TEST_F(XmlScanContract, ARunTimeErrorOfTheBytesIsAFailureWithItsDescription) {
  const auto broken = std::make_exception_ptr(RunTimeError(ErrorNumber::kDeviceIoError));
  const XmlLoadResult result =
      adapters_->xml().scan(std::make_unique<GivenBytes>("<a>", broken), record_);

  EXPECT_FALSE(result);
  EXPECT_EQ(result.reason, "Device I/O error");
}

TEST_F(XmlScanContract, AnyOtherExceptionOfTheBytesComesOut) {
  const auto other = std::make_exception_ptr(std::logic_error("mine"));

  EXPECT_THROW(adapters_->xml().scan(std::make_unique<GivenBytes>("<a>", other), record_),
               std::logic_error);
}

TEST_F(XmlScanContract, AScanCanBeRunInsideAnother) {
  disk_.write("inner.xml", "<c/>");
  class Outer final : public XmlScanHandler {
   public:
    Outer(XmlLibrary& xml, XmlScanHandler& inner) : xml_(xml), inner_(inner) {}
    void startElement(std::string_view /*name*/, const XmlScanAttributes& /*a*/) override {
      EXPECT_TRUE(xml_.scan("C:\\inner.xml", inner_));
    }
    void text(std::string_view /*text*/) override {}
    void endElement(std::string_view /*name*/) override {}

   private:
    XmlLibrary& xml_;
    XmlScanHandler& inner_;
  } outer(adapters_->xml(), record_);

  EXPECT_TRUE(scanFile("<a><b/></a>", outer));
  EXPECT_THAT(record_.lines(), ElementsAre("<c", "c>", "<c", "c>"));
}

}  // namespace

}  // namespace quorbind::testing
