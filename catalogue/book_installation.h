#pragma once

#include <cstdint>
#include <string>

#include "platform/text_array.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// What a single document is to the book dialog: no table of contents of any kind.
inline constexpr std::int16_t kSingleDocument = 5;

/// Installs one document as a book of its own. Book_Config tells the rules.
void CreateQuorBookNodeForSEntry(Module& module,
                                 const std::string& strTocFile,
                                 const std::string& vstrBookName,
                                 const std::string& vstrType,
                                 const std::string& vstrProductName,
                                 std::int32_t vlngInstallType,
                                 bool vblnChkCateFlag,
                                 const TextArray& strBookInfo);

}  // namespace quorbind
