#pragma once

#include "platform/portable/xml_tree.h"
#include "platform/xml_document.h"

namespace quorbind {

/// A reference to a node of `tree`, which lives longer; no node for a null pointer.
XmlNode referenceTo(XmlTree& tree, xmlNode* node);

/// References to all of them.
std::vector<XmlNode> referencesTo(XmlTree& tree, const std::vector<xmlNode*>& nodes);

}  // namespace quorbind
