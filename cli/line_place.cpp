#include "cli/line_place.h"

#include <algorithm>
#include <array>

#include "platform/runtime_error.h"
#include "platform/text_file.h"

namespace quorbind {

namespace {

std::size_t countCharacters(std::string_view text) {
  const auto characters = std::count_if(
      text.begin(), text.end(), [](unsigned char byte) { return (byte & 0xC0U) != 0x80U; });
  return static_cast<std::size_t>(characters);
}

/// Bombs have a single line that does not fit into memory.
constexpr std::size_t kLargestFile = std::size_t{16} << 20U;
constexpr std::size_t kLongestLine = std::size_t{64} << 10U;

bool isSmall(FileSystem& files, const std::string& path) {
  const auto reader = files.open(path);
  std::array<char, std::size_t{64} << 10U> bytes{};
  std::size_t size = 0;
  while (const std::size_t count = reader->read(bytes.data(), bytes.size())) {
    size += count;
    if (size > kLargestFile) {
      return false;
    }
  }
  return true;
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
                                      std::size_t number) {
  if (number == 0) {
    return std::nullopt;
  }
  try {
    if (!isSmall(platform.files, path)) {
      return std::nullopt;
    }
    TextReader reader(platform.files, platform.locale, path);
    for (std::size_t line = 1; line < number; ++line) {
      reader.readLine();
    }
    const std::string_view line = reader.readLine();
    return line.size() > kLongestLine ? std::nullopt : std::optional<std::string>(line);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace quorbind
