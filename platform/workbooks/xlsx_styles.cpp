#include "platform/workbooks/xlsx_styles.h"

#include <charconv>
#include <string>
#include <utility>

namespace quorbind {

namespace {

/// 0, the id of the format `General`, for what is no number.
int idIn(std::string_view text) {
  int id = 0;
  std::from_chars(text.data(), text.data() + text.size(), id);
  return id;
}

/// Elements of these names also stand in other lists, where they mean something else.
class StylesHandler final : public XmlScanHandler {
 public:
  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    const std::string_view local = localNameOf(name);
    if (local == kFormats || local == kStyles) {
      list_ = local;
    } else if (list_ == kFormats && local == "numFmt") {
      formats_.define(idIn(attributes.value("numFmtId")),
                      std::string(attributes.value("formatCode")));
    } else if (list_ == kStyles && local == "xf") {
      formats_.addStyle(idIn(attributes.value("numFmtId")));
    }
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view name) override {
    if (localNameOf(name) == list_) {
      list_.clear();
    }
  }

  [[nodiscard]] CellFormats take() { return std::move(formats_); }

 private:
  static constexpr std::string_view kFormats = "numFmts";
  static constexpr std::string_view kStyles = "cellXfs";

  CellFormats formats_;
  /// The list that is being read, if one of interest is.
  std::string list_;
};

}  // namespace

CellFormats readXlsxStyles(XlsxPackage& package, std::string_view part) {
  StylesHandler handler;
  package.scan(part, handler);
  return handler.take();
}

}  // namespace quorbind
