#include "cli/doctor/rights_examination.h"

#include "cli/failure.h"
#include "cli/required_document.h"
#include "platform/file_system.h"

namespace quorbind {

namespace {

using Kind = FindingKind;

/// Of a file that is not there the folder alone decides.
constexpr std::string_view kNewFile = "\\.new";

bool mayReplace(FileSystem& files, const std::string& path) {
  try {
    requireWritable(files, path);
    return true;
  } catch (const CommandFailure&) {
    return false;
  }
}

std::vector<std::string> filesOf(const ExaminedLibrary& library) {
  const LibraryPaths& paths = library.paths;
  std::vector<std::string> files{
      paths.catalogue, paths.bookCategories, paths.searchKeywords, paths.linkIds};
  for (const ListedBook& book : library.books) {
    if (const auto file = library.fileOf(book); file && !book.fileType) {
      files.push_back(*file);
    }
  }
  return files;
}

}  // namespace

void examineRights(ExaminedLibrary& library) {
  FileSystem& files = library.platform.files;
  const std::string& folder = library.paths.folder;
  if (!mayReplace(files, folder + std::string(kNewFile))) {
    library.findings.add(Kind::kReadOnlyLibrary, {folder});
    return;
  }
  for (const std::string& file : filesOf(library)) {
    if (library.hasFile(file) && !mayReplace(files, file)) {
      library.findings.add(Kind::kReadOnlyFile, {file});
    }
  }
}

}  // namespace quorbind
