#pragma once

namespace quorbind {

/// How the command ends, as the shell sees it.
enum class ExitStatus : int {
  kDone = 0,
  kRefused = 1,        ///< by a rule of the contents, by the catalogue, or in a dialog
  kWrongUsage = 2,     ///< of the command line
  kInputMissing = 3,   ///< or it can't be read
  kNotParseable = 4,   ///< or it is over a limit
  kWriteFailed = 5,    ///< what stood under the file's name still stands, or all of the new file
  kAnswerMissing = 6,  ///< a question had to be asked and there was nobody to ask
  kInternal = 70,      ///< what should not happen
};

}  // namespace quorbind
