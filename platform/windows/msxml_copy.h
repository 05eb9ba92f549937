#pragma once

#include "platform/windows/msxml_tree.h"

namespace quorbind {

/// A copy of `node` with everything in it, as a node of `document` that stands nowhere yet. The
/// node may be one of another document; an element declares the namespaces that it uses. Raises 5
/// for what can't be a child.
DomNode copyFor(const ComPtr<IXMLDOMDocument2>& document, const DomNode& node);

}  // namespace quorbind
