#pragma once

// The two ways in which a procedure of this component meets a run-time error.
//
// `trapped` is the ordinary one: whatever escapes the body ends the procedure, is shown once in the
// procedure's own box, and the procedure answers its failure value. `ignoringErrors` is the other:
// one statement that may fail, after which the procedure goes on with the next. A region in which
// errors are ignored is written as a row of such statements, because each one that fails leaves its
// own target as it was and no other.
//
// `Abandoned` passes both: a run that its user interface gave up must not go on.

#include <cstdint>
#include <optional>
#include <utility>

#include "platform/abandoned.h"
#include "platform/error_sources.h"
#include "platform/runtime_error.h"
#include "platform/user_interface.h"

namespace quorbind {

/// The exception being handled as a run-time error. Call only from inside a catch block.
RunTimeError currentRunTimeError();

/// Shows the box in which `source` reports `error`.
void reportError(UserInterface& ui, const ErrorSource& source, const RunTimeError& error);

/// Runs `body` and answers its result; after an error shows the box of `source` and answers
/// `onFailure`.
template <typename Result, typename Body>
Result trapped(UserInterface& ui, const ErrorSource& source, Result onFailure, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const Abandoned&) {
    throw;
  } catch (...) {
    reportError(ui, source, currentRunTimeError());
    return onFailure;
  }
}

/// The same for a procedure without a result. Answers whether the body ran to its end.
template <typename Body>
bool trapped(UserInterface& ui, const ErrorSource& source, Body&& body) {
  return trapped(ui, source, false, [&body] {
    std::forward<Body>(body)();
    return true;
  });
}

/// Runs one statement and answers the error that it ended with, which somebody may still have to
/// tell.
template <typename Statement>
std::optional<RunTimeError> errorOf(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return std::nullopt;
  } catch (const Abandoned&) {
    throw;
  } catch (...) {
    return currentRunTimeError();
  }
}

/// Runs one statement and answers the number of the error that it ended with, 0 for none.
template <typename Statement>
std::int32_t ignoringErrors(Statement&& statement) {
  const auto error = errorOf(std::forward<Statement>(statement));
  return error ? error->number() : 0;
}

}  // namespace quorbind
