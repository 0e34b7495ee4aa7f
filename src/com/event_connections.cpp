#include "com/event_connections.h"

#include "com/list_enumerator.h"

#include <algorithm>
#include <memory>

namespace corvid {
namespace {

IConnectionPoint* handOutPoint(const ComPtr<IConnectionPoint>& point) {
  return ComPtr(point).detach();
}

}  // namespace

STDMETHODIMP EventConnections::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id != IID_IUnknown && id != IID_IConnectionPoint) return E_NOINTERFACE;
  *object = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP EventConnections::GetConnectionInterface(IID* id) {
  if (id == nullptr) return E_POINTER;
  *id = events_;
  return S_OK;
}

STDMETHODIMP EventConnections::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (container == nullptr) return E_POINTER;
  *container = ComPtr(&container_).detach();
  return S_OK;
}

STDMETHODIMP EventConnections::Advise(IUnknown* sink, DWORD* cookie) {
  if (cookie == nullptr) return E_POINTER;
  *cookie = 0;
  if (!owner_.isOnItsThread()) return RPC_E_WRONG_THREAD;
  if (sink == nullptr) return E_POINTER;
  ComPtr<IDispatch> events;
  if (FAILED(sink->QueryInterface(events_, events.putVoid())) &&
      FAILED(sink->QueryInterface(IID_IDispatch, events.putVoid()))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  return guarded(events_, [&] {
    connections_.push_back({lastCookie_ + 1, std::move(events)});
    *cookie = ++lastCookie_;
  });
}

bool EventConnections::isConnected(DWORD cookie) const {
  return std::ranges::find(connections_, cookie, &Connection::cookie) != connections_.end();
}

STDMETHODIMP EventConnections::Unadvise(DWORD cookie) {
  if (!owner_.isOnItsThread()) return RPC_E_WRONG_THREAD;
  const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
  if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
  const Connection gone = std::move(*found);  // its sink may call back while it is released
  connections_.erase(found);
  return S_OK;
}

CONNECTDATA EventConnections::connectData(const Connection& connection) {
  return {ComPtr(connection.sink).detach(), connection.cookie};
}

STDMETHODIMP EventConnections::EnumConnections(IEnumConnections** walk) {
  using Enumerator = ListEnumerator<IEnumConnections, CONNECTDATA, Connection, connectData>;
  if (walk == nullptr) return E_POINTER;
  *walk = nullptr;
  if (!owner_.isOnItsThread()) return RPC_E_WRONG_THREAD;
  return guarded(IID_IEnumConnections, [&] {
    *walk = new Enumerator(std::make_shared<const std::vector<Connection>>(connections_));
  });
}

void EventConnections::raise(DISPID event, DISPPARAMS& arguments) {
  const std::vector<Connection> connected = connections_;
  for (const Connection& connection : connected) {
    if (!isConnected(connection.cookie)) continue;
    connection.sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments,
                            nullptr, nullptr, nullptr);
  }
}

HRESULT enumerateOne(IConnectionPoint& point, IEnumConnectionPoints** walk) noexcept {
  using Points = std::vector<ComPtr<IConnectionPoint>>;
  using Enumerator = ListEnumerator<IEnumConnectionPoints, IConnectionPoint*,
                                    ComPtr<IConnectionPoint>, handOutPoint>;
  if (walk == nullptr) return E_POINTER;
  *walk = nullptr;
  return guarded(IID_IEnumConnectionPoints, [&] {
    *walk = new Enumerator(std::make_shared<const Points>(Points{ComPtr(&point)}));
  });
}

}  // namespace corvid
