#include "cli/listing.h"

#include <optional>

#include "cli/failure.h"
#include "cli/point_of_need.h"
#include "cli/report.h"

namespace quorbind {

ExitStatus runListing(Wiring& wiring, bool json, const std::function<void()>& listing) {
  std::optional<FaultyLine> blamed;
  const ExitStatus status = reportingFailures(
      wiring.ui,
      [&] {
        listing();
        return ExitStatus::kDone;
      },
      &blamed);
  tellAccepted(status, wiring.ui.shown());
  if (status != ExitStatus::kDone && json) {
    printFailure(status, wiring.ui.shown(), "nothing was shown", blamed);
  }
  return status;
}

}  // namespace quorbind
