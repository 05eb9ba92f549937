#pragma once

#include <string_view>

namespace quorbind {

class FileSystem;

/// Makes a folder and those above it, as far as they are missing. Errors are ignored: a folder that
/// can't be made shows in what needs it.
void makeFolders(FileSystem& files, std::string_view folder);

}  // namespace quorbind
