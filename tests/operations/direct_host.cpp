// The host that is linked with the component, as the command is.

#include <functional>
#include <map>
#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

#include "catalogue/book_config.h"
#include "platform/text.h"
#include "tests/operations/component_host.h"
#include "tests/support/world.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::testing {

namespace {

template <typename Owner>
using Operation = std::function<Result(Owner&, Arguments&)>;

/// What a parameter is passed from: a worksheet by reference, anything else as its own value.
class OpenSheet {
 public:
  explicit OpenSheet(const PaperSheet& cells) : sheet_(looseSheet(cells)) {}
  operator Worksheet&() { return *sheet_; }

 private:
  std::unique_ptr<Worksheet> sheet_;
};

template <typename Parameter>
using Passed =
    std::conditional_t<std::is_same_v<Parameter, Worksheet&>, OpenSheet, std::decay_t<Parameter>>;

template <typename Value>
Value valueOf(const Arguments& arguments, std::size_t place) {
  if (place >= arguments.size()) {
    return Value();
  }
  if constexpr (std::is_same_v<Value, std::int16_t>) {
    return static_cast<std::int16_t>(std::get<std::int32_t>(arguments[place]));
  } else {
    return std::get<Value>(arguments[place]);
  }
}

template <>
OpenSheet valueOf<OpenSheet>(const Arguments& arguments, std::size_t place) {
  return OpenSheet(std::get<PaperSheet>(arguments.at(place)));
}

template <typename Value>
void putBack(Arguments& arguments, std::size_t place, const Value& value) {
  if (place < arguments.size()) {
    arguments[place] = value;
  }
}
void putBack(Arguments& /*arguments*/, std::size_t /*place*/, const OpenSheet& /*sheet*/) {}

Result resultOf(bool value) {
  return value;
}
Result resultOf(std::int32_t value) {
  return value;
}
Result resultOf(std::string value) {
  return value;
}
Result resultOf(TextArray array) {
  return array.texts.empty() ? Result() : std::move(array);
}
Result resultOf(std::vector<std::string> list) {
  return resultOf(TextArray{std::move(list)});
}

template <typename Owner, typename Returned, typename... Parameters, std::size_t... kPlaces>
Operation<Owner> operationOf(Returned (Owner::*member)(Parameters...),
                             std::index_sequence<kPlaces...> /*places*/) {
  return [member](Owner& owner, Arguments& arguments) {
    std::tuple<Passed<Parameters>...> values(valueOf<Passed<Parameters>>(arguments, kPlaces)...);
    Result result;
    if constexpr (std::is_void_v<Returned>) {
      (owner.*member)(std::get<kPlaces>(values)...);
    } else {
      result = resultOf((owner.*member)(std::get<kPlaces>(values)...));
    }
    (putBack(arguments, kPlaces, std::get<kPlaces>(values)), ...);
    return result;
  };
}

template <typename Owner, typename Returned, typename... Parameters>
Operation<Owner> operationOf(Returned (Owner::*member)(Parameters...)) {
  return operationOf(member, std::index_sequence_for<Parameters...>());
}

class DirectHost final : public ComponentHost {
 public:
  void willEnter(const std::string& name, const std::string& acronym) override {
    world_.user.answerWith(enterBook(name, acronym));
  }
  void willCancel() override { world_.user.answerWith(pressCancel()); }

  std::vector<std::string> takeShown() override {
    std::vector<std::string> shown;
    for (const std::string& line : world_.user.recordWithoutProgress()) {
      if (!line.starts_with("clipboard: ")) {
        shown.push_back(replaceAll(line, "\r", "\n"));
      }
    }
    world_.user.forget();
    return shown;
  }

  [[nodiscard]] const TemporaryFolder& disk() const override { return world_.disk; }

 private:
  Result answer(const std::string& operation, Arguments& arguments) override {
    return operations_.at(operation)(arguments);
  }

  template <typename Owner>
  static std::function<Result(Arguments&)> of(Owner& owner, Operation<Owner> operation) {
    return [&owner, operation = std::move(operation)](Arguments& arguments) {
      return operation(owner, arguments);
    };
  }

  World world_;
  Quor_Book Quor_Book_{world_.module};
  Book_Config Book_Config_{world_.module};
  const std::map<std::string, std::function<Result(Arguments&)>> operations_{
#define QUOR_PROCEDURE(owner, name) {#name, of(owner##_, operationOf(&owner::name))},
#define QUOR_FUNCTION QUOR_PROCEDURE
#define QUOR_PROPERTY QUOR_PROCEDURE
#include "tests/operations/operations.def"
  };
};

}  // namespace

std::vector<std::string> waysOfCalling() {
  return {"directly"};
}

std::unique_ptr<ComponentHost> makeHost(const std::string& /*way*/) {
  return std::make_unique<DirectHost>();
}

}  // namespace quorbind::testing
