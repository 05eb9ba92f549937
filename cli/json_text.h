#pragma once

#include <nlohmann/json_fwd.hpp>
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

/// The boxes of a run, each with what would be accepted instead of what it refuses.
Json toJson(const std::vector<ShownMessage>& messages);

}  // namespace quorbind
