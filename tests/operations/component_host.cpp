#include "tests/operations/component_host.h"

#include <string_view>

namespace quorbind::testing {

namespace {

std::string quoted(const std::string& text) {
  return '"' + text + '"';
}

std::string inWords(const TextArray& array) {
  std::string words =
      array.lowerBound == 0 ? "" : "from " + std::to_string(array.lowerBound) + ": ";
  for (std::string_view separator; const std::string& text : array.texts) {
    words.append(separator).append(quoted(text));
    separator = ", ";
  }
  return '[' + words + ']';
}

struct InWords {
  std::string operator()(bool value) const { return value ? "True" : "False"; }
  std::string operator()(std::int32_t value) const { return std::to_string(value); }
  std::string operator()(const std::string& value) const { return quoted(value); }
  std::string operator()(const TextArray& value) const { return inWords(value); }
  std::string operator()(const PaperSheet& /*value*/) const { return "a worksheet"; }
};

std::string inWords(const Argument& argument) {
  return std::visit(InWords(), argument);
}

}  // namespace

std::string ComponentHost::call(const std::string& operation, const Arguments& arguments) {
  Arguments after = arguments;
  const Result result = answer(operation, after);
  std::string words = result ? inWords(*result) : "nothing";
  for (std::size_t place = 0; place < arguments.size(); ++place) {
    if (const std::string held = inWords(after[place]); held != inWords(arguments[place])) {
      words += ", " + std::to_string(place + 1) + ": " + held;
    }
  }
  return words;
}

}  // namespace quorbind::testing
