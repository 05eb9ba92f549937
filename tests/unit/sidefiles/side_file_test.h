#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/text.h"
#include "tests/support/category_text.h"
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

}  // namespace quorbind::testing
