#include "catalogue/book_rename.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "bookxml/names.h"
#include "catalogue/book_lookup.h"
#include "catalogue/book_queries.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "resources/messages.h"

namespace quorbind {

namespace {

/// What a book is called.
struct Naming {
  std::string name;
  std::string acronym;
};

/// What the boxes of the book dialog hold.
Naming enteredNaming(Module& module) {
  return {module.bookInfo.txtBookName().text(), module.bookInfo.txtBookAcro().text()};
}

/// Renames one book of one catalogue. Whatever can stop it is found before the first file changes,
/// but for a book file that can't be moved and for what goes wrong in writing.
class BookRename {
 public:
  BookRename(Module& module,
             const std::string& cataloguePath,
             XmlDocument& catalogue,
             Naming current)
      : module_(module),
        platform_(module.platform),
        cataloguePath_(withBackslashes(cataloguePath)),
        catalogue_(catalogue),
        rules_(platform_.toolset.createXmlTextRules()),
        current_(std::move(current)) {}

  void run() {
    current_.name = rules_->mstrCheckSpecialCharecters(current_.name);
    entered_ = enteredNaming(module_);
    storedName_ = rules_->mstrCheckSpecialCharecters(entered_.name);
    if (const auto refusal = refusalOfEnteredNaming()) {
      platform_.ui.show(criticalMessage(*refusal));
      return;
    }
    findNodes();
    if (!moveBookFile()) {
      return;
    }
    nameNode_.setText(storedName_);
    acronymNode_.setText(entered_.acronym);
    if (fileIsInLibrary_) {
      UpdateBookNameAcro(module_, newFile_, current_.name, current_.acronym);
    }
    catalogue_.save(cataloguePath_);

    // The next rename has to ask again.
    module_.state.currentBookName.clear();
    module_.state.currentBookAcro.clear();
  }

 private:
  [[nodiscard]] std::optional<std::string> refusalOfEnteredNaming() const {
    if (trimBlanks(entered_.name).empty() || trimBlanks(entered_.acronym).empty()) {
      return std::string(text(Message::kEnterNameAndAcro));
    }
    const HeldNamings held = heldNamings();
    if (isTaken(held.names, storedName_, current_.name)) {
      return (Message::kErrorBookName + entered_.name) + Message::kAlreadyExists;
    }
    if (isTaken(held.acronyms, entered_.acronym, current_.acronym)) {
      return (Message::kErrorBookAcro + entered_.acronym) + Message::kAlreadyExists;
    }
    return std::nullopt;
  }

  /// What the books of the catalogue are called, in two rows; no node where a book lacks one.
  struct HeldNamings {
    std::vector<XmlNode> names;
    std::vector<XmlNode> acronyms;
  };

  [[nodiscard]] HeldNamings heldNamings() const {
    HeldNamings held;
    for (const XmlNode& book : catalogue_.selectAll(catalogue_names::kBookPath)) {
      XmlNode& name = held.names.emplace_back();
      XmlNode& acronym = held.acronyms.emplace_back();
      for (XmlNode child = book.firstChild(); child && !(name && acronym);
           child = child.nextSibling()) {
        takeFirst(name, child, catalogue_names::kName);
        takeFirst(acronym, child, catalogue_names::kAcro);
      }
    }
    return held;
  }

  static void takeFirst(XmlNode& first, const XmlNode& child, std::string_view name) {
    if (!first && child.isElement() && child.name() == name) {
      first = child;
    }
  }

  /// Whether one of the nodes has the `wanted` text, other than as the `current` one. Raises 91
  /// where a book lacks it.
  [[nodiscard]] bool isTaken(const std::vector<XmlNode>& nodes,
                             std::string_view wanted,
                             std::string_view current) const {
    return std::any_of(nodes.begin(), nodes.end(), [&](const XmlNode& node) {
      const std::string held = node.text();
      return isSame(held, wanted) && !isSame(held, current);
    });
  }

  [[nodiscard]] bool isSame(std::string_view left, std::string_view right) const {
    return platform_.locale.compareText(left, right) == 0;
  }

