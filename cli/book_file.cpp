#include "cli/book_file.h"

#include <unordered_set>

#include "bookxml/names.h"
#include "cli/catalogue_reader.h"
#include "cli/failure.h"
#include "cli/paths.h"
#include "platform/file_system.h"
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
      ++open_;
    } else if (name == book_names::kHeadingFile) {
      heading_.bookmark = attributes.value(book_names::kBookMark);
    }
  }

  void text(std::string_view text) override { text_.append(text); }

  void endElement(std::string_view name) override {
    if (name == book_names::kHeadingName) {
      heading_.title = readableName(text_);
    } else if (name == book_names::kHeadingFile && open_ > 0) {
      heading_.depth = open_ - 1;
      heading_.document = text_;
      visitor_(heading_);
    } else if (name == book_names::kHeading) {
      --open_;
    }
  }

 private:
  const std::function<void(const BookHeading&)>& visitor_;
  std::size_t open_ = 0;
  BookHeading heading_;
  std::string text_;
};

}  // namespace

void readHeadings(const Platform& platform,
                  const std::string& path,
                  const std::function<void(const BookHeading&)>& visitor) {
  requireReadable(platform.files, path, nativeName(path));
  HeadingScan scan(visitor);
  if (const XmlLoadResult result = platform.xml.scan(path, scan); !result) {
    throw loadFailure(path, result);
  }
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
  const std::string folder = std::string(folderOf(path)) + "\\";
  BookDocuments documents;
  std::unordered_set<std::string> seen;
  readHeadings(platform, path, [&](const BookHeading& heading) {
    const std::string name = heading.document.substr(0, heading.document.find('#'));
    if (name.empty() || !seen.insert(name).second) {
      return;
    }
    const auto below = nameBelow(name);
    const bool present = below && platform.files.fileExists(folder + *below);
    (present ? documents.present : documents.missing).push_back(name);
  });
  return documents;
}

}  // namespace quorbind
