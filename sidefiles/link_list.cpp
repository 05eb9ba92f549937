#include "sidefiles/link_list.h"

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/text.h"
#include "sidefiles/link_check.h"

namespace quorbind {

LinkIdentifierList::LinkIdentifierList(const Platform& platform, const ProcessState& state)
    : platform_(platform), state_(state) {}

void LinkIdentifierList::during(const std::function<void()>& walk) {
  walkAndSettle(walk, [this] { settle(); });
}

void LinkIdentifierList::record(const std::string& identifier,
                                const std::string& fullLink,
                                const std::string& sourceFilePath,
                                const std::string& bookAcro) {
  const LinkIdentifier link{.identifier = identifier,
                            .fullLink = fullLink,
                            .sourceFilePath = sourceFilePath,
                            .projectName = state_.currentProductName,
                            .bookAcro = bookAcro};
  if (!isReady()) {
    recordAlone(link);
  } else if (!isTaken(identifier)) {
    changes_->make(
        [&] {
          file_->record(link);
          return true;
        },
        [this, link] { recordAlone(link); });
  } else if (settle()) {
    tellOfTakenLinkId(platform_, identifier);
  } else {
    recordAlone(link);
  }
}

bool LinkIdentifierList::isReady() {
  const auto succeeds = [](const auto& step) { return ignoringErrors(step) == 0; };
  return (file_ || succeeds([this] { findFile(); })) && file_->load() &&
         (others_ || succeeds([this] { readOthers(); }));
}

void LinkIdentifierList::findFile() {
  path_ = linkFileOf(platform_.toolset, state_.currentProductName);
  file_.emplace(platform_, path_);
  changes_.emplace(*file_);
}

void LinkIdentifierList::readOthers() {
  OtherProducts others;
  for (const std::string& path : productLinkFiles(platform_)) {
    if (platform_.files.sameFile(path, path_)) {
      others.includeThisOne = true;
      continue;
    }
    for (std::string& identifier : trimmedLinkIds(platform_, path)) {
      others.trimmedIds.insert(std::move(identifier));
    }
  }
  others_ = std::move(others);
}

bool LinkIdentifierList::isTaken(const std::string& identifier) {
  return others_->trimmedIds.contains(std::string(trimBlanks(identifier))) ||
         (others_->includeThisOne && file_->hasTrimmed(identifier)) ||
         file_->leadsSomewhere(identifier);
}

void LinkIdentifierList::recordAlone(const LinkIdentifier& link) {
  if (file_) {
    file_->forget();
  }
  if (!CheckDuplicateLinkID(platform_, link.identifier)) {
    AddToLinkIDFile(platform_,
                    linkFileOf(platform_.toolset, link.projectName),
                    link.identifier,
                    link.fullLink,
                    link.sourceFilePath,
                    link.projectName,
                    link.bookAcro);
  }
}

bool LinkIdentifierList::settle() {
  return !changes_ || changes_->settle();
}

}  // namespace quorbind
