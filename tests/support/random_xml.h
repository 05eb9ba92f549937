#pragma once

#include <string>
#include <string_view>

#include "platform/xml_document.h"

namespace quorbind::testing {

/// A well-formed document as somebody else might have written it: the same for the same seed.
/// Elements with and without namespaces, attributes, comments, instructions, CDATA sections, mixed
/// content, white space of all kinds, and characters from many places.
std::string randomXml(unsigned seed);

/// `skeleton`, a document of our own, with what somebody else may have put into it: the same for
/// the same seed and the same marks. `{aside}` stands for anything outside of the root, `{own}` for
/// attributes, `{content}` for comments, instructions, texts and elements of other namespaces.
std::string withForeignContent(std::string_view skeleton, unsigned seed);

/// Everything that the port tells about `node` and what is below it, as one text.
std::string describeTree(const XmlNode& node);
/// The same of a whole document, what stands outside of the root included, and which of its
/// elements and attributes are in which namespace.
std::string describeDocument(const XmlDocument& document);

}  // namespace quorbind::testing
