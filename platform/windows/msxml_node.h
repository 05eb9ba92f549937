#pragma once

#include <string_view>
#include <vector>

#include "platform/windows/com_types.h"
#include "platform/windows/msxml_interfaces.h"
#include "platform/xml_document.h"

namespace quorbind {

/// A reference to a node of `document`; no node for an empty pointer.
XmlNode referenceTo(const ComPtr<IXMLDOMDocument2>& document, ComPtr<IXMLDOMNode> node);

/// The node that a reference stands for, of whatever document. Raises 5 when it is not one of
/// MSXML's, and 91 for no node.
const ComPtr<IXMLDOMNode>& nodeBehind(const XmlNode& reference);

/// A new element that stands nowhere. Raises 5 for what is no name, and for a name with a prefix:
/// nothing could declare it.
XmlNode createElement(const ComPtr<IXMLDOMDocument2>& document, std::string_view name);

/// What an XPath query finds from `start`, as XmlNode::selectAll has it.
std::vector<XmlNode> selectFrom(const ComPtr<IXMLDOMDocument2>& document,
                                IXMLDOMNode& start,
                                std::string_view query);

}  // namespace quorbind
