#include "cli/workbook_survey.h"

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <tuple>
#include <utility>

#include "bookxml/names.h"
#include "cli/book_flags.h"
#include "cli/failure.h"
#include "cli/taken_names.h"
#include "platform/runtime_error.h"
#include "platform/spreadsheets.h"
#include "platform/text.h"
#include "platform/workbooks/workbook_file.h"
#include "platform/xml_document.h"
#include "resources/messages.h"
#include "resources/rule_texts.h"
#include "sidefiles/keyword_rules.h"
#include "toc/excel_toc.h"
#include "toc/text_form.h"
#include "toolset/xml_text_rules.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

namespace {

using namespace excel_toc;

constexpr std::size_t kMostViolations = 100;

/// A column of 16-bit rows has no row behind its last, at which reading would end.
constexpr std::int32_t kLastRow = std::numeric_limits<std::int16_t>::max() - 1;

constexpr std::string_view kNoBooks = text(RuleText::kWorkbookWithoutBook);
constexpr std::string_view kTooManyRows = text(RuleText::kWorkbookTooLong);
constexpr std::string_view kLevelMissing = text(RuleText::kWorkbookLevelMissing);
constexpr std::string_view kLevelTooLow = text(RuleText::kWorkbookLevelTooLow);
constexpr std::string_view kLevelJumps = text(RuleText::kWorkbookLevelJumps);
constexpr std::string_view kLevelTooDeep = text(RuleText::kWorkbookTooDeep);
constexpr std::string_view kOneRow = text(RuleText::kWorkbookFirstBookEmpty);
constexpr std::string_view kNotEmpty = text(RuleText::kWorkbookCellNotEmpty);
constexpr std::string_view kNotExportable = text(RuleText::kWorkbookCellNotExportable);
constexpr std::string_view kNoList = text(RuleText::kWorkbookWithoutList);
constexpr std::string_view kAcronymTooLong = text(RuleText::kWorkbookAcronymTooLong);
constexpr std::string_view kCategoryNotSought = text(RuleText::kWorkbookCategoryNotSought);

/// Takes the boxes that rules show, so that they can be shown with their place.
class BoxCollector final : public UserInterface {
 public:
  void show(const UserMessage& message) override { box_ = message; }
  void showModal(ModalForm& /*form*/) override {}
  void showProgress(const ProgressView& /*view*/) override {}
  void hideProgress() override {}
  void unloadProgress() override {}
  void putOnClipboard(std::string_view /*text*/) override {}

  /// The box shown since the last call.
  std::optional<UserMessage> take() { return std::exchange(box_, std::nullopt); }

 private:
  std::optional<UserMessage> box_;
};

UserMessage boxOf(Message message) {
  return criticalMessage(std::string(text(message)));
}

/// A rule of the command's own, worded as the component words those for cells.
UserMessage boxOf(const CellPlace& cell, std::string_view error) {
  return criticalMessage((Message::kRow + std::to_string(cell.row)) +
                         (Message::kColumn + std::to_string(cell.column)) + "\r" +
                         std::string(error));
}

bool isBlank(std::string_view cell) {
  return trimBlanks(cell).empty();
}

/// A sheet of the workbook; null when it has fewer.
std::unique_ptr<Worksheet> sheetOf(Workbook& workbook, std::int32_t number) {
  try {
    return workbook.worksheet(number);
  } catch (const RunTimeError&) {
    return nullptr;
  }
}

class WorkbookSurveyor {
 public:
  WorkbookSurveyor(const Platform& platform, const TocFile& toc, const CellVisitor& visitor)
      : platform_(platform), toc_(toc), visitor_(visitor) {}

  WorkbookSurvey run() {
    const std::unique_ptr<Workbook> workbook = open();
    if (workbook != nullptr) {
      const auto headings = sheetOf(*workbook, kHeadingSheet);
      if (headings == nullptr) {
        refuse({kHeadingSheet}, boxOf(Message::kUnableToLocateWorkSheet1));
      } else {
        surveyHeadings(*headings);
        surveyList(sheetOf(*workbook, kBookSheet).get());
      }
    }
    sortByPlace();
    return std::move(survey_);
  }

 private:
  std::unique_ptr<Workbook> open();

  void surveyHeadings(Worksheet& sheet);
  /// Answers the row behind the last.
  std::int32_t surveyRows(Worksheet& sheet);
  void surveyLevel(std::int32_t row, const std::string& cellText);
  void beginBook(std::int32_t row);
  void surveyCells(Worksheet& sheet, std::int32_t row);
  void surveyEnd(Worksheet& sheet, std::int32_t row);
  void surveyBook(Worksheet& sheet, SurveyedBook& book);

