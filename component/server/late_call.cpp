#include "component/server/late_call.h"

#include <dispex.h>

#include <deque>
#include <vector>

#include "component/server/conversion.h"
#include "component/server/failure.h"
#include "platform/windows/com_types.h"

namespace quorbind {

namespace {

constexpr VARTYPE kTextReference = VT_BYREF | VT_BSTR;
constexpr VARTYPE kVariableReference = VT_BYREF | VT_VARIANT;

enum class ParameterKind { kOther, kTextByReference, kTextArray };

ParameterKind kindOf(const TYPEDESC& type) {
  if (type.vt != VT_PTR) {
    return ParameterKind::kOther;
  }
  switch (type.lptdesc->vt) {
    case VT_BSTR:
      return ParameterKind::kTextByReference;
    case VT_SAFEARRAY:
      return ParameterKind::kTextArray;
    default:
      return ParameterKind::kOther;
  }
}

/// The parameters of one member; none for a member that is not there.
class Parameters {
 public:
  Parameters(ITypeInfo& members, DISPID member, WORD kind) : members_(members) {
    TYPEATTR* attributes = nullptr;
    requireSuccess(members_.GetTypeAttr(&attributes));
    const WORD count = attributes->cFuncs;
    members_.ReleaseTypeAttr(attributes);
    for (UINT index = 0; index < count && function_ == nullptr; ++index) {
      requireSuccess(members_.GetFuncDesc(index, &function_));
      if (function_->memid != member || (function_->invkind & kind) == 0) {
        release();
      }
    }
  }
  Parameters(const Parameters&) = delete;
  Parameters& operator=(const Parameters&) = delete;
  ~Parameters() { release(); }

  [[nodiscard]] ParameterKind at(UINT index) const {
    const bool exists = function_ != nullptr && index < static_cast<UINT>(function_->cParams);
    return exists ? kindOf(function_->lprgelemdescParam[index].tdesc) : ParameterKind::kOther;
  }

 private:
  void release() {
    if (function_ != nullptr) {
      members_.ReleaseFuncDesc(function_);
      function_ = nullptr;
    }
  }

  ITypeInfo& members_;
  FUNCDESC* function_ = nullptr;
};

/// The variable that an argument refers to, or the argument itself.
VARIANTARG& variableOf(VARIANTARG& argument) {
  return argument.vt == kVariableReference ? *argument.pvarVal : argument;
}

/// The caller's arguments, as far as needed in the form that the parameters want.
class FittedArguments {
 public:
  explicit FittedArguments(const DISPPARAMS& given)
      : arguments_(given.rgvarg, given.rgvarg + given.cArgs), given_(given) {}

  /// Answers the index of the first argument that does not fit, or the number of arguments.
  UINT fit(const Parameters& parameters) {
    for (UINT index = 0; index < given_.cArgs; ++index) {
      if (!fit(arguments_[index], parameters.at(parameterOf(index)))) {
        return index;
      }
    }
    return given_.cArgs;
  }

  DISPPARAMS get() {
    return {arguments_.data(), given_.rgdispidNamedArgs, given_.cArgs, given_.cNamedArgs};
  }

 private:
  /// Arguments stand last first, those with names in front.
  [[nodiscard]] UINT parameterOf(UINT argument) const {
    return argument < given_.cNamedArgs ? static_cast<UINT>(given_.rgdispidNamedArgs[argument])
                                        : given_.cArgs - 1 - argument;
  }

  bool fit(VARIANTARG& argument, ParameterKind parameter) {
    switch (parameter) {
      case ParameterKind::kTextByReference:
        return argument.vt == kTextReference || fitText(argument);
      case ParameterKind::kTextArray:
        return fitArray(argument);
      case ParameterKind::kOther:
        break;
    }
    return true;
  }

