#pragma once

#include <string>
#include <vector>

#include "cli/copy_watch.h"
#include "cli/file_journal.h"
#include "cli/rehearsed_files.h"
#include "cli/scan_watch.h"
#include "platform/portable/portable_file_system.h"
#include "platform/portable/portable_locale.h"
#include "platform/portable/terminal_user_interface.h"
#include "platform/portable/xml_library.h"
#include "platform/workbooks/file_spreadsheets.h"
#include "toolset/reference_toolset.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// The terminal that this process has, if any: boxes, questions and progress go to the error
/// output, and a person is asked where both that and the input are a terminal and `mayAsk`.
Terminal processTerminal(bool mayAsk);

/// Whether a run changes files, or only shows what it would change.
enum class RunKind { kReal, kRehearsal };

/// The component as the command runs it: the portable adapters, the reference tool set, one module.
class Wiring {
 public:
  /// `serverRoot` is the component's name of the server folder; empty where no server is involved.
  Wiring(const std::string& serverRoot,
         const Terminal& terminal,
         std::vector<PreparedAnswer> answers = {},
         RunKind kind = RunKind::kReal);

  PortableLocale locale;

 private:
  PortableFileSystem disk_;
  RehearsedFiles rehearsedFiles_;

 public:
  FileJournal files;
  PortableXmlLibrary xml;
  TerminalUserInterface ui;
  FileSpreadsheets spreadsheets;

 private:
  ScanWatch scans_;
  ReferenceToolset reference_;

 public:
  CopyWatch toolset;
  Module module;
  /// Whether there is a person who can be asked.
  const bool mayAsk;
};

/// Tells the user something that is worth knowing and stops nothing.
void tell(Wiring& wiring, std::string text);

}  // namespace quorbind
