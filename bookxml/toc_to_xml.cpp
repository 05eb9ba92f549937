#include "bookxml/toc_to_xml.h"

#include <exception>
#include <optional>
#include <utility>

#include "bookxml/names.h"
#include "platform/error_trap.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/toolset.h"
#include "platform/xml_writer.h"
#include "resources/file_comments.h"

namespace quorbind {

namespace {

constexpr std::string_view kGroupComment = "Library Tools Group, Authoring Tools";
constexpr std::string_view kTitleComment = "Quor Book Data File ";

/// A text file that takes the pieces of a document and keeps the first error to itself until the
/// end: putting the document together and writing it are two steps, and a full disk must not pass
/// for a bad heading, whose errors are ignored.
class DocumentFile {
 public:
  DocumentFile(FileSystem& files, std::string_view path) : file_(files, path) {}

  void write(std::string_view text) noexcept {
    if (failure_) {
      return;
    }
    try {
      file_.write(text);
    } catch (...) {
      failure_ = std::current_exception();
    }
  }
  void close() {
    if (failure_) {
      std::rethrow_exception(failure_);
    }
    file_.close();
  }

 private:
  TextWriter file_;
  std::exception_ptr failure_;
};

/// The folder for a book whose table of contents states none; nothing when the user cancelled.
std::optional<std::string> askForFolder(Module& module) {
  if (!module.state.rememberedBookFolder.empty()) {
    return module.state.rememberedBookFolder;
  }
  frmBookFolder& form = module.bookFolder;
  form.Text1().setText("");
  std::string folder;
  for (;;) {
    form.showModal();
    folder = trimBlanks(form.Text1().text());
    if (!folder.empty()) {
      break;
    }
    if (module.state.cancelled) {
      form.unload();
      return std::nullopt;
    }
  }
  module.state.rememberedBookFolder = folder;
  form.unload();
  return folder;
}

}  // namespace

CTOCToXML::CTOCToXML(Module& module) : module_(module), platform_(module.platform) {}

CTOCToXML::CTOCToXML(Module& module, StatedPlace place) : CTOCToXML(module) {
  place_ = std::move(place);
}

std::string CTOCToXML::mstrGenerateXMLFromTOC(const std::string& vstrtocpath,
                                              const std::string& /*vstrQuorTOcPath*/,
                                              const std::string& vstrBookName,
                                              const std::string& vstrBookAcronym,
                                              const std::string& vstrBookFile,
                                              const std::string& vstrProductName) {
  return trapped(platform_.ui, source::kGenerateXmlFromToc, std::string(), [&] {
    const std::string tocPath = withBackslashes(vstrtocpath);
    const auto folder = findFolder(tocPath);
    if (!folder) {
      return std::string();
    }
    const std::string bookPath =
        std::string(folderOf(tocPath)).append("\\").append(book_names::fileOf(vstrBookAcronym));
    writeFile(tocPath,
              bookPath,
              {.name = vstrBookName,
               .acronym = vstrBookAcronym,
               .file = vstrBookFile,
               .product = vstrProductName,
               .folder = *folder});
    return *folder;
  });
}

/// Where the table of contents says that the book belongs, or else the user; nothing when there is
/// no such place.
std::optional<std::string> CTOCToXML::findFolder(std::string_view tocPath) {
  const StatedPlace stated = place_ ? *place_ : readStatedPlace(platform_, tocPath);
  if (stated.refusal) {
    platform_.ui.show(criticalMessage(*stated.refusal));
    return std::nullopt;
  }
  return stated.folder ? stated.folder : askForFolder(module_);
}

void CTOCToXML::writeFile(const std::string& tocPath,
                          const std::string& bookPath,
                          const Book& book) {
  DocumentFile file(platform_.files, bookPath);
  file.write(std::string(kUnicodeDeclaration).append(kLineEnd));
  XmlWriter writer([&file](std::string_view text) { file.write(text); });
  maddComment(writer);
  writer.startElement(book_names::kMaster);
  mGenerateBookNode(writer, book);
  writer.startElement(book_names::kHeadings);
  mGenerateBookHeadings(writer, tocPath);
  writer.endDocument();
  file.close();
}

void CTOCToXML::maddComment(XmlWriter& writer) {
  trapped(platform_.ui, source::kAddComment, [&] {
    const Locale& locale = platform_.locale;
    writer.comment(file_comment::kMaker);
    writer.comment(kGroupComment);
    writer.comment(kTitleComment);
    writer.comment(locale.generalDate(locale.now()));
    writer.comment(std::string(file_comment::kVersion).append(" "));
    writer.comment(file_comment::kContact);
  });
}

void CTOCToXML::mGenerateBookNode(XmlWriter& writer, const Book& book) {
  const std::size_t depth = writer.depth();
  trapped(platform_.ui, source::kGenerateBookNode, [&] {
    const auto rules = platform_.toolset.createXmlTextRules();
    const Locale& locale = platform_.locale;
    attributes_.clear();
    writer.startElement(book_names::kBook);
    mGenereateXMLTag(writer, book_names::kName, rules->mstrCheckSpecialCharecters(book.name));
    mGenereateXMLTag(writer, book_names::kAcro, rules->mstrCheckSpecialCharecters(book.acronym));
    attributes_.emplace_back(book_names::kKeyId, "");
    mGenereateXMLTag(writer, book_names::kKey, book.product);
    mGenereateXMLTag(writer,
                     book_names::kPath,
                     book.folder.empty() ? book.product : book.product + "\\" + book.folder);
    mGenereateXMLTag(writer, book_names::kBuildDate, locale.generalDate(locale.now()));
    if (!book.file.empty()) {
      attributes_.emplace_back(book_names::kType, Pieces(book.file, ".").last());
      mGenereateXMLTag(writer, book_names::kBookFile, book.file);
    }
    mGenerateBookCateGories(writer);
  });
  while (writer.depth() > depth) {
    writer.endElement();
  }
}

void CTOCToXML::mGenerateBookCateGories(XmlWriter& writer) {
  trapped(platform_.ui, source::kGenerateBookCategories, [&] {
    attributes_.clear();
    writer.textElement(book_names::kCategories, "");
  });
}

void CTOCToXML::mGenerateTypeAttribute(std::string_view fileName) {
  trapped(platform_.ui, source::kGenerateTypeAttribute, [&] {
    constexpr std::string_view kNoType = "none";
    const Pieces pieces(fileName, ".");
    attributes_.emplace_back(book_names::kType, pieces.count() == 1 ? kNoType : pieces.last());
  });
}

void CTOCToXML::mGenereateXMLTag(XmlWriter& writer, std::string_view name, std::string_view text) {
  trapped(platform_.ui, source::kGenerateXmlTag, [&] {
    startElement(writer, name);
    writer.text(text);
    writer.endElement();
  });
}

void CTOCToXML::startElement(XmlWriter& writer, std::string_view name) {
  writer.startElement(name);
  for (const auto& [attribute, value] : attributes_) {
    writer.attribute(attribute, value);
  }
  attributes_.clear();
}

}  // namespace quorbind
