#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorbind {

/// A library of a documentation server. The server is a folder of this machine, as the user names
/// it; the library's name is one that a folder can have.
struct LibraryArguments {
  std::string server;
  std::string library;
};

struct InitArguments {
  LibraryArguments place;
  bool json = false;
};

struct AddArguments {
  LibraryArguments place;
  std::string toc;
  std::optional<std::string> kind;
  std::optional<std::string> name;
  std::optional<std::string> acronym;
  std::optional<std::string> folder;
  std::string category;
  std::string keywords;
  std::string categories;
  std::int32_t installType = 0;
  bool createCategories = false;
  bool noInput = false;
  bool json = false;
};

struct PrepareArguments {
  std::string toc;
  std::optional<std::string> output;
  bool json = false;
};

struct CheckArguments {
  std::string toc;
  std::optional<std::string> kind;
  bool json = false;
};

struct ShowArguments {
  LibraryArguments place;
  std::optional<std::string> acronym;
  bool json = false;
};

/// Whether a flag says more than blanks.
bool isGiven(const std::optional<std::string>& flag);

/// The number of the kind that `--kind` names, or else that the extension of `toc` tells; 0, which
/// is no kind, when neither does.
std::int16_t kindOf(const std::string& toc, const std::optional<std::string>& kind);

}  // namespace quorbind
