#include "toolset/reference_toolset.h"

#include <memory>
#include <utility>

#include "toolset/file_copy.h"
#include "toolset/library_services.h"
#include "toolset/link_file_services.h"
#include "toolset/product_services.h"
#include "toolset/xml_text_rules.h"

namespace quorbind {

ReferenceToolset::ReferenceToolset(ToolsetPorts ports, std::string serverRoot)
    : ports_(ports), serverRoot_(std::move(serverRoot)) {}

std::unique_ptr<LibraryServices> ReferenceToolset::createLibraryServices() {
  return std::make_unique<ReferenceLibraryServices>(serverRoot_);
}

std::unique_ptr<XmlTextRules> ReferenceToolset::createXmlTextRules() {
  return std::make_unique<ReferenceXmlTextRules>(ports_.ui);
}

std::unique_ptr<LinkFileServices> ReferenceToolset::createLinkFileServices() {
  return std::make_unique<ReferenceLinkFileServices>(
      ports_.files, ports_.xml, ReferenceLibraryServices(serverRoot_));
}

std::unique_ptr<ProductServices> ReferenceToolset::createProductServices() {
  return std::make_unique<ReferenceProductServices>(
      ports_.files, ports_.xml, ReferenceLibraryServices(serverRoot_));
}

std::unique_ptr<FileCopy> ReferenceToolset::createFileCopy() {
  return std::make_unique<ReferenceFileCopy>(ports_.files, ports_.xml, ports_.locale);
}

}  // namespace quorbind
