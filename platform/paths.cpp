#include "platform/paths.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace quorbind {

namespace {

constexpr std::string_view kDotsAndBlanks = ". ";

constexpr char kNul = '\0';

/// What a path begins with that leads out of the drives: onto the network, or past the rules for
/// names into the devices themselves.
constexpr std::array<std::string_view, 2> kLeadsOutOfDrives{R"(\\)", R"(\??\)"};
constexpr std::size_t kLongestLeadOut = 4;

constexpr std::array<std::string_view, 6> kDevices{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};

/// Devices of which there are several, told apart by one of the numbers. A superscript one, two or
/// three (here in UTF-8) counts as the digit.
constexpr std::array<std::string_view, 2> kNumberedDevices{"COM", "LPT"};
constexpr std::array<std::string_view, 13> kDeviceNumbers{
    "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};

template <typename Names, typename Predicate>
bool anyOf(const Names& names, Predicate predicate) {
  return std::any_of(names.begin(), names.end(), predicate);
}

/// A device answers to its name with any extension, and with blanks before that.
bool isDevice(std::string_view part) {
  // No other letter does a device begin with, and nearly no name with one of them.
  constexpr std::string_view kInitials = "ACLNPaclnp";
  if (part.empty() || kInitials.find(part.front()) == std::string_view::npos) {
    return false;
  }
  const std::string_view stem = part.substr(0, part.find('.'));
  const std::string_view name = stem.substr(0, stem.find_last_not_of(' ') + 1);
  const auto isName = [name](std::string_view device) {
    return equalIgnoringAsciiCase(name, device);
  };
  const auto isNumbered = [name](std::string_view device) {
    return startsIgnoringAsciiCase(name, device) &&
           anyOf(kDeviceNumbers,
                 [number = name.substr(device.size())](auto known) { return known == number; });
  };
  return anyOf(kDevices, isName) || anyOf(kNumberedDevices, isNumbered);
}

bool isSeparator(char c) {
  return c == '\\' || c == '/';
}

bool canStandInName(char c) {
  return !isSeparator(c) && c != ':' && c != kNul;
}

/// What stands before the first separator. A colon counts as one: behind that of a drive a device
/// is still a device.
std::string_view firstPart(std::string_view path) {
  const auto endsPart = [](char c) { return isSeparator(c) || c == ':'; };
  return {path.begin(), std::find_if(path.begin(), path.end(), endsPart)};
}

}  // namespace

std::string withBackslashes(std::string_view path) {
  std::string result(path);
  // Every character is assigned: so the compiler takes many in a step.
  for (char& c : result) {
    c = c == '/' ? '\\' : c;
  }
  return result;
}

std::string_view folderOf(std::string_view path) {
  const std::size_t separator = path.rfind('\\');
  return separator == std::string_view::npos ? std::string_view() : path.substr(0, separator);
}

std::string_view fileNameOf(std::string_view path) {
  return path.substr(path.rfind('\\') + 1);
}

std::string_view folderPartOf(std::string_view path) {
  return path.substr(0, path.size() - fileNameOf(path).size());
}

std::string joinedPath(std::string_view folder, std::string_view name) {
  return std::string(folder).append(folder.empty() ? "" : "\\").append(name);
}

std::string_view withoutDotsAtEnd(std::string_view name) {
  return name.substr(0, name.find_last_not_of(kDotsAndBlanks) + 1);
}

bool leadsToNetworkOrDevice(std::string_view path) {
  if (path.find(kNul) != std::string_view::npos) {
    return true;
  }
  const std::string beginning = withBackslashes(path.substr(0, kLongestLeadOut));
  if (anyOf(kLeadsOutOfDrives, [&](auto leadOut) { return beginning.starts_with(leadOut); })) {
    return true;
  }
  for (;;) {
    const std::string_view part = firstPart(path);
    if (isDevice(part)) {
      return true;
    }
    if (part.size() == path.size()) {
      return false;
    }
    path.remove_prefix(part.size() + 1);
  }
}

bool staysInFolder(std::string_view name) {
  const bool isFolderItself = withoutDotsAtEnd(name).empty();
  return !isFolderItself && std::all_of(name.begin(), name.end(), canStandInName) &&
         !isDevice(name);
}

std::optional<std::string> nameBelow(std::string_view name) {
  std::string below;
  for (bool isAtBeginning = true, isAtEnd = false; !isAtEnd; isAtBeginning = false) {
    const std::string_view part{name.begin(), std::find_if(name.begin(), name.end(), isSeparator)};
    isAtEnd = part.size() == name.size();
    name.remove_prefix(isAtEnd ? part.size() : part.size() + 1);
    const bool isDoubledSeparator = part.empty() && !isAtBeginning;
    if (isDoubledSeparator || part == ".") {
      continue;
    }
    if (part == ".." && !below.empty()) {
      below.resize(folderOf(below).size());
    } else if (staysInFolder(part)) {
      below.append(below.empty() ? "" : "\\").append(part);
    } else {
      return std::nullopt;
    }
  }
  return below.empty() ? std::nullopt : std::optional(std::move(below));
}

}  // namespace quorbind
