#pragma once

#include <string>

#include "workflow/forms/module.h"

namespace quorbind {

/// The public class through which a host works on a library's catalogue. Each operation reads the
/// files it names afresh and saves what it changed before it returns; an unexpected error ends it
/// with a message box.
class Book_Config {
 public:
  /// Kept by reference.
  explicit Book_Config(Module& module) : module_(module) {}

  /// Takes the entry of the first book of that name, in the form in which names are stored, out of
  /// the catalogue. Without such a book the catalogue is saved as it is.
  void DeleteQuorNode(const std::string& vstrQuorTOcPath, const std::string& vstrBookName);

 private:
  Module& module_;
};

}  // namespace quorbind
