#include "toolset/library_services.h"

#include "catalogue/names.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr const char* kNotConfigured = "The documentation server folder is not configured";

}  // namespace

ReferenceLibraryServices::ReferenceLibraryServices(std::string_view serverRoot)
    : serverRoot_(withBackslashes(serverRoot)) {
  if (!serverRoot_.empty() && !serverRoot_.ends_with('\\')) {
    serverRoot_ += '\\';
  }
}

std::string ReferenceLibraryServices::GetQuorServer() {
  if (serverRoot_.empty()) {
    throw RunTimeError(kServerNotConfiguredError, kNotConfigured);
  }
  return serverRoot_;
}

std::string ReferenceLibraryServices::docsFolder() {
  return GetQuorServer().append(server_names::kDocsFolder).append("\\");
}

}  // namespace quorbind
