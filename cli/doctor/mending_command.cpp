#include "cli/doctor/mending_command.h"

#include <algorithm>
#include <utility>

#include "cli/paths.h"
#include "platform/portable/text_cells.h"
#include "platform/text.h"

namespace quorbind {

namespace {

constexpr std::string_view kPlainCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./+=:,@%";

bool looksLikeFlag(std::string_view word) {
  return word.starts_with('-');
}

/// A value that looks like a flag itself has to be tied to its own.
std::string flagWords(std::string_view flag, std::string_view value) {
  return std::string(" ").append(flag).append(looksLikeFlag(value) ? "=" : " ") + shellWord(value);
}

/// Nothing for a command that would be shown with other characters than it has: what is copied from
/// the report would do something else.
std::string asShown(std::string command) {
  std::string shown;
  for (const TextCell& cell : cellsOf(command)) {
    shown += cell.shown;
  }
  return shown == command ? std::move(command) : std::string();
}

std::string operandWords(const std::vector<std::string>& operands) {
  std::string words;
  for (const std::string& operand : operands) {
    words.append(" ").append(shellWord(operand));
  }
  return words;
}

}  // namespace

std::string shellWord(std::string_view text) {
  if (!text.empty() && text.find_first_not_of(kPlainCharacters) == std::string_view::npos) {
    return std::string(text);
  }
  return "'" + replaceAll(text, "'", R"('\'')") + "'";
}

std::string mendingCommand(std::string_view subcommand,
                           const std::vector<std::string>& operands,
                           const std::vector<MendingFlag>& flags,
                           const LibraryArguments& place) {
  const bool needsMark = std::any_of(operands.begin(), operands.end(), looksLikeFlag);
  std::string command = std::string("quorbind ").append(subcommand);
  command += needsMark ? std::string() : operandWords(operands);
  for (const MendingFlag& flag : flags) {
    command += flagWords(flag.flag, flag.value);
  }
  command += flagWords("--server", place.server) + flagWords("--library", place.library);
  return asShown(needsMark ? command + " --" + operandWords(operands) : command);
}

std::string deletingCommand(std::string_view file) {
  return asShown("rm " + shellWord(nativeName(file)));
}

}  // namespace quorbind
