#pragma once

#include "toc/excel_book_builder.h"
#include "toc/toc_check.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// Builds the books of a workbook as the driver builds any other, each as a small run of its own
/// inside the run that checks the workbook: without validation, keywords, categories and event,
/// which are that run's.
class ValuatedExcelBooks final : public ExcelBookBuilder {
 public:
  /// Both are kept by reference.
  ValuatedExcelBooks(Module& module, TocCheck& tocCheck) : module_(module), tocCheck_(tocCheck) {}

  bool BuildExcelBook(const std::string& tocPath,
                      const std::string& cataloguePath,
                      std::int16_t vintType,
                      const std::string& productName,
                      const std::string& category) override;

 private:
  Module& module_;
  TocCheck& tocCheck_;
};

}  // namespace quorbind
