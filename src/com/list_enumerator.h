// Generic enumerator over a shared list.
#pragma once

#include "com/guard.h"
#include "com/object_of.h"
#include "com/platform.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace corvid {

// Interface has Next, Skip, Reset and Clone, and hands out Items; each is made of a Kept one by
// `handOut`, with a reference of the host's own. The list is shared and may outlive its maker. On
// another thread than its own every member returns RPC_E_WRONG_THREAD.
template <class Interface, class Item, class Kept, Item (*handOut)(const Kept&)>
class ListEnumerator final : public ObjectOf<Interface> {
 public:
  using List = std::shared_ptr<const std::vector<Kept>>;

  // The walk begins at the place given, counted from 0.
  explicit ListEnumerator(List list, std::size_t place = 0)
      : list_(std::move(list)), place_(place) {}

  // Hands out up to `count` items; S_FALSE where there were fewer. `fetched` may be null.
  STDMETHODIMP Next(ULONG count, Item* items, ULONG* fetched) override {
    if (!this->isOnItsThread()) return RPC_E_WRONG_THREAD;
    if (items == nullptr && count != 0) return E_POINTER;
    const std::size_t first = place_;
    const ULONG found = advance(count);
    for (ULONG i = 0; i < found; ++i) items[i] = handOut((*list_)[first + i]);
    if (fetched != nullptr) *fetched = found;
    return found == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) override {
    if (!this->isOnItsThread()) return RPC_E_WRONG_THREAD;
    return advance(count) == count ? S_OK : S_FALSE;
  }
  STDMETHODIMP Reset() override {
    if (!this->isOnItsThread()) return RPC_E_WRONG_THREAD;
    place_ = 0;
    return S_OK;
  }
  // A second walk that goes on from the same place.
  STDMETHODIMP Clone(Interface** walk) override {
    if (walk == nullptr) return E_POINTER;
    *walk = nullptr;
    if (!this->isOnItsThread()) return RPC_E_WRONG_THREAD;
    return guarded(__uuidof(Interface), [&] { *walk = new ListEnumerator(list_, place_); });
  }

 private:
  ~ListEnumerator() override = default;

  // Goes forward by up to `count` items; by how many is the result.
  ULONG advance(ULONG count) noexcept {
    const std::size_t steps = std::min<std::size_t>(count, list_->size() - place_);
    place_ += steps;
    return static_cast<ULONG>(steps);
  }

  List list_;
  std::size_t place_;
};

}  // namespace corvid
