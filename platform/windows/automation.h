#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/windows/com_types.h"

namespace quorbind {

/// An object that is used late bound: created by the name of its class, its members called by
/// theirs.
class AutomationObject {
 public:
  explicit AutomationObject(ComPtr<IDispatch> object) : object_(std::move(object)) {}
  /// Makes an object. Raises 429 when that can't be done.
  static AutomationObject create(std::string_view className);

  [[nodiscard]] const ComPtr<IDispatch>& object() const { return object_; }

  /// Whether the object has a member of that name.
  [[nodiscard]] bool has(std::string_view member) const;

  /// Calls a method, or reads a property, and answers the result. Raises 438 for a member that the
  /// object does not have; an error of the object's own keeps its number and description.
  template <typename... Arguments>
  Variant call(std::string_view member, Arguments... arguments) const {
    // Handed over last to first.
    std::vector<Variant> reversed;
    reversed.reserve(sizeof...(arguments));
    (reversed.insert(reversed.begin(), std::move(arguments)), ...);
    return invoke(member, reversed);
  }

 private:
  [[nodiscard]] Variant invoke(std::string_view member,
                               const std::vector<Variant>& reversedArguments) const;

  ComPtr<IDispatch> object_;
};

/// The texts of an array of texts or of variants; of an array without bounds none. Raises 13 for
/// what is no such array.
std::vector<std::string> textsIn(const Variant& array);

}  // namespace quorbind
