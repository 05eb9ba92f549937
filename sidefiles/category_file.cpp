#include "sidefiles/category_file.h"

#include <algorithm>
#include <utility>

#include "platform/xml_writer.h"
#include "platform/xpath_query.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

constexpr char kQuote = '\'';

}  // namespace

void requireCategoryName(std::string_view name) {
  requireFitsQuery(name, kQuote);
}

std::string categoryQuery(std::string_view name) {
  return elementsWith(category_names::kCategoryPath, category_names::kName, name, kQuote);
}

bool CategoryFile::fileBook(std::string_view category, std::string_view acronym) {
  const auto found = categoriesNamed(category);
  if (found.empty()) {
    if (category.empty()) {
      return false;
    }
    addCategory(category);
    appendAcronym(categories_.back(), acronym);
    return true;
  }
  const bool isFiled = std::any_of(found.begin(), found.end(), [&](std::size_t place) {
    return categories_[place].acronyms.has(std::string(acronym));
  });
  if (!isFiled) {
    appendAcronym(categories_[found.front()], acronym);
  }
  return true;
}

void CategoryFile::addAcronyms(std::string_view category, std::span<const std::string> acronyms) {
  const auto found = categoriesNamed(category);
  if (found.empty()) {
    return;
  }
  Category& target = categories_[found.front()];
  if (target.childCount > 1 && target.acronyms.empty()) {
    return;
  }
  for (const std::string& acronym : acronyms) {
    if (!target.acronyms.has(acronym)) {
      appendAcronym(target, acronym);
    }
  }
}

void CategoryFile::addCategory(std::string_view name) {
  const auto others = categoriesNamed(category_names::kOther);
  const XmlNode other = others.empty() ? XmlNode() : categories_[others.front()].node;
  const XmlNode category = document().createElement(category_names::kCategory);
  appendTextElement(document(), category, category_names::kName, name);
  document().select(category_names::kSet).insertBefore(category, other);
  readCategory(category, nullptr);
}

bool CategoryFile::has(std::string_view category) {
  return !categoriesNamed(category).empty();
}

CategoryFile::Texts CategoryFile::textsInCategories() {
  const XmlNode set = document().select(category_names::kSet);
  dropIndex();
  Texts texts;
  readCategories(set, &texts);
  return texts;
}

void CategoryFile::dropIndex() {
  categories_.clear();
  byName_.clear();
  indexed_ = false;
}

void CategoryFile::requireIndex() {
  if (indexed_) {
    return;
  }
  if (const XmlNode set = document().select(category_names::kSet)) {
    readCategories(set, nullptr);
  }
  indexed_ = true;
}

void CategoryFile::readCategories(const XmlNode& set, Texts* texts) {
  for (XmlNode node = set.firstChild(); node; node = node.nextSibling()) {
    readCategory(node, texts);
  }
  indexed_ = true;
}

void CategoryFile::readCategory(const XmlNode& node, Texts* texts) {
  const bool isCategory = node.name() == category_names::kCategory;
  Category category;
  category.node = node;
  for (XmlNode child = node.firstChild(); child; child = child.nextSibling()) {
    ++category.childCount;
    std::string text = child.text();
    const std::string name = child.name();
    if (isCategory && name == category_names::kBookAcro) {
      category.acronyms.add(text);
    } else if (isCategory && name == category_names::kName) {
      byName_[text].push_back(categories_.size());
    }
    if (texts != nullptr) {
      texts->push_back(std::move(text));
    }
  }
  if (isCategory) {
    categories_.push_back(std::move(category));
  }
}

std::span<const std::size_t> CategoryFile::categoriesNamed(std::string_view name) {
  requireCategoryName(name);
  requireIndex();
  const auto found = byName_.find(name);
  return found == byName_.end() ? std::span<const std::size_t>() : found->second;
}

void CategoryFile::appendAcronym(Category& category, std::string_view acronym) {
  appendTextElement(document(), category.node, category_names::kBookAcro, acronym);
  ++category.childCount;
  category.acronyms.add(xmlCharactersOnly(acronym));
}

}  // namespace quorbind
