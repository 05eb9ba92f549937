#include "cli/doctor/server_examination.h"

#include <memory>

#include "cli/doctor/catalogue_examination.h"
#include "cli/doctor/examined_library.h"
#include "cli/doctor/folder_examination.h"
#include "cli/doctor/library_list.h"
#include "cli/doctor/link_examination.h"
#include "cli/doctor/rights_examination.h"
#include "cli/doctor/server_links.h"
#include "cli/doctor/side_file_examination.h"
#include "platform/locale.h"

namespace quorbind {

namespace {

using Libraries = std::vector<std::unique_ptr<ExaminedLibrary>>;

LibraryDiagnosis examine(ExaminedLibrary& library, const ServerLinks& links) {
  examineCatalogue(library);
  examineCategories(library);
  examineKeywords(library);
  examineLinks(library, links);
  examineFolders(library);
  examineRights(library);
  return {.library = library.place.library,
          .books = library.books.size(),
          .headings = library.headings,
          .findings = std::move(library.findings)};
}

}  // namespace

std::size_t ServerDiagnosis::count(Severity severity) const {
  std::size_t number = findings.count(severity);
  for (const LibraryDiagnosis& library : libraries) {
    number += library.findings.count(severity);
  }
  return number;
}

ServerDiagnosis examineServer(const Platform& platform,
                              const std::string& server,
                              const std::optional<std::string>& library) {
  ServerDiagnosis diagnosis;
  Libraries examined;
  ServerLinks links;
  for (const std::string& name : findLibraries(platform, server, library, diagnosis.findings)) {
    const LibraryPaths paths(server, name);
    const bool isMeant =
        !library || platform.locale.upperCase(*library) == platform.locale.upperCase(name);
    if (isMeant) {
      examined.push_back(
          std::make_unique<ExaminedLibrary>(platform, LibraryArguments{server, name}));
    }
    links.read(
        platform, isMeant ? examined.back()->findings : diagnosis.findings, name, paths.linkIds);
  }
  for (const auto& patient : examined) {
    diagnosis.libraries.push_back(examine(*patient, links));
  }
  return diagnosis;
}

}  // namespace quorbind
