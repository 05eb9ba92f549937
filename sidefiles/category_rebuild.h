#pragma once

// Bringing the categories file up to date with the master catalogue, in which every book names its
// categories. Acronyms are only ever added: one whose book left a category stays there.

#include <string>

#include "component/process_state.h"
#include "platform/platform.h"
#include "platform/text_array.h"

namespace quorbind {

/// The acronyms of the books that name the category in the catalogue, in its order, behind an empty
/// element 0; a book that names it twice comes twice. The books that name no category at all are
/// filed under "Other Category" of the current categories file on the way.
TextArray GetBookAcroValue(const Platform& platform,
                           const ProcessState& state,
                           const std::string& vstrCateName,
                           const std::string& vstrQuorTOcPath);

/// Files every book of the catalogue under those of its categories that the categories file has,
/// and the books without one under "Other Category". The texts of the acronyms in the file count as
/// names of categories as well. Makes it the current categories file, which is written once; a file
/// that is missing or does not load is left alone, and nobody is told.
void GetBookAcroInfo(const Platform& platform,
                     ProcessState& state,
                     const std::string& vstrQuorBookCatePath,
                     const std::string& vstrQuorTOcPath);

}  // namespace quorbind
