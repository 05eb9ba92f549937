#pragma once

#include <string>
#include <vector>

#include "cli/add_command.h"
#include "cli/arguments.h"
#include "platform/file_system.h"

namespace quorbind {

/// The additions that a job file asks for.
struct Job {
  /// In the order of the file, at least one.
  std::vector<AddArguments> additions;
  bool stopsAtFirst = false;
};

/// Reads the job file that the user knows as `name`. Its keys are the flags of `add` without their
/// hyphens in front: those at the top are for all tables of contents, those of a `[[book]]` for the
/// one that it names and before those at the top. The flags that `request` was given on the command
/// line count before both, its other values where neither says anything. The server and the tables
/// of contents are named as seen from the job file. One that can't be read, does not parse or has a
/// key or a value that does not belong there is a CommandFailure with the place and the line;
/// nothing of it is used then.
Job readJobFile(FileSystem& files, const std::string& name, const AddRequest& request);

}  // namespace quorbind
