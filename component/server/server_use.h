#pragma once

namespace quorbind {

/// One reason for which this DLL must stay loaded: every object and class factory has one, and so
/// has every lock that a host puts on the server.
class ServerUse {
 public:
  ServerUse() noexcept { begin(); }
  ServerUse(const ServerUse&) noexcept { begin(); }
  ServerUse& operator=(const ServerUse&) noexcept = default;
  ~ServerUse() { end(); }

  /// For a lock, which begins and ends in calls of its own. Every end needs its begin.
  static void begin() noexcept;
  static void end() noexcept;

  [[nodiscard]] static bool isAny() noexcept;
};

}  // namespace quorbind
