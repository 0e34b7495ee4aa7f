#include "registration/closure_enumerator.h"

#include "registration/guard.h"

#include <algorithm>

namespace corvid {

STDMETHODIMP ClosureEnumerator::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (id != IID_IUnknown && id != IID_IEnumVARIANT) return E_NOINTERFACE;
  *object = static_cast<IEnumVARIANT*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ClosureEnumerator::AddRef() { return ++references_; }

STDMETHODIMP_(ULONG) ClosureEnumerator::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP ClosureEnumerator::Next(ULONG count, VARIANT* items, ULONG* fetched) {
  if (items == nullptr && count != 0) return E_POINTER;
  const std::size_t first = place_;
  const ULONG found = advance(count);
  for (ULONG i = 0; i < found; ++i) {
    VariantInit(&items[i]);
    V_VT(&items[i]) = VT_DISPATCH;
    V_DISPATCH(&items[i]) = ComPtr<IReporteZMF>((*closures_)[first + i]).detach();
  }
  if (fetched != nullptr) *fetched = found;
  return found == count ? S_OK : S_FALSE;
}

STDMETHODIMP ClosureEnumerator::Skip(ULONG count) {
  return advance(count) == count ? S_OK : S_FALSE;
}

STDMETHODIMP ClosureEnumerator::Reset() {
  place_ = 0;
  return S_OK;
}

STDMETHODIMP ClosureEnumerator::Clone(IEnumVARIANT** walk) {
  if (walk == nullptr) return E_POINTER;
  *walk = nullptr;
  return guarded(IID_IEnumVARIANT, [&] { *walk = new ClosureEnumerator(closures_, place_); });
}

ULONG ClosureEnumerator::advance(ULONG count) noexcept {
  const std::size_t left = closures_->size() - place_;
  const std::size_t steps = std::min<std::size_t>(count, left);
  place_ += steps;
  return static_cast<ULONG>(steps);
}

}  // namespace corvid
