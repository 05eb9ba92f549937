#include "platform/portable/extended_attributes.h"

#include <sys/types.h>
#include <sys/xattr.h>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace quorbind {

namespace {

/// What `read` has to tell; it is asked for the size first. Empty where there is nothing.
template <typename Read>
std::string allOf(Read read) {
  const ssize_t size = read(nullptr, 0);
  std::string bytes(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
  const ssize_t count = read(bytes.data(), bytes.size());
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

constexpr std::string_view kAccessList = "system.posix_acl_access";

/// The system hands an access list out as a version, behind which stand entries of a kind, its
/// rights and an id. Kind and rights are numbers of two bytes, the low one first; the high one of
/// each of ours is 0.
constexpr std::size_t kVersionSize = 4;
constexpr std::size_t kEntrySize = 8;
constexpr std::size_t kRightsInEntry = 2;
constexpr char kOwningGroup = 0x04;
constexpr char kOthers = 0x20;

/// The rights of the entry of that kind; null where there is none.
char* rightsOf(char kind, std::string& list) {
  for (std::size_t entry = kVersionSize; entry + kEntrySize <= list.size(); entry += kEntrySize) {
    if (list[entry] == kind) {
      return &list[entry + kRightsInEntry];
    }
  }
  return nullptr;
}

void takeRightsOfGroup(std::string& list) {
  char* const group = rightsOf(kOwningGroup, list);
  char* const others = rightsOf(kOthers, list);
  if (group != nullptr && others != nullptr) {
    *group = *others = static_cast<char>(*group & *others);
  }
}

}  // namespace

void copyExtendedAttributes(const std::string& path,
                            const FileDescriptor& file,
                            AccessList accessList) {
  const std::string names = allOf(
      [&](char* buffer, std::size_t size) { return ::listxattr(path.c_str(), buffer, size); });
  for (const char* name = names.data(); name < names.data() + names.size();
       name += std::strlen(name) + 1) {
    std::string value = allOf([&](char* buffer, std::size_t size) {
      return ::getxattr(path.c_str(), name, buffer, size);
    });
    if (accessList == AccessList::kWithoutRightsOfGroup && name == kAccessList) {
      takeRightsOfGroup(value);
    }
    static_cast<void>(::fsetxattr(file.number(), name, value.data(), value.size(), 0));
  }
}

}  // namespace quorbind
