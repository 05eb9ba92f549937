#pragma once

#include "platform/windows/msxml_library.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_locale.h"
#include "platform/windows/windows_user_interface.h"
#include "toolset/reference_toolset.h"

namespace quorbind {

/// Makes the reference components on the ports of this system. The documentation server's root is
/// the environment value QUOR_SERVER, else the first line of QuorServer.txt beside this DLL, as
/// they are when the workshop is made.
class Workshop {
 public:
  Workshop();

  [[nodiscard]] ReferenceToolset& components() { return components_; }

 private:
  WindowsFileSystem files_;
  MsxmlLibrary xml_{files_};
  WindowsLocale locale_;
  WindowsUserInterface ui_;
  ReferenceToolset components_;
};

}  // namespace quorbind
