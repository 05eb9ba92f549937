#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// A name of a file or folder, read by the rules of drives: full, and with nothing left in it to
/// resolve. No disk is asked.
class DriveName {
 public:
  /// `name` as it is meant in the folder `workingFolder` of the drive `C:`, which is given without
  /// its drive. `/` counts as `\`; `..` at the root stays there. Raises 52 for an empty name and
  /// for one with a NUL.
  DriveName(std::string_view name, std::string_view workingFolder);

  /// Whether what `name` stands for depends on the working folder.
  [[nodiscard]] static bool isRelative(std::string_view name);

  /// The drive with its colon, as spelled.
  [[nodiscard]] const std::string& drive() const { return drive_; }
  /// The parts below the drive's root, each with a `/` before it; empty for the root itself.
  [[nodiscard]] const std::string& parts() const { return parts_; }
  /// Whether the name was written as that of a folder, with a separator at its end.
  [[nodiscard]] bool isWrittenAsFolder() const { return isWrittenAsFolder_; }
  /// The whole name, with `\` and without one at its end unless it is a drive's root.
  [[nodiscard]] std::string text() const;

 private:
  void append(std::string_view parts);

  std::string drive_;
  std::string parts_;
  bool isWrittenAsFolder_;
};

}  // namespace quorbind
