#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "cli/failure.h"
#include "platform/platform.h"
#include "platform/xml_document.h"

namespace quorbind {

/// The document in the file at `path`, which the component names so. One that is not there, can't
/// be read or does not parse is a CommandFailure that says which and where.
std::unique_ptr<XmlDocument> loadRequired(const Platform& platform, const std::string& path);

/// The element that `query` finds in the document of the file at `path`. Without it the file is
/// none of its kind: a CommandFailure.
XmlNode requireElement(const XmlDocument& document,
                       const std::string& path,
                       std::string_view query);

/// The failure of a file that lacks an element without which it is none of its kind.
CommandFailure missingElement(const std::string& path, std::string_view element);

/// The text of a child element; empty when there is none.
std::string childText(const XmlNode& parent, std::string_view element);

/// Fails when the file at `path` may not be replaced, or created where it is missing.
void requireWritable(FileSystem& files, const std::string& path);

}  // namespace quorbind
