#include <utility>

#include "tests/component/bound_host.h"
#include "tests/support/windows/workbook_server.h"

namespace quorbind::testing {

namespace {

Variant variantOf(const Argument& argument) {
  if (const auto* text = std::get_if<std::string>(&argument)) {
    return Variant::ofText(*text);
  }
  if (const auto* value = std::get_if<bool>(&argument)) {
    return Variant::ofBoolean(*value);
  }
  if (const auto* value = std::get_if<std::int32_t>(&argument)) {
    return Variant::ofInteger(*value);
  }
  if (const auto* cells = std::get_if<PaperSheet>(&argument)) {
    return Variant::ofObject(automationSheet(looseSheet(*cells)));
  }
  const auto& array = std::get<TextArray>(argument);
  return arrayOf(VT_VARIANT, array);
}

Result resultOf(Variant& value) {
  if (value.type() == VT_EMPTY) {
    return {};
  }
  if (value.type() == VT_BSTR) {
    return value.text();
  }
  if (value.type() == VT_BOOL) {
    return value.boolean();
  }
  if ((value.type() & VT_ARRAY) == 0) {
    return value.integer();
  }
  SAFEARRAY* array = arrayIn(value);
  return array == nullptr ? Result() : textArrayIn(value);
}

class LateBoundHost final : public BoundHost {
 public:
  using BoundHost::BoundHost;

 private:
  Result callComponent(const std::string& operation, Arguments& arguments) override {
    std::vector<Variant> variables;
    std::vector<VARIANT> references;
    for (const Argument& argument : arguments) {
      variables.push_back(variantOf(argument));
    }
    for (Variant& variable : variables) {
      references.push_back(testing::variable(variable));
    }
    LateAnswer answer =
        callByName(objectWith(operation), toWide(operation).c_str(), std::move(references));
    requireSuccess(answer.result);
    for (std::size_t place = 0; place < arguments.size(); ++place) {
      if (!std::holds_alternative<PaperSheet>(arguments[place])) {
        arguments[place] = resultOf(variables[place]).value_or(TextArray::unset());
      }
    }
    return resultOf(answer.value);
  }

  [[nodiscard]] IDispatch* objectWith(const std::string& operation) const {
    const std::wstring name = toWide(operation);
    auto* names = const_cast<LPOLESTR>(name.c_str());
    DISPID id = DISPID_UNKNOWN;
    const bool isOfConfig =
        SUCCEEDED(config_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
    return isOfConfig ? config_.get() : book_.get();
  }

  const ComPtr<IDispatch> book_ = createByName(L"Quorbind.Quor_Book");
  const ComPtr<IDispatch> config_ = createByName(L"Quorbind.Book_Config");
};

}  // namespace

std::unique_ptr<ComponentHost> makeLateBoundHost(const std::wstring& componentDll) {
  return std::make_unique<LateBoundHost>(componentDll);
}

}  // namespace quorbind::testing
