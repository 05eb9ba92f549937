#include "sidefiles/category_filing.h"

#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/error_trap.h"
#include "platform/xml_document.h"
#include "sidefiles/category_file.h"
#include "sidefiles/entry_array.h"
#include "sidefiles/listed_changes.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

std::string acronymQuery(const std::string& category) {
  return categoryQuery(category).append("/").append(category_names::kBookAcro);
}

/// The acronyms that Addothercategory appends, as far as the array goes.
struct Chosen {
  std::vector<std::string> acronyms;
  /// An element beyond the array was asked for.
  bool outOfBounds = false;
};

Chosen chooseAcronyms(const std::vector<XmlNode>& standing, const TextArray& array) {
  Chosen chosen;
  std::unordered_set<std::string> known;
  for (const XmlNode& acronym : standing) {
    known.insert(acronym.text());
  }
  // An entry without text is never found.
  known.erase(std::string());
  for (const std::string& entry : entriesOf(array)) {
    if (standing.empty()) {
      chosen.acronyms.push_back(entry);
    } else if (!known.contains(entry)) {
      const auto index = static_cast<std::int64_t>(standing.size());
      if (ignoringErrors([&] { chosen.acronyms.push_back(array.at(index)); }) != 0) {
        chosen.outOfBounds = true;
        break;
      }
    }
  }
  return chosen;
}

/// The category of one file that Addothercategory adds to.
class OtherCategory {
 public:
  OtherCategory(const Platform& platform, std::string path, std::string name)
      : path_(std::move(path)), name_(std::move(name)), document_(platform.xml.createDocument()) {}

  /// Reads the file. Raises as categoryQuery does.
  bool load() {
    if (!document_->load(path_)) {
      return false;
    }
    category_ = document_->select(categoryQuery(name_));
    return true;
  }
  [[nodiscard]] std::vector<XmlNode> acronyms() const {
    return document_->selectAll(acronymQuery(name_));
  }
  /// Raises 91 when there is no such category.
  void append(const std::string& acronym) {
    appendTextElement(*document_, category_, category_names::kBookAcro, acronym);
  }
  void save() { document_->save(path_); }

 private:
  std::string path_;
  std::string name_;
  std::unique_ptr<XmlDocument> document_;
  XmlNode category_;
};

void appendAtOnce(OtherCategory& category, const std::vector<std::string>& acronyms) {
  for (const std::string& acronym : acronyms) {
    category.append(acronym);
  }
  category.save();
}

void appendOneByOne(OtherCategory& category, const std::vector<std::string>& acronyms) {
  for (const std::string& acronym : acronyms) {
    category.append(acronym);
    category.save();
  }
}

/// Raises what the first acronym that can't be appended meets.
void append(OtherCategory& category, const std::vector<std::string>& acronyms) {
  if (acronyms.empty()) {
    return;
  }
  if (const auto error = errorOf([&] { appendAtOnce(category, acronyms); })) {
    if (!category.load()) {
      throw RunTimeError(*error);
    }
    // Where they don't fit on the disk together, the first ones may.
    appendOneByOne(category, acronyms);
  }
}

}  // namespace

void AddCategoryNode(const Platform& platform,
                     ProcessState& state,
                     const std::string& vstrCategory,
                     const std::string& vstrBookAcro,
                     const std::string& vstrxmlPath) {
  trapped(platform.ui, source::kAddCategoryNode, [&] {
    const std::string& acronym = vstrBookAcro.empty() ? state.currentBookAcro : vstrBookAcro;
    if (state.currentCategoriesPath.empty()) {
      state.currentCategoriesPath = vstrxmlPath;
    }
    CategoryFile file(platform, state.currentCategoriesPath);
    if (file.load() && file.fileBook(vstrCategory, acronym)) {
      file.save();
    }
  });
}

void AddCategoryNodes(const Platform& platform,
                      ProcessState& state,
                      std::span<const std::string> categories) {
  CategoryFile file(platform, state.currentCategoriesPath);
  ListedChanges changes(
      file,
      platform.ui,
      source::kAddCategoryNode,
      {.change = [&](auto item) { return file.fileBook(categories[item], state.currentBookAcro); },
       .alone = [&](auto item) { AddCategoryNode(platform, state, categories[item], {}, {}); }});
  for (std::size_t item = 0; item < categories.size(); ++item) {
    changes.make(item);
  }
  changes.settle();
}

void AddBookAcro(const Platform& platform,
                 const std::string& vstrCateName,
                 const TextArray& vstrarrBookAcro,
                 const std::string& vstrQuorBookCatePath) {
  trapped(platform.ui, source::kAddBookAcro, [&] {
    CategoryFile file(platform, vstrQuorBookCatePath);
    if (file.load()) {
      file.addAcronyms(vstrCateName, entriesOf(vstrarrBookAcro));
      file.save();
    }
  });
}

void Addothercategory(const Platform& platform,
                      const ProcessState& state,
                      const std::string& vstrCateName,
                      const TextArray& vstrothCateBookAcro,
                      const std::string& vstrCategoryPath) {
  trapped(platform.ui, source::kAddOtherCategory, [&] {
    const std::string& path =
        vstrCategoryPath.empty() ? state.currentCategoriesPath : vstrCategoryPath;
    OtherCategory category(platform, path, vstrCateName);
    if (!category.load()) {
      return;
    }
    const Chosen chosen = chooseAcronyms(category.acronyms(), vstrothCateBookAcro);
    append(category, chosen.acronyms);
    if (chosen.outOfBounds) {
      raise(ErrorNumber::kSubscriptOutOfRange);
    }
  });
}

}  // namespace quorbind
