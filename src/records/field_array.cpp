#include "records/field_array.h"

#include "basic/run_time_error.h"

namespace corvid {

std::int32_t ReplyFields::upperBound() const {
  return static_cast<std::int32_t>(fields_.size()) - 1;
}

std::wstring ReplyFields::text(std::int32_t index) const {
  if (index < 0 || index > upperBound()) throw subscriptOutOfRange();
  return fields_[static_cast<std::size_t>(index)];
}

}  // namespace corvid
