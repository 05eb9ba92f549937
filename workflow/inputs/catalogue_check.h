#pragma once

#include <memory>
#include <string>

#include "platform/xml_document.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// Tells the user when the catalogue at `vstrQuorTOcPath` already has a book of that name or that
/// acronym, and shows the book dialog again, once for each; what is entered there is accepted
/// without another look, the name in its stored form. False when the catalogue does not load, else
/// True. The texts may be the current name and acronym themselves, which the dialog changes
/// meanwhile.
bool mbCheckQuorTOCForBook(Module& module,
                           const std::string& vstrQuorTOcPath,
                           const std::string& vstrBookName,
                           const std::string& vstrBookAcro);

/// The same, and the catalogue for a caller who goes on with it. Nothing when it does not load, and
/// when the user was told or asked something: by then the file may be another.
struct CheckedCatalogue {
  bool loads = false;
  std::unique_ptr<XmlDocument> stillCurrent;
};
CheckedCatalogue checkCatalogueForBook(Module& module,
                                       const std::string& cataloguePath,
                                       const std::string& name,
                                       const std::string& acronym);

}  // namespace quorbind
