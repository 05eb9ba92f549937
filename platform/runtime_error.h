#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace quorbind {

/// The run-time error numbers that a host of this component knows, each with one fixed description.
enum class ErrorNumber : std::int32_t {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kBadFileName = 52,
  kFileNotFound = 53,
  kDeviceIoError = 57,
  kFileAlreadyExists = 58,
  kDiskFull = 61,
  kInputPastEndOfFile = 62,
  kPermissionDenied = 70,
  kPathFileAccessError = 75,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kObjectUnloaded = 364,
  kObjectRequired = 424,
  kCannotCreateObject = 429,
  kAutomationNameNotFound = 432,
  kMemberNotSupported = 438,
};

/// Numbers of errors that an object of the platform raises by itself; their descriptions are the
/// object's own.
inline constexpr std::int32_t kInvalidQueryError = -2147467259;
inline constexpr std::int32_t kNoTopLevelElementError = -1072896680;
inline constexpr std::int32_t kServerNotConfiguredError = -2147220991;

/// The fixed description of `number`.
std::string_view describe(ErrorNumber number);

/// The one exception that crosses a port. Adapters translate whatever went wrong into it; an error
/// trap (error_trap.h) turns it into the operation's own box.
class RunTimeError : public std::exception {
 public:
  explicit RunTimeError(ErrorNumber number);
  RunTimeError(std::int32_t number, std::string description);

  [[nodiscard]] std::int32_t number() const noexcept { return number_; }
  [[nodiscard]] const std::string& description() const noexcept { return description_; }
  [[nodiscard]] bool is(ErrorNumber number) const noexcept {
    return number_ == static_cast<std::int32_t>(number);
  }
  [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
};

[[noreturn]] void raise(ErrorNumber number);

}  // namespace quorbind
