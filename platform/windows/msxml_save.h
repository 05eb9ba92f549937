#pragma once

#include <string_view>

#include "platform/file_system.h"
#include "platform/windows/msxml_tree.h"

namespace quorbind {

/// Replaces the file at `path` by a document that has a root, with its declaration if it has one,
/// in the encoding that this names. MSXML's own saving would lay nothing out, and not every release
/// writes the encoding that it declares. Raises what FileSystem::replace raises.
void saveXml(const DomNode& document, FileSystem& files, std::string_view path);

}  // namespace quorbind
