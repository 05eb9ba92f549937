#include "platform/runtime_error.h"

#include <utility>

namespace quorbind {

std::string_view describe(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case ErrorNumber::kOverflow:
      return "Overflow";
    case ErrorNumber::kOutOfMemory:
      return "Out of memory";
    case ErrorNumber::kSubscriptOutOfRange:
      return "Subscript out of range";
    case ErrorNumber::kTypeMismatch:
      return "Type mismatch";
    case ErrorNumber::kBadFileName:
      return "Bad file name or number";
    case ErrorNumber::kFileNotFound:
      return "File not found";
    case ErrorNumber::kDeviceIoError:
      return "Device I/O error";
    case ErrorNumber::kFileAlreadyExists:
      return "File already exists";
    case ErrorNumber::kDiskFull:
      return "Disk full";
    case ErrorNumber::kInputPastEndOfFile:
      return "Input past end of file";
    case ErrorNumber::kPermissionDenied:
      return "Permission denied";
    case ErrorNumber::kPathFileAccessError:
      return "Path/File access error";
    case ErrorNumber::kPathNotFound:
      return "Path not found";
    case ErrorNumber::kObjectNotSet:
      return "Object variable or With block variable not set";
    case ErrorNumber::kObjectUnloaded:
      return "Object was unloaded";
    case ErrorNumber::kObjectRequired:
      return "Object required";
    case ErrorNumber::kCannotCreateObject:
      return "ActiveX component can't create object";
    case ErrorNumber::kAutomationNameNotFound:
      return "File name or class name not found during Automation operation";
    case ErrorNumber::kMemberNotSupported:
      return "Object doesn't support this property or method";
  }
  return "Application-defined or object-defined error";
}

RunTimeError::RunTimeError(ErrorNumber number)
    : RunTimeError(static_cast<std::int32_t>(number), std::string(describe(number))) {}

RunTimeError::RunTimeError(std::int32_t number, std::string description)
    : number_(number), description_(std::move(description)) {}

void raise(ErrorNumber number) {
  throw RunTimeError(number);
}

}  // namespace quorbind
