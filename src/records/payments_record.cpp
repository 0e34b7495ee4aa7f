#include "records/payments_record.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "records/field_layout.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::int64_t kAfterEcho = 3;  // position in field 0

Currency readMethod(const FieldArray& fields, std::int32_t field) {
  const std::wstring text = fields.text(field);
  return readAmount(field == 0 ? mid(text, kAfterEcho) : text);
}

}  // namespace

void PaymentsRecord::loadFake() {
  isFake = true;
  nMedios_ = 0;
}

void PaymentsRecord::loadFromResponse(const FieldArray& fields) {
  nMedios_ = 0;
  const auto most = static_cast<std::int32_t>(amounts_.size());
  const std::int32_t count = std::min(fields.upperBound(), most - 1) + 1;
  for (std::int32_t i = 0; i < count; ++i) {
    amounts_.at(static_cast<std::size_t>(i)) = readMethod(fields, i);
  }
  nMedios_ = narrowToInt16(count);
}

Currency PaymentsRecord::valor(const Decimal& n) const {
  const Decimal first = Decimal::fromInteger(1);
  if (n < first || n > Decimal::fromInteger(nMedios_)) return {};
  return amounts_.at(static_cast<std::size_t>(toInt32(n - first)));
}

}  // namespace corvid
