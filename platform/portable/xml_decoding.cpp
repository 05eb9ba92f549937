#include "platform/portable/xml_decoding.h"

#include <unicode/unistr.h>

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

using namespace std::string_view_literals;

/// How a file in UTF-16 begins: with a mark, or with its first character.
struct Utf16Beginning {
  std::string_view bytes;
  std::size_t markLength;
  ByteOrder order;
};

std::string fromUtf16(std::string_view bytes, ByteOrder order) {
  std::string text;
  appendUtf8FromUtf16(text, bytes, order);
  return text;
}

/// The encoding that the declaration names, which is written in ASCII; empty without one.
std::string declaredEncoding(std::string_view bytes) {
  constexpr std::string_view kAttribute = "encoding";
  const std::string_view declaration =
      bytes.starts_with("<?xml") ? bytes.substr(0, bytes.find("?>")) : std::string_view();
  const std::size_t attribute = declaration.find(kAttribute);
  if (attribute == std::string_view::npos) {
    return {};
  }
  const std::size_t begin = declaration.find_first_of("\"'", attribute);
  if (begin == std::string_view::npos) {
    return {};
  }
  const std::size_t end = declaration.find(declaration[begin], begin + 1);
  return end == std::string_view::npos
             ? std::string()
             : std::string(declaration.substr(begin + 1, end - begin - 1));
}

/// A file of single bytes that declares UTF-16 is none.
bool isCodePage(const std::string& encoding) {
  const std::string name = upperCaseAscii(encoding);
  return !name.empty() && !name.starts_with("UTF");
}

std::optional<std::string> fromCodePage(std::string_view bytes, const std::string& encoding) {
  const icu::UnicodeString decoded(
      bytes.data(), static_cast<std::int32_t>(bytes.size()), encoding.c_str());
  if (decoded.isBogus() != 0) {
    return std::nullopt;
  }
  std::string text;
  decoded.toUTF8String(text);
  return text;
}

std::optional<std::string> fromDeclaredCodePage(std::string_view bytes) {
  const std::string encoding = declaredEncoding(bytes);
  return isCodePage(encoding) ? fromCodePage(bytes, encoding) : std::nullopt;
}

}  // namespace

std::string decodedXml(std::string_view bytes) {
  for (const auto& [beginning, markLength, order] :
       {Utf16Beginning{kUtf16LittleEndianMark, 2, ByteOrder::kLittleEndian},
        Utf16Beginning{kUtf16BigEndianMark, 2, ByteOrder::kBigEndian},
        Utf16Beginning{"<\0"sv, 0, ByteOrder::kLittleEndian},
        Utf16Beginning{"\0<"sv, 0, ByteOrder::kBigEndian}}) {
    if (bytes.starts_with(beginning)) {
      return fromUtf16(bytes.substr(markLength), order);
    }
  }
  if (bytes.starts_with(kUtf8Mark)) {
    return toValidUtf8(bytes.substr(kUtf8Mark.size()));
  }
  auto text = fromDeclaredCodePage(bytes);
  return text ? *std::move(text) : toValidUtf8(bytes);
}

}  // namespace quorbind
