#include "platform/windows/excel_automation.h"

#include <utility>

#include "platform/runtime_error.h"
#include "platform/windows/automation.h"
#include "platform/windows/win32_path.h"

namespace quorbind {

namespace {

constexpr const wchar_t* kProgram = L"Excel.Application";

class ExcelWorksheet final : public Worksheet {
 public:
  explicit ExcelWorksheet(ComPtr<IDispatch> sheet) : sheet_(std::move(sheet)) {}

  std::string cellText(std::int32_t row, std::int32_t column) override {
    const Variant cell = sheet_.call("Cells", Variant::ofInteger(row), Variant::ofInteger(column));
    return AutomationObject(cell.object()).call("Text").text();
  }

 private:
  AutomationObject sheet_;
};

class ExcelWorkbook final : public Workbook {
 public:
  explicit ExcelWorkbook(ComPtr<IDispatch> book) : book_(std::move(book)) {}

  std::unique_ptr<Worksheet> worksheet(std::int32_t number) override {
    return wrapWorksheet(book_.call("Worksheets", Variant::ofInteger(number)).object());
  }

 private:
  AutomationObject book_;
};

/// Asks the system for what it binds to: only for reading.
ComPtr<IBindCtx> contextForReading() {
  ComPtr<IBindCtx> context;
  requireSuccess(::CreateBindCtx(0, context.put()));
  BIND_OPTS options{};
  options.cbStruct = sizeof options;
  requireSuccess(context->GetBindOptions(&options));
  options.grfMode = STGM_READ;
  requireSuccess(context->SetBindOptions(&options));
  return context;
}

ComPtr<IDispatch> objectOfFile(std::string_view path) {
  ComPtr<IMoniker> name;
  requireSuccess(::CreateFileMoniker(fullPath(path).c_str(), name.put()));
  const ComPtr<IBindCtx> context = contextForReading();
  ComPtr<IDispatch> object;
  requireSuccess(
      name->BindToObject(context.get(), nullptr, ComPtr<IDispatch>::id(), object.putAny()));
  return object;
}

}  // namespace

bool isExcelInstalled() {
  CLSID identity{};
  return SUCCEEDED(::CLSIDFromProgID(kProgram, &identity));
}

std::unique_ptr<Workbook> ExcelSpreadsheets::open(std::string_view path) {
  ComPtr<IDispatch> book;
  try {
    book = objectOfFile(path);
  } catch (const RunTimeError&) {
    raise(ErrorNumber::kAutomationNameNotFound);
  }
  return std::make_unique<ExcelWorkbook>(std::move(book));
}

std::unique_ptr<Worksheet> wrapWorksheet(ComPtr<IDispatch> sheet) {
  if (!sheet) {
    raise(ErrorNumber::kObjectNotSet);
  }
  return std::make_unique<ExcelWorksheet>(std::move(sheet));
}

}  // namespace quorbind
