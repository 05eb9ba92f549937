#pragma once

#include <optional>

#include "platform/file_system.h"

namespace quorbind {

/// The line, counted from 1, of the document type declaration of an XML file; nothing when it has
/// none. Reads no further than the root element's tag, from where `bytes` stands.
///
/// MSXML can be told to refuse such declarations, but not in every release, and not every release
/// does what it is told.
std::optional<int> lineOfDocumentType(ByteReader& bytes);

}  // namespace quorbind
