// Bytes as the small texts that documents are full of: a format in the first line, a number in the
// second, and a name in all that follows.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "platform/number.h"
#include "platform/paths.h"
#include "platform/portable/portable_file_system.h"
#include "platform/portable/portable_locale.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "platform/workbooks/decimal.h"
#include "platform/workbooks/number_format.h"
#include "platform/xml_writer.h"
#include "platform/xpath_query.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/targets.h"
#include "tests/support/raised_error.h"

namespace quorbind::testing {

namespace {

/// A text of digits alone, with a sign or without, as a number; nothing for any other text.
std::optional<long> plainNumber(std::string_view text) {
  long number = 0;
  const char* end = text.data() + text.size();
  const auto [behind, error] = std::from_chars(text.data(), end, number);
  return behind == end && error == std::errc() ? std::optional(number) : std::nullopt;
}

void claimNumber(std::string_view text) {
  std::int16_t value = 0;
  const std::int32_t error = errorRaisedBy([&] { value = toInteger16(text); });
  claim(error == 0 || error == 6 || error == 13, "a text is a number, too large, or none");
  if (const auto plain = plainNumber(text)) {
    const bool fits = *plain >= -32768 && *plain <= 32767;
    claim(error == (fits ? 0 : 6), "plain digits are a number");
    claim(!fits || value == *plain, "plain digits are their number");
  }
  claim(error != 0 || toInteger16(std::to_string(value)) == value, "a number can be written");
}

/// The size of a number as its 15 digits give it, near enough.
void claimDecimal(double value) {
  const std::string plain = Decimal::of(value).plain();
  double read = 0;
  std::from_chars(plain.data(), plain.data() + plain.size(), read);
  claim(std::abs(read - std::abs(value)) <= std::abs(value) * 1e-14 ||
            std::fpclassify(value) == FP_SUBNORMAL || std::isinf(read),
        "a number has 15 digits");
}

void claimDisplay(std::string_view code, std::string_view text) {
  constexpr std::size_t kLongest = 100'000;
  const NumberFormat format{toValidUtf8(code)};
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  if (!std::isfinite(value)) {
    return;
  }
  claimDecimal(value);
  for (const DateSystem dates : {DateSystem::kFrom1900, DateSystem::kFrom1904}) {
    const std::string shown = format.display(value, dates);
    claim(isValidUtf8(shown) && shown.size() < kLongest, "a number is shown as a text");
  }
  claim(isValidUtf8(format.display(toValidUtf8(text))), "a text is shown as a text");
}

void claimConfined(std::string_view name) {
  claim(withBackslashes(withBackslashes(name)) == withBackslashes(name), "no slash is left");
  claim(std::string(folderPartOf(name)).append(fileNameOf(name)) == name,
        "a path is its folder and its file");
  const auto below = nameBelow(name);
  if (!below) {
    return;
  }
  claim(nameBelow(*below) == below, "a name that was worked out stays as it is");
  claim(!leadsToNetworkOrDevice(*below), "a name below a folder leads to no device");
  for (const std::string_view part : Pieces(*below, "\\")) {
    claim(staysInFolder(part), "every part of a name below a folder stays in its folder");
  }
  if (contains(*below, std::string_view("\0", 1))) {
    return;
  }
  static PortableFileSystem files;
  const std::string full = files.absolutePath("C:\\folder\\" + *below);
  claim(full == "C:\\folder\\" + *below, "a name below a folder has nothing left to resolve");
  claim(files.absolutePath(full) == full, "a full name stays as it is");
}

std::size_t countCharacters(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); text.remove_prefix(firstUtf8Character(text).length)) {
    ++count;
  }
  return count;
}

void claimText(std::string_view bytes) {
  const std::string text = toValidUtf8(bytes);
  claim(isValidUtf8(text) && toValidUtf8(text) == text, "what is made UTF-8 stays as it is");
  claim((text == bytes) == isValidUtf8(bytes), "UTF-8 stays as it is");
  std::string wide;
  appendUtf16LittleEndian(wide, text);
  std::string back;
  appendUtf8FromUtf16(back, wide, ByteOrder::kLittleEndian);
  claim(back == text, "a text comes back from UTF-16");
  static const PortableLocale locale;
  claim(countCharacters(locale.upperCase(text)) == countCharacters(text),
        "a text in capitals has as many characters");
  claim(isXmlCharactersOnly(xmlCharactersOnly(bytes)), "what is made fit for XML is fit");
  claim(isXmlCharactersOnly(bytes) == (xmlCharactersOnly(bytes) == bytes),
        "what is fit for XML stays as it is");
}

void claimPieces(std::string_view text) {
  std::string joined;
  for (const std::string_view piece : Pieces(text, "\\")) {
    joined.append(piece).append("\\");
  }
  claim(joined == (text.empty() ? std::string() : std::string(text) + "\\"),
        "the pieces of a text make the text");
  claim(Pieces(text, "\\").count() == countPieces(text, "\\"),
        "pieces are counted as they are cut");
}

void claimQuery(std::string_view value) {
  for (const char quote : {'\'', '"'}) {
    const bool fits = value.find(quote) == std::string_view::npos && isXmlCharactersOnly(value);
    const std::int32_t error = errorRaisedBy([&] { requireFitsQuery(value, quote); });
    claim(error == (fits ? 0 : kInvalidQueryError), "no value widens a query");
  }
}

}  // namespace

void fuzzNumbers(std::string_view bytes) {
  const std::string_view code = bytes.substr(0, bytes.find('\n'));
  bytes.remove_prefix(std::min(code.size() + 1, bytes.size()));
  const std::string_view number = bytes.substr(0, bytes.find('\n'));
  bytes.remove_prefix(std::min(number.size() + 1, bytes.size()));
  claimNumber(number);
  claimDisplay(code, number);
  claimConfined(bytes);
  claimText(bytes);
  claimPieces(bytes);
  claimQuery(bytes);
}

}  // namespace quorbind::testing
