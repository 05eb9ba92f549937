#pragma once

#include <sys/mount.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

namespace quorbind::testing {

/// A disk of 64 KiB, or another size, in the place of an existing folder, gone with this object.
/// Only who may mount disks can have one: root, or root of a name space (`unshare -rm`).
class SmallDisk {
 public:
  static constexpr std::size_t kPageSize = 4096;
  static constexpr const char* kNotMounted =
      "Run this as root, or under unshare -rm: no disk can be mounted: ";

  explicit SmallDisk(std::filesystem::path folder, const std::string& size = "64k")
      : folder_(std::move(folder)),
        mounted_(::mount("tmpfs", folder_.c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0) {}
  ~SmallDisk() {
    if (mounted_) {
      ::umount2(folder_.c_str(), MNT_DETACH);
    }
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  /// False, with errno, where none could be mounted.
  [[nodiscard]] bool isMounted() const { return mounted_; }

  /// Writes a file that leaves `pages` pages free, or fewer where there are no more.
  void fillBut(const std::string& name, std::size_t pages) const {
    const std::filesystem::path path = folder_ / name;
    std::ofstream file(path, std::ios::binary);
    const std::string page(kPageSize, 'x');
    while (file.write(page.data(), static_cast<std::streamsize>(page.size())).flush()) {
    }
    file.close();
    const std::size_t filled = std::filesystem::file_size(path) / kPageSize;
    std::filesystem::resize_file(path, (filled - std::min(filled, pages)) * kPageSize);
  }

 private:
  std::filesystem::path folder_;
  bool mounted_;
};

}  // namespace quorbind::testing
