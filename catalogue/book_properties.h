#pragma once

#include <string>

#include "platform/text_array.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// Gives a book another folder, other categories and another link. Book_Config tells the rules.
bool mbsetQuorBookProperties(Module& module,
                             const std::string& vstrtocpath,
                             const std::string& vstrBookName,
                             const TextArray& rarrsBCategories,
                             const std::string& vstrFolder,
                             const std::string& vstrFullink);

}  // namespace quorbind
