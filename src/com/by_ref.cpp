#include "com/by_ref.h"

#include "basic/run_time_error.h"
#include "com/variant_conversions.h"

#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

namespace corvid {
namespace {

constexpr VARTYPE kTypeMask = static_cast<VARTYPE>(~VT_BYREF);

// 0 for kinds that own something.
std::size_t sizeOfPlain(VARTYPE type) {
  const bool owns = type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN ||
                    type == VT_DECIMAL || type == VT_VARIANT;
  return owns ? 0 : sizeOfKind(type);
}

// The system's word for what a conversion of the library threw.
template <class Conversion>
HRESULT resultOf(const Conversion& conversion) noexcept {
  try {
    conversion();
    return S_OK;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const RunTimeError& error) {
    return error.number() == overflow().number() ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH;
  } catch (...) {
    return DISP_E_TYPEMISMATCH;
  }
}

void widen(const VARIANT& single, Variant& converted) {
  const double widened = toDouble(single);
  V_VT(converted.put()) = VT_R8;
  V_R8(converted.get()) = widened;
}

HRESULT assignTyped(VARIANT& reference, Variant& value) {
  const auto type = static_cast<VARTYPE>(V_VT(&reference) & kTypeMask);
  if (type != VT_BSTR && sizeOfPlain(type) == 0) return DISP_E_TYPEMISMATCH;
  Variant converted;
  const HRESULT result = convertFromHost(value.value(), type, converted);
  if (FAILED(result)) return result;
  if (type == VT_BSTR) {
    SysFreeString(*V_BSTRREF(&reference));
    *V_BSTRREF(&reference) = V_BSTR(converted.get());
    static_cast<void>(converted.detach());
  } else {
    std::memcpy(V_BYREF(&reference), &V_UI1(converted.get()), sizeOfPlain(type));
  }
  return S_OK;
}

}  // namespace

HRESULT convertFromHost(const VARIANT& value, VARTYPE type, Variant& converted) {
  Variant source;
  const HRESULT result = copyWithoutReference(value, source);
  if (FAILED(result)) return result;
  if (type == VT_VARIANT) {
    converted = std::move(source);
    return S_OK;
  }
  if (source.type() == VT_DISPATCH && type != VT_DISPATCH && type != VT_UNKNOWN) {
    // The system would follow default properties without end where they form a ring.
    const HRESULT resolved = resultOf([&] { source = resolve(source.value()); });
    if (FAILED(resolved)) return resolved;
  }
  // The system would widen a Single bit by bit: 8.2 would become 8.19999980926514.
  if (type == VT_R8 && source.type() == VT_R4) {
    return resultOf([&] { widen(source.value(), converted); });
  }
  if (type == VT_BSTR && source.type() == VT_NULL) V_VT(source.get()) = VT_EMPTY;
  return changeType(source.value(), type, converted);
}

VARIANT referenceTo(Variant& value, VARTYPE type) noexcept {
  VARIANT reference;
  VariantInit(&reference);
  V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | type);
  V_BYREF(&reference) = type == VT_VARIANT ? static_cast<void*>(value.get())
                                           : static_cast<void*>(&V_UI1(value.get()));
  return reference;
}

bool holdSame(const VARIANT& a, const VARIANT& b) noexcept {
  if (V_VT(&a) != V_VT(&b)) return false;
  if (V_VT(&a) == VT_BSTR) return viewOf(V_BSTR(&a)) == viewOf(V_BSTR(&b));
  const std::size_t size = sizeOfPlain(V_VT(&a));
  return size != 0 && std::memcmp(&V_UI1(&a), &V_UI1(&b), size) == 0;
}

HRESULT assignToHost(VARIANT& reference, Variant& value) {
  if ((V_VT(&reference) & VT_BYREF) == 0) return S_OK;
  if (V_VT(&reference) != (VT_BYREF | VT_VARIANT)) return assignTyped(reference, value);
  // The chain is the host's own, and all of it may be written to.
  auto* const variable = const_cast<VARIANT*>(innermost(reference));
  if (variable == nullptr) return DISP_E_TYPEMISMATCH;
  if ((V_VT(variable) & VT_BYREF) != 0) return assignTyped(*variable, value);
  return VariantCopy(variable, value.get());
}

}  // namespace corvid
