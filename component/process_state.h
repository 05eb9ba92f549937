#pragma once

#include <cstdint>
#include <string>

namespace quorbind {

/// The values that one loaded component has once, whatever number of objects a host makes: all
/// objects and the forms share them, and they last until the component is unloaded. Whoever wires a
/// build owns the one copy; the core receives it by reference.
struct ProcessState {
  /// Installation type for which the acronym box of the book dialog follows the name box.
  static constexpr std::int32_t kAcronymFollowsName = 500;

  std::string currentBookName;
  std::string currentBookAcro;
  /// The name that the sheet of headings of a workbook gives the book that is being read.
  std::string excelBookName;
  /// The acronym that the table of contents itself states, when that is a book file.
  std::string recordedXmlAcro;
  std::string currentTocPath;
  std::string currentCataloguePath;
  std::string currentProductName;
  std::string currentCategoriesPath;
  /// The folder given in the folder dialog; never asked for again once it is there.
  std::string rememberedBookFolder;
  /// Set by Cancel in the book dialog.
  bool cancelled = false;
  std::int32_t installationType = 0;

  /// The acronym that the book file is named after: its own where the table of contents states one.
  [[nodiscard]] const std::string& acroOfBookFile() const {
    return recordedXmlAcro.empty() ? currentBookAcro : recordedXmlAcro;
  }
};

}  // namespace quorbind
