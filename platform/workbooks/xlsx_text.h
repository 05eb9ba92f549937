#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// Collects the text of a string of a packed workbook while its elements come by: the runs of a
/// rich text one behind the other, without the reading aids of East Asian texts.
class XlsxText {
 public:
  /// `name` is without its prefix.
  void startElement(std::string_view name);
  /// Throws WorkbookRefusal when it gets longer than a cell can hold.
  void text(std::string_view text);
  void endElement(std::string_view name);

  /// What has come since the last `clear`, its escapes (`_x000D_`) resolved.
  [[nodiscard]] std::string value() const;
  void clear();

 private:
  std::string text_;
  int aids_ = 0;
  bool isInText_ = false;
};

/// `text` with the escapes of characters that XML can't hold (`_x000D_`) resolved.
std::string withXlsxEscapesResolved(std::string_view text);

/// Appends to the text of a cell. Throws WorkbookRefusal when it gets longer than a cell can hold.
void appendToCellText(std::string& text, std::string_view piece);

}  // namespace quorbind
