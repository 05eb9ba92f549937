#include "cli/temporary_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr std::string_view kPattern = "quorbind-XXXXXX.txt";
constexpr int kSuffixLength = 4;
constexpr std::array kEndingSignals{SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE};

/// What the signal handler has to remove. A pointer, because a handler may touch nothing that is
/// not lock-free.
std::atomic<const char*> fileOfThisProcess = nullptr;
static_assert(std::atomic<const char*>::is_always_lock_free);

extern "C" void removeAndDie(int signal) {
  if (const char* path = fileOfThisProcess.exchange(nullptr)) {
    unlink(path);
  }
  // The handler was installed for one call: the signal now does what it does by default.
  ::raise(signal);
}

void installHandlers() {
  struct sigaction action = {};
  action.sa_handler = removeAndDie;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  for (const int signal : kEndingSignals) {
    struct sigaction inherited = {};
    sigaction(signal, nullptr, &inherited);
    // A signal that the parent wants ignored stays ignored.
    if (inherited.sa_handler != SIG_IGN) {
      sigaction(signal, &action, nullptr);
    }
  }
}

/// Keeps the ending signals waiting, so that none comes between making a file and knowing it.
class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : kEndingSignals) {
      sigaddset(&held, signal);
    }
    sigprocmask(SIG_BLOCK, &held, &before_);
  }
  ~SignalsHeld() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  sigset_t before_ = {};
};

[[noreturn]] void raiseErrno() {
  switch (errno) {
    case ENOSPC:
    case EDQUOT:
      raise(ErrorNumber::kDiskFull);
    case EACCES:
    case EPERM:
    case EROFS:
      raise(ErrorNumber::kPermissionDenied);
    case ENOENT:
    case ENOTDIR:
      raise(ErrorNumber::kPathNotFound);
    default:
      raise(ErrorNumber::kDeviceIoError);
  }
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& folder)
    : path_(folder.empty() ? std::string(kPattern) : folder + "/" + std::string(kPattern)) {
  installHandlers();
  const SignalsHeld held;
  descriptor_ = mkostemps(path_.data(), kSuffixLength, O_CLOEXEC);
  if (descriptor_ < 0) {
    raiseErrno();
  }
  fileOfThisProcess = path_.c_str();
}

TemporaryFile::~TemporaryFile() {
  if (descriptor_ >= 0) {
    ::close(descriptor_);
  }
  unlink(path_.c_str());
  fileOfThisProcess = nullptr;
}

FileToRemove::FileToRemove(std::string path) : path_(std::move(path)) {
  installHandlers();
  fileOfThisProcess = path_.c_str();
}

FileToRemove::~FileToRemove() {
  unlink(path_.c_str());
  fileOfThisProcess = nullptr;
}

void TemporaryFile::write(std::string_view bytes) {
  constexpr std::size_t kBufferSize = std::size_t{64} * 1024;
  buffer_.append(bytes);
  if (buffer_.size() >= kBufferSize) {
    flush();
  }
}

void TemporaryFile::close() {
  flush();
  const int closed = ::close(descriptor_);
  descriptor_ = -1;
  if (closed != 0) {
    raiseErrno();
  }
}

void TemporaryFile::flush() {
  std::string_view rest = buffer_;
  while (!rest.empty()) {
    const ssize_t written = ::write(descriptor_, rest.data(), rest.size());
    if (written < 0 && errno != EINTR) {
      raiseErrno();
    }
    rest.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
  }
  buffer_.clear();
}

}  // namespace quorbind
