#include "com/host_arrays.h"

#include "basic/run_time_error.h"
#include "com/safe_array.h"
#include "com/variant_conversions.h"

namespace corvid {
namespace {

const VARIANT& innermost(const VARIANT& value) {
  return V_VT(&value) == (VT_BYREF | VT_VARIANT) ? innermost(*V_VARIANTREF(&value)) : value;
}

SAFEARRAY* arrayIn(const VARIANT& value) {
  const VARIANT& holder = innermost(value);
  if ((V_VT(&holder) & VT_ARRAY) == 0) return nullptr;
  return (V_VT(&holder) & VT_BYREF) != 0 ? *V_ARRAYREF(&holder) : V_ARRAY(&holder);
}

void check(HRESULT result) {
  if (SUCCEEDED(result)) return;
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  throw subscriptOutOfRange();
}

}  // namespace

Variant toHostArray(const Lines& fields) {
  SafeArray array(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) array.set(i, Variant(Bstr(fields[i])));
  return std::move(array).toVariant();
}

Variant toStringArray(const Lines& texts) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
  if (array == nullptr) throw std::bad_alloc();
  Variant value = Variant::ofArray(VT_BSTR, array);
  BSTR* const elements = static_cast<BSTR*>(array->pvData);
  for (std::size_t i = 0; i < texts.size(); ++i) elements[i] = Bstr(texts[i]).detach();
  return value;
}

Variant toHostArray(const std::vector<Lines>& rows) {
  SafeArray array(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) array.set(i, toHostArray(rows[i]));
  return std::move(array).toVariant();
}

HostArray::HostArray(const VARIANT& value) : array_(arrayIn(value)) {}

SAFEARRAY* HostArray::array() const {
  if (array_ == nullptr) throw typeMismatch();
  if (SafeArrayGetDim(array_) != 1) throw subscriptOutOfRange();
  return array_;
}

std::int32_t HostArray::upperBound() const {
  LONG bound = -1;
  check(SafeArrayGetUBound(array(), 1, &bound));
  return bound;
}

std::wstring HostArray::text(std::int32_t index) const {
  return toFieldText(element(index).value());
}

Variant HostArray::element(std::int32_t index) const {
  VARTYPE type = VT_EMPTY;
  check(SafeArrayGetVartype(array(), &type));
  Variant value;
  LONG place = index;
  if (type == VT_VARIANT) {
    check(SafeArrayGetElement(array(), &place, value.put()));
    return value;
  }
  void* target = type == VT_DECIMAL ? static_cast<void*>(&V_DECIMAL(value.get()))
                                    : static_cast<void*>(&V_UI1(value.get()));
  check(SafeArrayGetElement(array(), &place, target));
  V_VT(value.get()) = type;
  return value;
}

}  // namespace corvid
