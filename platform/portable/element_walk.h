#pragma once

#include <optional>
#include <string_view>

#include "platform/file_system.h"
#include "platform/xml_document.h"

namespace quorbind {

/// Hands over the elements of a file without keeping the file: each is built while it is read, with
/// everything in it, and freed behind the visit. Most of what a load takes its time for is memory
/// that a query looks at once.
///
/// Nothing where that can't be told from the element alone, because what stands around it can have
/// a say in which white space belongs to it and in its namespace: then, and where the file does not
/// parse, the document has to be loaded.
std::optional<XmlLoadResult> walkElementsNamed(FileSystem& files,
                                               std::string_view path,
                                               std::string_view name,
                                               XmlElementVisitor& visitor);
/// The same for those that a query finds. Nothing as well for a query that needs the whole
/// document.
std::optional<XmlLoadResult> walkElementsSelected(FileSystem& files,
                                                  std::string_view path,
                                                  std::string_view query,
                                                  XmlElementVisitor& visitor);

}  // namespace quorbind
