#include "toc/excel_toc_check.h"

#include <utility>
#include <vector>

#include "platform/error_trap.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/toolset.h"
#include "resources/messages.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/keyword_rules.h"
#include "toc/book_place.h"
#include "toc/excel_links.h"
#include "toc/read_once_spreadsheets.h"
#include "toc/replaced.h"
#include "toc/text_form.h"
#include "toc/toc_check.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

namespace {

/// Stands behind the fields of a line.
constexpr std::string_view kLineClosing = " $@@$";

/// What an attempt gave; null when it ended in an error.
template <typename Attempt>
auto resultOrNull(const Attempt& attempt) {
  decltype(attempt()) result;
  ignoringErrors([&] { result = attempt(); });
  return result;
}

/// A row as a line of the intermediate text form. Of the columns it has only those with a text.
std::string lineOf(Worksheet& sheet, std::int16_t row) {
  std::string line;
  for (std::int32_t column = 1; column <= excel_toc::kLastExportedColumn; ++column) {
    const std::string text = sheet.cellText(row, column);
    if (!text.empty()) {
      line.append(text_form::kMarker).append(text).append(text_form::kMarker).append(" ");
    }
  }
  return line.append(kLineClosing);
}

/// The text of a cell as it is stored; empty when the user was told that it may not be used.
std::string acceptedText(XmlTextRules& rules, const std::string& cell, Message label) {
  const std::string_view value = trimBlanks(cell);
  return rules.CheckReplacedXMLCharacters(value, text(label))
             ? rules.mstrReplaceSpecialCharecters(value)
             : std::string();
}

}  // namespace

ExcelTocCheck::ExcelTocCheck(Module& module, TocCheck& check)
    : module_(module),
      platform_(module.platform),
      check_(check),
      spreadsheets_(&module.platform.spreadsheets) {}

bool ExcelTocCheck::mbValidateXLToc(std::string_view tocPath,
                                    std::int16_t /*vintType*/,
                                    const ExcelRun* run) {
  UserInterface& ui = platform_.ui;
  return trapped(ui, source::kValidateXlToc, false, [&] {
    ReadOnceSpreadsheets readOnce(platform_.spreadsheets);
    const Replaced<Spreadsheets*> replaced(spreadsheets_, &readOnce);
    const std::string workbook(tocPath);
    const auto book = resultOrNull([&] { return spreadsheets_->open(workbook); });
    if (book == nullptr) {
      ui.show(criticalMessage(std::string(text(Message::kNotAValidExcelFile))));
      return false;
    }
    const auto sheet = resultOrNull([&] { return book->worksheet(excel_toc::kHeadingSheet); });
    if (sheet == nullptr) {
      ui.show(criticalMessage(std::string(text(Message::kUnableToLocateWorkSheet1))));
      return false;
    }
    if (!walkBooks(*sheet, workbook, run)) {
      return false;
    }
    if (run != nullptr) {
      UpdateQuorLinkIDFile(platform_, module_.state, *spreadsheets_, workbook);
    }
    return true;
  });
}

/// Has the published checks read the columns, and takes each book that they have read.
class ExcelTocCheck::Walk final : public ExcelTocListener {
 public:
  Walk(ExcelTocCheck& check, Worksheet& sheet, const std::string& workbook, const ExcelRun* run)
      : check_(check), sheet_(sheet), workbook_(workbook), run_(run) {}

  bool levels() override { return check_.mbcheckXLForNodeLevel(sheet_, excel_toc::kLevelColumn); }
  bool names() override { return check_.mbcheckXLForNodeName(sheet_, excel_toc::kNameColumn); }
  bool files() override {
    return check_.mbcheckXLForFileName(
        sheet_, excel_toc::kFileColumn, std::string(folderPartOf(workbook_)));
  }
  void book(std::int32_t number) override { check_.takeBook(workbook_, number, run_); }
  void refused(Message message) override {
    check_.platform_.ui.show(criticalMessage(std::string(text(message))));
  }

 private:
  ExcelTocCheck& check_;
  Worksheet& sheet_;
  const std::string& workbook_;
  const ExcelRun* run_;
};

