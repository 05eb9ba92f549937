#pragma once

// Filing books, by their acronyms, under the categories of a library. A categories file that is
// missing or does not load takes nothing, and nobody is told.

#include <span>
#include <string>

#include "component/process_state.h"
#include "platform/platform.h"
#include "platform/text_array.h"

namespace quorbind {

/// Files one book under a category, which is made when the library does not have it.
///
/// An empty `vstrBookAcro` stands for the current book. The file is the current categories file;
/// `vstrxmlPath` becomes that only where there is none yet. An unknown category with an empty name
/// changes nothing.
void AddCategoryNode(const Platform& platform,
                     ProcessState& state,
                     const std::string& vstrCategory,
                     const std::string& vstrBookAcro,
                     const std::string& vstrxmlPath);

/// Files the current book under each of `categories`: what AddCategoryNode does with them one by
/// one, in one reading and one writing of the current categories file.
void AddCategoryNodes(const Platform& platform,
                      ProcessState& state,
                      std::span<const std::string> categories);

/// Adds the acronyms behind the array's first element to the category, each that it does not have
/// yet; an unknown category takes none. The file is rewritten once.
void AddBookAcro(const Platform& platform,
                 const std::string& vstrCateName,
                 const TextArray& vstrarrBookAcro,
                 const std::string& vstrQuorBookCatePath);

/// Adds acronyms to the category for books without one. The file is `vstrCategoryPath`, or the
/// current categories file when that is empty.
///
/// A category without acronyms takes all entries behind the array's first element. Any other one
/// takes, for each entry that it does not have, the element whose index in the array is the number
/// of acronyms that it had at the beginning: so the array must be at least as long as that number
/// (else 9), and entries come out repeated. Hosts rely on what this leaves behind.
void Addothercategory(const Platform& platform,
                      const ProcessState& state,
                      const std::string& vstrCateName,
                      const TextArray& vstrothCateBookAcro,
                      const std::string& vstrCategoryPath);

}  // namespace quorbind
