#include "tests/component/script_host/host_object.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "tests/component/script_host/script_events.h"

namespace quorbind::testing {

namespace {

/// A member's place here is its number.
constexpr std::array<const wchar_t*, 3> kMembers{L"Arguments", L"Echo", L"ConnectObject"};
constexpr DISPID kArguments = 0;
constexpr DISPID kEcho = 1;
constexpr DISPID kConnectObject = 2;

/// Arguments stand last first.
std::vector<Variant> inTheirOrder(const DISPPARAMS& arguments) {
  std::vector<Variant> result;
  for (UINT index = arguments.cArgs; index > 0; --index) {
    result.push_back(Variant::copyOf(arguments.rgvarg[index - 1]));
  }
  return result;
}

}  // namespace

STDMETHODIMP HostObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
  for (std::size_t place = 0; place < kMembers.size(); ++place) {
    if (::lstrcmpiW(names[0], kMembers.at(place)) == 0) {
      ids[0] = static_cast<DISPID>(place);
      return S_OK;
    }
  }
  return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP HostObject::Invoke(
    DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO*, UINT*) {
  try {
    VARIANT answer = call(member, inTheirOrder(*arguments)).detach();
    if (result != nullptr) {
      *result = answer;
    } else {
      ::VariantClear(&answer);
    }
    return S_OK;
  } catch (const RunTimeError& error) {
    return resultOf(error);
  }
}

Variant HostObject::call(DISPID member, const std::vector<Variant>& given) {
  if (member == kArguments && given.size() == 1) {
    return argument(given[0]);
  }
  if (member == kEcho && given.size() == 1) {
    std::printf("%s\n", given[0].text().c_str());
    return {};
  }
  if (member == kConnectObject && given.size() == 2) {
    ScriptEvents::connect(given[0].object().get(), script_(), toWide(given[1].text()));
    return {};
  }
  raise(ErrorNumber::kMemberNotSupported);
}

Variant HostObject::argument(const Variant& index) const {
  const auto place = static_cast<std::size_t>(index.integer());
  if (place >= arguments_.size()) {
    raise(ErrorNumber::kSubscriptOutOfRange);
  }
  return Variant::ofText(arguments_[place]);
}

}  // namespace quorbind::testing