bool ExcelTocCheck::walkBooks(Worksheet& sheet, const std::string& workbook, const ExcelRun* run) {
  const std::int32_t books = getExcelBookCount(sheet, excel_toc::kLevelColumn);
  Walk walk(*this, sheet, workbook, run);
  return walkExcelToc(sheet, platform_.locale, books, walk);
}

bool ExcelTocCheck::mbcheckXLForNodeLevel(Worksheet& sheet, std::int32_t column) {
  return trapped(platform_.ui, source::kCheckXlForNodeLevel, false, [&] {
    const auto violation = readExcelLevels(sheet, column, levels_, check_.mintPrevLevel_);
    if (violation) {
      check_.tell(violation->cellText, violation->violation);
    }
    return !violation;
  });
}

bool ExcelTocCheck::mbcheckXLForNodeName(Worksheet& sheet, std::int32_t column) {
  return trapped(platform_.ui, source::kCheckXlForNodeName, false, [&] {
    const std::int16_t first = names_.next();
    readExcelColumn(sheet, column, levels_.row(), names_, [&](std::int16_t row, const auto& name) {
      if (row == first) {
        module_.state.excelBookName = name;
      }
    });
    return true;
  });
}

bool ExcelTocCheck::mbcheckXLForFileName(Worksheet& sheet,
                                         std::int32_t column,
                                         std::string_view folder) {
  return trapped(platform_.ui, source::kCheckXlForFileName, false, [&] {
    const std::int16_t first = files_.next();
    readExcelColumn(sheet, column, levels_.row(), files_, [&](std::int16_t row, const auto& file) {
      if (row == first) {
        check_.mstrBookFile_ = file;
      }
      if (!trimBlanks(file).empty() && !check_.documentExists(folder, file)) {
        check_.marrsMissingFiles_.add(file);
      }
    });
    return true;
  });
}

std::int32_t ExcelTocCheck::getExcelBookCount(Worksheet& vobjXLWSheetRead, std::int32_t vlCount) {
  return trapped(platform_.ui, source::kGetExcelBookCount, std::int32_t{0}, [&] {
    const ExcelBookCount count = countExcelBooks(vobjXLWSheetRead, vlCount);
    if (count.violation) {
      check_.tell(count.violation->cellText, count.violation->violation);
    }
    return count.books;
  });
}

ExcelBookInfo ExcelTocCheck::GetBookInfofromExcel(std::string_view tocPath, std::int32_t book) {
  UserInterface& ui = platform_.ui;
  return trapped(ui, source::kGetBookInfoFromExcel, ExcelBookInfo(), [&] {
    const auto rules = platform_.toolset.createXmlTextRules();
    ExcelBookInfo info;
    const auto workbook = resultOrNull([&] { return spreadsheets_->open(tocPath); });
    if (workbook == nullptr) {
      ui.show(criticalMessage(Message::kNotAValidXlsFile + tocPath));
      return info;
    }
    if (resultOrNull([&] { return workbook->worksheet(excel_toc::kHeadingSheet); }) == nullptr) {
      ui.show(criticalMessage(Message::kUnableToLocateTheWorksheet + tocPath));
      return info;
    }
    const auto list = resultOrNull([&] { return workbook->worksheet(excel_toc::kBookSheet); });
    if (list != nullptr) {
      const auto cell = [&](std::int32_t column) {
        return list->cellText(excel_toc::bookRow(book), column);
      };
      info.bookName =
          acceptedText(*rules, cell(excel_toc::kBookNameColumn), Message::kBookNameLabel);
      info.bookAcro =
          acceptedText(*rules, cell(excel_toc::kBookAcroColumn), Message::kBookAcroLabel);
      info.keywords = cell(excel_toc::kKeywordsColumn);
      info.categories = cell(excel_toc::kCategoriesColumn);
    }
    return info;
  });
}

/// A book that can't be exported is not built: another book's export may stand under the same name.
void ExcelTocCheck::takeBook(const std::string& workbook,
                             std::int32_t number,
                             const ExcelRun* run) {
  const ExcelBookInfo book = GetBookInfofromExcel(workbook, number);
  std::string exportPath = workbook;
  if (!columnsEndTogether()) {
    platform_.ui.show(criticalMessage(std::string(text(Message::kEntryCountsDiffer))));
  } else if (namesAreAllowed(book) && mXLExportToText(exportPath) && run != nullptr) {
    takeNames(book);
    buildBook(exportPath, book, *run);
  }
  exported_.setRow(levels_.row());
}

