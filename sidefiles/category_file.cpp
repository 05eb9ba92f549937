#include "sidefiles/category_file.h"

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
  const std::size_t first = firstNamed(category);
  if (first == Named::kNone) {
    if (category.empty()) {
      return false;
    }
    const XmlNode node = newCategory(category);
    appendTextElement(document(), node, category_names::kBookAcro, acronym);
    insert(node);
  } else if (!isFiledFrom(first, std::string(acronym))) {
    appendAcronym(categoryAt(first), acronym);
  }
  return true;
}

void CategoryFile::addAcronyms(std::string_view category, std::span<const std::string> acronyms) {
  const std::size_t first = firstNamed(category);
  if (first == Named::kNone) {
    return;
  }
  Category& target = categoryAt(first);
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
  insert(newCategory(name));
}

XmlNode CategoryFile::newCategory(std::string_view name) {
  XmlNode category = document().createElement(category_names::kCategory);
  appendTextElement(document(), category, category_names::kName, name);
  return category;
}

void CategoryFile::insert(const XmlNode& category) {
  const std::size_t others = firstNamed(category_names::kOther);
  const XmlNode other = others == Named::kNone ? XmlNode() : categoryAt(others).node;
  indexed_ = false;
  readCategory(category, nullptr);
  document().select(category_names::kSet).insertBefore(category, other);
  indexed_ = true;
}

bool CategoryFile::has(std::string_view category) {
  return firstNamed(category) != Named::kNone;
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
  names_.clear();
  alike_.clear();
  named_.clear();
  indexed_ = false;
}

void CategoryFile::requireIndex() {
  if (indexed_) {
    return;
  }
  dropIndex();
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
      addName(text, categories_.size());
    }
    if (texts != nullptr) {
      texts->push_back(std::move(text));
    }
  }
  if (isCategory) {
    categories_.push_back(std::move(category));
  }
}

void CategoryFile::addName(std::string_view name, std::size_t category) {
  const auto [number, isNew] = names_.add(name);
  const std::size_t place = named_.size();
  named_.push_back({.category = category});
  if (isNew) {
    alike_.push_back({.first = place, .last = place});
  } else {
    named_[alike_[number].last].next = place;
    alike_[number].last = place;
  }
}

std::size_t CategoryFile::firstNamed(std::string_view name) {
  requireCategoryName(name);
  requireIndex();
  const auto number = names_.find(name);
  return number ? alike_[*number].first : Named::kNone;
}

bool CategoryFile::isFiledFrom(std::size_t place, const std::string& acronym) {
  for (; place != Named::kNone; place = named_[place].next) {
    if (categoryAt(place).acronyms.has(acronym)) {
      return true;
    }
  }
  return false;
}

void CategoryFile::appendAcronym(Category& category, std::string_view acronym) {
  indexed_ = false;
  ++category.childCount;
  category.acronyms.add(xmlCharactersOnly(acronym));
  appendTextElement(document(), category.node, category_names::kBookAcro, acronym);
  indexed_ = true;
}

}  // namespace quorbind
