#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/xml_document.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// Makes sure that the process-wide current name and acronym are those of the book to be added:
/// asks for them unless both are known, and holds them against the catalogue at
/// `vstrQuorTOcPath`. True unless the user gave up.
bool mbGetFormInput(Module& module, const std::string& vstrQuorTOcPath, std::int16_t vintType);

/// The same, and the catalogue for a caller who goes on with it: CheckedCatalogue::stillCurrent.
struct FormInput {
  bool isGiven = false;
  std::unique_ptr<XmlDocument> catalogue;
};
FormInput askFormInput(Module& module, const std::string& cataloguePath, std::int16_t kind);

}  // namespace quorbind
