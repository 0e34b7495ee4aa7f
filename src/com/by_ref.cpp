#include "com/host_reference.h"

#include <cstddef>
#include <cstring>

namespace corvid {
namespace {

constexpr VARTYPE kTypeMask = static_cast<VARTYPE>(~VT_BYREF);

// The size of a plain value; 0 for kinds that own something.
std::size_t sizeOf(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    default:
      return 0;
  }
}

HRESULT assignTyped(VARIANT& reference, Variant& value) {
  const auto type = static_cast<VARTYPE>(V_VT(&reference) & kTypeMask);
  if (type != VT_BSTR && sizeOf(type) == 0) return DISP_E_TYPEMISMATCH;
  Variant converted;
  const HRESULT result = convertFromHost(value.value(), type, converted);
  if (FAILED(result)) return result;
  if (type == VT_BSTR) {
    SysFreeString(*V_BSTRREF(&reference));
    *V_BSTRREF(&reference) = V_BSTR(converted.get());
    static_cast<void>(converted.detach());
  } else {
    std::memcpy(V_BYREF(&reference), &V_UI1(converted.get()), sizeOf(type));
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
  const std::size_t size = sizeOf(V_VT(&a));
  return size != 0 && std::memcmp(&V_UI1(&a), &V_UI1(&b), size) == 0;
}

HRESULT assignToHost(VARIANT& reference, Variant& value) {
  if ((V_VT(&reference) & VT_BYREF) == 0) return S_OK;
  if (V_VT(&reference) != (VT_BYREF | VT_VARIANT)) return assignTyped(reference, value);
  VARIANT& variable = *V_VARIANTREF(&reference);
  if ((V_VT(&variable) & VT_BYREF) != 0) return assignToHost(variable, value);
  return VariantCopy(&variable, value.get());
}

}  // namespace corvid
