#include "sidefiles/category_rebuild.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/xml_document.h"
#include "sidefiles/category_file.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/entry_array.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

/// What the books of a catalogue say of their categories, or of one of them.
class Filings final : private XmlElementVisitor {
 public:
  /// Of `only`, where it is not null.
  Filings(const Platform& platform, const std::string& cataloguePath, const std::string* only)
      : only_(only) {
    if (!platform.xml.visitNamed(cataloguePath, catalogue_names::kBook, *this)) {
      begin();
    }
  }

  /// The acronyms of the books that name the category, behind the placeholder.
  [[nodiscard]] const TextArray& of(const std::string& category) const {
    const auto found = acronyms_.find(category);
    return found == acronyms_.end() ? none_ : found->second;
  }
  /// The acronyms of the books that name none, behind the placeholder.
  [[nodiscard]] const TextArray& uncategorised() const { return uncategorised_; }

  /// Runs `step` behind each book, with the uncategorised acronyms so far, once there are any.
  template <typename Step>
  void afterEachBook(Step&& step) const {
    TextArray soFar = noEntries();
    for (const std::size_t count : uncategorisedAfterBook_) {
      while (soFar.texts.size() < count) {
        soFar.texts.push_back(uncategorised_.texts[soFar.texts.size()]);
      }
      if (!entriesOf(soFar).empty()) {
        step(soFar);
      }
    }
  }

 private:
  void begin() override {
    acronyms_.clear();
    uncategorised_ = noEntries();
    uncategorisedAfterBook_.clear();
  }

  void visit(const XmlNode& book) override {
    take(book);
    uncategorisedAfterBook_.push_back(uncategorised_.texts.size());
  }

  // A book's acronym counts from where it stands on.
  void take(const XmlNode& book) {
    std::string acronym;
    for (XmlNode child = book.firstChild(); child; child = child.nextSibling()) {
      const std::string name = child.name();
      if (name == catalogue_names::kAcro) {
        acronym = child.text();
      } else if (name == catalogue_names::kCategories) {
        takeCategories(child, acronym);
      }
    }
  }

  void takeCategories(const XmlNode& categories, const std::string& acronym) {
    XmlNode category = categories.firstChild();
    if (!category) {
      uncategorised_.texts.push_back(acronym);
    }
    for (; category; category = category.nextSibling()) {
      const std::string name = category.text();
      if (only_ == nullptr || name == *only_) {
        file(name, acronym);
      }
    }
  }

  void file(const std::string& category, const std::string& acronym) {
    TextArray& filed = acronyms_[category];
    if (filed.texts.empty()) {
      filed = noEntries();
    }
    filed.texts.push_back(acronym);
  }

  const std::string* only_;
  const TextArray none_ = noEntries();
  std::unordered_map<std::string, TextArray> acronyms_;
  TextArray uncategorised_ = noEntries();
  /// How long that array was behind each book.
  std::vector<std::size_t> uncategorisedAfterBook_;
};

const std::string& otherCategory() {
  static const std::string kName(category_names::kOther);
  return kName;
}

/// Whether the file, with which `error` happened, can't be read any more. Then nothing that is done
/// again would tell of it, and the user is told here as the first filing would have done.
bool tellOfLoss(const Platform& platform, CategoryFile& file, const RunTimeError& error) {
  const bool isGone = file.isGone();
  if (isGone) {
    reportError(platform.ui, source::kAddBookAcro, error);
  }
  return isGone;
}

/// Files the books without a category under the one for them. The published way is to do so behind
/// each book, again with those before it; once at the end leaves the same, unless it can't be
/// saved.
void fileUncategorised(const Platform& platform, const std::string& path, const Filings& filings) {
  if (entriesOf(filings.uncategorised()).empty()) {
    return;
  }
  CategoryFile file(platform, path);
  const auto error = errorOf([&] {
    if (file.load()) {
      file.addAcronyms(otherCategory(), entriesOf(filings.uncategorised()));
      file.save();
    }
  });
  if (error && !tellOfLoss(platform, file, *error)) {
    filings.afterEachBook(
        [&](const TextArray& acronyms) { AddBookAcro(platform, otherCategory(), acronyms, path); });
  }
}

