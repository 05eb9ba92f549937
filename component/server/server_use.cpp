#include "component/server/server_use.h"

#include <atomic>

namespace quorbind {

namespace {

constinit std::atomic<long> uses{0};

}  // namespace

void ServerUse::begin() noexcept {
  ++uses;
}

void ServerUse::end() noexcept {
  --uses;
}

bool ServerUse::isAny() noexcept {
  return uses > 0;
}

}  // namespace quorbind
