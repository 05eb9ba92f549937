#include "cli/line_place.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/file_bytes.h"
#include "platform/portable/xml_decoding.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"
#include "toc/toc_check.h"

namespace quorbind {

namespace {

std::size_t countCharacters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), std::not_fn(isInsideCharacter)));
}

/// Bombs have a single line that does not fit into memory.
constexpr std::size_t kLargestFile = std::size_t{16} << 20U;
constexpr std::size_t kLongestLine = std::size_t{64} << 10U;

std::string lineOfText(const Platform& platform, const std::string& path, std::size_t number) {
  TextReader reader(platform.files, platform.locale, path);
  for (std::size_t line = 1; line < number; ++line) {
    reader.readLine();
  }
  return std::string(reader.readLine());
}

std::string lineOfXml(std::string_view contents, std::size_t number) {
  const std::string text = decodedXml(contents);
  const Pieces lines(text, "\n");
  if (number > lines.count()) {
    raise(ErrorNumber::kInputPastEndOfFile);
  }
  const std::string_view line = lines.at(number - 1);
  return std::string(line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0)));
}

}  // namespace

LinePlace placeOfPart(std::size_t number, std::string_view line, std::string_view part) {
  const auto before = static_cast<std::size_t>(part.data() - line.data());
  return {.line = number,
          .column = countCharacters(line.substr(0, before)) + 1,
          .length = countCharacters(part)};
}

std::optional<std::string> lineOfFile(const Platform& platform,
                                      const std::string& path,
                                      std::int16_t kind,
                                      std::size_t number) {
  if (number == 0) {
    return std::nullopt;
  }
  try {
    const auto contents = bytesOf(platform.files, path, kLargestFile);
    if (!contents) {
      return std::nullopt;
    }
    std::string line =
        kind == TocCheck::kXml ? lineOfXml(*contents, number) : lineOfText(platform, path, number);
    return line.size() > kLongestLine ? std::nullopt : std::optional(std::move(line));
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace quorbind
