#include "tests/component/bound_host.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/text.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kDrive = "C:";
constexpr const wchar_t* kServerVariable = L"QUOR_SERVER";

/// Changes every text in an argument.
template <typename Change>
Argument changed(Argument argument, Change&& change) {
  if (auto* text = std::get_if<std::string>(&argument)) {
    *text = change(*text);
  } else if (auto* array = std::get_if<TextArray>(&argument)) {
    std::ranges::transform(array->texts, array->texts.begin(), change);
  }
  return argument;
}

bool isOnDrive(const std::string& name) {
  return name.starts_with("C:\\") || name.starts_with("C:/");
}

}  // namespace

BoundHost::BoundHost(const std::wstring& componentDll)
    : RegisteredDlls(componentDll), root_(toUtf8(disk_.path().wstring())) {
  ::SetEnvironmentVariableW(kServerVariable, disk_.path().c_str());
}

BoundHost::~BoundHost() {
  ::SetEnvironmentVariableW(kServerVariable, nullptr);
}

std::vector<std::string> BoundHost::takeShown() {
  std::vector<std::string> shown = attendant_.takeShown();
  for (std::string& line : shown) {
    line = replaceAll(line, root_, kDrive);
  }
  return shown;
}

Result BoundHost::answer(const std::string& operation, Arguments& arguments) {
  Arguments own;
  for (const Argument& argument : arguments) {
    own.push_back(withOwnNames(argument));
  }
  Result result;
  attendant_.during([&] { result = callComponent(operation, own); });
  for (std::size_t place = 0; place < arguments.size(); ++place) {
    arguments[place] = withPublicNames(own[place]);
  }
  return result ? withPublicNames(*result) : result;
}

Argument BoundHost::withOwnNames(Argument argument) const {
  return changed(std::move(argument), [this](const std::string& text) {
    return isOnDrive(text) ? root_ + text.substr(kDrive.size()) : text;
  });
}

Argument BoundHost::withPublicNames(Argument argument) const {
  return changed(std::move(argument),
                 [this](const std::string& text) { return replaceAll(text, root_, kDrive); });
}

std::vector<std::string> waysOfCalling() {
  return {"earlyBound", "lateBound"};
}

std::unique_ptr<ComponentHost> makeHost(const std::string& way) {
  return way == "earlyBound" ? makeEarlyBoundHost() : makeLateBoundHost();
}

}  // namespace quorbind::testing
