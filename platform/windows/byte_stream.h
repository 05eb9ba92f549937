#pragma once

#include <ole2.h>

#include <exception>
#include <memory>

#include "platform/file_system.h"

namespace quorbind {

/// Lets the platform read a file of the file-system port, from where its reader stands to its end.
///
/// It is owned by whoever made it and must outlive every reference: reference counts do nothing.
/// What the file raises can't go through the platform; it is kept, and the platform is told that
/// reading failed.
class ByteStream final : public IStream {
 public:
  explicit ByteStream(std::unique_ptr<ByteReader> bytes) : bytes_(std::move(bytes)) {}
  virtual ~ByteStream() = default;
  ByteStream(const ByteStream&) = delete;
  ByteStream& operator=(const ByteStream&) = delete;

  /// The stream as an argument. It is borrowed: not to be cleared.
  [[nodiscard]] VARIANT asArgument();
  /// What the file raised; null when it did not.
  [[nodiscard]] std::exception_ptr failure() const { return failure_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE Read(void* buffer, ULONG size, ULONG* count) override;
  HRESULT STDMETHODCALLTYPE Stat(STATSTG* status, DWORD flag) override;

  // A file that is read once, from end to end, can do no more.
  HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CopyTo(IStream*,
                                   ULARGE_INTEGER,
                                   ULARGE_INTEGER*,
                                   ULARGE_INTEGER*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Commit(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Revert() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Clone(IStream**) override { return E_NOTIMPL; }

 private:
  std::unique_ptr<ByteReader> bytes_;
  std::exception_ptr failure_;
};

}  // namespace quorbind
