#include "platform/portable/xml_library.h"

#include <libxml/parser.h>

#include <utility>

#include "platform/portable/element_walk.h"
#include "platform/portable/portable_xml_document.h"
#include "platform/portable/xml_scan.h"

namespace quorbind {

PortableXmlLibrary::PortableXmlLibrary(FileSystem& files) : files_(files) {
  xmlInitParser();
}

std::unique_ptr<XmlDocument> PortableXmlLibrary::createDocument() {
  return std::make_unique<PortableXmlDocument>(files_);
}

XmlLoadResult PortableXmlLibrary::visitNamed(std::string_view path,
                                             std::string_view name,
                                             XmlElementVisitor& visitor) {
  const auto walked = walkElementsNamed(files_, path, name, visitor);
  return walked ? *walked : XmlLibrary::visitNamed(path, name, visitor);
}

XmlLoadResult PortableXmlLibrary::visitSelected(std::string_view path,
                                                std::string_view query,
                                                XmlElementVisitor& visitor) {
  const auto walked = walkElementsSelected(files_, path, query, visitor);
  return walked ? *walked : XmlLibrary::visitSelected(path, query, visitor);
}

XmlLoadResult PortableXmlLibrary::scan(std::string_view path, XmlScanHandler& handler) {
  return scanXml(files_, path, handler);
}

XmlLoadResult PortableXmlLibrary::scan(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler) {
  return scanXml(std::move(bytes), handler);
}

}  // namespace quorbind
