// Bringing the documents of a book into a library.

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "tests/support/world.h"
#include "toolset/file_copy.h"

namespace quorbind::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::size_t, 2> kSizes{1'000, 10'000};
constexpr const char* kBookFile = "Book_BEN.xml";
/// As long as short pages are.
constexpr std::size_t kDocumentSize = 2'000;

/// A folder with a book file and its documents, which have one extension.
class Documents {
 public:
  Documents(std::size_t count, const std::string& extension) : count_(count) {
    std::string book = "<Book_Master><Book_Headings>";
    for (std::size_t i = 0; i < count; ++i) {
      const std::string name = "document" + std::to_string(i) + extension;
      world_.disk.write("in/" + name, std::string(kDocumentSize, 'x'));
      book += "<Heading><HFile>" + name + "</HFile></Heading>";
    }
    world_.disk.write(std::string("in/") + kBookFile, book + "</Book_Headings></Book_Master>");
    world_.disk.makeFolder("library");
  }

  /// Every copy goes to a folder that is new: one that was emptied takes files more slowly.
  void next() { folder_ = "copy" + std::to_string(++copies_); }

  bool copy() {
    const Platform& platform = world_.platform();
    ReferenceFileCopy copy(platform.files, platform.xml, platform.locale);
    const bool isCopied =
        copy.mbCopyFiles("C:\\library\\" + folder_, std::string("C:\\in\\") + kBookFile, 0, 0);
    copy.flush();
    return isCopied;
  }
  [[nodiscard]] bool copyOnFloor() const {
    return counted(floorCopyFolder((world_.disk.path() / "in").c_str(), target().c_str()),
                   count_ + 1);
  }
  [[nodiscard]] bool areCopied() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(target()), {})) ==
           count_ + 1;
  }

 private:
  [[nodiscard]] fs::path target() const { return world_.disk.path() / "library" / folder_; }

  testing::World world_;
  std::size_t count_;
  std::size_t copies_ = 0;
  std::string folder_;
};

class Plain : public Documents {
 public:
  explicit Plain(std::size_t count) : Documents(count, ".pdf") {}
};

class Pages : public Documents {
 public:
  explicit Pages(std::size_t count) : Documents(count, ".htm") {}
};

template <typename Kind>
void registerCopies(const std::string& name) {
  const auto kinds = std::make_shared<MadeOnce<Kind>>();
  for (const std::size_t size : kSizes) {
    const auto next = [kinds, size] { kinds->at(size).next(); };
    const auto check = [kinds, size] { return kinds->at(size).areCopied(); };
    registerWork(
        "component/copy/" + name,
        size,
        {.reset = next, .run = [kinds, size] { return kinds->at(size).copy(); }, .check = check});
    registerWork("floor/copy/" + name,
                 size,
                 {.reset = next,
                  .run = [kinds, size] { return kinds->at(size).copyOnFloor(); },
                  .check = check});
  }
}

}  // namespace

void registerCopying() {
  registerCopies<Plain>("documents");
  registerCopies<Pages>("pages");
}

}  // namespace quorbind::bench
