#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/spreadsheets.h"
#include "tests/bad_input/whole_library.h"
#include "workflow/forms/module.h"

namespace quorbind::testing {

/// A library in memory, put back for each input, with a user who answers every form.
class FuzzedLibrary {
 public:
  /// The one library of this process, as it was made. Making one takes longer than most inputs.
  static FuzzedLibrary& restored();

  [[nodiscard]] const Platform& platform() const { return library_.platform(); }
  [[nodiscard]] WholeLibrary& library() { return library_; }
  [[nodiscard]] MemoryFiles& files() { return library_.files; }

  /// Adds the table of contents `in/NAME` to the library `Plant`, whose user gives the names.
  void add(std::string_view name, std::int16_t kind);
  /// The same with other spreadsheets.
  void add(std::string_view name, std::int16_t kind, Spreadsheets& spreadsheets);

  /// Claims that every XML file in it loads, is as it was made, or holds the bytes `damaged`, and
  /// that no file is new but below the folder of the input and that of the library `Plant`.
  void claimIsWhole(std::string_view damaged = {});

 private:
  FuzzedLibrary();

  [[nodiscard]] Platform platformWith(Spreadsheets& spreadsheets) const;

  WholeLibrary library_;
};

/// Claims that the XML file at `path` loads, or lies too deep for any reader. Answers whether it
/// loads.
bool claimLoads(XmlDocument& document, std::string_view path);

/// Claims that the document, which is loaded, is the same tree after it was saved, and the same
/// bytes after it was saved again. The file at `path` is written; it lies on `files`.
void claimSavesAsItIs(MemoryFiles& files, XmlDocument& document, const std::string& name);

}  // namespace quorbind::testing
