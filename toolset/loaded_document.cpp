#include "toolset/loaded_document.h"

#include <string>

namespace quorbind {

std::unique_ptr<XmlDocument> loadDocument(XmlLibrary& xml, std::string_view path) {
  auto document = xml.createDocument();
  if (const XmlLoadResult result = document->load(path); !result) {
    const std::string line =
        result.line == 0 ? std::string() : ", line " + std::to_string(result.line);
    throw RunTimeError(kDocumentNotLoadedError,
                       std::string(path).append(line).append(": ").append(result.reason));
  }
  return document;
}

}  // namespace quorbind
