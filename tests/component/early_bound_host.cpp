#include <functional>
#include <map>
#include <tuple>
#include <utility>

#include "tests/component/bound_host.h"
#include "tests/support/windows/workbook_server.h"

namespace quorbind::testing {

namespace {

template <typename Interface>
using Operation = std::function<Result(Interface&, Arguments&)>;

/// What a parameter or a result of that type is passed in. An argument that is left out is what its
/// default is: an empty text, 0 or False.
template <typename Parameter>
class Place;

template <>
class Place<BSTR> {
 public:
  explicit Place(const Argument* given) : text_(given ? std::get<std::string>(*given) : "") {}
  BSTR pass() { return text_.get(); }
  [[nodiscard]] Argument held() const { return text_.text(); }

 private:
  Bstr text_;
};

template <>
class Place<BSTR*> {
 public:
  explicit Place(const Argument* given) : text_(given ? std::get<std::string>(*given) : "") {
    variable_ = text_.detach();
  }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;
  ~Place() { ::SysFreeString(variable_); }
  BSTR* pass() { return &variable_; }
  [[nodiscard]] Argument held() const { return textOf(variable_); }

 private:
  Bstr text_;
  BSTR variable_ = nullptr;
};

template <>
class Place<SAFEARRAY**> {
 public:
  explicit Place(const Argument* given) {
    if (given != nullptr) {
      const auto& array = std::get<TextArray>(*given);
      array_ = arrayOf(VT_BSTR, array);
    } else {
      array_.put()->vt = VT_ARRAY | VT_BSTR;
    }
  }
  SAFEARRAY** pass() { return &arrayIn(array_); }
  [[nodiscard]] bool isUnset() { return arrayIn(array_) == nullptr; }
  [[nodiscard]] Argument held() { return textArrayIn(array_); }

 private:
  Variant array_;
};

/// A Boolean is a short as well.
template <>
class Place<SHORT> {
 public:
  explicit Place(const Argument* given) {
    if (given != nullptr) {
      isBoolean_ = std::holds_alternative<bool>(*given);
      value_ = isBoolean_
                   ? static_cast<SHORT>(std::get<bool>(*given) ? VARIANT_TRUE : VARIANT_FALSE)
                   : static_cast<SHORT>(std::get<std::int32_t>(*given));
    }
  }
  SHORT pass() const { return value_; }
  [[nodiscard]] Argument held() const {
    return isBoolean_ ? Argument(value_ != VARIANT_FALSE) : Argument(std::int32_t{value_});
  }

 private:
  bool isBoolean_ = false;
  SHORT value_ = 0;
};

template <>
class Place<LONG> {
 public:
  explicit Place(const Argument* given) : value_(given ? std::get<std::int32_t>(*given) : 0) {}
  LONG pass() const { return value_; }
  [[nodiscard]] Argument held() const { return std::int32_t{value_}; }

 private:
  LONG value_;
};

/// Numbers that are passed by reference are results.
template <>
class Place<LONG*> {
 public:
  explicit Place(const Argument* /*given*/) {}
  LONG* pass() { return &value_; }
  [[nodiscard]] Argument held() const { return std::int32_t{value_}; }

 private:
  LONG value_ = 0;
};

/// A worksheet, which comes back as it was.
template <>
class Place<IDispatch*> {
 public:
  explicit Place(const Argument* given)
      : cells_(std::get<PaperSheet>(*given)), sheet_(automationSheet(looseSheet(cells_))) {}
  [[nodiscard]] IDispatch* pass() const { return sheet_.get(); }
  [[nodiscard]] Argument held() const { return cells_; }

 private:
  PaperSheet cells_;
  ComPtr<IDispatch> sheet_;
};

/// The only results of that type are Booleans.
template <>
class Place<VARIANT_BOOL*> {
 public:
  explicit Place(const Argument* /*given*/) {}
  VARIANT_BOOL* pass() { return &value_; }
  [[nodiscard]] Argument held() const { return value_ != VARIANT_FALSE; }

 private:
  VARIANT_BOOL value_ = VARIANT_FALSE;
};

template <typename ResultPlace>
Result resultIn(ResultPlace& place) {
  return place.held();
}
Result resultIn(Place<SAFEARRAY**>& place) {
  return place.isUnset() ? Result() : place.held();
}

template <typename Interface, typename... Parameters, std::size_t... kPlaces>
Operation<Interface> operationOf(HRESULT (Interface::*member)(Parameters...),
                                 bool hasResult,
                                 std::index_sequence<kPlaces...> /*places*/) {
  return [member, hasResult](Interface& object, Arguments& arguments) {
    const auto given = [&](std::size_t place) {
      return place < arguments.size() ? &arguments[place] : nullptr;
    };
    std::tuple<Place<Parameters>...> places(given(kPlaces)...);
    requireSuccess((object.*member)(std::get<kPlaces>(places).pass()...));
    const auto putBack = [&](std::size_t place, auto& held) {
      if (place < arguments.size()) {
        arguments[place] = held.held();
      }
    };
    (putBack(kPlaces, std::get<kPlaces>(places)), ...);
    return hasResult ? resultIn(std::get<sizeof...(Parameters) - 1>(places)) : Result();
  };
}

template <typename Interface, typename... Parameters>
Operation<Interface> operationOf(HRESULT (Interface::*member)(Parameters...), bool hasResult) {
  return operationOf(member, hasResult, std::index_sequence_for<Parameters...>());
}

class EarlyBoundHost final : public BoundHost {
 public:
  using BoundHost::BoundHost;

 private:
  using Call = std::function<Result(Arguments&)>;

  Result callComponent(const std::string& operation, Arguments& arguments) override {
    return operations_.at(operation)(arguments);
  }

  template <typename Interface>
  static Call of(const ComPtr<Interface>& object, Operation<Interface> operation) {
    return [&object, operation = std::move(operation)](Arguments& arguments) {
      return operation(*object.get(), arguments);
    };
  }

  const ComPtr<_Quor_Book> Quor_Book_ = create<_Quor_Book>(CLSID_Quor_Book);
  const ComPtr<_Book_Config> Book_Config_ = create<_Book_Config>(CLSID_Book_Config);
  const std::map<std::string, Call> operations_{
#define QUOR_PROCEDURE(owner, name) {#name, of(owner##_, operationOf(&_##owner::name, false))},
#define QUOR_FUNCTION(owner, name) {#name, of(owner##_, operationOf(&_##owner::name, true))},
#define QUOR_PROPERTY(owner, name) {#name, of(owner##_, operationOf(&_##owner::get_##name, true))},
#include "tests/operations/operations.def"
  };
};

}  // namespace

std::unique_ptr<ComponentHost> makeEarlyBoundHost(const std::wstring& componentDll) {
  return std::make_unique<EarlyBoundHost>(componentDll);
}

}  // namespace quorbind::testing
