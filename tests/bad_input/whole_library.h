#pragma once

// A server with everything that the operations on a library can meet: the library `Plant`, the
// library `Tools` beside it, and input to be added. Its XML files are UTF-8 without a declaration,
// laid out as a save lays them out.

#include <map>
#include <string>
#include <vector>

#include "platform/workbooks/file_spreadsheets.h"
#include "tests/contract/adapters.h"
#include "tests/support/failing_files.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_user_interface.h"
#include "tests/support/world.h"

namespace quorbind::testing {

namespace library_file {

inline constexpr const char* kSelection = "Docs/Quor_Selection.xml";
inline constexpr const char* kDefaults = "Docs/Quor_DefaultCategories.xml";
inline constexpr const char* kCatalogue = "Docs/Plant/Quor_TOC.xml";
inline constexpr const char* kCategories = "Docs/Plant/Quor_BookCategories.xml";
inline constexpr const char* kKeywords = "Docs/Plant/Quor_SearchKeywords.xml";
inline constexpr const char* kLinks = "Docs/Plant/Quor_LinkID.xml";
/// The book file of the book Alarms.
inline constexpr const char* kBook = "Docs/Plant/Manual/Book_ALM.xml";
inline constexpr const char* kOtherCatalogue = "Docs/Tools/Quor_TOC.xml";
inline constexpr const char* kOtherLinks = "Docs/Tools/Quor_LinkID.xml";
/// The book file of a book of the other library.
inline constexpr const char* kOtherBook = "Docs/Tools/Guide/Book_GDE.xml";

}  // namespace library_file

/// The library's XML files: those of library_file.
std::vector<std::string> xmlFilesOfLibrary();

/// The text of one of them, with CR LF.
std::string soundText(const std::string& file);

/// A path as a component names it.
std::string componentPath(const std::string& file);

/// A component over that server, on a disk in memory, with a user who gives no answers.
class WholeLibrary {
 public:
  using Tree = std::map<std::string, std::string>;

  WholeLibrary();

  [[nodiscard]] const Platform& platform() const { return platform_; }
  /// The server as it was made.
  [[nodiscard]] const Tree& sound() const { return sound_; }
  /// Puts it back, and forgets what the user saw.
  void reset();

  MemoryFiles files;
  /// Between the component and that disk.
  FailingFiles calls{files};
  ScriptedUserInterface user;

 private:
  std::unique_ptr<Adapters> adapters_;
  std::unique_ptr<XmlLibrary> xml_;
  FixedClockLocale locale_;
  std::unique_ptr<Toolset> toolset_;
  FileSpreadsheets spreadsheets_;
  Platform platform_;
  Tree sound_;
};

}  // namespace quorbind::testing
