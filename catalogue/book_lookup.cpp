#include "catalogue/book_lookup.h"

#include <utility>

#include "catalogue/names.h"
#include "platform/xpath_query.h"

namespace quorbind {

namespace {

constexpr char kQuote = '"';

class Texts final : public XmlElementVisitor {
 public:
  void begin() override { texts_.clear(); }
  void visit(const XmlNode& element) override { texts_.push_back(element.text()); }

  [[nodiscard]] std::vector<std::string> take() { return std::move(texts_); }

 private:
  std::vector<std::string> texts_;
};

}  // namespace

std::string booksNamed(std::string_view name) {
  return elementsWith(catalogue_names::kBookPath, catalogue_names::kName, name, kQuote);
}

std::string booksWithAcronym(std::string_view acronym) {
  return elementsWith(catalogue_names::kBookPath, catalogue_names::kAcro, acronym, kQuote);
}

std::vector<std::string> publishedList(const std::vector<XmlNode>& nodes) {
  std::vector<std::string> texts;
  texts.reserve(nodes.size() + 1);
  for (const XmlNode& node : nodes) {
    texts.push_back(node.text());
  }
  texts.emplace_back();
  return texts;
}

std::optional<std::vector<std::string>> publishedTexts(XmlLibrary& xml,
                                                       std::string_view path,
                                                       std::string_view name) {
  Texts visited;
  if (!xml.visitNamed(path, name, visited)) {
    return std::nullopt;
  }
  std::vector<std::string> texts = visited.take();
  texts.emplace_back();
  return texts;
}

}  // namespace quorbind
