#include "component/server/connection_point.h"

#include <algorithm>
#include <utility>

#include "component/server/com_enumerator.h"
#include "component/server/failure.h"
#include "component/server/turn.h"

namespace quorbind {

namespace {

/// Calls a host's code, which may throw although it must not.
void invoke(IDispatch& sink, DISPID member, DISPPARAMS& arguments, EXCEPINFO& exception) {
  UINT wrongArgument = 0;
  guarded([&] {
    sink.Invoke(member,
                IID_NULL,
                LOCALE_USER_DEFAULT,
                DISPATCH_METHOD,
                &arguments,
                nullptr,
                &exception,
                &wrongArgument);
  });
}

void callSink(IDispatch& sink, DISPID member, std::string_view text) {
  const Variant folder = Variant::ofText(text);
  VARIANTARG argument = folder.get();
  DISPPARAMS arguments{&argument, nullptr, 1, 0};
  EXCEPINFO exception{};
  invoke(sink, member, arguments, exception);
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  ::SysFreeString(exception.bstrHelpFile);
}

}  // namespace

void ConnectionPoint::raiseEvent(DISPID member, std::string_view text) {
  // A host that is called may subscribe, unsubscribe and let go of the object.
  const auto keptAlive = ComPtr<IConnectionPoint>::sharing(this);
  const std::vector<Connection> subscribed = connections_;
  for (const Connection& connection : subscribed) {
    if (find(connection.cookie) != connections_.end()) {
      callSink(*connection.sink.get(), member, text);
    }
  }
}

void ConnectionPoint::detachFromOwner() noexcept {
  owner_ = nullptr;
  // The end of a sink may lead back here.
  const std::vector<Connection> ended = std::exchange(connections_, {});
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* id) {
  if (id == nullptr) {
    return E_POINTER;
  }
  *id = events_;
  return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) {
    return E_POINTER;
  }
  *container = ComPtr<IConnectionPointContainer>::sharing(owner_).detach();
  return owner_ == nullptr ? E_UNEXPECTED : S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) {
    return E_POINTER;
  }
  *cookie = 0;
  return inTurn([&] { return owner_ == nullptr ? E_UNEXPECTED : connect(sink, cookie); });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
  return inTurn([&] {
    const auto connection = find(cookie);
    if (connection == connections_.end()) {
      return CONNECT_E_NOCONNECTION;
    }
    // The sink goes after the list is whole again: its end may lead back here.
    const ComPtr<IDispatch> sink = connection->sink;
    connections_.erase(connection);
    return S_OK;
  });
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
  if (connections == nullptr) {
    return E_POINTER;
  }
  *connections = nullptr;
  return inTurn([&] {
    return guarded([&] {
      using Connections = ComEnumerator<IEnumConnections, CONNECTDATA, Connection>;
      *connections = makeObject<Connections>(connections_).detach();
    });
  });
}

std::vector<ConnectionPoint::Connection>::const_iterator ConnectionPoint::find(DWORD cookie) const {
  return std::ranges::find(connections_, cookie, &Connection::cookie);
}

// A host's code is called here too, and may throw.
HRESULT ConnectionPoint::connect(IUnknown* sink, DWORD* cookie) {
  HRESULT result = CONNECT_E_CANNOTCONNECT;
  const HRESULT asked = guarded([&] {
    if (ComPtr<IDispatch> events = eventInterfaceOf(sink)) {
      connections_.push_back({lastCookie_ + 1, std::move(events)});
      *cookie = ++lastCookie_;
      result = S_OK;
    }
  });
  return FAILED(asked) ? asked : result;
}

ComPtr<IDispatch> ConnectionPoint::eventInterfaceOf(IUnknown* sink) const {
  ComPtr<IDispatch> events;
  if (SUCCEEDED(sink->QueryInterface(events_, events.putAny()))) {
    return events;
  }
  // What a failure leaves in the place is nobody's.
  static_cast<void>(events.detach());
  return ComPtr<IUnknown>::sharing(sink).as<IDispatch>();
}

}  // namespace quorbind
