#pragma once

#include <string>

#include "platform/xml_document.h"

namespace quorbind::testing {

/// A well-formed document as somebody else might have written it: the same for the same seed.
/// Elements with and without namespaces, attributes, comments, instructions, CDATA sections, mixed
/// content, white space of all kinds, and characters from many places.
std::string randomXml(unsigned seed);

/// Everything that the port tells about `node` and what is below it, as one text.
std::string describeTree(const XmlNode& node);

}  // namespace quorbind::testing
