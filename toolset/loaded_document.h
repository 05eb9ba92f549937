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

/// The document in the file at `path`. Raises kDocumentNotLoadedError, with the place and the
/// reason in its description.
std::unique_ptr<XmlDocument> loadDocument(XmlLibrary& xml, std::string_view path);

}  // namespace quorbind
