// The connection point of a class's events, and the hosts' sinks behind it.
#pragma once

#include "com/com_object.h"
#include "com/com_ptr.h"
#include "com/platform.h"

#include <vector>

namespace corvid {

// Automation interfaces have no virtual destructor: their objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// A part of its container, whose references it counts as its own. On another thread than the
// container's every member returns RPC_E_WRONG_THREAD.
class EventConnections final : public IConnectionPoint {
 public:
  // Both are the container; `events` is the dispatch interface of the events.
  EventConnections(IConnectionPointContainer& container, const ComObject& owner, REFIID events)
      : container_(container), owner_(owner), events_(events) {}
  EventConnections(const EventConnections&) = delete;
  EventConnections& operator=(const EventConnections&) = delete;
  EventConnections(EventConnections&&) = delete;
  EventConnections& operator=(EventConnections&&) = delete;
  ~EventConnections() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return container_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() override { return container_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* id) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  // Takes sinks that answer to the events' interface or to IDispatch.
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections** walk) override;

  // Calls every sink that is connected now, in the order of their connecting, unless a handler
  // disconnects it first. What they raise is passed over. The container outlives the call.
  void raise(DISPID event, DISPPARAMS& arguments);

 private:
  struct Connection {
    DWORD cookie = 0;
    ComPtr<IDispatch> sink;
  };

  [[nodiscard]] bool isConnected(DWORD cookie) const;
  [[nodiscard]] static CONNECTDATA connectData(const Connection& connection);

  IConnectionPointContainer& container_;
  const ComObject& owner_;
  const IID events_;
  std::vector<Connection> connections_;
  DWORD lastCookie_ = 0;
};

// The one connection point of a container, for its enumeration.
[[nodiscard]] HRESULT enumerateOne(IConnectionPoint& point, IEnumConnectionPoints** walk) noexcept;

#pragma GCC diagnostic pop

}  // namespace corvid
