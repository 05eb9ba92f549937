#pragma once

#include <memory>
#include <string_view>

#include "platform/file_system.h"
#include "platform/xml_document.h"

namespace quorbind {

/// XmlLibrary::scan over libxml2's parser. It holds one piece of markup at a time, so the only
/// thing that can take memory is a single attribute value, comment or instruction of great length.
XmlLoadResult scanXml(FileSystem& files, std::string_view path, XmlScanHandler& handler);
XmlLoadResult scanXml(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler);

}  // namespace quorbind
