// The walk over a list of closures that a host's loop makes.
#pragma once

#include "corvid_interfaces.h"
#include "registration/com_ptr.h"
#include "registration/module.h"
#include "registration/platform.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace corvid {

// Shared by a collection and the walks over it, which may outlive it.
using ClosureList = std::shared_ptr<const std::vector<ComPtr<IReporteZMF>>>;

// Automation interfaces have no virtual destructor: their objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class ClosureEnumerator final : public IEnumVARIANT {
 public:
  // The walk begins at the place given, counted from 0.
  explicit ClosureEnumerator(ClosureList closures, std::size_t place = 0)
      : closures_(std::move(closures)), place_(place) {}
  ClosureEnumerator(const ClosureEnumerator&) = delete;
  ClosureEnumerator& operator=(const ClosureEnumerator&) = delete;
  ClosureEnumerator(ClosureEnumerator&&) = delete;
  ClosureEnumerator& operator=(ClosureEnumerator&&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;

  // Hands out up to `count` objects; S_FALSE where there were fewer. `fetched` may be null.
  STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) override;
  STDMETHODIMP Skip(ULONG count) override;
  STDMETHODIMP Reset() override;
  // A second walk that goes on from the same place.
  STDMETHODIMP Clone(IEnumVARIANT** walk) override;

 private:
  virtual ~ClosureEnumerator() = default;

  // Goes forward by up to `count` closures; by how many is the result.
  ULONG advance(ULONG count) noexcept;

  ClosureList closures_;
  std::size_t place_;
  ModuleReference module_;
  std::atomic<ULONG> references_{1};
};

#pragma GCC diagnostic pop

}  // namespace corvid
