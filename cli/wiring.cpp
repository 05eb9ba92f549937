#include "cli/wiring.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string_view>
#include <utility>

namespace quorbind {

namespace {

std::string_view environmentValue(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

}  // namespace

Terminal processTerminal(bool mayAsk) {
  const bool outputIsTerminal = isatty(STDERR_FILENO) == 1;
  const bool canRewrite = outputIsTerminal && environmentValue("TERM") != "dumb";
  return {.output = std::cerr,
          .input = mayAsk && outputIsTerminal && isatty(STDIN_FILENO) == 1 ? &std::cin : nullptr,
          .showsProgress = canRewrite,
          .hasColours = canRewrite && environmentValue("NO_COLOR").empty()};
}

Wiring::Wiring(const std::string& serverRoot,
               const Terminal& terminal,
               std::vector<PreparedAnswer> answers,
               RunKind kind)
    : rehearsedFiles_(disk_, locale),
      files(kind == RunKind::kRehearsal ? static_cast<FileSystem&>(rehearsedFiles_) : disk_),
      xml(files),
      ui(terminal, std::move(answers)),
      spreadsheets(files, xml),
      scans_(xml),
      reference_({files, scans_, ui, locale}, serverRoot),
      toolset(reference_, scans_),
      module(Platform{files, xml, ui, toolset, locale, spreadsheets}),
      mayAsk(terminal.input != nullptr) {}

void tell(Wiring& wiring, std::string text) {
  wiring.ui.show({.text = std::move(text), .icon = MessageIcon::kInformation});
}

}  // namespace quorbind
