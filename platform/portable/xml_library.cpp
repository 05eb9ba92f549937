#include "platform/portable/xml_library.h"

#include <libxml/parser.h>

#include <utility>

#include "platform/portable/portable_xml_document.h"
#include "platform/portable/xml_scan.h"

namespace quorbind {

PortableXmlLibrary::PortableXmlLibrary(FileSystem& files) : files_(files) {
  xmlInitParser();
}

std::unique_ptr<XmlDocument> PortableXmlLibrary::createDocument() {
  return std::make_unique<PortableXmlDocument>(files_);
}

XmlLoadResult PortableXmlLibrary::scan(std::string_view path, XmlScanHandler& handler) {
  return scanXml(files_, path, handler);
}

XmlLoadResult PortableXmlLibrary::scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) {
  return scanXml(std::move(bytes), handler);
}

}  // namespace quorbind
