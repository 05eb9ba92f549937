#include "platform/portable/drive_name.h"

#include <algorithm>

#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr std::string_view kCurrentDrive = "C:";
constexpr char kSeparator = '\\';

bool isSeparator(char c) {
  return c == kSeparator || c == '/';
}

bool isDriveLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The drive that `name` begins with; empty when it names none.
std::string_view driveIn(std::string_view name) {
  const bool hasDrive =
      name.size() >= kCurrentDrive.size() && isDriveLetter(name[0]) && name[1] == ':';
  return hasDrive ? name.substr(0, kCurrentDrive.size()) : std::string_view();
}

std::string_view firstPart(std::string_view parts) {
  return {parts.begin(), std::find_if(parts.begin(), parts.end(), isSeparator)};
}

}  // namespace

DriveName::DriveName(std::string_view name, std::string_view workingFolder)
    : drive_(driveIn(name)) {
  if (name.empty() || name.find('\0') != std::string_view::npos) {
    raise(ErrorNumber::kBadFileName);
  }
  isWrittenAsFolder_ = isSeparator(name.back());
  parts_.reserve(name.size() + 1);
  if (isRelative(name)) {
    append(workingFolder);
  }
  append(name.substr(drive_.size()));
  if (drive_.empty()) {
    drive_ = kCurrentDrive;
  }
}

bool DriveName::isRelative(std::string_view name) {
  name.remove_prefix(driveIn(name).size());
  return name.empty() || !isSeparator(name.front());
}

void DriveName::append(std::string_view parts) {
  while (!parts.empty()) {
    const std::string_view part = firstPart(parts);
    if (part == "..") {
      parts_.erase(std::min(parts_.rfind('/'), parts_.size()));
    } else if (!part.empty() && part != ".") {
      parts_.append(1, '/').append(part);
    }
    parts.remove_prefix(std::min(part.size() + 1, parts.size()));
  }
}

std::string DriveName::text() const {
  std::string text;
  text.reserve(drive_.size() + parts_.size() + 1);
  text.append(drive_).append(parts_);
  if (parts_.empty()) {
    text += kSeparator;
  }
  std::replace(text.begin(), text.end(), '/', kSeparator);
  return text;
}

}  // namespace quorbind
