// The fields of a reply, as a record reads them.
#pragma once

#include "basic/text.h"

#include <cstdint>
#include <string>
#include <utility>

namespace corvid {

// A zero-based array whose elements turn into text only when they are read, so that a bad element
// fails where it is used.
class FieldArray {
 public:
  virtual ~FieldArray() = default;
  // -1 for an empty array.
  [[nodiscard]] virtual std::int32_t upperBound() const = 0;
  // Subscript out of range (9) for a missing element, type mismatch (13) for one that is no text.
  [[nodiscard]] virtual std::wstring text(std::int32_t index) const = 0;
};

class ReplyFields : public FieldArray {
 public:
  explicit ReplyFields(Lines fields) : fields_(std::move(fields)) {}
  [[nodiscard]] std::int32_t upperBound() const override;
  [[nodiscard]] std::wstring text(std::int32_t index) const override;

 private:
  Lines fields_;
};

}  // namespace corvid
