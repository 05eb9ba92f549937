#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/runtime_error.h"
#include "platform/xml_document.h"

namespace quorbind {

/// The number of the error that an in-house component raises for a file that it can't do without
/// and that does not load.
inline constexpr std::int32_t kDocumentNotLoadedError = kServerNotConfiguredError + 1;

/// Raises kDocumentNotLoadedError for a file that has not loaded, with the place and the reason in
/// its description.
void requireLoaded(const XmlLoadResult& result, std::string_view path);

/// The document in the file at `path`. Raises as requireLoaded does.
std::unique_ptr<XmlDocument> loadDocument(XmlLibrary& xml, std::string_view path);

}  // namespace quorbind
