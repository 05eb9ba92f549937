#include "workflow/driver/valuated_excel_books.h"

#include "platform/error_trap.h"
#include "workflow/driver/book_valuator.h"

namespace quorbind {

bool ValuatedExcelBooks::BuildExcelBook(const std::string& tocPath,
                                        const std::string& cataloguePath,
                                        std::int16_t vintType,
                                        const std::string& productName,
                                        const std::string& category) {
  return trapped(module_.platform.ui, source::kBuildExcelBook, false, [&] {
    BookValuatorArguments book;
    book.vstrtocpath = tocPath;
    book.vstrQuorTOcPath = cataloguePath;
    book.vintType = vintType;
    book.vstrProductName = productName;
    book.vstrCategory = category;
    return BookValuator(module_, tocCheck_, nullptr).buildValidated(book);
  });
}

}  // namespace quorbind
