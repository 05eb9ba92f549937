#include "catalogue/book_installation.h"

#include <memory>
#include <utility>
#include <vector>

#include "bookxml/names.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "sidefiles/category_creation.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/names.h"
#include "workflow/inputs/catalogue_entry.h"
#include "workflow/inputs/form_input.h"

namespace quorbind {

namespace {

/// Files whose names hold this may have others that belong to them, as XML files may.
constexpr std::string_view kPageMark = ".HTM";

/// What the host says about the book.
struct BookDetails {
  explicit BookDetails(const TextArray& array)
      : name(array.at(0)), acronym(array.at(1)), keywords(array.at(2)), categories(array.at(3)) {}

  std::string name;
  std::string acronym;
  std::string keywords;
  std::string categories;
};

/// Where the library's files are. The server's root brings its own `\`.
struct LibraryPaths {
  LibraryPaths(const std::string& server, const std::string& library)
      : docsFolder(std::string(server).append(server_names::kDocsFolder).append("\\")),
        libraryFolder(docsFolder + library),
        catalogue(fileOf(catalogue_names::kFile)),
        categories(fileOf(category_names::kFile)),
        keywords(fileOf(keyword_names::kFile)) {}

  /// Ends in `\`.
  std::string docsFolder;
  std::string libraryFolder;
  std::string catalogue;
  std::string categories;
  std::string keywords;

 private:
  [[nodiscard]] std::string fileOf(std::string_view name) const {
    return joinedPath(libraryFolder, name);
  }
};

/// Forgets the current book at the end of an installation, however it ends: the next one must not
/// take its name over unasked.
class CurrentBookUntilEnd {
 public:
  explicit CurrentBookUntilEnd(ProcessState& state) : state_(state) {}
  ~CurrentBookUntilEnd() {
    state_.currentBookName.clear();
    state_.currentBookAcro.clear();
  }
  CurrentBookUntilEnd(const CurrentBookUntilEnd&) = delete;
  CurrentBookUntilEnd& operator=(const CurrentBookUntilEnd&) = delete;

 private:
  ProcessState& state_;
};

std::vector<std::string> categoriesIn(const std::string& list) {
  std::vector<std::string> categories;
  for (const std::string_view entry : listEntries(list)) {
    categories.emplace_back(trimBlanks(entry));
  }
  return categories;
}

/// A single keyword gets an empty one in front of it: an array of one element adds nothing.
TextArray keywordsIn(const std::string& list) {
  TextArray keywords;
  const Pieces entries = listEntries(list);
  if (entries.count() == 1) {
    keywords.texts.emplace_back();
  }
  keywords.texts.insert(keywords.texts.end(), entries.begin(), entries.end());
  return keywords;
}

/// One run of the operation.
class BookInstallation {
 public:
  BookInstallation(Module& module,
                   const std::string& document,
                   const BookDetails& details,
                   const LibraryPaths& paths)
      : module_(module),
        platform_(module.platform),
        state_(module.state),
        document_(document),
        details_(details),
        paths_(paths) {}

  /// Asks for what is missing of name and acronym. False when the user gave up.
  bool nameBook() {
    takeOver(details_.name, state_.currentBookName);
    takeOver(details_.acronym, state_.currentBookAcro);
    FormInput input = askFormInput(module_, paths_.catalogue, kSingleDocument);
    if (!input.isGiven) {
      return false;
    }
    catalogue_ = std::move(input.catalogue);
    frmBookInfo& form = module_.bookInfo;
    name_ =
        state_.currentBookName.empty() ? stored(form.txtBookName().text()) : state_.currentBookName;
    acronym_ = state_.currentBookAcro.empty() ? form.txtBookAcro().text() : state_.currentBookAcro;
    return true;
  }

  /// False when there is no catalogue to enter the book in.
  bool enterInCatalogue(const std::string& product,
                        const std::string& fileName,
                        const std::string& type) {
    if (catalogue_ == nullptr) {
      catalogue_ = platform_.xml.createDocument();
      if (!catalogue_->load(paths_.catalogue)) {
        return false;
      }
    }
    appendEntry(*catalogue_,
                {.name = name_,
                 .acronym = acronym_,
                 .product = product,
                 .folder = acronym_,
                 .file = fileName,
                 .fileType = type,
                 .categories = categoriesIn(details_.categories)});
    catalogue_->save(paths_.catalogue);
    return true;
  }

  void copyDocument(const std::string& fileName) {
    const std::string folder = joinedPath(paths_.libraryFolder, acronym_);
    const std::string name = upperCaseAscii(fileNameOf(withBackslashes(document_)));
    std::unique_ptr<FileCopy> copy;
    if (contains(name, kPageMark) || book_names::isXmlFile(name)) {
      copy = platform_.toolset.createFileCopy();
      copy->mbCopyFiles(folder, document_, 0, 0);
    }
    if (!platform_.files.folderExists(folder)) {
      platform_.files.createFolder(folder);
    }
    const std::string target = joinedPath(folder, fileName);
    // It may have been handed over from where it belongs.
    if (!platform_.files.sameFile(document_, target)) {
      platform_.files.copyFile(document_, target);
    }
    if (copy != nullptr) {
      copy->flush();
    }
  }

  void addKeywords() {
    if (!details_.keywords.empty()) {
      AddKeywords(platform_, state_, keywordsIn(details_.keywords), paths_.keywords);
    }
  }

  void addCategories(std::int32_t installationType, bool makeFileAnew) {
    if (makeFileAnew) {
      CreateBookCateXmlFile(platform_, paths_.docsFolder, paths_.categories, installationType);
    }
    AddCategoryNodes(platform_, state_, categoriesIn(details_.categories));
  }

 private:
  [[nodiscard]] std::string stored(const std::string& name) const {
    return platform_.toolset.createXmlTextRules()->mstrCheckSpecialCharecters(name);
  }

  void takeOver(const std::string& detail, std::string& current) const {
    if (!detail.empty()) {
      current = stored(detail);
    }
  }

  Module& module_;
  const Platform& platform_;
  ProcessState& state_;
  const std::string& document_;
  const BookDetails& details_;
  const LibraryPaths& paths_;
  /// As it was read for the check, where nobody had to answer anything since.
  std::unique_ptr<XmlDocument> catalogue_;
  std::string name_;
  std::string acronym_;
};

}  // namespace

void CreateQuorBookNodeForSEntry(Module& module,
                                 const std::string& strTocFile,
                                 const std::string& vstrBookName,
                                 const std::string& vstrType,
                                 const std::string& vstrProductName,
                                 std::int32_t vlngInstallType,
                                 bool vblnChkCateFlag,
                                 const TextArray& strBookInfo) {
  const Platform& platform = module.platform;
  ProcessState& state = module.state;
  const CurrentBookUntilEnd currentBook(state);
  trapped(platform.ui, source::kCreateQuorBookNodeForSEntry, [&] {
    const BookDetails details(strBookInfo);
    state.cancelled = false;
    state.installationType = vlngInstallType;
    state.currentTocPath = strTocFile;
    module.bookInfo.setFileNameLabel(strTocFile);
    const LibraryPaths paths(platform.toolset.createLibraryServices()->GetQuorServer(),
                             vstrProductName);
    state.currentCategoriesPath = paths.categories;

    BookInstallation installation(module, strTocFile, details, paths);
    if (!installation.nameBook() ||
        !installation.enterInCatalogue(vstrProductName, vstrBookName, vstrType)) {
      return;
    }
    installation.copyDocument(vstrBookName);
    installation.addKeywords();
    installation.addCategories(vlngInstallType, vblnChkCateFlag);
  });
}

}  // namespace quorbind
