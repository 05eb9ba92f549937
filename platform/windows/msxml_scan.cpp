#include "platform/windows/msxml_scan.h"

#include <deque>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/text.h"
#include "platform/windows/byte_stream.h"
#include "platform/windows/com_types.h"
#include "platform/windows/msxml.h"
#include "platform/windows/xml_prologue.h"

namespace quorbind {

namespace {

constexpr const char* kFileMissing = "The system cannot locate the object specified.";
constexpr const char* kDocumentType = "A document type declaration is not allowed.";
constexpr const char* kNoReason = "The file can't be parsed.";

std::string tooDeep() {
  return "More than " + std::to_string(kMaximumXmlDepth) + " elements stand inside each other.";
}

std::string utf8From(const wchar_t* text, int length) {
  return toUtf8({text, static_cast<std::size_t>(length)});
}

/// A message of the parser, which may be several lines, as one.
std::string oneLine(const wchar_t* message) {
  const std::string text = message == nullptr ? std::string() : toUtf8(message);
  std::string line = replaceAll(replaceAll(text, "\r\n", " "), "\n", " ");
  line = trimBlanks(line);
  return line.empty() ? kNoReason : line;
}

/// Where the reader is; 0 when it doesn't tell.
int lineAt(ISAXLocator* locator) {
  int line = 0;
  if (locator != nullptr) {
    static_cast<void>(locator->getLineNumber(&line));
  }
  return line;
}

int columnAt(ISAXLocator* locator) {
  int column = 0;
  if (locator != nullptr) {
    static_cast<void>(locator->getColumnNumber(&column));
  }
  return column;
}

/// The attributes of one start tag where MSXML keeps them.
class Attributes final : public XmlScanAttributes {
 public:
  Attributes(ISAXAttributes& attributes, ISAXLocator* locator)
      : attributes_(attributes), locator_(locator) {}

  [[nodiscard]] std::string_view value(std::string_view name) const override {
    const std::wstring wide = toWide(name);
    const wchar_t* value = nullptr;
    int length = 0;
    const HRESULT found =
        attributes_.getValueFromQName(wide.data(), static_cast<int>(wide.size()), &value, &length);
    return SUCCEEDED(found) ? values_.emplace_back(utf8From(value, length)) : std::string_view();
  }
  [[nodiscard]] std::size_t line() const override {
    return static_cast<std::size_t>(lineAt(locator_));
  }

