#include "platform/portable/folder_index.h"

#include <sys/stat.h>

#include <utility>

#include "platform/portable/portable_locale.h"
#include "platform/portable/system_call.h"

namespace quorbind {

namespace {

using namespace std::chrono_literals;

// Ticks, with a wide margin: file systems that store fractions of a second take the kernel's clock,
// which moves every few milliseconds; the others store seconds, some of them every other one.
constexpr auto kFineTick = 100ms;
constexpr auto kCoarseTick = 2500ms;

const Locale& anyCase() {
  static const PortableLocale locale;
  return locale;
}

}  // namespace

FolderListing::FolderListing() : names_(anyCase()) {}

void FolderListing::add(std::string_view name) {
  const auto [number, isNew] = names_.add(name);
  if (!isNew && name < firstSpelling(number)) {
    laterFirstSpellings_.insert_or_assign(number, name);
  }
}

std::optional<std::string_view> FolderListing::spellingOf(std::string_view name) const {
  const auto found = names_.find(name);
  return found ? std::optional(firstSpelling(*found)) : std::nullopt;
}

std::string_view FolderListing::firstSpelling(std::size_t number) const {
  const auto later = laterFirstSpellings_.find(number);
  return later == laterFirstSpellings_.end() ? names_.at(number) : later->second;
}

const FolderListing* FolderIndex::listingOf(const std::string& folder) {
  const std::optional<State> state = stateOf(folder);
  if (!state) {
    return nullptr;
  }
  const auto found = entries_.find(folder);
  if (found != entries_.end() && found->second.settled && found->second.state == *state) {
    return &found->second.names;
  }
  return list(folder, *state);
}

// The nearest folder kept decides: what it does not hold, nothing further down can stand in.
bool FolderIndex::rulesOut(const std::string& path) const {
  std::string folder = parentOf(path);
  std::string name(nameIn(path));
  auto kept = entries_.find(folder);
  while (kept == entries_.end() && folder.size() > 1) {
    name = nameIn(folder);
    folder = parentOf(folder);
    kept = entries_.find(folder);
  }
  return kept != entries_.end() && kept->second.settled && !kept->second.names.spellingOf(name) &&
         stateOf(folder) == kept->second.state;
}

std::optional<FolderIndex::State> FolderIndex::stateOf(const std::string& folder) {
  struct stat status {};
  if (::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
    return std::nullopt;
  }
  const auto modified = std::chrono::seconds(status.st_mtim.tv_sec) +
                        std::chrono::nanoseconds(status.st_mtim.tv_nsec);
  return State{status.st_dev, status.st_ino, Time(modified)};
}

bool FolderIndex::isSettled(const State& state, Time now, std::chrono::nanoseconds sinceSeen) {
  const bool hasFractions = state.modified.time_since_epoch() % 1s != 0s;
  const auto tick = hasFractions ? kFineTick : kCoarseTick;
  return state.modified + tick < now || sinceSeen > tick;
}

const FolderListing* FolderIndex::list(const std::string& folder, const State& state) {
  const Time begun = std::chrono::system_clock::now();
  const Moment begunAt = std::chrono::steady_clock::now();
  const auto names = listFolder(folder);
  if (!names) {
    return nullptr;
  }
  Entry& entry = entries_[folder];
  namesKept_ -= entry.names.size();
  const Moment seen = entry.state == state ? entry.seen : begunAt;
  entry = Entry{state, seen, isSettled(state, begun, begunAt - seen), {}};
  for (const std::string& name : *names) {
    entry.names.add(name);
  }
  namesKept_ += entry.names.size();
  forgetOthersWhenFull(folder);
  return &entry.names;
}

void FolderIndex::forgetOthersWhenFull(const std::string& folder) {
  if (namesKept_ + entries_.size() <= capacity_) {
    return;
  }
  std::erase_if(entries_, [&](const auto& entry) { return entry.first != folder; });
  namesKept_ = entries_.at(folder).names.size();
}

}  // namespace quorbind
