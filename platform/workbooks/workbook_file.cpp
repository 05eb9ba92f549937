#include "platform/workbooks/workbook_file.h"

#include <cstddef>
#include <optional>
#include <utility>

#include "platform/file_bytes.h"
#include "platform/runtime_error.h"
#include "platform/workbooks/compound_file.h"
#include "platform/workbooks/workbook_refusal.h"
#include "platform/workbooks/xls_reader.h"
#include "platform/workbooks/xlsx_reader.h"

namespace quorbind {

namespace {

constexpr std::size_t kLargestFile = std::size_t{256} << 20U;

constexpr std::string_view kPackedMark = "PK\x03\x04";
constexpr std::string_view kBinaryStream = "Workbook";
constexpr std::string_view kOlderBinaryStream = "Book";
constexpr std::string_view kEncryptedStream = "EncryptedPackage";

std::string readAll(FileSystem& files, std::string_view path) {
  std::optional<std::string> bytes = bytesOf(files, path, kLargestFile);
  if (!bytes) {
    throw WorkbookRefusal("The file is larger than a workbook may be.");
  }
  return *std::move(bytes);
}

WorkbookTexts readCompound(std::string_view bytes) {
  const CompoundFile file(bytes);
  if (file.has(kEncryptedStream)) {
    throw WorkbookRefusal("The workbook is encrypted.");
  }
  if (file.has(kBinaryStream)) {
    return readXls(file.stream(kBinaryStream));
  }
  throw WorkbookRefusal(file.has(kOlderBinaryStream)
                            ? "The workbook was saved by a program older than Excel 97."
                            : "The file is no workbook.");
}

WorkbookTexts readBytes(std::string_view bytes, XmlLibrary& xml) {
  if (bytes.starts_with(kPackedMark)) {
    return readXlsx(bytes, xml);
  }
  if (CompoundFile::isOne(bytes)) {
    return readCompound(bytes);
  }
  throw WorkbookRefusal(bytes.empty() ? "The file is empty." : "The file is no workbook.");
}

}  // namespace

WorkbookReading readWorkbookFile(FileSystem& files, XmlLibrary& xml, std::string_view path) {
  try {
    const std::string bytes = readAll(files, path);
    return {.texts = std::make_shared<const WorkbookTexts>(readBytes(bytes, xml)), .reason = {}};
  } catch (const WorkbookRefusal& refusal) {
    return {.texts = nullptr, .reason = refusal.what(), .isUnreadable = false};
  } catch (const RunTimeError& error) {
    return {.texts = nullptr, .reason = error.description(), .isUnreadable = true};
  }
}

}  // namespace quorbind
