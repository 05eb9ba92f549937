#include "cli/failure.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>
#include <new>

#include "cli/marked_line.h"
#include "cli/paths.h"
#include "cli/toc_file.h"
#include "platform/abandoned.h"
#include "platform/file_bytes.h"
#include "platform/file_system.h"
#include "platform/platform.h"
#include "platform/runtime_error.h"
#include "platform/user_interface.h"
#include "platform/xml_document.h"
#include "toc/toc_check.h"

namespace quorbind {

namespace {

constexpr std::array kWriteErrors{ErrorNumber::kDeviceIoError,
                                  ErrorNumber::kDiskFull,
                                  ErrorNumber::kPermissionDenied,
                                  ErrorNumber::kPathFileAccessError,
                                  ErrorNumber::kPathNotFound};

constexpr std::array kReadErrors{ErrorNumber::kDeviceIoError, ErrorNumber::kPermissionDenied};

template <std::size_t count>
bool isAmong(const std::array<ErrorNumber, count>& errors, std::int32_t number) {
  return std::any_of(errors.begin(), errors.end(), [number](ErrorNumber error) {
    return static_cast<std::int32_t>(error) == number;
  });
}

/// The rule that is broken where a file can't be used, if it is one of those that people meet.
std::optional<RuleText> ruleOf(const RunTimeError& error) {
  if (error.is(ErrorNumber::kPathNotFound)) {
    return RuleText::kNoSuchPath;
  }
  if (error.is(ErrorNumber::kFileNotFound)) {
    return RuleText::kNoSuchFile;
  }
  return error.is(ErrorNumber::kPermissionDenied) ? std::optional(RuleText::kNoRight)
                                                  : std::nullopt;
}

/// Runs `step`; a run-time error in it is a failure with `status` that names the file.
void concerning(std::string_view name, ExitStatus status, const std::function<void()>& step) {
  try {
    step();
  } catch (const RunTimeError& error) {
    const std::string file(name);
    if (const auto rule = ruleOf(error)) {
      throw brokenRule(*rule, {{"FILE", file}}, status);
    }
    throw CommandFailure(status, file + ": " + error.description());
  }
}

/// Nothing where the line can't be shown.
std::optional<FaultyLine> faultyLineOf(const Platform& platform,
                                       const std::string& path,
                                       const LinePlace& place) {
  auto text = lineOfFile(platform, path, TocCheck::kXml, place.line);
  return text ? std::optional(FaultyLine{place, std::move(*text)}) : std::nullopt;
}

}  // namespace

CommandFailure brokenRule(RuleText rule, const TextWords& words, ExitStatus status) {
  return {status, filledText(text(rule), words)};
}

bool isWriteError(std::int32_t number) {
  return isAmong(kWriteErrors, number);
}

bool isReadError(std::int32_t number) {
  return isAmong(kReadErrors, number);
}

void readingInput(std::string_view name, const std::function<void()>& step) {
  concerning(name, ExitStatus::kInputMissing, step);
}

void writingOutput(std::string_view name, const std::function<void()>& step) {
  concerning(name, ExitStatus::kWriteFailed, step);
}

std::string faultIn(const std::string& name, const LinePlace& place, const std::string& what) {
  if (place.column == 0) {
    return placeIn(name, place.line) + what;
  }
  return filledText(text(RuleText::kFaultAtPlace),
                    {{"FILE", name},
                     {"LINE", std::to_string(place.line)},
                     {"COLUMN", std::to_string(place.column)},
                     {"REASON", what}});
}

CommandFailure loadFailure(const Platform& platform,
                           const std::string& path,
                           const XmlLoadResult& result) {
  const ExitStatus status = result.line > 0 ? ExitStatus::kNotParseable : ExitStatus::kInputMissing;
  const LinePlace place{.line = static_cast<std::size_t>(result.line),
                        .column = static_cast<std::size_t>(result.column)};
  return {
      status, faultIn(nativeName(path), place, result.reason), faultyLineOf(platform, path, place)};
}

void requireReadable(FileSystem& files, std::string_view path, std::string_view name) {
  readingInput(name, [&] { requireReadable(files, path); });
}

bool isLackOfMemory(std::int32_t number) {
  return number == static_cast<std::int32_t>(ErrorNumber::kOutOfMemory);
}

UnexpectedEnd endBy(const std::exception& error) {
  const auto* told = dynamic_cast<const RunTimeError*>(&error);
  const bool isAllocation = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
  if (isAllocation || (told != nullptr && isLackOfMemory(told->number()))) {
    return {RunTimeError(ErrorNumber::kOutOfMemory).description(), ExitStatus::kNotParseable};
  }
  return {std::string("internal error: ") + error.what(), ExitStatus::kInternal};
}

ExitStatus reportingFailures(UserInterface& ui,
                             const std::function<ExitStatus()>& subcommand,
                             std::optional<FaultyLine>* blamed) {
  try {
    return subcommand();
  } catch (const CommandFailure& failure) {
    ui.show(criticalMessage(failure.what()));
    std::cerr << (failure.line() ? markedLine(*failure.line()) : "");
    if (blamed != nullptr) {
      *blamed = failure.line();
    }
    return failure.status();
  } catch (const AlreadyTold& told) {
    return told.status();
  } catch (const Abandoned&) {
    throw;
  } catch (const std::exception& error) {
    const UnexpectedEnd end = endBy(error);
    ui.show(criticalMessage(end.note));
    return end.status;
  }
}

}  // namespace quorbind