bool ExcelTocCheck::columnsEndTogether() const {
  return levels_.row() == names_.row() && levels_.row() == files_.row();
}

/// Asked before anything is written. An acronym that is not in the list is asked for, and the
/// dialog has its rules itself.
bool ExcelTocCheck::namesAreAllowed(const ExcelBookInfo& book) {
  auto refusal = refusalOfAcronym(book.bookAcro);
  if (!refusal) {
    refusal = statedPlaceOf(check_.mstrBookFile(), excel_toc::kFirstRow).refusal;
  }
  if (refusal) {
    platform_.ui.show(criticalMessage(*refusal));
  }
  return !refusal;
}

/// An acronym that the list lacks is empty now, so that no other book's stays.
void ExcelTocCheck::takeNames(const ExcelBookInfo& book) {
  ProcessState& state = module_.state;
  state.currentBookName =
      book.bookName.empty() ? platform_.toolset.createXmlTextRules()->mstrReplaceSpecialCharecters(
                                  trimBlanks(state.excelBookName))
                            : book.bookName;
  state.currentBookAcro = book.bookAcro;
}

bool ExcelTocCheck::mXLExportToText(std::string& tocPath) {
  return trapped(platform_.ui, source::kXlExportToText, false, [&] {
    const auto sheet = spreadsheets_->open(tocPath)->worksheet(excel_toc::kHeadingSheet);
    tocPath = text_form::exportPathOf(platform_.locale, tocPath, excel_toc::kExtension);
    writeRows(*sheet, tocPath);
    return true;
  });
}

/// The second line is empty, because the reader of the export takes another for an entry.
void ExcelTocCheck::writeRows(Worksheet& sheet, const std::string& exportPath) {
  TextWriter file(platform_.files, exportPath);
  file.writeLine(lineOf(sheet, excel_toc::kHeaderRow));
  file.writeLine("");
  for (std::int16_t row = exported_.next(); row <= levels_.row(); row = rowBelow(row)) {
    file.writeLine(lineOf(sheet, row));
  }
  file.close();
}

void ExcelTocCheck::buildBook(const std::string& exportPath,
                              const ExcelBookInfo& book,
                              const ExcelRun& run) {
  const ProcessState& state = module_.state;
  const bool isBuilt =
      run.builder.BuildExcelBook(exportPath,
                                 state.currentCataloguePath,
                                 TocCheck::kExcel,
                                 state.currentProductName,
                                 book.categories.empty() ? run.category : book.categories);
  if (isBuilt) {
    recordKeywords(book.keywords, run.keywordsPath);
    recordCategories(book.categories);
  }
}

/// A keyword that is refused is left out, and the next one follows.
void ExcelTocCheck::recordKeywords(const std::string& list, const std::string& keywordsPath) {
  const auto rules = platform_.toolset.createXmlTextRules();
  KeywordAdditions additions(platform_, keywordsPath, module_.state.currentBookName);
  const auto record = [&](std::string_view keyword) {
    const auto fault = findKeywordFault(keyword);
    if (fault && fault->endsList) {
      additions.settle();
      platform_.ui.show(fault->box);
    } else if (rules->CheckReplacedXMLCharacters(keyword, kKeywordsField)) {
      additions.add(rules->mstrReplaceSpecialCharecters(keyword));
    }
  };
  walkAndSettle(
      [&] {
        for (const std::string& piece : excelListOf(list)) {
          record(trimBlanks(piece));
        }
      },
      [&] { additions.settle(); });
}

void ExcelTocCheck::recordCategories(const std::string& list) {
  std::vector<std::string> categories;
  for (const std::string& piece : excelListOf(list)) {
    if (const std::string_view category = trimBlanks(piece); !category.empty()) {
      categories.emplace_back(category);
    }
  }
  AddCategoryNodes(platform_, module_.state, categories);
}

}  // namespace quorbind
