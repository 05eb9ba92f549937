#include "platform/windows/msxml.h"

#include <array>
#include <string>
#include <string_view>

#include "platform/runtime_error.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

/// Newest first. 5.0 came with another product and is not meant for others.
constexpr std::array<std::wstring_view, 3> kReleases{L".6.0", L".4.0", L".3.0"};

template <typename Interface>
ComPtr<Interface> createNewest(std::wstring_view className) {
  for (const std::wstring_view release : kReleases) {
    const std::wstring name = std::wstring(className).append(release);
    CLSID identity{};
    ComPtr<Interface> object;
    if (SUCCEEDED(::CLSIDFromProgID(name.c_str(), &identity)) &&
        SUCCEEDED(::CoCreateInstance(
            identity, nullptr, CLSCTX_INPROC_SERVER, object.id(), object.putAny()))) {
      return object;
    }
  }
  raise(ErrorNumber::kCannotCreateObject);
}

/// Sets a property that not every release has.
void offer(const ComPtr<IXMLDOMDocument2>& document, std::string_view name, const Variant& value) {
  static_cast<void>(document->setProperty(Bstr(name).get(), value.get()));
}

void offer(const ComPtr<ISAXXMLReader>& reader, const wchar_t* feature, bool value) {
  static_cast<void>(reader->putFeature(feature, value ? VARIANT_TRUE : VARIANT_FALSE));
}

}  // namespace

ComPtr<IXMLDOMDocument2> createMsxmlDocument() {
  auto document = createNewest<IXMLDOMDocument2>(L"Msxml2.DOMDocument");
  requireSuccess(document->put_async(VARIANT_FALSE), document);
  requireSuccess(document->put_validateOnParse(VARIANT_FALSE), document);
  requireSuccess(document->put_resolveExternals(VARIANT_FALSE), document);
  requireSuccess(document->put_preserveWhiteSpace(VARIANT_TRUE), document);
  requireSuccess(
      document->setProperty(Bstr("SelectionLanguage").get(), Variant::ofText("XPath").get()),
      document);
  offer(document, "ProhibitDTD", Variant::ofBoolean(true));
  offer(document, "AllowXsltScript", Variant::ofBoolean(false));
  offer(document, "AllowDocumentFunction", Variant::ofBoolean(false));
  offer(document, "MaxElementDepth", Variant::ofInteger(kMaximumXmlDepth));
  return document;
}

ComPtr<ISAXXMLReader> createMsxmlReader() {
  auto reader = createNewest<ISAXXMLReader>(L"Msxml2.SAXXMLReader");
  offer(reader, L"prohibit-dtd", true);
  offer(reader, L"http://xml.org/sax/features/external-general-entities", false);
  offer(reader, L"http://xml.org/sax/features/external-parameter-entities", false);
  return reader;
}

}  // namespace quorbind
