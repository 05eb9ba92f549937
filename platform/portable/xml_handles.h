#pragma once

#include <libxml/encoding.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <memory>

#include "platform/portable/freed_blocks.h"

namespace quorbind {

/// Calls a function that frees what it is given.
template <auto kFree>
struct XmlDeleter {
  template <typename Type>
  void operator()(Type* owned) const {
    kFree(owned);
  }
};

/// With all of its nodes, which are the small blocks that a program comes to have most of.
inline void freeDocument(xmlDoc* document) {
  const FreedBlocksJoined joined;
  xmlFreeDoc(document);
}

using XmlBufferHandle = std::unique_ptr<xmlBuffer, XmlDeleter<&xmlBufferFree>>;
using XmlDocHandle = std::unique_ptr<xmlDoc, XmlDeleter<&freeDocument>>;
using XmlEncoderHandle = std::unique_ptr<xmlCharEncodingHandler, XmlDeleter<&xmlCharEncCloseFunc>>;
using XmlNodeHandle = std::unique_ptr<xmlNode, XmlDeleter<&xmlFreeNode>>;
using XmlParserHandle = std::unique_ptr<xmlParserCtxt, XmlDeleter<&xmlFreeParserCtxt>>;
using XPathContextHandle = std::unique_ptr<xmlXPathContext, XmlDeleter<&xmlXPathFreeContext>>;
using XPathResultHandle = std::unique_ptr<xmlXPathObject, XmlDeleter<&xmlXPathFreeObject>>;

}  // namespace quorbind
