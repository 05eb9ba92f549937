#include "cli/doctor/doctor_command.h"

#include "cli/doctor/doctor_report.h"
#include "cli/doctor/server_examination.h"
#include "cli/listing.h"
#include "cli/paths.h"
#include "cli/wiring.h"

namespace quorbind {

ExitStatus runDoctor(const DoctorArguments& arguments) {
  const LibraryPaths paths(arguments.server, "");
  const std::string folder = nativeName(componentFolder(arguments.server));
  const std::string server = folder.empty() ? "/" : folder;
  // On rehearsed files whatever an examination did would stay in memory.
  Wiring wiring(paths.serverRoot, processTerminal(/*mayAsk=*/false), {}, RunKind::kRehearsal);
  ExitStatus found = ExitStatus::kDone;
  const ExitStatus status = runListing(wiring, arguments.json, [&] {
    const ServerDiagnosis diagnosis =
        examineServer(wiring.module.platform, server, arguments.library);
    found = statusOf(diagnosis);
    if (arguments.json) {
      printDiagnosisAsJson(server, diagnosis, wiring.ui.shown());
    } else {
      printDiagnosis(server, diagnosis);
    }
  });
  return status == ExitStatus::kDone ? found : status;
}

}  // namespace quorbind
