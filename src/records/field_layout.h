// Reply layouts as tables: which field fills which value, and by what conversion.
#pragma once

#include "basic/conversions.h"
#include "basic/currency.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "platform/clock.h"
#include "records/field_array.h"
#include "records/printer_date.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace corvid {

// A reply's fields, and the clock that stands in for a date that cannot be read.
struct Reply {
  const FieldArray& fields;
  Clock& clock;
};

// One line of a layout. A layout is an array of them, in the order in which they are filled:
//
//   constexpr LayoutLine<Values> kLayout[] = {
//       {0, counter<&Values::numeroUltimoZ>},
//       {1, dateWithTimeIn<&Values::fechaUltimoReporte, 2>},
//       {3, amount<&Values::ventasExentas>},
//   };
template <class Record>
struct LayoutLine {
  std::int32_t field;
  void (*fill)(Record& record, const Reply& reply, std::int32_t field);
};

inline constexpr std::int32_t kNoField = -1;  // for a line that reads nothing

// Fills the record in place, line by line. What a line throws ends the filling (a missing field 9,
// no number 13, too large a number 6), and what the lines before it filled stays.
template <class Record, class Layout>
void fillRecord(Record& record, const Layout& layout, const Reply& reply) {
  for (const LayoutLine<Record>& line : layout) line.fill(record, reply, line.field);
}

// A number in hundredths, blanks around it allowed.
[[nodiscard]] Currency readAmount(std::wstring_view text);
[[nodiscard]] std::int32_t readCounter(std::wstring_view text);
// The last two characters, after the command's echo.
[[nodiscard]] std::int16_t readCashier(std::wstring_view text);
// As readCounter, then as wide as the value that it fills.
template <class Integer>
[[nodiscard]] Integer readCounterAs(std::wstring_view text) {
  const std::int32_t value = readCounter(text);
  if constexpr (std::is_same_v<Integer, std::int16_t>) {
    return narrowToInt16(value);
  } else {
    return value;
  }
}

// The conversions. `value` is a pointer to the member that the field fills.

template <auto value, class Record>
void cashier(Record& record, const Reply& reply, std::int32_t field) {
  record.*value = readCashier(reply.fields.text(field));
}

template <auto value, class Record>
void amount(Record& record, const Reply& reply, std::int32_t field) {
  record.*value = readAmount(reply.fields.text(field));
}

// From the given position on, counted from 1.
template <auto value, std::int64_t position, class Record>
void amountFrom(Record& record, const Reply& reply, std::int32_t field) {
  record.*value = readAmount(mid(reply.fields.text(field), position));
}

// The text between the first blank and the next.
template <auto value, class Record>
void amountAfterBlank(Record& record, const Reply& reply, std::int32_t field) {
  record.*value = readAmount(split(reply.fields.text(field), L" ").at(1));
}

// One field for each value of a group, from this field on. `group` is an array of member pointers.
template <const auto& group, class Record>
void amounts(Record& record, const Reply& reply, std::int32_t field) {
  for (const auto value : group) record.*value = readAmount(reply.fields.text(field++));
}

// A number with its own decimals.
template <auto value, class Record>
void number(Record& record, const Reply& reply, std::int32_t field) {
  record.*value = parsePrinterNumber(reply.fields.text(field)).toDouble();
}

// A whole number of 16 or 32 bits.
template <auto value, class Record>
void counter(Record& record, const Reply& reply, std::int32_t field) {
  using Integer = std::remove_reference_t<decltype(record.*value)>;
  record.*value = readCounterAs<Integer>(reply.fields.text(field));
}

// As counter, but whatever cannot be read is 0.
template <auto value, class Record>
void counterOrZero(Record& record, const Reply& reply, std::int32_t field) {
  try {
    counter<value>(record, reply, field);
  } catch (const RunTimeError&) {
    record.*value = 0;
  }
}

template <auto value, class Record>
void zero(Record& record, const Reply&, std::int32_t) {
  record.*value = 0;
}

template <auto value, class Record>
void text(Record& record, const Reply& reply, std::int32_t field) {
  record.*value = reply.fields.text(field);
}

// The date in this field, the time of day in another.
template <auto value, std::int32_t timeField, class Record>
void dateWithTimeIn(Record& record, const Reply& reply, std::int32_t field) {
  const std::wstring date = reply.fields.text(field);
  record.*value = ParseFechaHora(date, reply.fields.text(timeField), reply.clock);
}

template <auto value, class Record>
void dateOnly(Record& record, const Reply& reply, std::int32_t field) {
  record.*value = ParseFechaHora(reply.fields.text(field), L"", reply.clock);
}

// A time of day on the zero date.
template <auto value, class Record>
void timeOnly(Record& record, const Reply& reply, std::int32_t field) {
  record.*value = ParseFechaHora(L"", reply.fields.text(field), reply.clock);
}

}  // namespace corvid