 private:
  ISAXAttributes& attributes_;
  ISAXLocator* locator_;
  /// Every value asked for, so that the views on them hold.
  mutable std::deque<std::string> values_;
};

/// Hears what the reader finds, keeps to the bounds, and tells a scan's handler.
///
/// It lives on the stack of the scan, longer than the reader: reference counts do nothing. What
/// the handler throws is kept and stops the reader.
class Listener final : public ISAXContentHandler, public ISAXErrorHandler {
 public:
  explicit Listener(XmlScanHandler& handler) : handler_(handler) {}
  virtual ~Listener() = default;
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  [[nodiscard]] const std::optional<XmlLoadResult>& failure() const { return failure_; }
  [[nodiscard]] std::exception_ptr exception() const { return exception_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id == __uuidof(ISAXErrorHandler)) {
      *object = static_cast<ISAXErrorHandler*>(this);
      return S_OK;
    }
    const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(ISAXContentHandler);
    *object = isKnown ? static_cast<ISAXContentHandler*>(this) : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE putDocumentLocator(ISAXLocator* locator) override {
    locator_ = locator;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE startElement(const wchar_t* /*uri*/,
                                         int /*uriLength*/,
                                         const wchar_t* /*localName*/,
                                         int /*localLength*/,
                                         const wchar_t* name,
                                         int length,
                                         ISAXAttributes* attributes) override {
    return guarded([&] {
      if (++depth_ > kMaximumXmlDepth) {
        fail(locator_, tooDeep());
      } else {
        handler_.startElement(utf8From(name, length), Attributes(*attributes, locator_));
      }
    });
  }
  HRESULT STDMETHODCALLTYPE endElement(const wchar_t* /*uri*/,
                                       int /*uriLength*/,
                                       const wchar_t* /*localName*/,
                                       int /*localLength*/,
                                       const wchar_t* name,
                                       int length) override {
    return guarded([&] {
      --depth_;
      handler_.endElement(utf8From(name, length));
    });
  }
  HRESULT STDMETHODCALLTYPE characters(const wchar_t* text, int length) override {
    return guarded([&] { handler_.text(utf8From(text, length)); });
  }
  HRESULT STDMETHODCALLTYPE ignorableWhitespace(const wchar_t* text, int length) override {
    return characters(text, length);
  }

  HRESULT STDMETHODCALLTYPE fatalError(ISAXLocator* locator,
                                       const wchar_t* message,
                                       HRESULT /*code*/) override {
    return guarded([&] { fail(locator, oneLine(message)); });
  }
  HRESULT STDMETHODCALLTYPE error(ISAXLocator* locator,
                                  const wchar_t* message,
                                  HRESULT code) override {
    return fatalError(locator, message, code);
  }

  HRESULT STDMETHODCALLTYPE ignorableWarning(ISAXLocator*, const wchar_t*, HRESULT) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE startDocument() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE endDocument() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE startPrefixMapping(const wchar_t*, int, const wchar_t*, int) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE endPrefixMapping(const wchar_t*, int) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE processingInstruction(const wchar_t*,
                                                  int,
                                                  const wchar_t*,
                                                  int) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE skippedEntity(const wchar_t*, int) override { return S_OK; }

 private:
  template <typename Work>
  HRESULT guarded(Work&& work) {
    if (!isOver()) {
      try {
        work();
      } catch (...) {
        exception_ = std::current_exception();
      }
    }
    return isOver() ? E_FAIL : S_OK;
  }

  [[nodiscard]] bool isOver() const { return failure_.has_value() || exception_ != nullptr; }

  void fail(ISAXLocator* locator, std::string reason) {
    failure_ = {.line = lineAt(locator), .column = columnAt(locator), .reason = std::move(reason)};
  }

  XmlScanHandler& handler_;
  /// The reader's own; it holds while the reader runs.
  ISAXLocator* locator_ = nullptr;
  int depth_ = 0;
  std::optional<XmlLoadResult> failure_;
  std::exception_ptr exception_;
};

/// What a stream ended with, as a failed load.
XmlLoadResult brokenOff(const std::exception_ptr& exception) {
  try {
    std::rethrow_exception(exception);
  } catch (const RunTimeError& error) {
    return unreadable(error);
  }
}

XmlLoadResult read(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) {
  ByteStream stream(std::move(bytes));
  Listener listener(handler);
  HRESULT result = S_OK;
  {
    const ComPtr<ISAXXMLReader> reader = createMsxmlReader();
    requireSuccess(reader->putContentHandler(&listener), reader);
    requireSuccess(reader->putErrorHandler(&listener), reader);
    result = reader->parse(stream.asArgument());
  }
  if (listener.exception() != nullptr) {
    std::rethrow_exception(listener.exception());
  }
  if (stream.failure() != nullptr) {
    return brokenOff(stream.failure());
  }
  if (FAILED(result)) {
    return listener.failure().value_or(XmlLoadResult{.reason = kNoReason});
  }
  return {.loaded = true};
}

}  // namespace

XmlLoadResult scanXml(FileSystem& files, std::string_view path, XmlScanHandler& handler) {
  std::unique_ptr<ByteReader> bytes;
  try {
    bytes = files.open(path);
  } catch (const RunTimeError& error) {
    return unreadable(error);
  }
  return scanXml(std::move(bytes), handler);
}

XmlLoadResult scanXml(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) {
  try {
    if (const std::optional<int> line = lineOfDocumentType(*bytes)) {
      return XmlLoadResult{.line = *line, .reason = kDocumentType};
    }
    bytes->rewind();
  } catch (const RunTimeError& error) {
    return unreadable(error);
  }
  return read(std::move(bytes), handler);
}

XmlLoadResult unreadable(const RunTimeError& error) {
  const bool isMissing =
      error.is(ErrorNumber::kFileNotFound) || error.is(ErrorNumber::kPathNotFound);
  return {.reason = isMissing ? kFileMissing : error.description()};
}

}  // namespace quorbind