  void findNodes() {
    const std::vector<XmlNode> byName = catalogue_.selectAll(booksNamed(current_.name));
    const std::vector<XmlNode> byAcronym = catalogue_.selectAll(booksWithAcronym(current_.acronym));
    const std::string bookFolder = childOf(byName, catalogue_names::kFolder).text();
    const std::string folder =
        std::string(folderPartOf(cataloguePath_)).append(bookFolder).append("\\");
    fileIsInLibrary_ = catalogue_names::staysInLibrary(bookFolder) &&
                       catalogue_names::staysInLibrary(book_names::fileOf(current_.acronym));
    oldFile_ = folder + book_names::fileOf(current_.acronym);
    newFile_ = folder + book_names::fileOf(entered_.acronym);
    nameNode_ = childOf(byName, catalogue_names::kName);
    acronymNode_ = childOf(byAcronym, catalogue_names::kAcro);
    ignoringErrors(
        [&] { oldFileExists_ = fileIsInLibrary_ && platform_.files.fileExists(oldFile_); });
    if (oldFileExists_) {
      fileNode_ = childOf(byAcronym, catalogue_names::kBookFile);
    }
  }

  /// The first child of that name that one of the books has. Raises 91 when none has it.
  [[nodiscard]] static XmlNode childOf(const std::vector<XmlNode>& books,
                                       std::string_view element) {
    for (const XmlNode& book : books) {
      if (XmlNode child = book.select(element)) {
        return child;
      }
    }
    raise(ErrorNumber::kObjectNotSet);
  }

  /// Answers whether the rename may go on.
  bool moveBookFile() {
    if (!oldFileExists_) {
      return true;
    }
    if (ignoringErrors([&] { platform_.files.moveFile(oldFile_, newFile_); }) != 0) {
      platform_.ui.show(criticalMessage(
          (Message::kPleaseCloseFile + current_.acronym).append(book_names::kFileExtension)));
      return false;
    }
    fileNode_.setText(book_names::fileOf(entered_.acronym));
    return true;
  }

  Module& module_;
  const Platform& platform_;
  const std::string cataloguePath_;
  XmlDocument& catalogue_;
  const std::unique_ptr<XmlTextRules> rules_;
  /// The name is brought into its stored form first of all.
  Naming current_;
  Naming entered_;
  std::string storedName_;
  std::string oldFile_;
  std::string newFile_;
  bool fileIsInLibrary_ = false;
  bool oldFileExists_ = false;
  XmlNode nameNode_;
  XmlNode acronymNode_;
  XmlNode fileNode_;
};

void msetMatchingBokkIno(Module& module,
                         const std::string& cataloguePath,
                         XmlDocument& catalogue,
                         const Naming& current) {
  trapped(module.platform.ui, source::kSetMatchingBookInfo, [&] {
    BookRename(module, cataloguePath, catalogue, current).run();
  });
}

}  // namespace

void strBookAcroInfo(Module& module,
                     const std::string& vstrtocpath,
                     const std::string& vstrBookName) {
  const Platform& platform = module.platform;
  std::string storedName;
  ignoringErrors([&] {
    storedName = platform.toolset.createXmlTextRules()->mstrCheckSpecialCharecters(vstrBookName);
  });
  std::unique_ptr<XmlDocument> catalogue;
  bool isLoaded = false;
  ignoringErrors([&] {
    catalogue = platform.xml.createDocument();
    isLoaded = catalogue->load(vstrtocpath).loaded;
  });
  const auto acronym = isLoaded ? readAcronym(*catalogue, storedName) : std::nullopt;
  if (acronym) {
    msetMatchingBokkIno(module, vstrtocpath, *catalogue, {vstrBookName, *acronym});
  }
}

void UpdateBookNameAcro(Module& module,
                        const std::string& vstrBookPath,
                        const std::string& vstrBookName,
                        const std::string& vstrBookAcro) {
  using namespace book_names;
  trapped(module.platform.ui, source::kUpdateBookNameAcro, [&] {
    const auto book = module.platform.xml.createDocument();
    if (!book->load(vstrBookPath)) {
      return;
    }
    const Naming entered = enteredNaming(module);
    book->select(childrenOf(elementsWith(kBookPath, kName, vstrBookName, '"'), kName))
        .setText(
            module.platform.toolset.createXmlTextRules()->mstrCheckSpecialCharecters(entered.name));
    book->select(childrenOf(elementsWith(kBookPath, kAcro, vstrBookAcro, '"'), kAcro))
        .setText(entered.acronym);
    book->save(vstrBookPath);
  });
}

}  // namespace quorbind
