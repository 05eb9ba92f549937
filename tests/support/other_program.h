#pragma once

#include <memory>
#include <string>
#include <vector>

namespace quorbind::testing {

/// Another program of these tests, running beside the one that started it, with its output.
class OtherProgram {
 public:
  /// Starts the program that lies in this one's folder under `name`, without an extension.
  /// Arguments may hold blanks, and no quotation marks.
  OtherProgram(const std::string& name, const std::vector<std::string>& arguments);
  OtherProgram(OtherProgram&&) noexcept;
  OtherProgram& operator=(OtherProgram&&) noexcept;
  /// Waits for its end.
  ~OtherProgram();

  /// Waits for its end and answers its exit status; -1 when it was ended.
  int wait();

 private:
  class Process;

  std::unique_ptr<Process> process_;
};

}  // namespace quorbind::testing
