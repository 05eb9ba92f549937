#pragma once

#include <string>
#include <vector>

namespace quorbind::testing {

/// Runs a script in the engine called `engine` (`VBScript`, `JScript`) with those arguments.
/// Answers what went wrong, as `line 7: Type mismatch`; empty when nothing did.
std::string runScript(const std::wstring& engine,
                      const std::wstring& text,
                      std::vector<std::string> arguments);

}  // namespace quorbind::testing
