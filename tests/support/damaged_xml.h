#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorbind::testing {

/// One thing that can be wrong with a file that should hold an XML document.
struct XmlDamage {
  enum class Kind {
    kUnreadable,  ///< a file that does not load
    kMissing,     ///< no file
    kFolder,      ///< a folder of that name
    kForeign      ///< a file that loads and holds something else
  };

  std::string name;
  Kind kind = Kind::kUnreadable;
  std::string bytes = {};

  /// Makes `file` what the damage says, whatever stands there. `disk` is a TemporaryFolder or
  /// MemoryFiles.
  template <typename Disk>
  void putInPlaceOf(Disk& disk, const std::string& file) const {
    disk.remove(file);
    if (kind == Kind::kFolder) {
      disk.makeFolder(file);
    } else if (kind != Kind::kMissing) {
      disk.write(file, bytes);
    }
  }
};

/// More than fifty ways in which the document `sound`, which is UTF-8 without a declaration, can be
/// damaged. One that is foreign is laid out as a save lays it out.
std::vector<XmlDamage> xmlDamagesOf(std::string_view sound);

/// The declaration of a document in that encoding, with its line end.
std::string declarationOf(std::string_view encoding);

}  // namespace quorbind::testing
