#include "tests/component/type_library_text.h"

#include <functional>
#include <memory>
#include <vector>

#include "platform/windows/com_types.h"

namespace quorbind::testing {

namespace {

std::string identity(REFGUID id) {
  wchar_t text[39];
  ::StringFromGUID2(id, text, 39);
  return toUtf8(text);
}

std::string typeName(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR:
      return typeName(info, *type.lptdesc) + "*";
    case VT_SAFEARRAY:
      return "SAFEARRAY(" + typeName(info, *type.lptdesc) + ")";
    case VT_BSTR:
      return "BSTR";
    case VT_BOOL:
      return "VARIANT_BOOL";
    case VT_I2:
      return "short";
    case VT_I4:
      return "long";
    case VT_DISPATCH:
      return "IDispatch*";
    case VT_VOID:
      return "void";
    case VT_HRESULT:
      return "HRESULT";
    default:
      return "type " + std::to_string(type.vt);
  }
}

std::string directions(const PARAMDESC& parameter) {
  std::string words;
  const auto add = [&](USHORT flag, const char* word) {
    if ((parameter.wParamFlags & flag) != 0) {
      words += words.empty() ? word : std::string(", ") + word;
    }
  };
  add(PARAMFLAG_FIN, "in");
  add(PARAMFLAG_FOUT, "out");
  add(PARAMFLAG_FRETVAL, "retval");
  add(PARAMFLAG_FOPT, "optional");
  if ((parameter.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0) {
    const std::string value = Variant::copyOf(parameter.pparamdescex->varDefaultValue).text();
    words += ", default \"" + value + "\"";
  }
  return "[" + words + "]";
}

std::string kindOfCall(INVOKEKIND kind) {
  return kind == INVOKE_PROPERTYGET ? "property" : "method";
}

/// A description that the type information lends, given back with the object.
template <typename Description>
using Lent = std::unique_ptr<Description, std::function<void(Description*)>>;

Lent<TYPEATTR> attributesOf(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  requireSuccess(info.GetTypeAttr(&attributes));
  return {attributes, [&info](TYPEATTR* lent) { info.ReleaseTypeAttr(lent); }};
}

Lent<FUNCDESC> functionOf(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  requireSuccess(info.GetFuncDesc(index, &function));
  return {function, [&info](FUNCDESC* lent) { info.ReleaseFuncDesc(lent); }};
}

std::string helpMark(ITypeInfo& info, MEMBERID member) {
  Bstr help;
  info.GetDocumentation(member, nullptr, help.put(), nullptr, nullptr);
  return help.view().empty() ? " WITHOUT HELP" : "";
}

std::string nameOf(ITypeInfo& info, MEMBERID member) {
  Bstr name;
  requireSuccess(info.GetDocumentation(member, name.put(), nullptr, nullptr, nullptr));
  return name.text();
}

std::string describeMember(ITypeInfo& info, UINT index) {
  const auto function = functionOf(info, index);
  std::vector<BSTR> names(static_cast<std::size_t>(function->cParams) + 1);
  UINT count = 0;
  requireSuccess(
      info.GetNames(function->memid, names.data(), static_cast<UINT>(names.size()), &count));

  std::string text = "  " + std::to_string(function->memid) + " " + kindOfCall(function->invkind) +
                     " " + typeName(info, function->elemdescFunc.tdesc) + " " + textOf(names[0]) +
                     helpMark(info, function->memid) + "\n";
  for (SHORT parameter = 0; parameter < function->cParams; ++parameter) {
    const ELEMDESC& element = function->lprgelemdescParam[parameter];
    const auto place = static_cast<std::size_t>(parameter) + 1;
    text += "    " + directions(element.paramdesc) + " " + typeName(info, element.tdesc) + " " +
            (place < count ? textOf(names[place]) : "result") + "\n";
  }
  for (BSTR name : names) {
    ::SysFreeString(name);
  }
  return text;
}

std::string flagWords(WORD flags) {
  std::string words;
  words += (flags & TYPEFLAG_FDUAL) != 0 ? " dual" : "";
  words += (flags & TYPEFLAG_FNONEXTENSIBLE) != 0 ? " nonextensible" : "";
  words += (flags & TYPEFLAG_FOLEAUTOMATION) != 0 ? " oleautomation" : "";
  words += (flags & TYPEFLAG_FCANCREATE) != 0 ? " creatable" : "";
  return words;
}

/// A dual interface as it is called directly.
ComPtr<ITypeInfo> directSideOf(const ComPtr<ITypeInfo>& info, WORD flags) {
  if ((flags & TYPEFLAG_FDUAL) == 0) {
    return info;
  }
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> direct;
  requireSuccess(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
  requireSuccess(info->GetRefTypeInfo(reference, direct.put()));
  return direct;
}

std::string describeInterface(const ComPtr<ITypeInfo>& info) {
  const ComPtr<ITypeInfo> direct = directSideOf(info, attributesOf(*info.get())->wTypeFlags);
  const auto attributes = attributesOf(*direct.get());
  std::string text = "interface " + nameOf(*info.get(), MEMBERID_NIL) + " " +
                     identity(attributes->guid) + flagWords(attributes->wTypeFlags) +
                     helpMark(*info.get(), MEMBERID_NIL) + "\n";
  for (UINT index = 0; index < attributes->cFuncs; ++index) {
    text += describeMember(*direct.get(), index);
  }
  return text;
}

std::string describeClass(const ComPtr<ITypeInfo>& info) {
  const auto attributes = attributesOf(*info.get());
  std::string text = "class " + nameOf(*info.get(), MEMBERID_NIL) + " " +
                     identity(attributes->guid) + flagWords(attributes->wTypeFlags) +
                     helpMark(*info.get(), MEMBERID_NIL) + "\n";
  for (UINT index = 0; index < attributes->cImplTypes; ++index) {
    INT flags = 0;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> implemented;
    requireSuccess(info->GetImplTypeFlags(index, &flags));
    requireSuccess(info->GetRefTypeOfImplType(index, &reference));
    requireSuccess(info->GetRefTypeInfo(reference, implemented.put()));
    text += std::string("  ") + ((flags & IMPLTYPEFLAG_FDEFAULT) != 0 ? "default " : "") +
            ((flags & IMPLTYPEFLAG_FSOURCE) != 0 ? "source " : "") +
            nameOf(*implemented.get(), MEMBERID_NIL) + "\n";
  }
  return text;
}

std::string describeLibrary(ITypeLib& library) {
  TLIBATTR* attributes = nullptr;
  Bstr name;
  Bstr help;
  requireSuccess(library.GetDocumentation(-1, name.put(), help.put(), nullptr, nullptr));
  requireSuccess(library.GetLibAttr(&attributes));
  std::string text = "library " + name.text() + " " + identity(attributes->guid) + " " +
                     std::to_string(attributes->wMajorVerNum) + "." +
                     std::to_string(attributes->wMinorVerNum) +
                     (help.view().empty() ? " WITHOUT HELP" : "") + "\n";
  library.ReleaseTLibAttr(attributes);
  return text;
}

}  // namespace

std::string describe(ITypeLib& library) {
  std::string text = describeLibrary(library);
  for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
    ComPtr<ITypeInfo> info;
    TYPEKIND kind{};
    requireSuccess(library.GetTypeInfo(index, info.put()));
    requireSuccess(library.GetTypeInfoType(index, &kind));
    text += kind == TKIND_COCLASS ? describeClass(info) : describeInterface(info);
  }
  return text;
}

}  // namespace quorbind::testing
