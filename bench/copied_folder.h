#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "tests/support/world.h"

namespace quorbind::bench {

inline constexpr const char* kPageExtension = ".htm";

/// A folder with a book file and its documents, which have one extension; with pages, also what
/// these link to.
class CopiedFolder {
 public:
  CopiedFolder(std::size_t documents, const std::string& extension);

  /// Every copy goes to a folder that is new: one that was emptied takes files more slowly.
  void reset() { folder_ = "copy" + std::to_string(++copies_); }

  /// As a generated book file comes, with all its documents at once.
  bool copy();
  /// As an existing book file does, which hands its documents over one by one.
  bool takeOver();
  [[nodiscard]] bool areCopied() const;
  [[nodiscard]] bool isQuiet() const { return world_.user.messages().empty(); }

  /// With the book file, and what pages link to.
  [[nodiscard]] std::size_t files() const { return files_; }
  [[nodiscard]] std::filesystem::path source() const;
  [[nodiscard]] std::filesystem::path target() const;

 private:
  testing::World world_;
  std::size_t files_;
  std::size_t copies_ = 0;
  std::string folder_;
};

class PlainFolder : public CopiedFolder {
 public:
  explicit PlainFolder(std::size_t documents) : CopiedFolder(documents, ".pdf") {}
};

class PageFolder : public CopiedFolder {
 public:
  explicit PageFolder(std::size_t documents) : CopiedFolder(documents, kPageExtension) {}
};

}  // namespace quorbind::bench
