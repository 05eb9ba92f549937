#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// Where a page finds the files below a folder. Links are relative, so that they go on leading
/// there when both are moved or shared together; of a page that lies in that folder, or below it,
/// no link goes further up than it has to, so that a part of the folder may be copied with the
/// page. Folders that share nothing but the machine's root are not moved together: then links are
/// whole addresses, with which the page alone can be moved.
class LinkBase {
 public:
  /// Of a page in the folder `from`, and of files below `target`. Both are folders of this machine,
  /// as the user names them in any letter case.
  LinkBase(const std::string& from, const std::string& target);

  /// The link to a file below the target, named from there and spelled as the disk spells it.
  [[nodiscard]] std::string to(std::string_view file) const;

 private:
  /// The link to the target, without a `/` at its end.
  std::string target_;
  /// The folders that lead from the target down to the page, each as a piece of a link with its
  /// `/`; none of a page elsewhere.
  std::vector<std::string> way_;
};

}  // namespace quorbind
