#include "platform/error_trap.h"

#include <new>
#include <string>

namespace quorbind {

namespace {

std::string wordError(const ErrorSource& source, const RunTimeError& error) {
  const std::string number = std::to_string(error.number());
  switch (source.wording) {
    case ErrorWording::kSourceLine:
      return "Error(" + number + "): " + error.description() + '\r' + std::string(source.text);
    case ErrorWording::kInProcedure:
      return "Error " + number + " (" + error.description() + ") in procedure " +
             std::string(source.text);
  }
  return error.description();
}

}  // namespace

RunTimeError currentRunTimeError() {
  try {
    throw;
  } catch (const RunTimeError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return RunTimeError(ErrorNumber::kOutOfMemory);
  } catch (...) {
    return RunTimeError(ErrorNumber::kInvalidProcedureCall);
  }
}

void reportError(UserInterface& ui, const ErrorSource& source, const RunTimeError& error) {
  ui.show({.text = wordError(source, error),
           .icon = source.icon,
           .title = std::nullopt,
           .errorNumber = error.number()});
}

}  // namespace quorbind
