#pragma once

#include <ole2.h>

#include <atomic>
#include <utility>

#include "component/server/server_use.h"
#include "platform/windows/com_types.h"

namespace quorbind {

/// What an object answers to queries: `Primary` also for its identity, and each of `Others`. Made
/// by makeObject, destroyed with its last reference; keeps the server in use while it lives. Can't
/// be aggregated.
template <typename Primary, typename... Others>
class ComObject : public Primary, public Others... {
 public:
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) {
      return E_POINTER;
    }
    *object = find(id);
    if (*object == nullptr) {
      return E_NOINTERFACE;
    }
    this->AddRef();
    return S_OK;
  }

  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      // An object that is handed out while it is destroyed must not be destroyed again.
      references_ = kDying;
      delete this;
    }
    return left;
  }

 protected:
  ComObject() = default;
  virtual ~ComObject() = default;

  /// The address of the interface `id`, null when the object does not have it.
  virtual void* find(REFIID id) {
    if (id == IID_IUnknown) {
      return static_cast<Primary*>(this);
    }
    void* found = match<Primary>(id);
    ((found = found != nullptr ? found : match<Others>(id)), ...);
    return found;
  }

 private:
  static constexpr ULONG kDying = 0x40000000;

  template <typename Interface>
  void* match(REFIID id) {
    return id == __uuidof(Interface) ? static_cast<Interface*>(this) : nullptr;
  }

  std::atomic<ULONG> references_{1};
  ServerUse use_;
};

/// A new object and the first reference to it.
template <typename Object, typename... Arguments>
ComPtr<Object> makeObject(Arguments&&... arguments) {
  return ComPtr<Object>::owning(new Object(std::forward<Arguments>(arguments)...));
}

}  // namespace quorbind
