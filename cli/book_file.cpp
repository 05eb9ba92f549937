#include "cli/book_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "bookxml/names.h"
#include "cli/book_document_names.h"
#include "cli/catalogue_reader.h"
#include "cli/failure.h"
#include "cli/paths.h"
#include "cli/required_document.h"
#include "platform/file_system.h"
#include "platform/folder_listings.h"
#include "platform/paths.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

class HeadingScan final : public XmlScanHandler {
 public:
  explicit HeadingScan(const std::function<void(const BookHeading&)>& visitor)
      : visitor_(visitor) {}

  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    text_.clear();
    if (name == book_names::kHeading) {
      titles_.emplace_back();
    } else if (name == book_names::kHeadingFile) {
      heading_.bookmark = attributes.value(book_names::kBookMark);
    }
  }

  void text(std::string_view text) override { text_.append(text); }

  void endElement(std::string_view name) override {
    if (titles_.empty()) {
      return;
    }
    if (name == book_names::kHeadingName) {
      titles_.back() = readableName(text_);
    } else if (name == book_names::kHeadingFile) {
      heading_.depth = titles_.size() - 1;
      heading_.title = titles_.back();
      heading_.document = text_;
      visitor_(heading_);
    } else if (name == book_names::kHeading) {
      titles_.pop_back();
    }
  }

 private:
  const std::function<void(const BookHeading&)>& visitor_;
  /// Of the headings that are open; empty for one whose name has not come.
  std::vector<std::string> titles_;
  BookHeading heading_;
  std::string text_;
};

/// Looks for what a book file names as documents beside it.
class DocumentSearch {
 public:
  /// The platform is kept by reference.
  DocumentSearch(const Platform& platform, const std::string& path)
      : folder_(platform.files.absolutePath(folderOf(path)) + "\\"),
        listings_(platform.files, platform.locale),
        names_(path, platform.locale) {}

  [[nodiscard]] BookDocuments take() { return std::move(found_); }

  /// Looks for the document that an element with this text names, if it names one.
  void look(std::string_view element, std::string_view text) {
    const auto document = names_.take(element, text);
    if (!document) {
      return;
    }
    if (document->below && listings_.hasFile(folder_ + *document->below)) {
      found_.present.push_back(document->name);
    } else {
      found_.missing.add(document->name);
    }
  }

 private:
  const std::string folder_;
  FolderListings listings_;
  BookDocumentNames names_;
  BookDocuments found_;
};

/// Hands over what stands in the elements of a book file.
class DocumentScan final : public XmlScanHandler {
 public:
  /// Kept by reference.
  explicit DocumentScan(DocumentSearch& search) : search_(search) {}

  void startElement(std::string_view /*name*/, const XmlScanAttributes& /*attributes*/) override {
    text_.clear();
  }
  void text(std::string_view text) override { text_.append(text); }
  void endElement(std::string_view name) override {
    search_.look(name, text_);
    text_.clear();
  }

 private:
  DocumentSearch& search_;
  std::string text_;
};

void lookForAll(DocumentSearch& search, std::string_view element, const TextStore& texts) {
  for (std::size_t number = 0; number < texts.size(); ++number) {
    search.look(element, texts.at(number));
  }
}

/// Finds the book's key where it belongs, behind the root and the book, and takes its link.
class LinkScan final : public XmlScanHandler {
 public:
  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    constexpr std::array kWay{book_names::kMaster, book_names::kBook, book_names::kKey};
    const bool isOnWay = depth_ == found_ && depth_ < kWay.size() && name == kWay.at(depth_);
    ++depth_;
    if (!isOnWay) {
      return;
    }
    found_ = depth_;
    hasBook_ = hasBook_ || name == book_names::kBook;
    if (name == book_names::kKey && !link_) {
      link_ = attributes.value(book_names::kKeyId);
    }
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override {
    --depth_;
    found_ = std::min(found_, depth_);
  }

  [[nodiscard]] bool hasBook() const { return hasBook_; }
  [[nodiscard]] std::string link() const { return link_.value_or(""); }

 private:
  std::size_t depth_ = 0;
  /// How many of the open elements lead to the key.
  std::size_t found_ = 0;
  bool hasBook_ = false;
  std::optional<std::string> link_;
};

}  // namespace

void scanBookFile(const Platform& platform, const std::string& path, XmlScanHandler& scan) {
  requireReadable(platform.files, path, nativeName(path));
  if (const XmlLoadResult result = platform.xml.scan(path, scan); !result) {
    throw loadFailure(platform, path, result);
  }
}

void readHeadings(const Platform& platform,
                  const std::string& path,
                  const std::function<void(const BookHeading&)>& visitor) {
  HeadingScan scan(visitor);
  scanBookFile(platform, path, scan);
}

std::string readBookLink(const Platform& platform, const std::string& path) {
  LinkScan scan;
  scanBookFile(platform, path, scan);
  if (!scan.hasBook()) {
    throw missingElement(path, book_names::kBook);
  }
  return scan.link();
}

bool haveSameHeadings(const Platform& platform, const std::string& left, const std::string& right) {
  const auto headingsOf = [&platform](const std::string& path) {
    std::vector<BookHeading> headings;
    readHeadings(platform, path, [&](const BookHeading& heading) { headings.push_back(heading); });
    return headings;
  };
  try {
    return headingsOf(left) == headingsOf(right);
  } catch (const CommandFailure&) {
    return false;
  }
}

BookDocuments findDocuments(const Platform& platform, const std::string& path) {
  DocumentSearch search(platform, path);
  DocumentScan scan(search);
  scanBookFile(platform, path, scan);
  return search.take();
}

BookDocuments findDocuments(const Platform& platform,
                            const std::string& path,
                            const NamedFiles& named) {
  DocumentSearch search(platform, path);
  lookForAll(search, book_names::kBookFile, named.mainFiles);
  lookForAll(search, book_names::kHeadingFile, named.headingFiles);
  return search.take();
}

}  // namespace quorbind
