#include "cli/doctor/entry_lines.h"

#include "cli/doctor/element_path.h"

namespace quorbind {

namespace {

class LineScan final : public XmlScanHandler {
 public:
  explicit LineScan(std::string_view elements) : elements_(elements) {}

  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    path_.open(name);
    if (path_.is(elements_)) {
      lines_.push_back(attributes.line());
    }
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override { path_.close(); }

  [[nodiscard]] const std::vector<std::size_t>& lines() const { return lines_; }

 private:
  const std::string_view elements_;
  ElementPath path_;
  std::vector<std::size_t> lines_;
};

}  // namespace

std::size_t EntryLines::lineOf(std::size_t index) {
  if (!lines_) {
    LineScan scan(elements_);
    static_cast<void>(xml_.scan(file_, scan));
    lines_ = scan.lines();
  }
  return index < lines_->size() ? (*lines_)[index] : 0;
}

}  // namespace quorbind
