#pragma once

#include <ole2.h>

#include <string>

#include "platform/windows/com_types.h"

namespace quorbind {

/// The full path of the DLL that this code is part of.
std::wstring ownModulePath();

/// The type library embedded in this DLL. Raises a run-time error when it can't be loaded.
ComPtr<ITypeLib> ownTypeLibrary();

/// What the library says about the interface or class `id`.
ComPtr<ITypeInfo> ownTypeInfo(REFGUID id);

}  // namespace quorbind
