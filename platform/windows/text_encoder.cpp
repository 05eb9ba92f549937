#include "platform/windows/text_encoder.h"

#include <mlang.h>
#include <ole2.h>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "platform/windows/com_types.h"

__CRT_UUID_DECL(
    IMultiLanguage, 0x275c23e1, 0x3747, 0x11d0, 0x9f, 0xea, 0x00, 0xaa, 0x00, 0x3f, 0x86, 0x46)

namespace quorbind {

namespace {

constexpr unsigned kUtf16 = 1200;

/// The system's number for an encoding. Raises 57 when it has none.
unsigned codePageOf(std::string_view encoding) {
  if (encoding.empty() || equalIgnoringAsciiCase(encoding, "UTF-8") ||
      equalIgnoringAsciiCase(encoding, "UTF8")) {
    return CP_UTF8;
  }
  if (equalIgnoringAsciiCase(encoding, "UTF-16") || equalIgnoringAsciiCase(encoding, "UTF16")) {
    return kUtf16;
  }
  ComPtr<IMultiLanguage> languages;
  requireSuccess(::CoCreateInstance(CLSID_CMultiLanguage,
                                    nullptr,
                                    CLSCTX_INPROC_SERVER,
                                    __uuidof(IMultiLanguage),
                                    languages.putAny()));
  MIMECSETINFO info{};
  if (FAILED(languages->GetCharsetInfo(Bstr(encoding).get(), &info))) {
    raise(ErrorNumber::kDeviceIoError);
  }
  return info.uiInternetEncoding;
}

}  // namespace

TextEncoder::TextEncoder(std::string_view encoding) : codePage_(codePageOf(encoding)) {
  if (codePage_ != CP_UTF8 && codePage_ != kUtf16 && !appendInCodePage(L"<")) {
    raise(ErrorNumber::kDeviceIoError);
  }
}

std::string_view TextEncoder::mark() const {
  return codePage_ == kUtf16 ? kUtf16LittleEndianMark : std::string_view();
}

std::string_view TextEncoder::encode(std::string_view utf8) {
  if (codePage_ == CP_UTF8) {
    return utf8;
  }
  bytes_.clear();
  if (codePage_ == kUtf16) {
    appendUtf16LittleEndian(bytes_, utf8);
  } else if (!appendInCodePage(toWide(utf8))) {
    appendCharacters(utf8);
  }
  return bytes_;
}

bool TextEncoder::appendInCodePage(std::wstring_view text) {
  constexpr int kMostBytesPerUnit = 8;
  const std::size_t size = bytes_.size();
  bytes_.resize(size + kMostBytesPerUnit * text.size());
  BOOL isLacking = FALSE;
  const int length = ::WideCharToMultiByte(codePage_,
                                           WC_NO_BEST_FIT_CHARS,
                                           text.data(),
                                           static_cast<int>(text.size()),
                                           bytes_.data() + size,
                                           static_cast<int>(bytes_.size() - size),
                                           nullptr,
                                           &isLacking);
  const bool isWhole = isLacking == FALSE && (length != 0 || text.empty());
  bytes_.resize(size + (isWhole ? static_cast<std::size_t>(length) : 0));
  return isWhole;
}

void TextEncoder::appendCharacters(std::string_view utf8) {
  while (!utf8.empty()) {
    const Utf8Character character = firstUtf8Character(utf8);
    if (!appendInCodePage(toWide(utf8.substr(0, character.length)))) {
      bytes_.append("&#").append(std::to_string(std::uint32_t{character.codePoint})).append(";");
    }
    utf8.remove_prefix(character.length);
  }
}

}  // namespace quorbind
