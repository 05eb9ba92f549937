#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/spreadsheets.h"
#include "platform/toolset.h"
#include "platform/user_interface.h"
#include "platform/xml_document.h"

namespace quorbind::testing {

/// A user interface with a person in front of it, who does what a test says.
class AttendedUserInterface {
 public:
  virtual ~AttendedUserInterface() = default;
  virtual UserInterface& ui() = 0;

  /// Will fill the text boxes of the next form, in tab order, and press its default button. A form
  /// that stays on screen is a next form.
  virtual void willEnter(const std::vector<std::string>& texts) = 0;
  /// Will leave the next form: by its cancel button, or by its close box when it has none.
  virtual void willLeave() = 0;

  /// The boxes that the person saw, in order: `critical: TEXT`, `information: TEXT` or
  /// `message: TEXT`.
  [[nodiscard]] virtual std::vector<std::string> boxes() const = 0;
  [[nodiscard]] virtual std::string clipboard() const = 0;
};

/// The adapters of one build, as the contract suites see them.
class Adapters {
 public:
  virtual ~Adapters() = default;
  virtual FileSystem& files() = 0;
  virtual XmlLibrary& xml() = 0;
  /// The same over other files, which are kept by reference.
  virtual std::unique_ptr<XmlLibrary> makeXml(FileSystem& files) = 0;
  virtual Locale& locale() = 0;
  virtual Spreadsheets& spreadsheets() = 0;
  /// Those of the spreadsheet program that this build can use, with one made for tests in its
  /// place. To be called where usesSpreadsheetProgram() only.
  virtual Spreadsheets& spreadsheetProgram() = 0;
  /// The reference tool set; `C:\` is its server folder, and its boxes go to `ui`.
  virtual std::unique_ptr<Toolset> makeToolset(UserInterface& ui) = 0;
  virtual std::unique_ptr<AttendedUserInterface> makeUserInterface() = 0;
};

/// Whether this build can use a spreadsheet program.
bool usesSpreadsheetProgram();

/// Adapters for which `C:\` is the folder `root`.
std::unique_ptr<Adapters> makeAdapters(const std::filesystem::path& root);

}  // namespace quorbind::testing
