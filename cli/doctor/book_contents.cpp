#include "cli/doctor/book_contents.h"

#include <string_view>

#include "bookxml/names.h"
#include "cli/book_document_names.h"
#include "cli/book_file.h"
#include "cli/doctor/element_path.h"
#include "cli/required_document.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

class ContentsScan final : public XmlScanHandler {
 public:
  /// `names` is kept by reference.
  explicit ContentsScan(BookDocumentNames& names) : names_(names) {}

  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    path_.open(name);
    text_.clear();
    line_ = attributes.line();
    hasBook_ = hasBook_ || path_.is(book_names::kBookPath);
  }

  void text(std::string_view text) override { text_.append(text); }

  void endElement(std::string_view name) override {
    contents_.headings += name == book_names::kHeadingFile ? 1 : 0;
    if (const auto document = names_.take(name, text_)) {
      contents_.documents.push_back({document->name, line_});
    }
    takeStated(book_names::kNamePath, contents_.name);
    takeStated(book_names::kAcroPath, contents_.acronym);
    takeStated(book_names::kPathPath, contents_.path);
    path_.close();
    text_.clear();
  }

  [[nodiscard]] bool hasBook() const { return hasBook_; }
  [[nodiscard]] BookContents takeContents() { return std::move(contents_); }

 private:
  /// The first one counts, as it does for whoever looks it up.
  void takeStated(std::string_view element, StatedText& target) const {
    if (target.line == 0 && path_.is(element)) {
      target = {text_, line_};
    }
  }

  BookDocumentNames& names_;
  ElementPath path_;
  std::string text_;
  /// Of the element that was opened last.
  std::size_t line_ = 0;
  bool hasBook_ = false;
  BookContents contents_;
};

}  // namespace

BookContents readBookContents(const Platform& platform, const std::string& path) {
  BookDocumentNames names(path, platform.locale);
  ContentsScan scan(names);
  scanBookFile(platform, path, scan);
  if (!scan.hasBook()) {
    throw missingElement(path, book_names::kBook);
  }
  return scan.takeContents();
}

}  // namespace quorbind
