#pragma once

// What the flags say about a book, held to the rules of the dialogs that a person would have typed
// it into. A rule that is broken is told in the dialog's own box; the failure is then AlreadyTold.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/wiring.h"

namespace quorbind {

/// Name and acronym of a book, as they are typed.
struct BookNaming {
  std::optional<std::string> name;
  std::optional<std::string> acronym;
};

/// What the flags answer in the book dialog.
std::vector<PreparedAnswer> bookAnswers(const BookNaming& naming);

/// From now on the book dialog takes no name or acronym that a book of the catalogue has in another
/// letter case, as the component finds only the same letters; and no dialog takes what no file can
/// hold.
void holdDialogsTo(Wiring& wiring, const std::string& catalogue);

/// Name and acronym obey the rules of the book dialog, as far as they are given.
void requireUsableNaming(Wiring& wiring, const BookNaming& naming);

/// The folder obeys the rules of the folder dialog and lies in the library.
void requireUsableFolder(Wiring& wiring, const std::string& folder);

/// No file system in use takes a longer name of a file or a folder; in bytes.
inline constexpr std::size_t kLongestName = 255;

/// Fails for a name that is too long for a file or a folder. `flag` is to blame.
void requireNameThatFits(std::string_view name, std::string_view flag);

}  // namespace quorbind
