// Arrays of texts, to and from the host.
#pragma once

#include "basic/text.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "records/field_array.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvid {

// A zero-based array of Variants with one text each, which every script language can read.
[[nodiscard]] Variant toHostArray(const Lines& fields);
// A zero-based array of Variants with one number each.
[[nodiscard]] Variant toHostArray(const std::vector<std::int16_t>& numbers);
// An array of arrays of texts.
[[nodiscard]] Variant toHostArray(const std::vector<Lines>& rows);
// A zero-based array of String, which compiled languages declare.
[[nodiscard]] Variant toStringArray(const Lines& texts);

// An array of the host's, read in place and locked meanwhile, so that code of the host that runs in
// between cannot resize it; or an object with a property `length` and its elements by their
// numbers, as script languages have it. It must outlive the reader. Indices are the array's own:
// one that begins at 1 has no element 0.
class HostArray : public FieldArray {
 public:
  // What is no array turns into type mismatch (13) when it is first read, as does one of elements
  // that no host passes; one of several dimensions into subscript out of range (9).
  explicit HostArray(const VARIANT& value);
  HostArray(const HostArray&) = delete;
  HostArray& operator=(const HostArray&) = delete;
  HostArray(HostArray&& other) noexcept;
  HostArray& operator=(HostArray&&) = delete;
  ~HostArray() override;

  // At most 2,147,483,647, whatever bounds the array has.
  [[nodiscard]] std::int32_t upperBound() const override;
  // Numbers as plain decimals with a point.
  [[nodiscard]] std::wstring text(std::int32_t index) const override;
  // A copy of the element; subscript out of range (9) where there is none.
  [[nodiscard]] Variant element(std::int32_t index) const;

 private:
  void requireArray() const;
  [[nodiscard]] std::int64_t lastIndex() const;
  [[nodiscard]] Variant elementOfScript(std::int32_t index) const;

  SAFEARRAY* array_ = nullptr;  // locked
  ComPtr<IDispatch> script_;
};

}  // namespace corvid
