#pragma once

#include "component/process_state.h"
#include "platform/platform.h"
#include "workflow/forms/book_folder_form.h"
#include "workflow/forms/book_info_form.h"
#include "workflow/forms/progress_form.h"

namespace quorbind {

/// What one loaded component has once: its ports, its process-wide values and its forms. Made by
/// whoever wires a build, before the first public object; objects refer to it and must not outlive
/// it. Not for use from more than one thread.
struct Module {
  explicit Module(const Platform& ports)
      : platform(ports), bookInfo(platform, state), bookFolder(platform), progress(ports.ui) {}
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  const Platform platform;
  ProcessState state;
  frmBookInfo bookInfo;
  frmBookFolder bookFolder;
  frmProgBar progress;
};

}  // namespace quorbind
