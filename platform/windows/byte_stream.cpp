#include "platform/windows/byte_stream.h"

#include <cstddef>

namespace quorbind {

VARIANT ByteStream::asArgument() {
  VARIANT argument{};
  argument.vt = VT_UNKNOWN;
  argument.punkVal = this;
  return argument;
}

HRESULT ByteStream::QueryInterface(REFIID id, void** object) {
  const bool isKnown =
      id == __uuidof(IUnknown) || id == __uuidof(ISequentialStream) || id == __uuidof(IStream);
  *object = isKnown ? static_cast<IStream*>(this) : nullptr;
  return isKnown ? S_OK : E_NOINTERFACE;
}

HRESULT ByteStream::Read(void* buffer, ULONG size, ULONG* count) {
  ULONG total = 0;
  try {
    // Some readers take the first short answer for the end.
    while (total < size) {
      const std::size_t got =
          bytes_->read(static_cast<char*>(buffer) + total, std::size_t{size} - total);
      if (got == 0) {
        break;
      }
      total += static_cast<ULONG>(got);
    }
  } catch (...) {
    failure_ = std::current_exception();
    return E_FAIL;
  }
  if (count != nullptr) {
    *count = total;
  }
  return total == size ? S_OK : S_FALSE;
}

HRESULT ByteStream::Stat(STATSTG* status, DWORD /*flag*/) {
  *status = {};
  status->type = STGTY_STREAM;
  return S_OK;
}

}  // namespace quorbind
