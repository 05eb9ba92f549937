#include "toc/html_place.h"

#include <string>

#include "toc/html_toc.h"
#include "toc/text_form.h"

namespace quorbind {

namespace {

/// Keeps the first heading and ends the walk with it.
class FirstHeading final : public HtmlTocListener {
 public:
  explicit FirstHeading(std::string_view page) { walkHtmlToc(page, *this); }

  /// Empty when there is none.
  [[nodiscard]] const std::string& block() const { return block_; }

  bool heading(const HtmlTocPiece& block) override {
    block_ = block.text;
    return false;
  }
  void refused(const HtmlTocPiece& /*tag*/, HtmlTagFault /*fault*/) override {}
  void refused(const TocViolation& /*violation*/) override {}

 private:
  std::string block_;
};

/// The document of a link, without its bookmark; an empty link leaves the one before it.
std::string_view documentBehind(std::string_view fileBefore, std::string_view path) {
  return path.empty() ? fileBefore : path.substr(0, path.find('#'));
}

}  // namespace

StatedPlace statedPlaceOfPage(std::string_view page, std::string_view fileBefore) {
  const FirstHeading heading(page);
  const auto path = htmlPathIn(heading.block());
  if (!path) {
    return {};
  }
  if (const auto title = htmlTitleBlockIn(page)) {
    fileBefore = documentBehind(fileBefore, htmlPathIn(title->text).value_or(""));
  }
  const std::string name = withoutHtmlTags(heading.block());
  return statedPlaceInEntries(
      text_form::lineOf({.name = name, .file = documentBehind(fileBefore, *path)}), /*line=*/0);
}

}  // namespace quorbind
