#include "platform/portable/path_query.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/portable/xml_text.h"
#include "platform/portable/xml_tree.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool isInName(char c) {
  return isLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

/// A name without a prefix means an element without a namespace.
bool isPlainElement(const xmlNode& node, std::string_view name) {
  return node.type == XML_ELEMENT_NODE && isSameText(node.name, name) && node.ns == nullptr;
}

}  // namespace

/// Takes a query apart from its beginning. Each function answers whether it found what it reads.
class PathQuery::Reader {
 public:
  explicit Reader(std::string_view query) : rest_(query) {}

  bool readSteps(std::vector<Step>& steps) {
    do {
      if (!readStep(steps.emplace_back())) {
        return false;
      }
    } while (take('/'));
    return rest_.empty();
  }

 private:
  bool readStep(Step& step) {
    if (!readName(step.name)) {
      return false;
    }
    return !take('[') || (readCondition(step.condition.emplace()) && take(']'));
  }

  bool readCondition(Condition& condition) {
    return (take('.') || readName(condition.child)) && take('=') && readLiteral(condition.text);
  }

  bool readName(std::string& name) {
    if (rest_.empty() || !isLetter(rest_.front())) {
      return false;
    }
    const auto* const end = std::find_if_not(rest_.begin(), rest_.end(), isInName);
    name = takeFront(static_cast<std::size_t>(end - rest_.begin()));
    return true;
  }

  bool readLiteral(std::string& text) {
    if (rest_.empty() || (rest_.front() != '"' && rest_.front() != '\'')) {
      return false;
    }
    const std::size_t end = rest_.find(rest_.front(), 1);
    if (end == std::string_view::npos) {
      return false;
    }
    text = takeFront(end + 1).substr(1, end - 1);
    return isXmlCharactersOnly(text);
  }

  bool take(char c) {
    if (!rest_.starts_with(c)) {
      return false;
    }
    takeFront(1);
    return true;
  }

  std::string_view takeFront(std::size_t count) {
    const std::string_view front = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return front;
  }

  std::string_view rest_;
};

std::optional<PathQuery> PathQuery::read(std::string_view query) {
  PathQuery result;
  return Reader(query).readSteps(result.steps_) ? std::optional(std::move(result)) : std::nullopt;
}

std::vector<xmlNode*> PathQuery::find(const xmlNode& start) const {
  std::vector<xmlNode*> found;
  findFrom(start, 0, found);
  return found;
}

// Those with the name that tells most are looked at, and for each of them, whether it stands where
// the query says. What the steps lead to stands at one depth, so the order is that of the document.
std::vector<xmlNode*> PathQuery::find(const xmlDoc& document, const ElementIndex& index) const {
  const std::size_t steps = stepsToCondition();
  const std::optional<Condition>& condition = steps_[steps - 1].condition;
  const bool isOfChild = condition && !condition->isOfItself();
  const std::string& name = isOfChild ? condition->child : steps_[steps - 1].name;
  std::vector<xmlNode*> found;
  const xmlNode* last = nullptr;
  for (xmlNode* const candidate : index.named(name, document)) {
    if (!isPlainElement(*candidate, name) ||
        (condition && !hasTextBelow(*candidate, condition->text))) {
      continue;
    }
    xmlNode* const element = isOfChild ? candidate->parent : candidate;
    if (element != last && isBelow(document, steps, *element)) {
      last = element;
      finish(*element, steps, found);
    }
  }
  return found;
}

bool PathQuery::isStep(std::size_t step, std::string_view name) const {
  return step < steps_.size() && steps_[step].name == name;
}

std::vector<xmlNode*> PathQuery::findFromConditionOn(xmlNode& element) const {
  const std::size_t steps = stepsToCondition();
  const Step& last = steps_[steps - 1];
  std::vector<xmlNode*> found;
  if (isPlainElement(element, last.name) && (!last.condition || holds(*last.condition, element))) {
    finish(element, steps, found);
  }
  return found;
}

std::size_t PathQuery::stepsToCondition() const {
  const auto conditional = std::find_if(
      steps_.begin(), steps_.end(), [](const Step& step) { return step.condition.has_value(); });
  return conditional == steps_.end() ? steps_.size()
                                     : static_cast<std::size_t>(conditional - steps_.begin()) + 1;
}

/// Whether the names of that many steps lead from the document to `element`.
bool PathQuery::isBelow(const xmlDoc& document, std::size_t steps, const xmlNode& element) const {
  const xmlNode* outer = &element;
  while (steps > 0 && isPlainElement(*outer, steps_[steps - 1].name)) {
    outer = outer->parent;
    --steps;
  }
  return steps == 0 && outer == reinterpret_cast<const xmlNode*>(&document);
}

void PathQuery::findFrom(const xmlNode& parent,
                         std::size_t step,
                         std::vector<xmlNode*>& found) const {
  const Step& wanted = steps_[step];
  for (xmlNode* child = parent.children; child != nullptr; child = child->next) {
    if (!isPlainElement(*child, wanted.name) ||
        (wanted.condition && !holds(*wanted.condition, *child))) {
      continue;
    }
    finish(*child, step + 1, found);
  }
}

/// Goes on below an element that the steps before `step` lead to.
void PathQuery::finish(xmlNode& element, std::size_t step, std::vector<xmlNode*>& found) const {
  if (step == steps_.size()) {
    found.push_back(&element);
  } else {
    findFrom(element, step, found);
  }
}

bool PathQuery::holds(const Condition& condition, const xmlNode& element) {
  if (condition.isOfItself()) {
    return hasTextBelow(element, condition.text);
  }
  for (const xmlNode* child = element.children; child != nullptr; child = child->next) {
    if (isPlainElement(*child, condition.child) && hasTextBelow(*child, condition.text)) {
      return true;
    }
  }
  return false;
}

}  // namespace quorbind
