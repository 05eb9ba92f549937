#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace quorbind::testing {

/// Notes, for as long as it lives, what the progress window of this thread shows whenever its bar
/// is set: `CAPTION, STATUS, bar VALUE/MAXIMUM`. One at a time.
class ProgressNotes {
 public:
  ProgressNotes();
  ~ProgressNotes();
  ProgressNotes(const ProgressNotes&) = delete;
  ProgressNotes& operator=(const ProgressNotes&) = delete;

  [[nodiscard]] const std::vector<std::string>& all() const { return notes_; }

 private:
  static LRESULT CALLBACK afterMessage(int code, WPARAM self, LPARAM data);

  static ProgressNotes* listening_;

  std::vector<std::string> notes_;
  HHOOK hook_;
};

}  // namespace quorbind::testing
