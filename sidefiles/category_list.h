#pragma once

// The categories of a library as the host's category editor works on them. Each operation reads the
// file that it names and tells an unexpected error in a box of its own.

#include <cstdint>
#include <string>

#include "component/process_state.h"
#include "platform/platform.h"

namespace quorbind {

/// Adds a category, in front of "Other Category" if that is there; a name that another category has
/// makes a second one of that name, an empty one none. The file is rewritten in any case. A file
/// that does not load is left as it is and reported. Makes it the current categories file.
void AddBookCateToXMLFile(const Platform& platform,
                          ProcessState& state,
                          const std::string& vstrBookCatePath,
                          const std::string& sBookCateName);

/// Gives the first category of the name `sBookCateOLDName` another name; it keeps its place and its
/// books. Nothing is told of a name that is not there. The file is rewritten in any case. A file
/// that does not load is left as it is and reported. Makes it the current categories file.
void EditBookCateToXMLFile(const Platform& platform,
                           ProcessState& state,
                           const std::string& vstrBookCatePath,
                           const std::string& sBookCateName,
                           const std::string& sBookCateOLDName);

/// Whether the file of default categories at `vstrBookCatePath` has that name, letter by letter, in
/// the list for the installation type. False for a file that does not load.
bool bCheckIfDefaultCategory(const Platform& platform,
                             const std::string& vstrBookCatePath,
                             const std::string& vstrCateName,
                             std::int32_t vlngInstallType);

/// True when the library has no categories yet: nothing stands in the file's root element. False,
/// against what the name suggests, when there are some, and for a file that does not load.
bool bCheckCategoryinQuorBookCategories(const Platform& platform,
                                        const std::string& vstrBookCatePath);

}  // namespace quorbind
