#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/text.h"
#include "tests/support/world.h"

namespace quorbind::testing {

/// A component with a library's side files in the root of its disk.
class SideFileTest : public ::testing::Test {
 protected:
  [[nodiscard]] const Platform& platform() const { return world_.platform(); }
  [[nodiscard]] ProcessState& state() { return world_.state(); }

  /// A file's text as it stands, but for its line ends, which are LF.
  [[nodiscard]] std::string textOf(std::string_view name) const {
    return replaceAll(world_.disk.read(name), "\r\n", "\n");
  }
  [[nodiscard]] const std::vector<std::string>& boxes() const { return world_.user.record(); }

  World world_;
};

/// A categories file in UTF-8 as a save lays it out, but for its LF line ends.
inline std::string categoriesWith(std::string_view categories) {
  return "<BookSet_Categories>\n" + std::string(categories) + "</BookSet_Categories>\n";
}

/// One category of it, with the acronyms given.
inline std::string category(std::string_view name,
                            std::initializer_list<std::string_view> acronyms = {}) {
  std::string text = "\t<Category>\n\t\t<CategoryName>" + std::string(name) + "</CategoryName>\n";
  for (const std::string_view acronym : acronyms) {
    text += "\t\t<BookAcro>" + std::string(acronym) + "</BookAcro>\n";
  }
  return text + "\t</Category>\n";
}

}  // namespace quorbind::testing
