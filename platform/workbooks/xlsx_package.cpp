#include "platform/workbooks/xlsx_package.h"

#include <utility>
#include <vector>

#include "platform/text.h"
#include "platform/workbooks/workbook_refusal.h"

namespace quorbind {

namespace {

std::string_view folderPart(std::string_view part) {
  const std::size_t slash = part.rfind('/');
  return slash == std::string_view::npos ? std::string_view() : part.substr(0, slash + 1);
}

/// The name of the list of what `part` names.
std::string relationsPartOf(std::string_view part) {
  const std::string_view folder = folderPart(part);
  return std::string(folder).append("_rels/").append(part.substr(folder.size())).append(".rels");
}

/// The part that `target`, written in a part that lies in `folder`, names.
std::string resolved(std::string_view folder, std::string_view target) {
  const bool isAbsolute = target.starts_with('/');
  const std::string path = isAbsolute ? std::string(target) : std::string(folder).append(target);
  std::vector<std::string_view> names;
  for (const std::string_view name : Pieces(path, "/")) {
    if (name == ".." && !names.empty()) {
      names.pop_back();
    } else if (!name.empty() && name != "." && name != "..") {
      names.push_back(name);
    }
  }
  std::string part;
  for (const std::string_view name : names) {
    part.append(part.empty() ? "" : "/").append(name);
  }
  return part;
}

class RelationsHandler final : public XmlScanHandler {
 public:
  explicit RelationsHandler(std::string_view folder) : folder_(folder) {}

  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    if (localNameOf(name) != "Relationship") {
      return;
    }
    const std::string_view type = attributes.value("Type");
    const bool isOutside = attributes.value("TargetMode") == "External";
    relations_.insert_or_assign(
        std::string(attributes.value("Id")),
        XlsxRelation{
            .kind = std::string(type.substr(type.rfind('/') + 1)),
            .part = isOutside ? std::string() : resolved(folder_, attributes.value("Target"))});
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override {}

  [[nodiscard]] XlsxRelations take() { return std::move(relations_); }

 private:
  std::string_view folder_;
  XlsxRelations relations_;
};

}  // namespace

void XlsxPackage::scan(std::string_view part, XmlScanHandler& handler) {
  const XmlLoadResult result = xml_.scan(archive_.open(part), handler);
  if (!result) {
    throw WorkbookRefusal(std::string(part)
                              .append(", line ")
                              .append(std::to_string(result.line))
                              .append(": ")
                              .append(result.reason));
  }
}

XlsxRelations XlsxPackage::relationsOf(std::string_view part) {
  const std::string list = relationsPartOf(part);
  RelationsHandler handler(folderPart(part));
  if (archive_.has(list)) {
    scan(list, handler);
  }
  return handler.take();
}

}  // namespace quorbind
