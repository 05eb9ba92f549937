#pragma once

#include <string>
#include <vector>

#include "cli/doctor/server_examination.h"
#include "cli/exit_status.h"
#include "platform/portable/terminal_user_interface.h"

namespace quorbind {

/// How an examination ends: a single error refuses the server, warnings do not.
ExitStatus statusOf(const ServerDiagnosis& diagnosis);

/// Tells on the standard output what was found on a server. docs/command.md describes both forms.
void printDiagnosis(const std::string& server, const ServerDiagnosis& diagnosis);
void printDiagnosisAsJson(const std::string& server,
                          const ServerDiagnosis& diagnosis,
                          const std::vector<ShownMessage>& messages);

}  // namespace quorbind
