#include "component/component_module.h"

#include <memory>
#include <mutex>

#include "platform/windows/msxml_library.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_locale.h"
#include "platform/windows/windows_spreadsheets.h"
#include "platform/windows/windows_toolset.h"
#include "platform/windows/windows_user_interface.h"

namespace quorbind {

namespace {

struct WindowsModule {
  WindowsFileSystem files;
  MsxmlLibrary xml{files};
  WindowsLocale locale;
  WindowsUserInterface ui;
  WindowsToolset toolset;
  WindowsSpreadsheets spreadsheets{files, xml};
  Module module{Platform{files, xml, ui, toolset, locale, spreadsheets}};
};

// Apartments of several threads may ask for the module, though only one may use it at a time.
std::mutex guard;
std::unique_ptr<WindowsModule> windowsModule;

}  // namespace

Module& componentModule() {
  const std::lock_guard lock(guard);
  if (!windowsModule) {
    windowsModule = std::make_unique<WindowsModule>();
  }
  return windowsModule->module;
}

void releaseComponentModule() noexcept {
  const std::lock_guard lock(guard);
  windowsModule.reset();
}

}  // namespace quorbind
