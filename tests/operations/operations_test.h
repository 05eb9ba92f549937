#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/operations/component_host.h"

namespace quorbind::testing {

/// A host, called in the way that the test's parameter names, and what it shows and writes.
class OperationsTest : public ::testing::TestWithParam<std::string> {
 protected:
  static constexpr const char* kObjectNotSet = "Object variable or With block variable not set";
  static constexpr const char* kNoTopLevelElement = "XML document must have a top level element.";

  std::string call(const std::string& operation, const Arguments& arguments = {}) {
    return host_->call(operation, arguments);
  }
  std::vector<std::string> shown() { return host_->takeShown(); }
  ComponentHost& host() { return *host_; }

  /// `name` with `/`, on the disk `C:`.
  void write(std::string_view name, std::string_view bytes) const {
    host_->disk().write(name, bytes);
  }
  [[nodiscard]] bool has(std::string_view name) const { return host_->disk().has(name); }
  /// The bytes of a file, but for the date of its making, which reads DATE.
  [[nodiscard]] std::string bytes(std::string_view name) const;
  [[nodiscard]] std::map<std::string, std::string> allFiles() const {
    return host_->disk().contents();
  }

  /// The operation answers this, shows this one box and changes no file.
  void expectRefused(const std::string& operation,
                     const Arguments& arguments,
                     const std::string& answer,
                     const std::string& box);

 private:
  const std::unique_ptr<ComponentHost> host_ = makeHost(GetParam());
};

/// The bytes of a file as tests compare them: the dates of its making read DATE.
std::string withoutDateOfMaking(const std::string& bytes);

/// The bytes of a saved document whose lines end with LF here.
std::string saved(std::string_view document);

/// An array from index 0, or from another one, on.
inline TextArray array(std::initializer_list<std::string> texts, std::int32_t lowerBound = 0) {
  return {texts, lowerBound};
}

inline std::string nameOfWay(const ::testing::TestParamInfo<std::string>& way) {
  return way.param;
}

/// Runs the tests of a suite in every way in which hosts of this build call the component.
#define QUOR_IN_EVERY_WAY(suite) \
  INSTANTIATE_TEST_SUITE_P(, suite, ::testing::ValuesIn(waysOfCalling()), nameOfWay)

}  // namespace quorbind::testing
