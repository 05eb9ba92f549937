#pragma once

#include <memory>
#include <string_view>

#include "platform/file_system.h"
#include "platform/runtime_error.h"
#include "platform/xml_document.h"

namespace quorbind {

/// XmlLibrary::scan over MSXML's reader. Every file goes through here before MSXML may build a
/// document from it: the reader knows the line and the reason of a failure in every release, and it
/// can be stopped at what is not allowed before anything is built.
XmlLoadResult scanXml(FileSystem& files, std::string_view path, XmlScanHandler& handler);
XmlLoadResult scanXml(std::unique_ptr<ByteReader> bytes, XmlScanHandler& handler);

/// The failed load of a file for which the file system raised `error`.
XmlLoadResult unreadable(const RunTimeError& error);

}  // namespace quorbind
