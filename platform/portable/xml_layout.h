#pragma once

// White space that only lays a document out. It is left out when a document is loaded and made anew
// when one is saved.

#include <libxml/tree.h>

namespace quorbind {

/// Whether `node` is a text, CDATA sections included, of white space alone.
bool isBlankText(const xmlNode& node);

/// Whether `element` says by `xml:space` that its white space belongs to its content.
bool preservesSpace(const xmlNode& element);

/// Whether the white space of `element`, and of everything in it, belongs to its content: it has
/// text among its children, or white space is all it has, or it says so by `xml:space`.
bool isAsWritten(const xmlNode& element);

}  // namespace quorbind
