#include "com/host_arrays.h"

#include "basic/run_time_error.h"
#include "com/host_object.h"
#include "com/safe_array.h"
#include "com/variant_conversions.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>
#include <optional>
#include <utility>

namespace corvid {
namespace {

// Null for a value that holds none.
SAFEARRAY* arrayIn(const VARIANT& holder) {
  if ((V_VT(&holder) & VT_ARRAY) == 0) return nullptr;
  return (V_VT(&holder) & VT_BYREF) != 0 ? *V_ARRAYREF(&holder) : V_ARRAY(&holder);
}

IDispatch* objectIn(const VARIANT& holder) {
  if (V_VT(&holder) == VT_DISPATCH) return V_DISPATCH(&holder);
  return V_VT(&holder) == (VT_BYREF | VT_DISPATCH) ? *V_DISPATCHREF(&holder) : nullptr;
}

// The kind of the elements; type mismatch for one that no host passes, and for elements of another
// size than their kind has: reading those would run over.
VARTYPE kindOf(SAFEARRAY* array) {
  VARTYPE kind = VT_EMPTY;
  if (FAILED(SafeArrayGetVartype(array, &kind)) || sizeOfKind(kind) == 0 ||
      SafeArrayGetElemsize(array) != sizeOfKind(kind)) {
    throw typeMismatch();
  }
  return kind;
}

Variant copyOf(const VARIANT& value) {
  Variant copy;
  const HRESULT result = copyWithoutReference(value, copy);
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  if (FAILED(result)) throw typeMismatch();
  return copy;
}

}  // namespace

Variant toStringArray(const Lines& texts) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
  if (array == nullptr) throw std::bad_alloc();
  Variant value = Variant::ofArray(VT_BSTR, array);
  BSTR* const elements = static_cast<BSTR*>(array->pvData);
  for (std::size_t i = 0; i < texts.size(); ++i) elements[i] = Bstr(texts[i]).detach();
  return value;
}

Variant toHostArray(const Lines& fields) {
  SafeArray array(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) array.set(i, Variant(Bstr(fields[i])));
  return std::move(array).toVariant();
}

Variant toHostArray(const std::vector<std::int16_t>& numbers) {
  SafeArray array(numbers.size());
  for (std::size_t i = 0; i < numbers.size(); ++i) array.set(i, Variant::ofInt16(numbers[i]));
  return std::move(array).toVariant();
}

Variant toHostArray(const std::vector<Lines>& rows) {
  SafeArray array(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) array.set(i, toHostArray(rows[i]));
  return std::move(array).toVariant();
}

HostArray::HostArray(const VARIANT& value) {
  const VARIANT* const holder = innermost(value);
  if (holder == nullptr) return;
  SAFEARRAY* const array = arrayIn(*holder);
  if (array != nullptr && SUCCEEDED(SafeArrayLock(array))) array_ = array;
  script_ = ComPtr<IDispatch>(objectIn(*holder));
}

HostArray::HostArray(HostArray&& other) noexcept
    : array_(std::exchange(other.array_, nullptr)), script_(std::move(other.script_)) {}

HostArray::~HostArray() {
  if (array_ != nullptr) SafeArrayUnlock(array_);
}

void HostArray::requireArray() const {
  if (array_ == nullptr) throw typeMismatch();
  if (SafeArrayGetDim(array_) != 1) throw subscriptOutOfRange();
}

// In 64 bits: the last index of an array that begins near the end of 32 bits lies beyond them.
std::int64_t HostArray::lastIndex() const {
  if (script_) {
    const std::optional<Variant> length = findProperty(*script_.get(), L"length");
    if (!length) throw typeMismatch();
    return std::int64_t{toInt32(length->value())} - 1;
  }
  requireArray();
  const SAFEARRAYBOUND& bound = array_->rgsabound[0];
  return std::int64_t{bound.lLbound} + bound.cElements - 1;
}

std::int32_t HostArray::upperBound() const {
  constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
  constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(std::clamp(lastIndex(), kLowest, kHighest));
}

std::wstring HostArray::text(std::int32_t index) const {
  return toFieldText(element(index).value());
}

Variant HostArray::element(std::int32_t index) const {
  if (script_) return elementOfScript(index);
  requireArray();
  const VARTYPE kind = kindOf(array_);
  const std::int64_t place = std::int64_t{index} - array_->rgsabound[0].lLbound;
  if (place < 0 || index > lastIndex()) throw subscriptOutOfRange();
  VARIANT reference;
  VariantInit(&reference);
  V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | kind);
  V_BYREF(&reference) = static_cast<std::byte*>(array_->pvData) +
                        (static_cast<std::size_t>(place) * sizeOfKind(kind));
  return copyOf(reference);
}

// A place that was never filled has no member of its number, and is Empty.
Variant HostArray::elementOfScript(std::int32_t index) const {
  if (index < 0 || index > lastIndex()) throw subscriptOutOfRange();
  std::optional<Variant> value = findProperty(*script_.get(), std::to_wstring(index).c_str());
  return value ? copyOf(value->value()) : Variant();
}

}  // namespace corvid
