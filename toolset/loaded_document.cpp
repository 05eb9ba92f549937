#include "toolset/loaded_document.h"

#include <string>

namespace quorbind {

void requireLoaded(const XmlLoadResult& result, std::string_view path) {
  if (result) {
    return;
  }
  const std::string line =
      result.line == 0 ? std::string() : ", line " + std::to_string(result.line);
  throw RunTimeError(kDocumentNotLoadedError,
                     std::string(path).append(line).append(": ").append(result.reason));
}

std::unique_ptr<XmlDocument> loadDocument(XmlLibrary& xml, std::string_view path) {
  auto document = xml.createDocument();
  requireLoaded(document->load(path), path);
  return document;
}

}  // namespace quorbind
