#include "platform/error_trap.h"

#include <new>
#include <optional>
#include <string>

#include "platform/filled_text.h"
#include "resources/rule_texts.h"

namespace quorbind {

namespace {

RuleText ruleOf(ErrorWording wording) {
  switch (wording) {
    case ErrorWording::kSourceLine:
      return RuleText::kRunTimeError;
    case ErrorWording::kTightSourceLine:
      return RuleText::kRunTimeErrorTight;
    case ErrorWording::kWideSourceLine:
      return RuleText::kRunTimeErrorWide;
    case ErrorWording::kInProcedure:
      return RuleText::kRunTimeErrorInProcedure;
    case ErrorWording::kUnderTitle:
      return RuleText::kRunTimeErrorUnderTitle;
  }
  return RuleText::kRunTimeError;
}

bool hasSourceLine(ErrorWording wording) {
  return wording != ErrorWording::kInProcedure && wording != ErrorWording::kUnderTitle;
}

std::string wordError(const ErrorSource& source, const RunTimeError& error) {
  const std::string procedure(source.text);
  const std::string words = filledText(text(ruleOf(source.wording)),
                                       {{"NUMBER", std::to_string(error.number())},
                                        {"DESCRIPTION", error.description()},
                                        {"OPERATION", procedure}});
  return hasSourceLine(source.wording) ? words + "\r" + procedure : words;
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
