#include "cli/doctor/book_contents.h"

#include <string_view>
#include <unordered_set>

#include "bookxml/names.h"
#include "cli/doctor/element_path.h"
#include "cli/failure.h"
#include "cli/paths.h"
#include "cli/required_document.h"
#include "platform/paths.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

class ContentsScan final : public XmlScanHandler {
 public:
  /// `folder` is the name of the book's folder.
  explicit ContentsScan(std::string_view folder) : folder_(std::string(folder) + "\\") {}

  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    path_.open(name);
    text_.clear();
    line_ = attributes.line();
    hasBook_ = hasBook_ || path_.is(book_names::kBookPath);
  }

  void text(std::string_view text) override { text_.append(text); }

  void endElement(std::string_view name) override {
    if (name == book_names::kHeadingFile) {
      ++contents_.headings;
      use(text_);
    } else if (name == book_names::kBookFile) {
      use(inBookFolder(text_));
    } else {
      takeStated(book_names::kNamePath, contents_.name);
      takeStated(book_names::kAcroPath, contents_.acronym);
      takeStated(book_names::kPathPath, contents_.path);
    }
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

  void use(std::string_view document) {
    const std::string name(document.substr(0, document.find('#')));
    if (!name.empty() && used_.insert(name).second) {
      contents_.documents.push_back({name, line_});
    }
  }

  /// The book of a workbook states its main file with the book's folder in front.
  [[nodiscard]] std::string_view inBookFolder(std::string_view file) const {
    return file.starts_with(folder_) ? file.substr(folder_.size()) : file;
  }

  const std::string folder_;
  ElementPath path_;
  std::string text_;
  /// Of the element that was opened last.
  std::size_t line_ = 0;
  bool hasBook_ = false;
  BookContents contents_;
  std::unordered_set<std::string> used_;
};

}  // namespace

BookContents readBookContents(const Platform& platform, const std::string& path) {
  requireReadable(platform.files, path, nativeName(path));
  ContentsScan scan(fileNameOf(folderOf(path)));
  if (const XmlLoadResult result = platform.xml.scan(path, scan); !result) {
    throw loadFailure(path, result);
  }
  if (!scan.hasBook()) {
    throw missingElement(path, book_names::kBook);
  }
  return scan.takeContents();
}

}  // namespace quorbind