  bool fitText(VARIANTARG& argument) {
    const bool isVariable = argument.vt == kVariableReference;
    VARIANTARG& text = isVariable ? *argument.pvarVal : keepCopy(argument);
    if (text.vt != VT_BSTR && FAILED(::VariantChangeType(&text, &text, 0, VT_BSTR))) {
      return false;
    }
    argument.vt = kTextReference;
    argument.pbstrVal = &text.bstrVal;
    return true;
  }

  /// The operation looks at the elements itself, so whatever their type the array is passed on.
  bool fitArray(VARIANTARG& argument) {
    VARIANTARG& variable = variableOf(argument);
    if ((variable.vt & VT_ARRAY) == 0) {
      return false;
    }
    SAFEARRAY** array = nullptr;
    if ((variable.vt & VT_BYREF) != 0) {
      array = variable.pparray;
    } else if (&variable != &argument) {
      array = &variable.parray;
    } else {
      array = &keepCopy(argument).parray;
    }
    argument.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    argument.pparray = array;
    return true;
  }

  VARIANTARG& keepCopy(const VARIANTARG& argument) { return *copies_.emplace_back(argument).get(); }

  /// A copy of an argument passed by value, so that its variable is never changed.
  class Copy {
   public:
    explicit Copy(const VARIANTARG& argument) : value_(Variant::copyOf(argument).detach()) {}
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    ~Copy() { ::VariantClear(&value_); }
    [[nodiscard]] VARIANTARG* get() { return &value_; }

   private:
    VARIANTARG value_;
  };

  std::vector<VARIANTARG> arguments_;
  std::deque<Copy> copies_;
  const DISPPARAMS& given_;
};

HRESULT fitAndCall(ITypeInfo& members, void* object, const LateCall& call) {
  FittedArguments arguments(*call.arguments);
  const UINT misfit = arguments.fit(Parameters(members, call.member, call.kind));
  if (misfit < call.arguments->cArgs) {
    if (call.wrongArgument != nullptr) {
      *call.wrongArgument = misfit;
    }
    return DISP_E_TYPEMISMATCH;
  }
  DISPPARAMS fitted = arguments.get();
  return members.Invoke(
      object, call.member, call.kind, &fitted, call.result, call.exception, call.wrongArgument);
}

/// Arguments with names stand in front, and `this` is the first of them.
DISPPARAMS withoutThis(const DISPPARAMS& given) {
  DISPPARAMS left = given;
  if (given.cNamedArgs > 0 && given.rgdispidNamedArgs[0] == DISPID_THIS) {
    ++left.rgvarg;
    ++left.rgdispidNamedArgs;
    --left.cArgs;
    --left.cNamedArgs;
  }
  return left;
}

void makeReadableByScripts(VARIANT& result) {
  if (result.vt == (VT_ARRAY | VT_BSTR)) {
    SAFEARRAY* variants = copyWithVariants(result.parray);
    requireSuccess(::VariantClear(&result));
    result.vt = VT_ARRAY | VT_VARIANT;
    result.parray = variants;
  }
}

}  // namespace

HRESULT callLate(ITypeInfo& members, void* object, const LateCall& call) noexcept {
  if (call.arguments == nullptr) {
    return E_INVALIDARG;
  }
  HRESULT answer = E_UNEXPECTED;
  const HRESULT made = guarded([&] { answer = fitAndCall(members, object, call); });
  return FAILED(made) ? made : answer;
}

HRESULT callFromScript(ITypeInfo& members, void* object, const LateCall& call) noexcept {
  if (call.arguments == nullptr) {
    return E_INVALIDARG;
  }
  DISPPARAMS arguments = withoutThis(*call.arguments);
  LateCall plain = call;
  plain.arguments = &arguments;
  const HRESULT answer = callLate(members, object, plain);
  if (FAILED(answer) || call.result == nullptr) {
    return answer;
  }
  const HRESULT made = guarded([&] { makeReadableByScripts(*call.result); });
  if (FAILED(made)) {
    ::VariantClear(call.result);
    return made;
  }
  return answer;
}

}  // namespace quorbind
