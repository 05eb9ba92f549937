#pragma once

#include <string>
#include <string_view>

#include "component/process_state.h"
#include "platform/platform.h"
#include "platform/text_array.h"
#include "platform/text_store.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/listed_changes.h"

namespace quorbind {

/// The keywords of one book that are added as a list: what AddKeywordsToXmlFile does with them one
/// by one, with its boxes, in one reading and one writing of the file.
class KeywordAdditions {
 public:
  /// All are kept by reference.
  KeywordAdditions(const Platform& platform, const std::string& path, const std::string& book);
  KeywordAdditions(const KeywordAdditions&) = delete;
  KeywordAdditions& operator=(const KeywordAdditions&) = delete;

  /// Adds the keyword as it is given.
  void add(std::string_view keyword);
  /// Brings the file up to what was added: at the end of the list, and before a box is shown.
  void settle();

 private:
  void addAlone(const std::string& keyword);

  const Platform& platform_;
  const std::string& path_;
  const std::string& book_;
  KeywordFile file_;
  ListedChanges changes_;
  /// What may have to be added alone later.
  TextStore keywords_;
};

/// Adds the keywords of the current book that the user entered, all elements of the array, its
/// first included; an array whose upper bound is below 1 adds none, one that was never set is an
/// error (9). Unexpected errors are told in a box.
///
/// A keyword with "##" or with a blank inside is refused with a box and ends the list; one with the
/// text of a markup character is refused with a box and left out. The others are stored as
/// storedKeyword gives them, in the way of AddKeywordsToXmlFile and with its boxes, in one reading
/// and one writing of the file.
void AddKeywords(const Platform& platform,
                 const ProcessState& state,
                 const TextArray& vstrArrKeywords,
                 const std::string& vstrKeywordsPath);

}  // namespace quorbind
