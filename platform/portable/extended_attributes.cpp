#include "platform/portable/extended_attributes.h"

#include <sys/types.h>
#include <sys/xattr.h>

#include <cstddef>
#include <cstring>

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

}  // namespace

void copyExtendedAttributes(const std::string& path, const FileDescriptor& file) {
  const std::string names = allOf(
      [&](char* buffer, std::size_t size) { return ::listxattr(path.c_str(), buffer, size); });
  for (const char* name = names.data(); name < names.data() + names.size();
       name += std::strlen(name) + 1) {
    const std::string value = allOf([&](char* buffer, std::size_t size) {
      return ::getxattr(path.c_str(), name, buffer, size);
    });
    static_cast<void>(::fsetxattr(file.number(), name, value.data(), value.size(), 0));
  }
}

}  // namespace quorbind
