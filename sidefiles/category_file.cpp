#include "sidefiles/category_file.h"

#include <algorithm>

#include "platform/xml_writer.h"
#include "platform/xpath_query.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

constexpr char kQuote = '\'';

}  // namespace

std::string categoryQuery(std::string_view name) {
  return std::string(category_names::kCategoryPath)
      .append("[")
      .append(category_names::kName)
      .append("=")
      .append(quotedForQuery(name, kQuote))
      .append("]");
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
    return categories_[place].acronyms.contains(std::string(acronym));
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
    if (!target.acronyms.contains(acronym)) {
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
  addToIndex(category);
}

std::vector<std::string> CategoryFile::textsInCategories() const {
  std::vector<std::string> texts;
  for (const XmlNode& category : document().select(category_names::kSet).children()) {
    for (const XmlNode& child : category.children()) {
      texts.push_back(child.text());
    }
  }
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
  for (const XmlNode& category : document().selectAll(category_names::kCategoryPath)) {
    addToIndex(category);
  }
  indexed_ = true;
}

void CategoryFile::addToIndex(const XmlNode& node) {
  Category category;
  category.node = node;
  for (XmlNode child = node.firstChild(); child; child = child.nextSibling()) {
    ++category.childCount;
    const std::string name = child.name();
    if (name == category_names::kBookAcro) {
      category.acronyms.insert(child.text());
    } else if (name == category_names::kName) {
      byName_[child.text()].push_back(categories_.size());
    }
  }
  categories_.push_back(std::move(category));
}

std::span<const std::size_t> CategoryFile::categoriesNamed(std::string_view name) {
  requireFitsQuery(name, kQuote);
  requireIndex();
  const auto found = byName_.find(std::string(name));
  return found == byName_.end() ? std::span<const std::size_t>() : found->second;
}

void CategoryFile::appendAcronym(Category& category, std::string_view acronym) {
  appendTextElement(document(), category.node, category_names::kBookAcro, acronym);
  ++category.childCount;
  category.acronyms.insert(xmlCharactersOnly(acronym));
}

}  // namespace quorbind
