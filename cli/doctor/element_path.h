#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

/// The open elements during a scan, as a row of names with `/` between them.
class ElementPath {
 public:
  void open(std::string_view name) {
    lengths_.push_back(path_.size());
    path_.append(path_.empty() ? "" : "/").append(name);
  }
  void close() {
    path_.resize(lengths_.back());
    lengths_.pop_back();
  }

  [[nodiscard]] bool is(std::string_view names) const { return path_ == names; }

 private:
  std::string path_;
  /// How long it was before each of them.
  std::vector<std::size_t> lengths_;
};

}  // namespace quorbind
