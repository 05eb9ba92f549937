#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_index.h"
#include "sidefiles/acronym_list.h"
#include "sidefiles/side_file.h"

namespace quorbind {

/// A library's categories file in memory. Names and acronyms are compared letter by letter.
///
/// Names are looked up as a query between apostrophes would find them: a name that holds an
/// apostrophe raises kInvalidQueryError. Of several categories with one name the first is meant,
/// unless an operation says otherwise. A document with another root has no categories, and adding
/// one to it raises 91. An error leaves the document as it was.
class CategoryFile final : public SideFile {
 public:
  using SideFile::SideFile;
  using Texts = std::vector<std::string>;

  /// Files a book under a category. A category that is not there is made, in front of the one for
  /// all other books, unless its name is empty. False when nothing was done; a book that is filed
  /// under any category of that name already counts as done.
  bool fileBook(std::string_view category, std::string_view acronym);

  /// Adds to a category those of the acronyms that are not in it; an unknown category takes none.
  /// One with more in it than its name, but no acronym among that, takes none either.
  void addAcronyms(std::string_view category, std::span<const std::string> acronyms);

  /// Makes a category in front of the one for all other books, or as the last when that is missing.
  void addCategory(std::string_view name);

  /// Whether there is a category of that name. Raises as looking it up does.
  [[nodiscard]] bool has(std::string_view category);

  /// The texts of everything that stands in a category, category by category: its name, and the
  /// acronyms in it. Raises 91 in a document with another root.
  [[nodiscard]] Texts textsInCategories();

 private:
  struct Category {
    XmlNode node;
    std::size_t childCount = 0;
    AcronymList acronyms;
  };

  /// A category under one of its names, and where in `named_` the next of that name stands.
  struct Named {
    static constexpr std::size_t kNone = SIZE_MAX;
    std::size_t category = 0;
    std::size_t next = kNone;
  };
  /// The places in `named_` of the first and the last of one name.
  struct NamedAlike {
    std::size_t first = 0;
    std::size_t last = 0;
  };

  void dropIndex() override;
  void requireIndex();
  /// Reads everything below `set`; the texts go to `texts` as well, unless that is null.
  void readCategories(const XmlNode& set, Texts* texts);
  void readCategory(const XmlNode& node, Texts* texts);
  void addName(std::string_view name, std::size_t category);
  [[nodiscard]] XmlNode newCategory(std::string_view name);
  /// Puts a new category in front of the one for all other books.
  void insert(const XmlNode& category);
  /// The place in `named_` of the first category of that name, or none. Raises as
  /// requireCategoryName does.
  [[nodiscard]] std::size_t firstNamed(std::string_view name);
  [[nodiscard]] Category& categoryAt(std::size_t place) {
    return categories_[named_[place].category];
  }
  /// Whether a book is filed under the category at that place, or a later one of the same name.
  [[nodiscard]] bool isFiledFrom(std::size_t place, const std::string& acronym);
  void appendAcronym(Category& category, std::string_view acronym);

  std::vector<Category> categories_;
  TextIndex names_;
  /// By the number of the name.
  std::vector<NamedAlike> alike_;
  std::vector<Named> named_;
  /// Whether the tables and the document are in step. Not behind an error half way.
  bool indexed_ = false;
};

/// Raises kInvalidQueryError for a name that can't be looked up: one with an apostrophe.
void requireCategoryName(std::string_view name);

/// The query for the categories of a name. Raises as requireCategoryName does.
std::string categoryQuery(std::string_view name);

}  // namespace quorbind
