#include "catalogue/book_properties.h"

#include <memory>
#include <optional>
#include <utility>

#include "bookxml/names.h"
#include "catalogue/book_lookup.h"
#include "catalogue/book_queries.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "resources/messages.h"

namespace quorbind {

namespace {

constexpr std::int32_t kProgressMaximum = 10;
constexpr std::int32_t kProgressBeforeCopy = 2;
constexpr std::int32_t kProgressCopied = 4;
constexpr std::int32_t kProgressCatalogueDone = 6;
constexpr std::int32_t kProgressBookXmlDone = 10;

/// The last index of `categories`; nothing for an array that is unset, nor for an index beyond the
/// published 16 bits.
std::optional<std::int16_t> upperBoundOf(const TextArray& categories) {
  const auto bound = static_cast<std::int16_t>(categories.upperBound());
  return categories.texts.empty() || bound != categories.upperBound() ? std::nullopt
                                                                      : std::optional(bound);
}

/// Replaces everything in `parent` by one `element` for each entry that is not empty.
void msetBookCategories(UserInterface& ui,
                        XmlDocument& document,
                        const XmlNode& parent,
                        const TextArray& categories,
                        std::string_view element) {
  trapped(ui, source::kSetBookCategories, [&] {
    parent.setText("");
    const auto last = upperBoundOf(categories);
    for (std::int32_t index = 0; last && index <= *last; ++index) {
      const std::string& entry = categories.at(index);
      if (!entry.empty()) {
        const XmlNode category = document.createElement(element);
        category.setText(entry);
        parent.append(category);
      }
    }
  });
}

/// Writes the categories into the book's entry. Answers whether the book has a book XML file: one
/// that its entry names without a type.
bool msetQuorProperties(UserInterface& ui,
                        XmlDocument& catalogue,
                        const std::string& cataloguePath,
                        const std::string& bookName,
                        const TextArray& categories) {
  using namespace catalogue_names;
  return trapped(ui, source::kSetQuorProperties, false, [&] {
    bool hasBookXml = false;
    for (const XmlNode& child : catalogue.select(booksNamed(bookName)).children()) {
      if (child.name() == kBookFile) {
        hasBookXml |= !child.firstAttribute();
      } else if (child.name() == kCategories) {
        msetBookCategories(ui, catalogue, child, categories, kCategory);
      }
    }
    catalogue.save(cataloguePath);
    return hasBookXml;
  });
}

/// Writes link and categories into a book XML file; one that does not load stays as it is.
void msetBookProperties(const Platform& platform,
                        const std::string& bookXmlPath,
                        const TextArray& categories,
                        const std::string& link) {
  using namespace book_names;
  trapped(platform.ui, source::kSetBookProperties, [&] {
    const auto bookXml = platform.xml.createDocument();
    if (!bookXml->load(bookXmlPath)) {
      return;
    }
    for (const XmlNode& child : bookXml->select(kBookPath).children()) {
      if (child.name() == kKey) {
        child.firstAttribute().setText(link);
      } else if (child.name() == kCategories) {
        msetBookCategories(platform.ui, *bookXml, child, categories, kCategory);
      }
    }
    bookXml->save(bookXmlPath);
  });
}

/// One run of the operation.
class PropertiesChange {
 public:
  PropertiesChange(Module& module,
                   const std::string& cataloguePath,
                   const std::string& bookName,
                   const TextArray& categories)
      : module_(module),
        platform_(module.platform),
        cataloguePath_(withBackslashes(cataloguePath)),
        bookName_(bookName),
        categories_(categories) {}

  bool run(const std::string& folder, const std::string& link) {
    const bool answer = trapped(
        platform_.ui, source::kSetQuorBookProperties, false, [&] { return change(folder, link); });
    if (isOnScreen_) {
      module_.progress.unload();
    }
    return answer;
  }

 private:
  bool change(const std::string& folder, const std::string& link) {
    loadCatalogue();
    if (!catalogueIsLoaded_) {
      return true;
    }
    const std::string fileName =
        catalogue_->select(booksNamed(bookName_)).child(catalogue_names::kBookFile).text();
    const std::string oldFolder = folderOfBook();
    bookFile_ = std::string(folderPartOf(cataloguePath_)).append(joinedPath(oldFolder, fileName));
    fileIsInLibrary_ =
        catalogue_names::staysInLibrary(oldFolder) && catalogue_names::staysInLibrary(fileName);

    showProgress();
    if (trimBlanks(folder) != trimBlanks(oldFolder) && !copyTo(folder, fileName)) {
      return false;
    }
    setStatus(Message::kUpdatingCatalogue);
    if (updateCatalogue()) {
      module_.progress.setValue(kProgressCatalogueDone);
      setStatus(Message::kUpdatingBookXml);
      if (fileIsInLibrary_) {
        msetBookProperties(platform_, bookFile_, categories_, link);
      }
      module_.progress.setValue(kProgressBookXmlDone);
    }
    return true;
  }

  void loadCatalogue() {
    catalogue_ = platform_.xml.createDocument();
    catalogueIsLoaded_ = catalogue_->load(cataloguePath_).loaded;
  }

  [[nodiscard]] std::string folderOfBook() const {
    std::string folder;
    std::string link;
    readFolderAndLink(*catalogue_, bookName_, folder, link);
    return folder;
  }

  /// Answers whether the book has a book XML file.
  bool updateCatalogue() {
    return catalogueIsLoaded_ &&
           msetQuorProperties(platform_.ui, *catalogue_, cataloguePath_, bookName_, categories_);
  }

  void showProgress() {
    module_.progress.setMaximum(kProgressMaximum);
    module_.progress.setCaption(std::string(text(Message::kBookConfigurationInProgress)));
    isOnScreen_ = true;
    module_.progress.show();
  }

  /// Copies the book's file to `folder`, where it is the one to be changed from then on.
  bool copyTo(const std::string& folder, const std::string& fileName) {
    setStatus(Message::kCopyingFilesToNewPath);
    const auto copying = platform_.toolset.createFileCopy();
    std::string newFile = platform_.files.absolutePath(
        std::string(folderPartOf(cataloguePath_)).append(folder).append("\\").append(fileName));
    module_.progress.setValue(kProgressBeforeCopy);
    if (!fileIsInLibrary_ || !copying->mbCopyFiles(newFile, bookFile_, 0, 0)) {
      return false;
    }
    copying->flush();
    module_.progress.setValue(kProgressCopied);
    bookFile_ = std::move(newFile);
    // Copying may take long, and the catalogue may be another one by now.
    loadCatalogue();
    return true;
  }

  void setStatus(Message message) { module_.progress.setStatus(std::string(text(message))); }

  Module& module_;
  const Platform& platform_;
  const std::string cataloguePath_;
  const std::string& bookName_;
  const TextArray& categories_;
  std::unique_ptr<XmlDocument> catalogue_;
  bool catalogueIsLoaded_ = false;
  std::string bookFile_;
  bool fileIsInLibrary_ = false;
  bool isOnScreen_ = false;
};

}  // namespace

bool mbsetQuorBookProperties(Module& module,
                             const std::string& vstrtocpath,
                             const std::string& vstrBookName,
                             const TextArray& rarrsBCategories,
                             const std::string& vstrFolder,
                             const std::string& vstrFullink) {
  return PropertiesChange(module, vstrtocpath, vstrBookName, rarrsBCategories)
      .run(vstrFolder, vstrFullink);
}

}  // namespace quorbind
