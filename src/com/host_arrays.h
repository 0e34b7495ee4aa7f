// Arrays of texts, to and from the host.
#pragma once

#include "basic/text.h"
#include "com/variant.h"
#include "records/field_array.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvid {

// A zero-based array of Variants with one text each, which every script language can read.
[[nodiscard]] Variant toHostArray(const Lines& fields);
// An array of such arrays.
[[nodiscard]] Variant toHostArray(const std::vector<Lines>& rows);
// A zero-based array of String, which compiled languages declare.
[[nodiscard]] Variant toStringArray(const Lines& texts);

// An array of the host's with one dimension, of elements of any kind, read in place. It must
// outlive the reader and stay as it is.
class HostArray : public FieldArray {
 public:
  // What is no array turns into type mismatch (13) when it is first read.
  explicit HostArray(const VARIANT& value);

  [[nodiscard]] std::int32_t upperBound() const override;
  [[nodiscard]] std::wstring text(std::int32_t index) const override;
  // A copy of the element; subscript out of range (9) where there is none.
  [[nodiscard]] Variant element(std::int32_t index) const;

 private:
  [[nodiscard]] SAFEARRAY* array() const;

  SAFEARRAY* array_ = nullptr;
};

}  // namespace corvid
