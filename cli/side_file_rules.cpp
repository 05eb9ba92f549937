#include "cli/side_file_rules.h"

#include "cli/failure.h"
#include "cli/required_document.h"
#include "platform/text.h"
#include "sidefiles/keyword_rules.h"
#include "sidefiles/names.h"

namespace quorbind {

void requireKeywords(Wiring& wiring, const std::vector<std::string>& words) {
  bool areAccepted = true;
  for (const std::string& word : words) {
    if (const auto fault = findKeywordFault(word)) {
      wiring.ui.show(fault->box);
      areAccepted = false;
    }
  }
  if (!areAccepted) {
    throw AlreadyTold(ExitStatus::kRefused);
  }
}

void requireDefaultCategories(const Platform& platform, const LibraryPaths& library) {
  const auto defaults = loadRequired(platform, library.defaultCategories);
  requireElement(*defaults, library.defaultCategories, default_category_names::kDefaults);
}

bool mayMakeCategories(Wiring& wiring, const LibraryPaths& library) {
  constexpr const char* kNotUsed = "--create-categories is not used: ";
  if (wiring.files.fileExists(library.bookCategories)) {
    tell(wiring, std::string(kNotUsed) + "the library has a categories file");
    return false;
  }
  try {
    requireDefaultCategories(wiring.module.platform, library);
    return true;
  } catch (const CommandFailure& failure) {
    tell(wiring, std::string(kNotUsed) + failure.what());
    return false;
  }
}

void requireCategoryNames(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (contains(name, "'")) {
      throw CommandFailure(
          ExitStatus::kRefused,
          "the category " + name + " can not be looked up: it holds an apostrophe");
    }
  }
}

}  // namespace quorbind
