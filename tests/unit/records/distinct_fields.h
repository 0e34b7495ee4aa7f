// Replies in which every field tells its own number, whatever a record makes of it; and the amounts
// of the records that have many.
#pragma once

#include "basic/currency.h"
#include "basic/date.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "records/daily_summary.h"
#include "records/field_array.h"
#include "records/z_report_record.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <utility>

namespace corvid {

// The amounts in interface order.
inline constexpr auto kSummaryAmounts = [] {
  using V = DailySummaryValues;
  return std::to_array<Currency V::*>(
      {&V::ventasExentas, &V::baseVG,          &V::impuestoVG,  &V::baseIR,       &V::impuestoIR,
       &V::baseIA,        &V::impuestoIA,      &V::exentoND,    &V::baseVGND,     &V::impuestoVGND,
       &V::baseIRND,      &V::impuestoIRND,    &V::baseIAND,    &V::impuestoIAND, &V::exentoNC,
       &V::baseVGNC,      &V::impuestoVGNC,    &V::baseIRNC,    &V::impuestoIRNC, &V::baseIANC,
       &V::impuestoIANC,  &V::percibidoVentas, &V::percibidoND, &V::percibidoNC,  &V::BaseIGTF,
       &V::ValorIGTF,     &V::BaseIGTFND,      &V::IGTFND,      &V::BaseIGTFNC,   &V::IGTFNC});
}();
inline constexpr auto kZReportAmounts = [] {
  using V = ZReportValues;
  return std::to_array<Currency V::*>({&V::ventasExentas, &V::baseVG, &V::impuestoVG, &V::baseIR,
                                       &V::impuestoIR, &V::NCExentas, &V::baseNCVG,
                                       &V::impuestoNCVG, &V::baseNCIR, &V::impuestoNCIR});
}();

// Field 0, which is too narrow to tell its number.
inline constexpr std::int16_t kFieldZero = 321;

// Field i is 20mmdd with month and day counted up from 0101: an amount or a counter as well as a
// date of 2020 and a time after 20 hours.
inline Lines distinctFields(int count) {
  Lines fields;
  for (int i = 0; i < count; ++i) {
    fields.push_back(L"20" + formatInteger((i / 28) + 1, L"00") +
                     formatInteger((i % 28) + 1, L"00"));
  }
  if (count > 0) fields.front() = std::to_wstring(kFieldZero);
  return fields;
}

// Back to the number of the field that a value was read from; "_" for a value of 0, "?" for one
// that is no field's.
inline std::wstring originOf(std::int64_t value) {
  if (value == 0) return L"_";
  const std::int64_t number = ((value / 100 % 100 - 1) * 28) + (value % 100) - 1;
  if (value / 10000 != 20 || number < 0) return L"?";
  return std::to_wstring(number);
}

inline std::wstring originOf(Currency amount) {
  return amount.units() % 100 == 0 ? originOf(amount.units() / 100) : L"?";
}

// "1@2" for the date of field 1 with the time of field 2, "1" and "@2" for the one or the other.
inline std::wstring originOf(Date date) {
  const auto number = [](const std::wstring& text) {
    return std::wcstol(text.c_str(), nullptr, 10);
  };
  if (date == Date{}) return L"_";
  const std::wstring day = format(date, L"yymmdd");
  const std::wstring time = format(date, L"hhnnss");
  std::wstring origin = day == L"991230" ? L"" : originOf(number(day));
  if (time != L"000000") origin += L"@" + originOf(number(time));
  return origin;
}

// "0" for the value of field 0, "_" for the one that a fresh record has.
inline std::wstring originOfZero(std::int16_t value, std::int16_t fresh) {
  if (value == fresh) return L"_";
  return value == kFieldZero ? L"0" : L"?";
}

// A host's array in which some elements are no texts.
class FieldsWithHoles : public ReplyFields {
 public:
  FieldsWithHoles(Lines fields, std::set<std::int32_t> holes)
      : ReplyFields(std::move(fields)), holes_(std::move(holes)) {}
  [[nodiscard]] std::wstring text(std::int32_t index) const override {
    if (holes_.contains(index)) throw typeMismatch();
    return ReplyFields::text(index);
  }

 private:
  std::set<std::int32_t> holes_;
};

}  // namespace corvid
