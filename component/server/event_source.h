#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <string_view>

#include "component/server/com_enumerator.h"
#include "component/server/connection_point.h"
#include "component/server/dual_object.h"

namespace quorbind {

/// A dual object with one interface of events, `Events`, to which hosts subscribe.
template <typename Class, typename Dual, typename Events>
class EventSource : public DualObject<Class, Dual, IConnectionPointContainer> {
 public:
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override {
    if (points == nullptr) {
      return E_POINTER;
    }
    *points = nullptr;
    return guarded([&] {
      using Points = ComEnumerator<IEnumConnectionPoints, IConnectionPoint*, Point>;
      *points = makeObject<Points>(std::vector<Point>{{point_}}).detach();
    });
  }

  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    if (point == nullptr) {
      return E_POINTER;
    }
    const bool found = id == __uuidof(Events);
    *point = found ? Point{point_}.copy() : nullptr;
    return found ? S_OK : CONNECT_E_NOCONNECTION;
  }

 protected:
  ~EventSource() override { point_->detachFromOwner(); }

  void raiseEvent(DISPID member, std::string_view text) { point_->raiseEvent(member, text); }

  HRESULT defaultSource(GUID* id) override {
    *id = __uuidof(Events);
    return S_OK;
  }

 private:
  struct Point {
    ComPtr<ConnectionPoint> point;

    [[nodiscard]] IConnectionPoint* copy() const { return ComPtr<ConnectionPoint>(point).detach(); }
  };

  const ComPtr<ConnectionPoint> point_ = makeObject<ConnectionPoint>(__uuidof(Events), this);
};

}  // namespace quorbind
