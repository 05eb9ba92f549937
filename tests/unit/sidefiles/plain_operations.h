#pragma once

// The operations on side files as they were published: item by item, each item reading its file
// anew, looking up by query and saving. What the component does in one reading and one writing is
// held against these.

#include <string>
#include <vector>

#include "component/process_state.h"
#include "platform/platform.h"
#include "platform/text_array.h"

namespace quorbind::testing::plain {

void addCategoryNode(const Platform& platform,
                     ProcessState& state,
                     const std::string& category,
                     const std::string& acronym);
void addBookAcro(const Platform& platform,
                 const std::string& category,
                 const TextArray& acronyms,
                 const std::string& path);
void addOtherCategory(const Platform& platform,
                      const std::string& category,
                      const TextArray& acronyms,
                      const std::string& path);
TextArray getBookAcroValue(const Platform& platform,
                           const ProcessState& state,
                           const std::string& category,
                           const std::string& cataloguePath);
void getBookAcroInfo(const Platform& platform,
                     ProcessState& state,
                     const std::string& path,
                     const std::string& cataloguePath);

void addKeyword(const Platform& platform,
                const std::string& path,
                const std::string& book,
                const std::string& keyword);
void addKeywords(const Platform& platform,
                 const ProcessState& state,
                 const TextArray& keywords,
                 const std::string& path);

void addToLinkIdFile(const Platform& platform,
                     const std::string& path,
                     const std::string& identifier,
                     const std::string& fullLink,
                     const std::string& source,
                     const std::string& product,
                     const std::string& acronym);
bool checkDuplicateLinkId(const Platform& platform, const std::string& identifier);
void generateBookLinkId(const Platform& platform,
                        const ProcessState& state,
                        const std::string& acronym,
                        const std::string& exportPath);

}  // namespace quorbind::testing::plain
