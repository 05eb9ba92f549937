#include "cli/required_document.h"

#include "cli/paths.h"
#include "platform/file_system.h"
#include "platform/text.h"

namespace quorbind {

std::unique_ptr<XmlDocument> loadRequired(const Platform& platform, const std::string& path) {
  requireReadable(platform.files, path, nativeName(path));
  auto document = platform.xml.createDocument();
  if (const XmlLoadResult result = document->load(path); !result) {
    throw loadFailure(platform, path, result);
  }
  return document;
}

XmlNode requireElement(const XmlDocument& document,
                       const std::string& path,
                       std::string_view query) {
  XmlNode element = document.select(query);
  if (!element) {
    throw missingElement(path, Pieces(query, "/").last());
  }
  return element;
}

CommandFailure missingElement(const std::string& path, std::string_view element) {
  return brokenRule(RuleText::kElementMissing,
                    {{"FILE", nativeName(path)}, {"ELEMENT", std::string(element)}},
                    ExitStatus::kNotParseable);
}

std::string childText(const XmlNode& parent, std::string_view element) {
  const XmlNode child = parent.child(element);
  return child ? child.text() : std::string();
}

void requireWritable(FileSystem& files, const std::string& path) {
  writingOutput(nativeName(path), [&] { static_cast<void>(files.replace(path)); });
}

}  // namespace quorbind
