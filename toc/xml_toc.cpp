#include "toc/xml_toc.h"

#include "bookxml/names.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "resources/messages.h"
#include "toc/book_place.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

namespace {

XmlTocRefusal notLoaded(const XmlLoadResult& result) {
  const std::string place = (Message::kLineNo + std::to_string(result.line)).append("\r");
  return {.violation = {(place + Message::kErrorLoadingXml).append(result.reason)},
          .offered = result.reason,
          .line = static_cast<std::size_t>(result.line),
          .column = static_cast<std::size_t>(result.column),
          .isNotLoaded = true};
}

XmlTocRefusal withoutHeading() {
  return {.violation = {.message = std::string(text(Message::kNoHeading)),
                        .offersLine = false,
                        .icon = MessageIcon::kInformation}};
}

/// The file becomes a part of the library under names that it states itself.
std::optional<std::string> refusalOfStatedNames(const XmlDocument& document) {
  if (const XmlNode path = document.select(book_names::kPathPath)) {
    if (auto refusal = refusalOfStatedFolder(folderInBookPath(path.text()), path.text())) {
      return refusal;
    }
  }
  const XmlNode acronym = document.select(book_names::kAcroPath);
  return acronym ? refusalOfAcronym(acronym.text()) : std::nullopt;
}

}  // namespace

std::optional<XmlTocRefusal> loadXmlToc(XmlDocument& document, std::string_view path) {
  if (const XmlLoadResult result = document.load(path); !result) {
    return notLoaded(result);
  }
  if (document.elementsByName(book_names::kHeadingFile).empty()) {
    return withoutHeading();
  }
  if (auto refusal = refusalOfStatedNames(document)) {
    return XmlTocRefusal{.violation = {.message = *std::move(refusal), .offersLine = false}};
  }
  return std::nullopt;
}

std::string folderInBookPath(std::string_view bookPath) {
  const std::string path = withBackslashes(bookPath);
  const Pieces components(path, "\\");
  return components.count() > 1 ? std::string(components.at(1)) : std::string();
}

}  // namespace quorbind
