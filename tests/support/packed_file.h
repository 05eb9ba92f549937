#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind::testing {

/// Puts a packed file together, sound or not.
class PackedFile {
 public:
  enum class Packing { kStored, kDeflated };

  /// What the list of parts says of one.
  struct Entry {
    std::string name;
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    std::uint32_t checksum = 0;
    std::uint32_t packedSize = 0;
    std::uint32_t size = 0;
    std::uint32_t position = 0;
  };

  /// Adds a part and answers its entry, which may be made to lie.
  Entry& add(std::string_view name, std::string_view bytes, Packing packing = Packing::kDeflated);
  /// Adds another entry for what is there already.
  void addEntry(const Entry& entry) { entries_.push_back(entry); }

  /// The whole file, with a comment behind it.
  [[nodiscard]] std::string bytes(std::string_view comment = {}) const;

 private:
  std::string parts_;
  std::vector<Entry> entries_;
};

/// The parts of a workbook, by their names. Its one sheet is `xl/sheet.xml`, whose first cell shows
/// the shared text "text" of `xl/texts.xml`.
std::map<std::string, std::string> smallWorkbook();
/// The same packed, with other bytes in one part.
PackedFile smallWorkbookWith(std::string_view part, std::string_view bytes);

/// A packed workbook put together from the XML of its sheets. Each text is what stands inside of
/// the element that the method is named after.
class PackedWorkbook {
 public:
  /// The next sheet's rows, as `sheetData` holds them.
  PackedWorkbook& sheet(std::string rows, std::string_view kind = "worksheet");
  PackedWorkbook& sharedTexts(std::string items);
  PackedWorkbook& styles(std::string content);
  /// Attributes of `workbookPr`.
  PackedWorkbook& properties(std::string attributes);
  /// Attributes of the last sheet's entry in the workbook, such as its being hidden.
  PackedWorkbook& lastSheetIs(std::string attributes);

  [[nodiscard]] PackedFile file() const;
  [[nodiscard]] std::string bytes() const { return file().bytes(); }

 private:
  struct Sheet {
    std::string rows;
    std::string kind;
    std::string attributes;
  };

  std::vector<Sheet> sheets_;
  std::string sharedTexts_;
  std::string styles_;
  std::string properties_;
};

}  // namespace quorbind::testing
