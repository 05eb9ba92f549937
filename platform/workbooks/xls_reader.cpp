#include "platform/workbooks/xls_reader.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

#include "platform/workbooks/workbook_refusal.h"
#include "platform/workbooks/xls_records.h"
#include "platform/workbooks/xls_sheet.h"

namespace quorbind {

namespace {

// Places in the records that describe the workbook.
constexpr std::size_t kVersionAt = 0;
constexpr unsigned kVersion = 0x0600;
constexpr std::size_t kSheetTypeAt = 5;
constexpr unsigned kSheetOfCells = 0;
constexpr std::size_t kStyleFormatAt = 2;
constexpr std::size_t kFormatTextAt = 2;
constexpr std::size_t kTextCountAt = 4;
constexpr std::size_t kFirstTextAt = 8;

/// What stands in front of the sheets.
class Globals {
 public:
  Globals(std::string_view bytes, TextPool& pool) : pool_(pool) {
    XlsRecordReader records(bytes, 0);
    const XlsRecord begin = records.next();
    if (begin.kind != XlsRecordKind::kBegin || begin.view().shortAt(kVersionAt) != kVersion) {
      throw WorkbookRefusal("The workbook was saved by a program older than Excel 97.");
    }
    for (XlsRecord record = records.next(); record.kind != XlsRecordKind::kEnd;
         record = records.next()) {
      read(record);
    }
  }

  /// Where the sheets of cells begin, in the order of the tabs.
  std::vector<std::size_t> sheets;
  std::vector<TextSpan> shared;
  CellFormats formats;
  DateSystem dates = DateSystem::kFrom1900;

 private:
  void read(const XlsRecord& record) {
    const ByteView view = record.view();
    switch (record.kind) {
      case XlsRecordKind::kEncrypted:
        throw WorkbookRefusal("The workbook is encrypted.");
      case XlsRecordKind::kDateMode:
        dates = view.shortAt(0) != 0 ? DateSystem::kFrom1904 : DateSystem::kFrom1900;
        break;
      case XlsRecordKind::kFormat:
        formats.define(view.shortAt(0), XlsRecordText(record, kFormatTextAt).text());
        break;
      case XlsRecordKind::kStyle:
        formats.addStyle(view.shortAt(kStyleFormatAt));
        break;
      case XlsRecordKind::kSharedTexts:
        readSharedTexts(record);
        break;
      case XlsRecordKind::kSheet:
        if (view.byteAt(kSheetTypeAt) == kSheetOfCells) {
          sheets.push_back(view.longAt(0));
        }
        break;
      default:
        break;
    }
  }

  void readSharedTexts(const XlsRecord& record) {
    const std::size_t count = record.view().longAt(kTextCountAt);
    XlsRecordText texts(record, kFirstTextAt);
    for (std::size_t i = 0; i < count && !texts.atEnd(); ++i) {
      shared.push_back(pool_.keep(texts.text()));
    }
  }

  TextPool& pool_;
};

/// The numbers of the sheets in the order in which they stand in the file.
std::vector<std::size_t> inOrderOfFile(const std::vector<std::size_t>& sheets) {
  std::vector<std::size_t> order(sheets.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&sheets](std::size_t left, std::size_t right) {
    return sheets[left] < sheets[right];
  });
  return order;
}

}  // namespace

WorkbookTexts readXls(std::string_view bytes) {
  WorkbookTexts texts;
  Globals globals(bytes, texts.pool);
  SheetBuilder builder(texts, globals.formats, globals.dates);
  std::size_t end = 0;
  for (const std::size_t number : inOrderOfFile(globals.sheets)) {
    // Sheets that share their records would be read over and over.
    if (globals.sheets[number] < end) {
      throw WorkbookRefusal("Two sheets of the workbook stand in the same place.");
    }
    XlsRecordReader records(bytes, globals.sheets[number]);
    builder.beginSheet(number);
    readXlsSheet(records, globals.shared, builder);
    builder.endSheet();
    end = records.position();
  }
  return texts;
}

}  // namespace quorbind
