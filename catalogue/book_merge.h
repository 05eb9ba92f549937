#pragma once

#include <string>

#include "platform/platform.h"

namespace quorbind {

/// Copies link and categories of every book that both catalogues have, by name and acronym as they
/// are stored, into the main catalogue and into the book XML files beside it. The main catalogue is
/// saved at the end, after all book XML files.
void strMatchingBooksInfo(const Platform& platform,
                          const std::string& vstrMainTocPAth,
                          const std::string& vstrtocpath);

}  // namespace quorbind
