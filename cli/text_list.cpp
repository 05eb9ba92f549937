#include "cli/text_list.h"

#include "platform/text.h"

namespace quorbind {

std::string joined(const std::vector<std::string>& texts, std::string_view separator) {
  std::string all;
  std::string_view between;
  for (const std::string& text : texts) {
    all.append(between).append(text);
    between = separator;
  }
  return all;
}

std::vector<std::string> splitList(std::string_view list) {
  std::vector<std::string> texts;
  for (const std::string_view piece : Pieces(list, contains(list, ";") ? ";" : ",")) {
    if (const std::string_view text = trimBlanks(piece); !text.empty()) {
      texts.emplace_back(text);
    }
  }
  return texts;
}

std::vector<std::string> withoutLastEntry(std::vector<std::string> published) {
  if (!published.empty()) {
    published.pop_back();
  }
  return published;
}

std::string counted(std::size_t count, std::string_view one, std::string_view several) {
  return std::to_string(count).append(" ").append(count == 1 ? one : several);
}

}  // namespace quorbind
