#include "cli/doctor/book_examination.h"

#include "bookxml/names.h"
#include "cli/doctor/book_contents.h"
#include "cli/doctor/examined_files.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "toc/xml_toc.h"

namespace quorbind {

namespace {

using Kind = FindingKind;

class BookExamination {
 public:
  BookExamination(ExaminedLibrary& library, const ListedBook& book, const std::string& file)
      : library_(library), book_(book), file_(file), folder_(folderOf(file)) {}

  void run(const BookContents& contents) {
    library_.headings += contents.headings;
    compare(book_names::kName, contents.name, contents.name.text, book_.name);
    compare(book_names::kAcro, contents.acronym, contents.acronym.text, book_.acronym);
    compareFolder(contents.path);
    for (const UsedDocument& document : contents.documents) {
      look(document);
    }
  }

 private:
  void compare(std::string_view element,
               const StatedText& stated,
               const std::string& text,
               const std::string& entered) {
    if (text != entered) {
      library_.findings.add(Kind::kDisagreeingBookFile,
                            {file_, stated.line},
                            {{"ELEMENT", std::string(element)},
                             {"STATED", quoted(text)},
                             {"ENTERED", quoted(entered)}});
    }
  }

  static std::string quoted(const std::string& text) { return "'" + readableName(text) + "'"; }

  /// A book file need not say where it lies, and says it up to the first folder alone.
  void compareFolder(const StatedText& path) {
    const std::string folder = folderInBookPath(path.text);
    const std::string entered = book_.folder.substr(0, book_.folder.find('\\'));
    if (path.line > 0 && library_.upperCase(folder) != library_.upperCase(entered)) {
      compare(book_names::kPath, path, folder, entered);
    }
  }

  void look(const UsedDocument& document) {
    const auto below = nameBelow(document.name);
    const FindingPlace place{file_, document.line};
    if (!below) {
      library_.findings.add(
          Kind::kOutsideDocument, place, {{"DOCUMENT", document.name}, {"BOOK", titleOf(book_)}});
      return;
    }
    const std::string path = joinedPath(folder_, *below);
    // A document may be a book file itself, which is then no book of its own.
    library_.claim(path);
    if (!library_.hasFile(path)) {
      library_.findings.add(
          Kind::kMissingDocument,
          place,
          {{"DOCUMENT", document.name}, {"BOOK", titleOf(book_)}, {"FOLDER", nativeName(folder_)}});
    }
  }

  ExaminedLibrary& library_;
  const ListedBook& book_;
  const std::string& file_;
  const std::string folder_;
};

}  // namespace

void examineBook(ExaminedLibrary& library, EntryIndex::Entry entry, const std::string& file) {
  BookContents contents;
  const bool isRead = readingFile(
      library.findings,
      file,
      [&] { contents = readBookContents(library.platform, file); },
      Kind::kDamagedBookFile,
      library.deletionOf(entry));
  if (isRead) {
    BookExamination(library, library.books[entry], file).run(contents);
  }
}

}  // namespace quorbind
