#pragma once

#include <string>

#include "component/process_state.h"
#include "platform/platform.h"
#include "platform/text_array.h"

namespace quorbind {

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
