#include "com/variant.h"

namespace corvid {
namespace {

constexpr int kMostReferences = 16;
constexpr VARTYPE kReferenceToVariant = VT_BYREF | VT_VARIANT;

}  // namespace

std::size_t sizeOfKind(VARTYPE type) noexcept {
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
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    case VT_DECIMAL:
      return sizeof(DECIMAL);
    case VT_VARIANT:
      return sizeof(VARIANT);
    default:
      return 0;
  }
}

bool isReadable(const VARIANT& value) noexcept {
  const VARTYPE type = V_VT(&value);
  const auto kind = static_cast<VARTYPE>(type & VT_TYPEMASK);
  if ((type & VT_BYREF) != 0 && V_BYREF(&value) == nullptr) return false;
  if ((type & VT_ARRAY) != 0) return true;  // its elements are looked at one by one
  if ((type & ~(VT_TYPEMASK | VT_BYREF)) != 0) return false;
  if (kind == VT_EMPTY || kind == VT_NULL) return (type & VT_BYREF) == 0;
  if (kind == VT_VARIANT) return (type & VT_BYREF) != 0;
  return sizeOfKind(kind) != 0;
}

const VARIANT* innermost(const VARIANT& value) noexcept {
  const VARIANT* found = &value;
  for (int i = 0; i < kMostReferences; ++i) {
    if (!isReadable(*found)) return nullptr;
    if (V_VT(found) != kReferenceToVariant) return found;
    found = V_VARIANTREF(found);
  }
  return nullptr;
}

HRESULT copyWithoutReference(const VARIANT& value, Variant& copy) noexcept {
  const VARIANT* const found = innermost(value);
  if (found == nullptr) return DISP_E_TYPEMISMATCH;
  // The system only reads what it takes as writable.
  return VariantCopyInd(copy.put(), const_cast<VARIANT*>(found));
}

HRESULT changeType(const VARIANT& value, VARTYPE type, Variant& changed, LCID locale) noexcept {
  return VariantChangeTypeEx(changed.put(), const_cast<VARIANT*>(&value), locale, VARIANT_ALPHABOOL,
                             type);
}

}  // namespace corvid
