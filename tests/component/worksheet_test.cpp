// Worksheets that hosts hand over: those of a spreadsheet program, those that fail, and what is
// none.

#include <filesystem>

#include "tests/component/attendant.h"
#include "tests/component/component_test.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/windows/workbook_server.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

class HostsWorksheet : public ComponentTest {
 protected:
  /// What the operation answers to a compiled host, and the boxes that it shows.
  LONG countEarlyBound(IDispatch* sheet) {
    LONG count = -1;
    attendant_.during([&] { EXPECT_EQ(early_->getExcelBookCount(sheet, kLevels, &count), S_OK); });
    return count;
  }
  /// The same to a script, which passes a variable.
  std::int32_t countLateBound(const ComPtr<IDispatch>& sheet) {
    Variant object = Variant::ofObject(sheet);
    LateAnswer answer;
    attendant_.during([&] {
      answer = callByName(late_.get(), L"getExcelBookCount", {variable(object), number(kLevels)});
    });
    EXPECT_EQ(answer.result, S_OK);
    EXPECT_EQ(answer.value.type(), VT_I4);
    return answer.value.integer();
  }
  std::vector<std::string> shown() { return attendant_.takeShown(); }

  static constexpr LONG kLevels = 1;
  static std::string boxWith(const std::string& error) {
    return "critical: Error " + error + " in procedure getExcelBookCount of Class Module Quor_Book";
  }

 private:
  const ComPtr<_Quor_Book> early_ = create<_Quor_Book>(CLSID_Quor_Book);
  const ComPtr<IDispatch> late_ = createByName(L"Quorbind.Quor_Book");
  Attendant attendant_;
};

TEST_F(HostsWorksheet, OfASpreadsheetProgramIsCountedAndLetGo) {
  const TemporaryFolder disk;
  WorkbookServer program;
  for (const std::string name : {"books.xlsx", "books.xls"}) {
    fs::copy(fs::path(QUORBIND_SAMPLES) / "workshop" / name, disk.path() / name);
    const std::string path = toUtf8((fs::absolute(disk.path()) / name).make_preferred().wstring());
    {
      const auto sheet = program.sheetOf(path, 1);
      EXPECT_EQ(countEarlyBound(sheet.get()), 3) << name;
      EXPECT_EQ(countLateBound(sheet), 3) << name;
      // The host's own.
      EXPECT_EQ(program.objectsInUse(), 1) << name;
    }
    EXPECT_EQ(program.objectsInUse(), 0) << name;
  }
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(HostsWorksheet, ThatIsNothingIsError91) {
  EXPECT_EQ(countEarlyBound(nullptr), 0);
  EXPECT_EQ(countLateBound({}), 0);
  const std::string box = boxWith("91 (Object variable or With block variable not set)");
  EXPECT_THAT(shown(), ElementsAre(box, box));
}

TEST_F(HostsWorksheet, ThatIsAnotherObjectIsError438) {
  const auto dictionary = AutomationObject::create("Scripting.Dictionary").object();
  EXPECT_EQ(countEarlyBound(dictionary.get()), 0);
  EXPECT_EQ(countLateBound(dictionary), 0);
  const std::string box = boxWith("438 (Object doesn't support this property or method)");
  EXPECT_THAT(shown(), ElementsAre(box, box));
}

/// A sheet whose program has ended.
class LostSheet final : public Worksheet {
 public:
  std::string cellText(std::int32_t /*row*/, std::int32_t /*column*/) override {
    raise(ErrorNumber::kSubscriptOutOfRange);
  }
};

TEST_F(HostsWorksheet, ThatFailsIsReportedWithItsOwnError) {
  const auto sheet = automationSheet(std::make_unique<LostSheet>());
  EXPECT_EQ(countEarlyBound(sheet.get()), 0);
  EXPECT_EQ(countLateBound(sheet), 0);
  const std::string box = boxWith("9 (Subscript out of range)");
  EXPECT_THAT(shown(), ElementsAre(box, box));
}

}  // namespace
}  // namespace quorbind::testing
