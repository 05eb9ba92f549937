#include "cli/side_file_rules.h"

#include <optional>
#include <string_view>
#include <utility>

#include "cli/failure.h"
#include "cli/required_document.h"
#include "cli/text_list.h"
#include "platform/text.h"
#include "platform/xml_writer.h"
#include "sidefiles/keyword_rules.h"
#include "sidefiles/names.h"
#include "workflow/driver/run_lists.h"

namespace quorbind {

namespace {

std::optional<UserMessage> findFault(const std::string& keyword) {
  if (auto fault = findKeywordFault(keyword)) {
    return std::move(fault->box);
  }
  if (isXmlCharactersOnly(keyword)) {
    return std::nullopt;
  }
  return criticalMessage(filledText(text(RuleText::kKeywordNotKept), {{"KEYWORD", keyword}}));
}

std::string categoryFault(RuleText rule, const std::string& name) {
  return filledText(text(rule), {{"CATEGORY", name}});
}

using Faults = std::vector<std::string>;

Faults faultsOfCategories(const std::vector<std::string>& names) {
  Faults faults;
  for (const std::string& name : names) {
    if (contains(name, "'")) {
      faults.push_back(categoryFault(RuleText::kCategoryNotSought, name));
    } else if (!isXmlCharactersOnly(name)) {
      faults.push_back(categoryFault(RuleText::kCategoryNotKept, name));
    }
  }
  return faults;
}

void requireNone(const Faults& faults) {
  if (!faults.empty()) {
    throw CommandFailure(ExitStatus::kRefused, joined(faults, "\r"));
  }
}

}  // namespace

void requireKeywords(Wiring& wiring, const std::vector<std::string>& words) {
  bool areAccepted = true;
  for (const std::string& word : words) {
    if (const auto fault = findFault(word)) {
      wiring.ui.show(*fault);
      areAccepted = false;
    }
  }
  if (!areAccepted) {
    throw AlreadyTold(ExitStatus::kRefused);
  }
}

void requireSideFile(const Platform& platform, const std::string& path, std::string_view query) {
  if (platform.files.fileExists(path) && !loadRequired(platform, path)->select(query)) {
    throw missingElement(path, query);
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
  requireNone(faultsOfCategories(names));
}

void requireCategoryList(const std::string& list) {
  const ChosenCategories chosen = chooseCategories(list);
  Faults faults = faultsOfCategories(chosen.taken);
  for (const std::string& name : chosen.leftOut) {
    faults.push_back(categoryFault(RuleText::kCategoryNotOneOfSeveral, name));
  }
  requireNone(faults);
}

}  // namespace quorbind
