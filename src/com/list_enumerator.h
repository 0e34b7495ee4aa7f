// The walk over a list that a host makes through one of the system's enumerator interfaces.
#pragma once

#include "com/guard.h"
#include "com/module.h"
#include "com/platform.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace corvid {

// Automation interfaces have no virtual destructor: their objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Interface has Next, Skip, Reset and Clone, and hands out Items; each is made of a Held one by
// `handOut`, with a reference of the host's own. The list is shared and may outlive its maker.
template <class Interface, class Item, class Held, Item (*handOut)(const Held&)>
class ListEnumerator final : public Interface {
 public:
  using List = std::shared_ptr<const std::vector<Held>>;

  // The walk begins at the place given, counted from 0.
  explicit ListEnumerator(List list, std::size_t place = 0)
      : list_(std::move(list)), place_(place) {}
  ListEnumerator(const ListEnumerator&) = delete;
  ListEnumerator& operator=(const ListEnumerator&) = delete;
  ListEnumerator(ListEnumerator&&) = delete;
  ListEnumerator& operator=(ListEnumerator&&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != __uuidof(Interface)) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  // Hands out up to `count` items; S_FALSE where there were fewer. `fetched` may be null.
  STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
    if (items == nullptr && count != 0) return E_POINTER;
    const std::size_t first = place_;
    const ULONG found = advance(count);
    for (ULONG i = 0; i < found; ++i) items[i] = handOut((*list_)[first + i]);
    if (fetched != nullptr) *fetched = found;
    return found == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override { return advance(count) == count ? S_OK : S_FALSE; }
  STDMETHODIMP Reset() override {
    place_ = 0;
    return S_OK;
  }
  // A second walk that goes on from the same place.
  STDMETHODIMP Clone(Interface** walk) override {
    if (walk == nullptr) return E_POINTER;
    *walk = nullptr;
    return guarded(__uuidof(Interface), [&] { *walk = new ListEnumerator(list_, place_); });
  }

 private:
  virtual ~ListEnumerator() = default;

  // Goes forward by up to `count` items; by how many is the result.
  ULONG advance(ULONG count) noexcept {
    const std::size_t steps = std::min<std::size_t>(count, list_->size() - place_);
    place_ += steps;
    return static_cast<ULONG>(steps);
  }

  List list_;
  std::size_t place_;
  ModuleReference module_;
  std::atomic<ULONG> references_{1};
};

#pragma GCC diagnostic pop

}  // namespace corvid