const TextArray& acronymsOf(const Platform& platform,
                            const ProcessState& state,
                            const std::string& category,
                            const Filings& filings) {
  fileUncategorised(platform, state.currentCategoriesPath, filings);
  return filings.of(category);
}

/// Brings the lists of one categories file up to date, names after names of its categories.
class Rebuild {
 public:
  /// Kept by reference.
  Rebuild(const Platform& platform,
          const ProcessState& state,
          CategoryFile& file,
          const Filings& filings)
      : platform_(platform), state_(state), file_(file), filings_(filings) {}

  void run(std::span<const std::string> names) {
    while (!names.empty()) {
      const Quiet quiet(names);
      fileQuietly(quiet);
      names = names.subspan(quiet.all.size());
      if (!names.empty()) {
        fileAlone(names.front());
        names = names.subspan(1);
      }
    }
  }

 private:
  /// The names up to the first that fails when it is looked up, which has to be told.
  struct Quiet {
    explicit Quiet(std::span<const std::string> names) {
      std::unordered_set<std::string_view> known;
      std::size_t count = 0;
      for (; count < names.size(); ++count) {
        if (known.insert(names[count]).second) {
          if (hasFailureToTell(names[count])) {
            break;
          }
          distinct.push_back(&names[count]);
        }
      }
      all = names.first(count);
    }

    std::span<const std::string> all;
    /// Each once. One that comes again finds its category as complete as it left it.
    std::vector<const std::string*> distinct;
  };

  static bool hasFailureToTell(const std::string& name) {
    return ignoringErrors([&] { requireCategoryName(name); }) != 0;
  }

  void fileQuietly(const Quiet& names) {
    if (names.all.empty()) {
      return;
    }
    const auto error = errorOf([&] { fileTogether(names.distinct); });
    if (error && !tellOfLoss(platform_, file_, *error)) {
      for (const std::string& name : names.all) {
        fileAlone(name);
      }
    }
  }

  void fileTogether(std::span<const std::string* const> names) {
    if (!file_.load()) {
      return;
    }
    file_.addAcronyms(otherCategory(), entriesOf(filings_.uncategorised()));
    for (const std::string* name : names) {
      // Most are acronyms.
      if (file_.has(*name)) {
        file_.addAcronyms(*name, entriesOf(filings_.of(*name)));
      }
    }
    file_.save();
  }

  void fileAlone(const std::string& name) {
    file_.forget();
    AddBookAcro(platform_,
                name,
                acronymsOf(platform_, state_, name, filings_),
                state_.currentCategoriesPath);
  }

  const Platform& platform_;
  const ProcessState& state_;
  CategoryFile& file_;
  const Filings& filings_;
};

}  // namespace

TextArray GetBookAcroValue(const Platform& platform,
                           const ProcessState& state,
                           const std::string& vstrCateName,
                           const std::string& vstrQuorTOcPath) {
  return trapped(platform.ui, source::kGetBookAcroValue, TextArray(), [&] {
    const Filings filings(platform, vstrQuorTOcPath, &vstrCateName);
    return acronymsOf(platform, state, vstrCateName, filings);
  });
}

void GetBookAcroInfo(const Platform& platform,
                     ProcessState& state,
                     const std::string& vstrQuorBookCatePath,
                     const std::string& vstrQuorTOcPath) {
  trapped(platform.ui, source::kGetBookAcroInfo, [&] {
    state.currentCategoriesPath = vstrQuorBookCatePath;
    CategoryFile file(platform, vstrQuorBookCatePath);
    if (file.load()) {
      const std::vector<std::string> names = file.textsInCategories();
      const Filings filings(platform, vstrQuorTOcPath, nullptr);
      Rebuild(platform, state, file, filings).run(names);
    }
  });
}

}  // namespace quorbind
