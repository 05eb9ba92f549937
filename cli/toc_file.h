#pragma once

#include <cstddef>
#include <string>

namespace quorbind {

class FileSystem;

/// A table of contents that the command line names.
struct TocFile {
  /// Fails when it is not there or can't be read.
  TocFile(FileSystem& files, const std::string& name);

  /// As the user named it.
  std::string name;
  /// As the component names it.
  std::string path;
};

/// `FILE: ` or, where a line is to blame, `FILE:LINE: `, and where a place in it is,
/// `FILE:LINE:COLUMN: `.
std::string placeIn(const std::string& file, std::size_t line, std::size_t column = 0);

}  // namespace quorbind
