#pragma once

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include <vector>

#include "component/server/com_object.h"

namespace quorbind {

/// Where the hosts of one object subscribe to its events. Belongs to that object, which detaches it
/// when it goes: subscriptions end then.
class ConnectionPoint final : public ComObject<IConnectionPoint> {
 public:
  /// `events` is the dispatch interface of the events; `owner` is not kept alive.
  ConnectionPoint(REFIID events, IConnectionPointContainer* owner)
      : events_(events), owner_(owner) {}

  /// Calls `member` with one text at every host subscribed now, in the order in which they
  /// subscribed, but not at one that has unsubscribed meanwhile. What a host answers is its own
  /// affair. Raises only when memory is short.
  void raiseEvent(DISPID member, std::string_view text);

  /// The owner goes: nobody is called from now on.
  void detachFromOwner() noexcept;

  STDMETHODIMP GetConnectionInterface(IID* id) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

 private:
  struct Connection {
    DWORD cookie;
    ComPtr<IDispatch> sink;

    [[nodiscard]] CONNECTDATA copy() const { return {ComPtr<IDispatch>(sink).detach(), cookie}; }
  };

  [[nodiscard]] std::vector<Connection>::const_iterator find(DWORD cookie) const;
  HRESULT connect(IUnknown* sink, DWORD* cookie);
  [[nodiscard]] ComPtr<IDispatch> eventInterfaceOf(IUnknown* sink) const;
  using ComObject::find;

  const IID events_;
  IConnectionPointContainer* owner_;
  std::vector<Connection> connections_;
  DWORD lastCookie_ = 0;
};

}  // namespace quorbind
