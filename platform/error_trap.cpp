#include "platform/error_trap.h"

#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "resources/rule_texts.h"

namespace quorbind {

namespace {

constexpr std::string_view kBeginning = text(RuleText::kRunTimeError);

std::string wordError(const ErrorSource& source, const RunTimeError& error) {
  const std::string number = std::to_string(error.number());
  const std::string& description = error.description();
  const std::string sourceLine = "\r" + std::string(source.text);
  switch (source.wording) {
    case ErrorWording::kSourceLine:
      return std::string(kBeginning) + number + "): " + description + sourceLine;
    case ErrorWording::kTightSourceLine:
      return std::string(kBeginning) + number + "):" + description + sourceLine;
    case ErrorWording::kWideSourceLine:
      return "Error (" + number + " ):" + description + sourceLine;
    case ErrorWording::kInProcedure:
      return "Error " + number + " (" + description + ") in procedure " + std::string(source.text);
    case ErrorWording::kUnderTitle:
      return number + ": " + description;
  }
  return description;
}

std::optional<std::string> titleOf(const ErrorSource& source) {
  if (source.wording != ErrorWording::kUnderTitle) {
    return std::nullopt;
  }
  return std::string(source.text);
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
           .title = titleOf(source),
           .errorNumber = error.number()});
}

}  // namespace quorbind
