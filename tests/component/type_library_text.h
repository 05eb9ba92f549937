#pragma once

#include <oaidl.h>

#include <string>

namespace quorbind::testing {

/// What a type library publishes, line by line: its identity, its interfaces with their members,
/// and its classes. Texts of help are left out, but a missing one is marked `WITHOUT HELP`.
std::string describe(ITypeLib& library);

}  // namespace quorbind::testing
