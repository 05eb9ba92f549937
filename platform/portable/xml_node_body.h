#pragma once

#include "platform/portable/xml_tree.h"
#include "platform/xml_document.h"

namespace quorbind {

/// A reference to a node of `tree`, which lives longer; no node for a null pointer.
XmlNode referenceTo(XmlTree& tree, xmlNode* node);

/// The node that a reference stands for, of whatever document. Raises 5 when it is not one of
/// libxml2's, and 91 for no node.
xmlNode& nodeBehind(const XmlNode& reference);

/// References to all of them.
std::vector<XmlNode> referencesTo(XmlTree& tree, const std::vector<xmlNode*>& nodes);

}  // namespace quorbind
