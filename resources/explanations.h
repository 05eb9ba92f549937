#pragma once

#include <array>
#include <string_view>

#include "resources/messages.h"
#include "resources/rule_texts.h"

namespace quorbind {

/// What a message is about.
enum class Topic {
  kEveryToc,     ///< a table of contents of any kind
  kTextToc,      ///< one that is a text
  kHtmlToc,      ///< a page
  kXmlToc,       ///< a book file
  kWorkbookToc,  ///< a workbook
  kNaming,       ///< names, acronyms and folders of books
  kRecords,      ///< search keywords and link identifiers
  kLibrary,      ///< the library and its server
  kCommand,      ///< what the command itself refuses
  kProgress,     ///< what a run is doing; no fault
  kPart,         ///< a text that only stands in others
};

/// The story of a message. See explanations.def.
struct Explanation {
  /// The name by which the table knows the message.
  std::string_view name;
  /// 0 for a message without a number.
  int number = 0;
  /// Words in braces stand for what differs.
  std::string_view text;
  Topic topic = Topic::kEveryToc;
  /// The whole box, with signs for what stands elsewhere.
  std::string_view shown;
  std::string_view meaning;
  /// Both are empty when the message tells of no fault, and the first when it tells of faults of
  /// any kind.
  std::string_view accepted;
  std::string_view mending;
};

inline constexpr std::array kExplanations{
#define QUOR_EXPLANATION(name, topic, shown, meaning, accepted, mending) \
  Explanation{#name,                                                     \
              static_cast<int>(Message::name),                           \
              text(Message::name),                                       \
              Topic::topic,                                              \
              (shown),                                                   \
              (meaning),                                                 \
              (accepted),                                                \
              (mending)},
#define QUOR_RULE_TEXT(name, words, topic, shown, meaning, accepted, mending) \
  Explanation{#name, 0, (words), Topic::topic, (shown), (meaning), (accepted), (mending)},
#include "resources/explanations.def"
#undef QUOR_RULE_TEXT
#undef QUOR_EXPLANATION
};

}  // namespace quorbind
