#include "sidefiles/keyword_file.h"

#include <algorithm>
#include <utility>

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/xml_writer.h"
#include "platform/xpath_query.h"
#include "resources/file_comments.h"
#include "resources/messages.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

constexpr std::string_view kToolsComment = ", Authoring Tools";
constexpr std::string_view kTitleComment = "Library Tools Group, Quor Data File ";

/// A comment line, with its blanks where readers of the file have always found them.
std::string commentLine(std::string_view text) {
  return std::string("<!-- ").append(text).append("-->");
}

void writeKeywordHeader(TextWriter& file, const Locale& locale) {
  file.writeLine(kUnicodeDeclaration);
  file.writeLine(commentLine(file_comment::kMaker));
  file.writeLine(commentLine(std::string(file_comment::kFamily).append(kToolsComment)));
  file.writeLine(commentLine(kTitleComment));
  file.writeLine(" <!--" + locale.generalDate(locale.now()) + "-->");
  file.writeLine(commentLine(file_comment::kVersion));
  file.writeLine(" " + commentLine(std::string(file_comment::kContact).append(" ")));
}

void tellThatNothingLoaded(const Platform& platform) {
  platform.ui.show(
      {.text = std::string(text(Message::kFileDoesNotExist)), .icon = MessageIcon::kInformation});
}

bool isBlank(std::string_view keyword) {
  return trimBlanks(keyword).empty();
}

/// Adds the first keyword of a file that is made for it.
void addToNewFile(const Platform& platform,
                  KeywordFile& file,
                  const std::string& path,
                  const std::string& keyword) {
  CreateKeywordXmlFile(platform, path);
  if (file.load()) {
    file.enterBook(keyword);
    file.save();
  }
}

}  // namespace

void CreateKeywordXmlFile(const Platform& platform, const std::string& vstrPath) {
  trapped(platform.ui, source::kCreateKeywordXmlFile, [&] {
    TextWriter file(platform.files, vstrPath);
    writeKeywordHeader(file, platform.locale);
    XmlWriter writer([&file](std::string_view text) { file.write(text); });
    writer.startElement(keyword_names::kBooks);
    writer.endDocument(XmlLastLine::kOpen);
    file.close();
  });
}

void AddKeywordsToXmlFile(const Platform& platform,
                          const std::string& vstrKeywordsPath,
                          const std::string& sBookName,
                          const std::string& sKeyWord) {
  trapped(platform.ui, source::kAddKeywordsToXmlFile, [&] {
    KeywordFile file(platform, vstrKeywordsPath, sBookName);
    if (!platform.files.fileExists(vstrKeywordsPath)) {
      addToNewFile(platform, file, vstrKeywordsPath, sKeyWord);
    } else if (!file.load()) {
      tellThatNothingLoaded(platform);
    } else if (file.add(sKeyWord)) {
      file.save();
    }
  });
}

void EditKeywordsToXmlFile(const Platform& platform,
                           const std::string& vstrKeywordsPath,
                           const std::string& sBookName,
                           const std::string& sKeyWord,
                           const std::string& sOldKeyword) {
  trapped(platform.ui, source::kAddKeywordsToXmlFile, [&] {
    KeywordFile file(platform, vstrKeywordsPath, sBookName);
    if (!file.load()) {
      tellThatNothingLoaded(platform);
    } else if (!isBlank(sKeyWord)) {
      file.rename(sOldKeyword, sKeyWord);
      file.save();
    }
  });
}

KeywordFile::KeywordFile(const Platform& platform, std::string path, std::string bookName)
    : SideFile(platform, std::move(path)), bookName_(std::move(bookName)) {}

bool KeywordFile::add(std::string_view keyword) {
  if (isBlank(keyword)) {
    return false;
  }
  requireBook();
  if (!keywords_) {
    enterBook(keyword);
  } else if (has(keyword)) {
    return false;
  } else {
    append(keyword);
  }
  return true;
}

void KeywordFile::enterBook(std::string_view keyword) {
  const XmlNode book = document().createElement(keyword_names::kBook);
  book.setAttribute(keyword_names::kBookName, bookName_);
  const XmlNode list = appendTextElement(document(), book, keyword_names::kKeywords, "");
  appendTextElement(document(), list, keyword_names::kKeyword, keyword);
  document().select(keyword_names::kBooks).append(book);
  keywords_ = list;
  known_.reset();
}

void KeywordFile::rename(std::string_view old, std::string_view keyword) {
  for (const XmlNode& element : document().selectAll(keywordQuery())) {
    if (element.text() == old) {
      element.setText(keyword);
    }
  }
}

void KeywordFile::dropIndex() {
  keywords_ = XmlNode();
  known_.reset();
  lookedUp_ = false;
  searched_ = false;
}

void KeywordFile::requireBook() {
  if (lookedUp_) {
    return;
  }
  if (document().select(bookQuery())) {
    keywords_ = document().select(listQuery());
    if (!keywords_) {
      raise(ErrorNumber::kObjectNotSet);
    }
  }
  lookedUp_ = true;
}

// One walk through the keywords is faster than entering them in an index.
bool KeywordFile::has(std::string_view keyword) {
  if (std::exchange(searched_, true)) {
    return known().contains(keyword);
  }
  const auto keywords = keywords_.selectAll(keyword_names::kKeyword);
  return std::any_of(keywords.begin(), keywords.end(), [keyword](const XmlNode& node) {
    return node.text() == keyword;
  });
}

const TextIndex& KeywordFile::known() {
  if (!known_) {
    TextIndex all;
    for (const XmlNode& keyword : keywords_.selectAll(keyword_names::kKeyword)) {
      all.add(keyword.text());
    }
    known_ = std::move(all);
  }
  return *known_;
}

std::string KeywordFile::bookQuery() const {
  return std::string(keyword_names::kBooks)
      .append("/")
      .append(keyword_names::kBook)
      .append("[@")
      .append(keyword_names::kBookName)
      .append("=")
      .append(quotedForQuery(bookName_, '\''))
      .append("]");
}

std::string KeywordFile::listQuery() const {
  return bookQuery().append("/").append(keyword_names::kKeywords);
}

std::string KeywordFile::keywordQuery() const {
  return listQuery().append("/").append(keyword_names::kKeyword);
}

// An error leaves no index rather than one that is out of step with the document.
void KeywordFile::append(std::string_view keyword) {
  auto known = std::exchange(known_, std::nullopt);
  if (known) {
    known->add(xmlCharactersOnly(keyword));
  }
  appendTextElement(document(), keywords_, keyword_names::kKeyword, keyword);
  known_ = std::move(known);
}

}  // namespace quorbind
