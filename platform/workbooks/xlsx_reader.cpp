#include "platform/workbooks/xlsx_reader.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "platform/workbooks/workbook_refusal.h"
#include "platform/workbooks/xlsx_package.h"
#include "platform/workbooks/xlsx_sheet.h"
#include "platform/workbooks/xlsx_styles.h"
#include "platform/workbooks/xlsx_text.h"

namespace quorbind {

namespace {

constexpr std::string_view kWorkbookRelation = "officeDocument";
constexpr std::string_view kSheetRelation = "worksheet";
constexpr std::string_view kStylesRelation = "styles";
constexpr std::string_view kSharedTextsRelation = "sharedStrings";

/// What the main part of a workbook tells.
struct Contents {
  /// The ids of the relations that name the sheets, in the order of the tabs.
  std::vector<std::string> sheets;
  DateSystem dates = DateSystem::kFrom1900;
};

class ContentsHandler final : public XmlScanHandler {
 public:
  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    const std::string_view local = localNameOf(name);
    if (local == "sheet") {
      contents_.sheets.emplace_back(attributes.value("r:id"));
    } else if (local == "workbookPr") {
      const std::string_view from1904 = attributes.value("date1904");
      const bool isFrom1904 = from1904 == "1" || from1904 == "true";
      contents_.dates = isFrom1904 ? DateSystem::kFrom1904 : DateSystem::kFrom1900;
    }
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override {}

  [[nodiscard]] Contents take() { return std::move(contents_); }

 private:
  Contents contents_;
};

class SharedTextsHandler final : public XmlScanHandler {
 public:
  explicit SharedTextsHandler(TextPool& pool) : pool_(pool) {}

  void startElement(std::string_view name, const XmlScanAttributes& /*attributes*/) override {
    text_.startElement(localNameOf(name));
  }
  void text(std::string_view text) override { text_.text(text); }
  void endElement(std::string_view name) override {
    const std::string_view local = localNameOf(name);
    text_.endElement(local);
    if (local == "si") {
      shared_.push_back(pool_.keep(text_.value()));
      text_.clear();
    }
  }

  [[nodiscard]] std::vector<TextSpan> take() { return std::move(shared_); }

 private:
  TextPool& pool_;
  XlsxText text_;
  std::vector<TextSpan> shared_;
};

/// The name of the one part of that kind; empty when there is none.
std::string partOfKind(const XlsxRelations& relations, std::string_view kind) {
  const auto found = std::find_if(relations.begin(), relations.end(), [kind](const auto& relation) {
    return relation.second.kind == kind;
  });
  return found == relations.end() ? std::string() : found->second.part;
}

Contents readContents(XlsxPackage& package, std::string_view part) {
  ContentsHandler handler;
  package.scan(part, handler);
  return handler.take();
}

std::vector<TextSpan> readSharedTexts(XlsxPackage& package, std::string_view part, TextPool& pool) {
  SharedTextsHandler handler(pool);
  package.scan(part, handler);
  return handler.take();
}

/// The parts of the sheets of cells, in the order of the tabs.
std::vector<std::string> sheetParts(const Contents& contents, const XlsxRelations& relations) {
  std::vector<std::string> parts;
  for (const std::string& id : contents.sheets) {
    const auto relation = relations.find(id);
    if (relation == relations.end()) {
      throw WorkbookRefusal("The workbook does not tell where one of its sheets is.");
    }
    if (relation->second.kind == kSheetRelation) {
      parts.push_back(relation->second.part);
    }
  }
  return parts;
}

}  // namespace

WorkbookTexts readXlsx(std::string_view bytes, XmlLibrary& xml) {
  ZipArchive archive(bytes);
  XlsxPackage package(archive, xml);
  const std::string workbook = partOfKind(package.relationsOf(""), kWorkbookRelation);
  if (workbook.empty()) {
    throw WorkbookRefusal("The file is packed, but it is no workbook.");
  }
  const Contents contents = readContents(package, workbook);
  const XlsxRelations relations = package.relationsOf(workbook);

  WorkbookTexts texts;
  const std::string styles = partOfKind(relations, kStylesRelation);
  CellFormats formats = styles.empty() ? CellFormats() : readXlsxStyles(package, styles);
  const std::string sharedPart = partOfKind(relations, kSharedTextsRelation);
  const auto shared = sharedPart.empty() ? std::vector<TextSpan>()
                                         : readSharedTexts(package, sharedPart, texts.pool);
  SheetBuilder builder(texts, formats, contents.dates);
  const std::vector<std::string> parts = sheetParts(contents, relations);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    builder.beginSheet(i);
    readXlsxSheet(package, parts[i], shared, builder);
    builder.endSheet();
  }
  return texts;
}

}  // namespace quorbind
