#include "cli/doctor/folder_examination.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "cli/doctor/book_contents.h"
#include "cli/doctor/examined_files.h"
#include "cli/doctor/mending_command.h"
#include "cli/failure.h"
#include "cli/paths.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "toc/xml_toc.h"

namespace quorbind {

namespace {

using Kind = FindingKind;

/// Folders of a book lie far less deep.
constexpr int kDeepestFolder = 32;

class FolderExamination {
 public:
  explicit FolderExamination(ExaminedLibrary& library)
      : library_(library), files_(library.platform.files) {
    for (const ListedBook& book : library.books) {
      if (const auto folder = nameBelow(book.folder)) {
        folders_.insert(library.upperCase(folder->substr(0, folder->find('\\'))));
      }
      hasOwnFolder_ = hasOwnFolder_ || book.folder.empty();
    }
  }

  void run() {
    const FolderNames names = walk(library_.paths.folder, 0);
    for (const std::string& folder : names.folders) {
      requireBookIn(folder);
    }
  }

 private:
  /// Answers what the folder itself holds.
  FolderNames walk(const std::string& folder, int depth) {
    FolderNames names = listFolder(files_, library_.findings, folder);
    findLeftovers(library_.findings, folder, names);
    for (const std::string& name : names.files) {
      if (library_.entries && isNamedAsBookFile(name) &&
          !library_.isClaimed(joinedPath(folder, name))) {
        tellOrphan(joinedPath(folder, name));
      }
    }
    if (depth < kDeepestFolder) {
      for (const std::string& name : names.folders) {
        if (!isLink(joinedPath(folder, name))) {
          walk(joinedPath(folder, name), depth + 1);
        }
      }
    }
    return names;
  }

  /// What a link leads to is examined where it lies, if it is the library's at all.
  static bool isLink(const std::string& folder) {
    std::error_code error;
    return std::filesystem::is_symlink(nativeName(folder), error);
  }

  /// A folder beside those of the books. Where a book lies in the library's own folder, it may be
  /// one of that book's.
  void requireBookIn(const std::string& name) {
    const std::string folder = joinedPath(library_.paths.folder, name);
    if (library_.entries && !hasOwnFolder_ && !folders_.contains(library_.upperCase(name)) &&
        !hasOrphan(folder)) {
      library_.findings.add(Kind::kOrphanFolder, {folder});
    }
  }

  /// Of which more has been told.
  [[nodiscard]] bool hasOrphan(const std::string& folder) const {
    return std::any_of(orphans_.begin(), orphans_.end(), [&](const std::string& orphan) {
      return orphan.starts_with(folder + "\\");
    });
  }

  void tellOrphan(const std::string& file) {
    BookContents contents;
    try {
      contents = readBookContents(library_.platform, file);
    } catch (const CommandFailure&) {
      addOrphan(Kind::kOrphanBookFile, file, {}, {});
      return;
    }
    const ListedBook* book = bookWithNameOrAcronymOf(contents);
    if (book == nullptr) {
      addOrphan(Kind::kOrphanBookFile, file, {}, additionOf(file, contents));
    } else if (!isFileOf(*book, file)) {
      addOrphan(
          Kind::kSuperfluousBookFile, file, {{"BOOK", titleOf(*book)}}, deletingCommand(file));
    }
  }

  void addOrphan(Kind kind,
                 const std::string& file,
                 const FindingWords& words,
                 std::string command) {
    orphans_.push_back(file);
    library_.findings.add(kind, {file}, words, std::move(command));
  }

  /// Reached by another way, through a link.
  [[nodiscard]] bool isFileOf(const ListedBook& book, const std::string& file) const {
    const auto bookFile = library_.fileOf(book);
    return bookFile && files_.sameFile(*bookFile, file);
  }

  [[nodiscard]] const ListedBook* bookWithNameOrAcronymOf(const BookContents& contents) const {
    auto entry = library_.entries->withName(contents.name.text);
    if (!entry) {
      entry = library_.entries->withAcronym(contents.acronym.text);
    }
    return entry ? &library_.books[*entry] : nullptr;
  }

  /// An addition brings the book to the folder that it states, which has to be this one.
  [[nodiscard]] std::string additionOf(const std::string& file,
                                       const BookContents& contents) const {
    const std::string stated = folderInBookPath(contents.path.text);
    const std::string& root = library_.paths.folder;
    const std::string folder = stated.empty() ? root : joinedPath(root, stated);
    const bool isHere =
        contents.path.line > 0 && library_.upperCase(folder) == library_.upperCase(folderOf(file));
    return isHere ? mendingCommand("add", {nativeName(file)}, {}, library_.place) : std::string();
  }

  ExaminedLibrary& library_;
  FileSystem& files_;
  /// Those of the library's folders in which books lie, in upper case.
  std::unordered_set<std::string> folders_;
  bool hasOwnFolder_ = false;
  std::vector<std::string> orphans_;
};

}  // namespace

void examineFolders(ExaminedLibrary& library) {
  FolderExamination(library).run();
}

}  // namespace quorbind
