#pragma once

#include <libxml/tree.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/element_index.h"

namespace quorbind {

/// A query of the kind that nearly all are of: the names of elements, each below the one before,
/// with at most one condition each, that a child, or the element itself, has a certain text:
/// `List/Book[Name="Alarms"]/Key`, `List/Name[.="Alarms"]`.
///
/// Answering it by walking finds what XPath finds, and takes a fraction of the time.
class PathQuery {
 public:
  /// Nothing for a query of any other kind, be it valid or not.
  static std::optional<PathQuery> read(std::string_view query);

  /// The elements that the query finds from `start`, in document order.
  [[nodiscard]] std::vector<xmlNode*> find(const xmlNode& start) const;
  /// The same from a document, all of whose elements are in `index`.
  [[nodiscard]] std::vector<xmlNode*> find(const xmlDoc& document, const ElementIndex& index) const;

  // For a walk that comes to one element after the other.

  /// How many steps there are up to the first with a condition, or else in all.
  [[nodiscard]] std::size_t stepsToCondition() const;
  /// Whether `name` is that of a step, the first of which is 0.
  [[nodiscard]] bool isStep(std::size_t step, std::string_view name) const;
  /// What the query finds in or below `element`, which the names of so many steps lead to.
  [[nodiscard]] std::vector<xmlNode*> findFromConditionOn(xmlNode& element) const;

 private:
  struct Condition {
    [[nodiscard]] bool isOfItself() const { return child.empty(); }

    /// Empty where it is the element itself that has the text.
    std::string child;
    std::string text;
  };
  struct Step {
    std::string name;
    std::optional<Condition> condition;
  };
  class Reader;

  static bool holds(const Condition& condition, const xmlNode& element);
  [[nodiscard]] bool isBelow(const xmlDoc& document,
                             std::size_t steps,
                             const xmlNode& element) const;
  void findFrom(const xmlNode& parent, std::size_t step, std::vector<xmlNode*>& found) const;
  void finish(xmlNode& element, std::size_t step, std::vector<xmlNode*>& found) const;

  std::vector<Step> steps_;
};

}  // namespace quorbind
