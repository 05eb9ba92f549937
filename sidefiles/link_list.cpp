#include "sidefiles/link_list.h"

#include <array>

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/text.h"
#include "sidefiles/link_check.h"

namespace quorbind {

namespace {

constexpr std::array kLinkParts{&LinkIdentifier::identifier,
                                &LinkIdentifier::fullLink,
                                &LinkIdentifier::sourceFilePath,
                                &LinkIdentifier::projectName,
                                &LinkIdentifier::bookAcro};

}  // namespace

LinkIdentifierList::LinkIdentifierList(const Platform& platform, const ProcessState& state)
    : platform_(platform), state_(state) {}

void LinkIdentifierList::during(const std::function<void()>& walk) {
  walkAndSettle(walk, [this] { settle(); });
}

void LinkIdentifierList::record(std::string_view identifier,
                                std::string_view fullLink,
                                std::string_view sourceFilePath,
                                std::string_view bookAcro) {
  const LinkIdentifier link{.identifier = identifier,
                            .fullLink = fullLink,
                            .sourceFilePath = sourceFilePath,
                            .projectName = state_.currentProductName,
                            .bookAcro = bookAcro};
  if (isReady()) {
    if (!isTaken(identifier)) {
      recordLater(link);
      return;
    }
    if (settle()) {
      tellOfTakenLinkId(platform_, identifier);
      return;
    }
  }
  recordAlone(link);
}

void LinkIdentifierList::recordLater(const LinkIdentifier& link) {
  const std::size_t first = links_.size();
  for (const auto part : kLinkParts) {
    links_.add(link.*part);
  }
  changes_->make(first);
}

LinkIdentifier LinkIdentifierList::keptLink(std::size_t first) const {
  LinkIdentifier link;
  for (std::size_t part = 0; part < kLinkParts.size(); ++part) {
    link.*kLinkParts.at(part) = links_.at(first + part);
  }
  return link;
}

bool LinkIdentifierList::isReady() {
  bool isLoaded = false;
  ignoringErrors([&] {
    requireFile();
    isLoaded = file_->load();
  });
  return isLoaded && ignoringErrors([this] { requireOthers(); }) == 0;
}

void LinkIdentifierList::requireFile() {
  if (file_) {
    return;
  }
  path_ = linkFileOf(platform_.toolset, state_.currentProductName);
  file_.emplace(platform_, path_);
  changes_.emplace(
      *file_,
      platform_.ui,
      source::kAddToLinkIdFile,
      ListedChanges::Steps{.change =
                               [this](auto first) {
                                 file_->record(keptLink(first));
                                 return true;
                               },
                           .alone = [this](auto first) { recordAlone(keptLink(first)); }});
}

void LinkIdentifierList::requireOthers() {
  if (others_) {
    return;
  }
  OtherProducts others;
  for (const std::string& path : productLinkFiles(platform_)) {
    if (platform_.files.sameFile(path, path_)) {
      others.includeThisOne = true;
      continue;
    }
    for (const std::string& identifier : trimmedLinkIds(platform_, path)) {
      others.trimmedIds.add(identifier);
    }
  }
  others_ = std::move(others);
}

bool LinkIdentifierList::isTaken(std::string_view identifier) {
  if (others_->trimmedIds.contains(trimBlanks(identifier)) ||
      (others_->includeThisOne && file_->hasTrimmed(identifier))) {
    return true;
  }
  // One that can't be looked up fails when it is recorded.
  bool leadsSomewhere = false;
  ignoringErrors([&] { leadsSomewhere = file_->leadsSomewhere(identifier); });
  return leadsSomewhere;
}

void LinkIdentifierList::recordAlone(const LinkIdentifier& link) {
  if (file_) {
    file_->forget();
  }
  // While a box is open, the host may do what changes the product.
  const std::string identifier(link.identifier);
  const std::string fullLink(link.fullLink);
  const std::string source(link.sourceFilePath);
  const std::string project(link.projectName);
  const std::string acronym(link.bookAcro);
  if (!CheckDuplicateLinkID(platform_, identifier)) {
    AddToLinkIDFile(platform_,
                    linkFileOf(platform_.toolset, project),
                    identifier,
                    fullLink,
                    source,
                    project,
                    acronym);
  }
}

bool LinkIdentifierList::settle() {
  return !changes_ || changes_->settle();
}

}  // namespace quorbind
