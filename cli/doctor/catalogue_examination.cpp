#include "cli/doctor/catalogue_examination.h"

#include "bookxml/names.h"
#include "catalogue/names.h"
#include "cli/doctor/book_examination.h"
#include "cli/doctor/examined_files.h"
#include "cli/doctor/mending_command.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/toolset.h"

namespace quorbind {

namespace {

using namespace catalogue_names;
using Kind = FindingKind;

/// A text as it stands between the tags of a file.
std::string inXml(std::string_view text) {
  return replaceAll(replaceAll(replaceAll(text, "&", "&amp;"), "<", "&lt;"), ">", "&gt;");
}

class EntryExamination {
 public:
  EntryExamination(ExaminedLibrary& library, EntryIndex::Entry entry)
      : library_(library), entry_(entry), book_(library.books[entry]) {}

  void run() {
    requireElements();
    if (isRepeatedEntry()) {
      add(Kind::kRepeatedEntry, {}, library_.deletionOf(library_.entries->namesake(entry_)));
      return;
    }
    compareNames();
    requireReplacedName();
    if (earlierWithBookFile() == nullptr) {
      examineFile();
    }
  }

 private:
  void add(Kind kind, FindingWords words, std::string command) {
    words.emplace_back("BOOK", titleOf(book_));
    library_.findings.add(kind, library_.placeOf(entry_), words, std::move(command));
  }

  void requireElements() {
    requireElement(kName, book_.name);
    requireElement(kAcro, book_.acronym);
    requireElement(kBookFile, book_.bookFile);
  }

  void requireElement(std::string_view element, const std::string& text) {
    if (trimBlanks(text).empty()) {
      add(Kind::kIncompleteEntry, {{"ELEMENT", std::string(element)}}, {});
    }
  }

  /// An earlier entry with the same name or acronym; null where there is none.
  [[nodiscard]] const ListedBook* earlier(std::optional<EntryIndex::Entry> first,
                                          const std::string& text) const {
    return trimBlanks(text).empty() || !first || *first == entry_ ? nullptr
                                                                  : &library_.books[*first];
  }
  [[nodiscard]] const ListedBook* earlierWithName() const {
    return earlier(library_.entries->withName(book_.name), book_.name);
  }
  [[nodiscard]] const ListedBook* earlierWithAcronym() const {
    return earlier(library_.entries->withAcronym(book_.acronym), book_.acronym);
  }

  [[nodiscard]] bool isSame(const std::string& left, const std::string& right) const {
    return library_.upperCase(left) == library_.upperCase(right);
  }
  [[nodiscard]] bool hasFileOf(const ListedBook& other) const {
    return isSame(book_.folder, other.folder) && isSame(book_.bookFile, other.bookFile);
  }

  [[nodiscard]] bool isRepeatedEntry() const {
    const ListedBook* other = earlierWithName();
    return other != nullptr && isSame(book_.acronym, other->acronym) && hasFileOf(*other);
  }

  /// An earlier entry whose book file this one has; null where there is none.
  [[nodiscard]] const ListedBook* earlierWithBookFile() const {
    return book_.fileType ? nullptr
                          : earlier(library_.entries->withBookFileOf(book_), book_.bookFile);
  }

  void compareNames() {
    if (const ListedBook* other = earlierWithName()) {
      add(Kind::kRepeatedName,
          {{"OTHER", titleOf(*other)}},
          library_.renamingOf(library_.entries->namesake(entry_)));
    }
    if (const ListedBook* other = earlierWithBookFile()) {
      add(Kind::kSharedBookFile, {{"OTHER", titleOf(*other)}}, library_.deletionOf(entry_));
    } else if (const ListedBook* namesake = earlierWithAcronym()) {
      add(Kind::kRepeatedAcronym, {{"OTHER", titleOf(*namesake)}}, renamingOfOneOf(*namesake));
    }
  }

  /// Of two books with one acronym a rename can take the first alone, if they have it in the same
  /// letter case.
  [[nodiscard]] std::string renamingOfOneOf(const ListedBook& other) const {
    const std::string command = library_.renamingOf(entry_);
    const auto otherEntry = static_cast<EntryIndex::Entry>(&other - library_.books.data());
    return command.empty() ? library_.renamingOf(otherEntry) : command;
  }

  void requireReplacedName() {
    const std::string stored =
        library_.platform.toolset.createXmlTextRules()->mstrCheckSpecialCharecters(book_.name);
    if (stored != book_.name) {
      add(Kind::kUnreplacedName, {{"STORED", inXml(stored)}}, {});
    }
  }

  void examineFile() {
    if (trimBlanks(book_.bookFile).empty()) {
      return;
    }
    const auto file = library_.fileOf(book_);
    if (!file) {
      const std::string stated = joinedPath(book_.folder, book_.bookFile);
      add(Kind::kOutsideBook, {{"PLACE", stated}}, library_.deletionOf(entry_));
      return;
    }
    library_.claim(*file);
    if (!hasFolder()) {
      add(Kind::kMissingBookFolder, {{"FOLDER", book_.folder}}, library_.deletionOf(entry_));
    } else if (!library_.hasFile(*file)) {
      tellMissing();
    } else if (!book_.fileType) {
      requireImpliedName();
      examineBook(library_, entry_, *file);
    }
  }

  [[nodiscard]] bool hasFolder() const {
    return book_.folder.empty() ||
           library_.platform.files.folderExists(joinedPath(library_.paths.folder, book_.folder));
  }

  [[nodiscard]] std::string impliedFile() const { return book_names::fileOf(book_.acronym); }

  void tellMissing() {
    ListedBook implied = book_;
    implied.bookFile = impliedFile();
    const auto file = library_.fileOf(implied);
    const bool hasImplied = !book_.fileType && file && library_.hasFile(*file);
    if (!hasImplied) {
      add(Kind::kMissingBookFile, {{"FILE", book_.bookFile}}, library_.deletionOf(entry_));
      return;
    }
    library_.claim(*file);
    add(Kind::kStaleBookFile,
        {{"FILE", book_.bookFile}, {"IMPLIED", implied.bookFile}},
        library_.renamingOf(entry_, /*keepsNames=*/true));
  }

  /// The component makes the name of the file from the acronym when it renames a book.
  void requireImpliedName() {
    if (!trimBlanks(book_.acronym).empty() && !isSame(impliedFile(), book_.bookFile)) {
      add(Kind::kMisnamedBookFile, {{"FILE", book_.bookFile}, {"IMPLIED", impliedFile()}}, {});
    }
  }

  ExaminedLibrary& library_;
  const EntryIndex::Entry entry_;
  const ListedBook& book_;
};

}  // namespace

void examineCatalogue(ExaminedLibrary& library) {
  const std::string& catalogue = library.paths.catalogue;
  if (!library.platform.files.fileExists(catalogue)) {
    library.findings.add(
        Kind::kMissingCatalogue, {catalogue}, {}, mendingCommand("init", {}, {}, library.place));
    return;
  }
  const bool isRead = readingFile(library.findings, catalogue, [&] {
    library.books = readCatalogue(library.platform, catalogue);
  });
  if (!isRead) {
    return;
  }
  library.entries = std::make_unique<EntryIndex>(library.platform, library.books);
  for (EntryIndex::Entry entry = 0; entry < library.books.size(); ++entry) {
    EntryExamination(library, entry).run();
  }
}

}  // namespace quorbind
