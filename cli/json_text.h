#pragma once

#include <nlohmann/json_fwd.hpp>
#include <vector>

#include "platform/portable/terminal_user_interface.h"

namespace quorbind {

/// An object that keeps its members in the order in which they were set.
using Json = nlohmann::ordered_json;

/// Puts one object on the standard output.
void printJson(const Json& object);

/// The boxes of a run.
Json toJson(const std::vector<ShownMessage>& messages);

}  // namespace quorbind