  void surveyList(Worksheet* list);
  void surveyListed(Worksheet& list, std::int32_t row, SurveyedBook& book);
  std::string acceptedText(const CellPlace& cell, const std::string& cellText, Message label);
  void surveyAcronym(const CellPlace& cell, const std::string& acronym);
  void surveyKeywords(const CellPlace& cell, const SurveyedBook& book);
  void surveyCategories(const CellPlace& cell,
                        const std::vector<std::string>& list,
                        SurveyedBook& book);
  void requireKept(const CellPlace& cell, const std::string& value);
  void requireOwnNames(std::int32_t row, const SurveyedBook& book, bool isNamedByList);

  /// The levels of all books are looked at before the cells of each.
  void sortByPlace() {
    const auto place = [](const WorkbookViolation& violation) {
      return std::tuple(violation.cell.sheet, violation.cell.row, violation.cell.column);
    };
    std::stable_sort(
        survey_.violations.begin(),
        survey_.violations.end(),
        [&](const auto& left, const auto& right) { return place(left) < place(right); });
  }
  void refuse(const CellPlace& cell,
              UserMessage box,
              ExitStatus status = ExitStatus::kRefused,
              std::string cellText = {}) {
    take({.cell = cell, .box = std::move(box), .cellText = std::move(cellText)}, status);
  }
  /// Offers what stands in the cell on the clipboard.
  void refuseOffering(const CellPlace& cell, UserMessage box, const std::string& cellText) {
    take({.cell = cell, .box = std::move(box), .clipboard = cellText, .cellText = cellText},
         ExitStatus::kRefused);
  }
  void take(WorkbookViolation violation, ExitStatus status) {
    survey_.status = std::max(survey_.status, status);
    if (survey_.violations.size() < kMostViolations) {
      survey_.violations.push_back(std::move(violation));
    }
  }
  void refuseCell(const CellPlace& cell, std::string_view error, const std::string& cellText) {
    refuseOffering(cell, boxOf(cell, error), cellText);
  }

