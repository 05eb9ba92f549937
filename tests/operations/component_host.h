#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/text_array.h"
#include "tests/support/paper_spreadsheets.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

/// Of these a sheet is a worksheet that the host has open.
using Argument = std::variant<bool, std::int32_t, std::string, TextArray, PaperSheet>;
using Arguments = std::vector<Argument>;
/// None for an operation without a result, and for an array that is unset.
using Result = std::optional<Argument>;

/// A host of the component, with a disk and a documentation server of its own and a person in front
/// of the screen. All names of files, given or answered, are names on the drive `C:`, which is the
/// disk and the server's root folder, whatever the host's own names for them are.
class ComponentHost {
 public:
  virtual ~ComponentHost() = default;

  /// Calls an operation of `Quor_Book` or `Book_Config`; arguments at the end may be left out where
  /// they are optional. The answer in words: `"a text"`, `True`, `["a", "b"]`, `[from 5: "a"]`, or
  /// `nothing`; behind it the arguments that came back changed, as in `nothing, 3: "Manual"`.
  std::string call(const std::string& operation, const Arguments& arguments);

  /// The person will fill in the next book dialog and press OK, or press Cancel.
  virtual void willEnter(const std::string& name, const std::string& acronym) = 0;
  virtual void willCancel() = 0;

  /// What the person saw since the last call of this: boxes and dialogs in order, a line each, as
  /// ScriptedUserInterface notes them. Line breaks are LF.
  virtual std::vector<std::string> takeShown() = 0;

  [[nodiscard]] virtual const TemporaryFolder& disk() const = 0;

 private:
  /// Calls the operation and puts what became of them into the arguments that are passed by
  /// reference.
  virtual Result answer(const std::string& operation, Arguments& arguments) = 0;
};

/// The ways in which hosts of this build call the component.
std::vector<std::string> waysOfCalling();
std::unique_ptr<ComponentHost> makeHost(const std::string& way);

}  // namespace quorbind::testing
