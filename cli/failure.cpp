#include "cli/failure.h"

#include <algorithm>
#include <array>

#include "cli/paths.h"
#include "platform/file_system.h"
#include "platform/runtime_error.h"
#include "platform/user_interface.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

constexpr std::array kWriteErrors{ErrorNumber::kDeviceIoError,
                                  ErrorNumber::kDiskFull,
                                  ErrorNumber::kPermissionDenied,
                                  ErrorNumber::kPathFileAccessError,
                                  ErrorNumber::kPathNotFound};

std::string describe(std::string_view name, const RunTimeError& error) {
  return std::string(name).append(": ").append(error.description());
}

}  // namespace

bool isWriteError(std::int32_t number) {
  return std::any_of(kWriteErrors.begin(), kWriteErrors.end(), [number](ErrorNumber error) {
    return static_cast<std::int32_t>(error) == number;
  });
}

CommandFailure writeFailure(std::string_view name, const RunTimeError& error) {
  return {ExitStatus::kWriteFailed, describe(name, error)};
}

CommandFailure loadFailure(std::string_view path, const XmlLoadResult& result) {
  std::string message = nativeName(path);
  if (result.line > 0) {
    message.append(":").append(std::to_string(result.line));
  }
  return {ExitStatus::kNotParseable, message.append(": ").append(result.reason)};
}

void requireReadable(FileSystem& files, std::string_view path, std::string_view name) {
  try {
    char first = 0;
    static_cast<void>(files.open(path)->read(&first, 1));
  } catch (const RunTimeError& error) {
    throw CommandFailure(ExitStatus::kInputMissing, describe(name, error));
  }
}

ExitStatus reportingFailures(UserInterface& ui, const std::function<ExitStatus()>& subcommand) {
  try {
    return subcommand();
  } catch (const CommandFailure& failure) {
    ui.show(criticalMessage(failure.what()));
    return failure.status();
  }
}

}  // namespace quorbind