  const Platform& platform_;
  const TocFile& toc_;
  const CellVisitor& visitor_;
  WorkbookSurvey survey_;
  BoxCollector boxes_;
  ReferenceXmlTextRules rules_{boxes_};
  std::int32_t deepestLevel_ = 0;
  /// Of the books so far.
  TakenNames taken_{platform_.locale};
};

std::unique_ptr<Workbook> WorkbookSurveyor::open() {
  try {
    return platform_.spreadsheets.open(toc_.path);
  } catch (const RunTimeError&) {
    // The port says only that it can't be opened; the person wants to know why.
    const WorkbookReading reading = readWorkbookFile(platform_.files, platform_.xml, toc_.path);
    if (reading.isUnreadable) {
      throw CommandFailure(ExitStatus::kInputMissing, toc_.name + ": " + reading.reason);
    }
    refuse({},
           criticalMessage(Message::kNotAValidExcelFile + "\r" + reading.reason),
           ExitStatus::kNotParseable);
    return nullptr;
  }
}

void WorkbookSurveyor::surveyHeadings(Worksheet& sheet) {
  for (const ExcelColumn& column : kColumnsWithHeaders) {
    if (!hasExcelHeader(sheet, platform_.locale, column)) {
      refuse({kHeadingSheet, kHeaderRow, column.number},
             boxOf(column.refusal),
             ExitStatus::kRefused,
             sheet.cellText(kHeaderRow, column.number));
    }
  }
  const std::int32_t end = surveyRows(sheet);
  if (!survey_.books.empty()) {
    survey_.books.back().lastRow = end - 1;
  }
  for (SurveyedBook& book : survey_.books) {
    surveyBook(sheet, book);
  }
  surveyEnd(sheet, end);
  // The component reads a first book of one row again in the place of the second.
  if (survey_.books.size() > 1 && survey_.books.front().lastRow == kFirstRow) {
    const CellPlace cell{kHeadingSheet, kFirstRow, kLevelColumn};
    refuse(
        cell, boxOf(cell, kOneRow), ExitStatus::kRefused, sheet.cellText(kFirstRow, kLevelColumn));
  }
}

std::int32_t WorkbookSurveyor::surveyRows(Worksheet& sheet) {
  for (std::int32_t row = kFirstRow;; ++row) {
    const std::string level = sheet.cellText(row, kLevelColumn);
    if (isBlank(level)) {
      return row;
    }
    if (row > kLastRow) {
      const CellPlace cell{kHeadingSheet, row, kLevelColumn};
      refuse(cell, boxOf(cell, kTooManyRows), ExitStatus::kNotParseable, level);
      return row;
    }
    ++survey_.entries;
    surveyLevel(row, level);
    surveyCells(sheet, row);
  }
}

void WorkbookSurveyor::surveyLevel(std::int32_t row, const std::string& cellText) {
  const CellPlace cell{kHeadingSheet, row, kLevelColumn};
  std::int16_t level = 0;
  if (const auto violation = readExcelLevel(row, kLevelColumn, cellText, level)) {
    refuseOffering(cell, criticalMessage(violation->violation.message), violation->cellText);
    return;
  }
  if (level == 1) {
    beginBook(row);
  }
  if (level < 1) {
    refuseCell(cell, kLevelTooLow, cellText);
  } else if (level > deepestLevel_ + 1) {
    refuseCell(cell, kLevelJumps, cellText);
  } else if (level + 2 > kMaximumXmlDepth) {
    // A heading of level 2 stands inside two elements and has its name inside it.
    refuse(cell, boxOf(cell, kLevelTooDeep), ExitStatus::kNotParseable, cellText);
  }
  deepestLevel_ = std::max(deepestLevel_, std::int32_t{level});
}

void WorkbookSurveyor::beginBook(std::int32_t row) {
  if (!survey_.books.empty()) {
    survey_.books.back().lastRow = row - 1;
  }
  survey_.books.emplace_back().firstRow = row;
}

/// What the export makes of the cells of a row: one line, in which the cells that hold something
/// follow each other.
void WorkbookSurveyor::surveyCells(Worksheet& sheet, std::int32_t row) {
  constexpr std::array kEmptyColumns{kLevelColumn + 1, kNameColumn + 1};
  constexpr std::array kExportedColumns{kNameColumn, kFileColumn, kLastExportedColumn};
  for (const std::int32_t column : kEmptyColumns) {
    const std::string cellText = sheet.cellText(row, column);
    if (!cellText.empty()) {
      refuseCell({kHeadingSheet, row, column}, kNotEmpty, cellText);
    }
  }
  for (const std::int32_t column : kExportedColumns) {
    const std::string cellText = sheet.cellText(row, column);
    if (containsAnyOf(cellText, "\r\n") || contains(cellText, text_form::kMarker)) {
      refuseCell({kHeadingSheet, row, column}, kNotExportable, cellText);
    }
  }
  survey_.hasLinkIdentifiers =
      survey_.hasLinkIdentifiers || !isBlank(sheet.cellText(row, kBookLinkColumn));
}

/// Looks at what stands below the last row: it would be left out without a word.
void WorkbookSurveyor::surveyEnd(Worksheet& sheet, std::int32_t row) {
  if (row > kLastRow) {
    return;
  }
  const CellPlace cell{kHeadingSheet, row, kLevelColumn};
  bool goesOn =
      !isBlank(sheet.cellText(row, kNameColumn)) || !isBlank(sheet.cellText(row, kFileColumn));
  for (std::int32_t below = row + 1; below <= kLastRow && !goesOn; ++below) {
    goesOn = !isBlank(sheet.cellText(below, kLevelColumn));
  }
  if (goesOn) {
    refuse(cell, boxOf(cell, kLevelMissing));
  } else if (survey_.books.empty() && survey_.violations.empty()) {
    refuse({kHeadingSheet}, criticalMessage(std::string(kNoBooks)));
  }
}

void WorkbookSurveyor::surveyBook(Worksheet& sheet, SurveyedBook& book) {
  const CellPlace first{kHeadingSheet, book.firstRow, kFileColumn};
  const std::string mainFile = sheet.cellText(book.firstRow, kFileColumn);
  book.place = statedPlaceOf(mainFile, static_cast<std::size_t>(book.firstRow));
  if (book.place.refusal) {
    refuseOffering(first, criticalMessage(*book.place.refusal), mainFile);
  }
  for (std::int32_t row = book.firstRow; row <= book.lastRow; ++row) {
    const std::string document = sheet.cellText(row, kFileColumn);
    const bool hasName = !isBlank(sheet.cellText(row, kNameColumn));
    if (!hasName || isBlank(document)) {
      refuse({kHeadingSheet, row, hasName ? kFileColumn : kNameColumn},
             boxOf(Message::kEntryCountsDiffer));
      return;
    }
    if (visitor_) {
      visitor_({kHeadingSheet, row, kFileColumn}, book.place.folder.value_or(""), document);
    }
  }
  book.nameText = sheet.cellText(book.firstRow, kNameColumn);
  book.name = rules_.mstrReplaceSpecialCharecters(trimBlanks(book.nameText));
}

void WorkbookSurveyor::surveyList(Worksheet* list) {
  if (list == nullptr && survey_.hasLinkIdentifiers) {
    refuse({kBookSheet}, criticalMessage(std::string(kNoList)));
  }
  std::int32_t row = kFirstRow;
  for (SurveyedBook& book : survey_.books) {
    if (list != nullptr) {
      surveyListed(*list, row, book);
    }
    requireOwnNames(row, book, list != nullptr);
    ++row;
  }
}

void WorkbookSurveyor::surveyListed(Worksheet& list, std::int32_t row, SurveyedBook& book) {
  const CellPlace nameCell{kBookSheet, row, kBookNameColumn};
  const CellPlace acronymCell{kBookSheet, row, kBookAcroColumn};
  book.nameText = list.cellText(row, kBookNameColumn);
  const std::string name = acceptedText(nameCell, book.nameText, Message::kBookNameLabel);
  if (!name.empty()) {
    book.name = name;
  }
  if (const auto refusal = refusalOfBookName(book.name)) {
    refuseOffering(nameCell, criticalMessage(*refusal), book.name);
  }
  book.acronymText = list.cellText(row, kBookAcroColumn);
  book.acronym = acceptedText(acronymCell, book.acronymText, Message::kBookAcroLabel);
  surveyAcronym(acronymCell, book.acronym);
  book.keywords = excelListOf(list.cellText(row, kKeywordsColumn));
  surveyKeywords({kBookSheet, row, kKeywordsColumn}, book);
  surveyCategories({kBookSheet, row, kCategoriesColumn},
                   excelListOf(list.cellText(row, kCategoriesColumn)),
                   book);
}

std::string WorkbookSurveyor::acceptedText(const CellPlace& cell,
                                           const std::string& cellText,
                                           Message label) {
  const std::string_view value = trimBlanks(cellText);
  if (!rules_.CheckReplacedXMLCharacters(value, text(label))) {
    refuseOffering(cell, boxes_.take().value_or(UserMessage{}), cellText);
  }
  return rules_.mstrReplaceSpecialCharecters(value);
}

void WorkbookSurveyor::surveyAcronym(const CellPlace& cell, const std::string& acronym) {
  if (const auto refusal = refusalOfAcronym(acronym)) {
    refuseOffering(cell, criticalMessage(*refusal), acronym);
  } else if (book_names::fileOf(acronym).size() > kLongestName) {
    refuseCell(cell, kAcronymTooLong, acronym);
  }
}

void WorkbookSurveyor::surveyKeywords(const CellPlace& cell, const SurveyedBook& book) {
  for (const std::string& keyword : book.keywords) {
    if (const auto fault = findKeywordFault(trimBlanks(keyword))) {
      refuseOffering(cell, fault->box, keyword);
    } else {
      requireKept(cell, keyword);
    }
  }
}

/// Categories are looked up between apostrophes. The component would leave out one that holds
/// another, when its book is in the library already.
void WorkbookSurveyor::surveyCategories(const CellPlace& cell,
                                        const std::vector<std::string>& list,
                                        SurveyedBook& book) {
  for (const std::string& listed : list) {
    const std::string category(trimBlanks(listed));
    if (contains(category, "'")) {
      refuseCell(cell, kCategoryNotSought, category);
    }
    requireKept(cell, category);
    if (!category.empty()) {
      book.categories.push_back(category);
    }
  }
}

void WorkbookSurveyor::requireKept(const CellPlace& cell, const std::string& value) {
  if (const auto refusal = refusalOfCharacters(value)) {
    refuseCell(cell, "Error:" + *refusal, value);
  }
}

void WorkbookSurveyor::requireOwnNames(std::int32_t row,
                                       const SurveyedBook& book,
                                       bool isNamedByList) {
  const CellPlace nameCell = isNamedByList ? CellPlace{kBookSheet, row, kBookNameColumn}
                                           : CellPlace{kHeadingSheet, book.firstRow, kNameColumn};
  const CellPlace acronymCell{kBookSheet, row, kBookAcroColumn};
  requireKept(nameCell, book.name);
  requireKept(acronymCell, book.acronym);
  if (const auto taken = taken_.takeName(book.name)) {
    refuse(nameCell, taken->box, ExitStatus::kRefused, book.nameText);
  }
  if (const auto taken = taken_.takeAcronym(book.acronym)) {
    refuse(acronymCell, taken->box, ExitStatus::kRefused, book.acronymText);
  }
}

}  // namespace

WorkbookSurvey surveyWorkbook(const Platform& platform,
                              const TocFile& toc,
                              const CellVisitor& visitor) {
  return WorkbookSurveyor(platform, toc, visitor).run();
}

}  // namespace quorbind
