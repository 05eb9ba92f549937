#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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
  /// One of each at most, but for a workbook: those of its books that have no acronym, in the order
  /// of the list of books.
  std::vector<std::string> names;
  std::vector<std::string> acronyms;
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

/// Whether a flag says what a book is called.
bool isNamed(const AddArguments& arguments);

/// What a flag that may be repeated says the time with that index, counted from 0.
std::optional<std::string> valueAt(const std::vector<std::string>& values, std::size_t index);

/// The number of the kind that `--kind` names, or else that the extension of `toc` tells; 0, which
/// is no kind, when neither does.
std::int16_t kindOf(const std::string& toc, const std::optional<std::string>& kind);

}  // namespace quorbind
