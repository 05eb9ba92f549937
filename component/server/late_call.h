#pragma once

#include <ole2.h>

namespace quorbind {

/// One call by name, as IDispatch::Invoke receives it.
struct LateCall {
  DISPID member;
  WORD kind;
  DISPPARAMS* arguments;
  VARIANT* result;
  EXCEPINFO* exception;
  UINT* wrongArgument;
};

/// Carries out a late-bound call of the dual interface `object`, whose members `members` describes.
///
/// The system's own conversion of arguments does not reach what a parameter takes by reference, so
/// that is done here: a script's variable serves as a text taken by reference (it becomes a text),
/// and an array in a script's variable as a text array, with elements of either kind. Everything
/// else, names, defaults and conversions by value, is the system's.
HRESULT callLate(ITypeInfo& members, void* object, const LateCall& call) noexcept;

/// The same for a script engine. It may pass the object that it takes for `this` as an argument
/// more, which no member wants; and it reads the elements of arrays of variants alone, so a result
/// that is an array of texts becomes one, with its bounds.
HRESULT callFromScript(ITypeInfo& members, void* object, const LateCall& call) noexcept;

}  // namespace quorbind
