#pragma once

#include <cstddef>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string_view>
#include <vector>

#include "platform/portable/terminal_user_interface.h"

namespace quorbind {

/// An object that keeps its members in the order in which they were set.
using Json = nlohmann::ordered_json;

/// The number of the form that the objects have. It grows when a member goes, or changes its type
/// or its meaning; a member that is new leaves it as it is.
inline constexpr int kJsonFormat = 1;

/// Puts one object on the standard output: the number of its form, then `members`.
void printJson(Json members);

/// A list of any length that is an object's member. It is written entry by entry: all of them as
/// Json would take many times the memory of what they tell.
struct LongList {
  std::string_view member;
  std::size_t size = 0;
  std::function<Json(std::size_t number)> entry;
};

/// The same; the members of `lists` hold the place with null in `members`, in the same order.
void printJson(Json members, const std::vector<LongList>& lists);

/// The boxes of a run, each with what would be accepted instead of what it refuses.
Json toJson(const std::vector<ShownMessage>& messages);

}  // namespace quorbind
