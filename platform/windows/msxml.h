#pragma once

#include "platform/windows/com_types.h"
#include "platform/windows/msxml_interfaces.h"

namespace quorbind {

/// A document of the newest MSXML that is installed (6.0, 4.0 or 3.0): nothing in it yet, told to
/// keep all white space, to query by XPath, and to stay away from document types and from other
/// files. Raises 429 when there is none.
ComPtr<IXMLDOMDocument2> createMsxmlDocument();

/// A reader of the newest MSXML, told the same. Raises 429 when there is none.
ComPtr<ISAXXMLReader> createMsxmlReader();

}  // namespace quorbind
