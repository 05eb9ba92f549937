#include "cli/doctor/library_list.h"

#include "catalogue/names.h"
#include "cli/doctor/entry_lines.h"
#include "cli/doctor/examined_files.h"
#include "cli/doctor/mending_command.h"
#include "cli/failure.h"
#include "cli/required_document.h"
#include "platform/file_system.h"
#include "platform/folder_listings.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

using namespace selection_names;
using Kind = FindingKind;

/// An entry of the list.
struct ListedLibrary {
  std::string name;
  std::string location;
};

std::vector<ListedLibrary> readList(const Platform& platform, const std::string& path) {
  const auto list = loadRequired(platform, path);
  requireElement(*list, path, std::string(kList).append("/").append(kQuors));
  std::vector<ListedLibrary> libraries;
  for (const XmlNode& library : list->selectAll(kQuorPath)) {
    libraries.push_back({childText(library, kName), childText(library, kLocation)});
  }
  return libraries;
}

class ListExamination {
 public:
  ListExamination(const Platform& platform,
                  const std::string& server,
                  const std::optional<std::string>& only,
                  Findings& findings)
      : platform_(platform),
        server_(server),
        only_(only),
        findings_(findings),
        paths_(server, ""),
        lines_(platform.xml, paths_.selection, std::string(kQuorPath)),
        known_(platform.locale) {}

  std::vector<std::string> run() {
    requireFolder(docs());
    const FolderNames names = listFolder(platform_.files, findings_, docs());
    examineList();
    findUnlisted(names);
    requireMeant();
    requireDefaults();
    findLeftovers(findings_, docs(), names);
    return std::move(libraries_);
  }

 private:
  /// Without the separator at its end.
  [[nodiscard]] std::string docs() const { return std::string(folderOf(paths_.docsFolder)); }

  void requireFolder(const std::string& folder) const {
    readingInput(nativeName(folder), [&] {
      if (!platform_.files.folderExists(folder)) {
        raise(ErrorNumber::kPathNotFound);
      }
    });
  }

  [[nodiscard]] bool isSame(std::string_view left, std::string_view right) const {
    return platform_.locale.upperCase(left) == platform_.locale.upperCase(right);
  }
  [[nodiscard]] bool isMeant(const std::string& library) const {
    return !only_ || isSame(*only_, library);
  }
  [[nodiscard]] std::string initOf(const std::string& library) const {
    return mendingCommand("init", {}, {}, {server_, library});
  }

  void add(Kind kind, std::size_t entry, const FindingWords& words, std::string command = {}) {
    findings_.add(kind, {paths_.selection, lines_.lineOf(entry)}, words, std::move(command));
  }

  void examineList() {
    if (!platform_.files.fileExists(paths_.selection)) {
      findings_.add(Kind::kMissingList, {paths_.selection});
      return;
    }
    std::vector<ListedLibrary> list;
    isReadable_ = readingFile(
        findings_, paths_.selection, [&] { list = readList(platform_, paths_.selection); });
    for (std::size_t entry = 0; entry < list.size(); ++entry) {
      examineEntry(list[entry], entry);
    }
  }

  void examineEntry(const ListedLibrary& library, std::size_t entry) {
    const FindingWords name{{"NAME", library.name}};
    const bool isNameless = trimBlanks(library.name).empty();
    const bool isNew = isNameless || known_.add(library.name);
    const bool hasUsableName = !isNameless && staysInFolder(library.name);
    const LibraryPaths paths(server_, library.name);
    const bool hasFolder = hasUsableName && platform_.files.folderExists(paths.folder);
    if (hasFolder && isNew) {
      libraries_.push_back(library.name);
    }
    if (!isMeant(library.name)) {
      return;
    }
    hasMeant_ = true;
    if (isNameless) {
      add(Kind::kNamelessLibrary, entry, {});
    } else if (!isNew) {
      add(Kind::kRepeatedLibrary, entry, name);
    } else if (!hasUsableName) {
      add(Kind::kUnusableLibraryName, entry, name);
    } else {
      examineLocation(library, entry, paths, hasFolder);
    }
  }

  void examineLocation(const ListedLibrary& library,
                       std::size_t entry,
                       const LibraryPaths& paths,
                       bool hasFolder) {
    const bool isThere = isSame(withBackslashes(library.location), paths.location);
    if (trimBlanks(library.location).empty()) {
      add(Kind::kMissingLocation, entry, {{"NAME", library.name}, {"LOCATION", paths.location}});
    } else if (!isThere) {
      add(Kind::kLibraryElsewhere,
          entry,
          {{"NAME", library.name}, {"LOCATION", library.location}, {"FOLDER", paths.location}});
    }
    if (!hasFolder) {
      add(Kind::kMissingLibrary,
          entry,
          {{"NAME", library.name}},
          isThere ? initOf(library.name) : std::string());
    }
  }

  void findUnlisted(const FolderNames& names) {
    for (const std::string& name : names.folders) {
      const LibraryPaths paths(server_, name);
      const bool isLibrary =
          (only_ && isMeant(name)) || platform_.files.fileExists(paths.catalogue);
      if (!isLibrary || !known_.add(name)) {
        continue;
      }
      libraries_.push_back(name);
      if (isMeant(name)) {
        hasMeant_ = true;
        tellUnlisted(name);
      }
    }
  }

  /// A list that can't be read may have it.
  void tellUnlisted(const std::string& name) {
    if (isReadable_) {
      findings_.add(Kind::kUnlistedLibrary, {paths_.selection}, {{"NAME", name}}, initOf(name));
    }
  }

  void requireMeant() const {
    if (only_ && !hasMeant_) {
      requireFolder(LibraryPaths(server_, *only_).folder);
    }
  }

  /// They are made together with a library.
  void requireDefaults() {
    const std::string& path = paths_.defaultCategories;
    if (platform_.files.fileExists(path)) {
      readingFile(findings_, path, [&] {
        requireElement(*loadRequired(platform_, path), path, default_category_names::kDefaults);
      });
    } else {
      findings_.add(
          Kind::kMissingDefaults, {path}, {}, libraries_.empty() ? "" : initOf(libraries_[0]));
    }
  }

  const Platform& platform_;
  const std::string& server_;
  const std::optional<std::string>& only_;
  Findings& findings_;
  const LibraryPaths paths_;
  EntryLines lines_;
  NameSet known_;
  std::vector<std::string> libraries_;
  bool isReadable_ = true;
  /// Whether what is to be examined is in the list or beside.
  bool hasMeant_ = false;
};

}  // namespace

std::vector<std::string> findLibraries(const Platform& platform,
                                       const std::string& server,
                                       const std::optional<std::string>& only,
                                       Findings& findings) {
  return ListExamination(platform, server, only, findings).run();
}

}  // namespace quorbind
