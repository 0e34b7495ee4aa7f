// The layouts of many fields: which value takes which field, and what a bad field leaves. How dates
// are read.
#include "basic/format.h"
#include "basic/text.h"
#include "distinct_fields.h"
#include "record_bench.h"
#include "records/printer_date.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace corvid {
namespace {

// For every value in interface order the field that it was read from, "_" where it is untouched,
// and the error that the loading threw.
struct Loaded {
  std::wstring origins;
  int error = 0;
  bool operator==(const Loaded&) const = default;
};

std::wstring origins(const DailySummaryValues& v) {
  Lines parts = {originOfZero(v.numeroUltimoZ, -1),
                 originOf(v.fechaUltimoReporte),
                 originOf(v.numeroUltimaFactura),
                 originOf(v.fechaUltimaFactura),
                 originOf(v.ultimaNC),
                 originOf(v.ultimaND),
                 originOf(v.ultimoDNF)};
  for (const auto amount : kSummaryAmounts) parts.push_back(originOf(v.*amount));
  return join(parts, L" ");
}

std::wstring origins(const ZReportValues& v) {
  Lines parts = {originOfZero(v.numeroCierre, 0), originOf(v.fechaCierre),
                 originOf(v.horaCierre),          originOf(v.numeroUltimaFactura),
                 originOf(v.fechaUltimaFactura),  originOf(v.horaUltimaFactura)};
  for (const auto amount : kZReportAmounts) parts.push_back(originOf(v.*amount));
  return join(parts, L" ");
}

template <class Record>
Loaded loaded(const FieldArray& fields) {
  RecordOf<Record> target;
  const int error = errorOf([&] { target.record.loadFromResponse(fields); });
  return {origins(target.record.values), error};
}

struct Layout {
  std::vector<int> counts;  // of fields that have it
  std::wstring origins;
  // The Z report's, whose bad fields throw; that of a summary ends at one.
  bool isZReport = false;

  [[nodiscard]] Loaded load(const FieldArray& fields) const {
    return isZReport ? loaded<ZReportRecord>(fields) : loaded<DailySummary>(fields);
  }
  // Whether the value at that place is a date, which is now where it cannot be read.
  [[nodiscard]] bool isDate(std::size_t i) const {
    return i == 1 || (isZReport ? i == 2 || i == 4 || i == 5 : i == 3);
  }
};

const std::wstring kSeven = L" _ _ _ _ _ _ _";
const std::wstring kNine = kSeven + L" _ _";
const std::wstring kFirst30 =
    L"0 1@2 3 4@5 7 6 8"
    L" 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29";

const Layout kLayouts[] = {
    {{20, 21, 27, 28, 32, 37, 42, 5000},
     L"0 1 2 3@4 19 _ _ 5 6 7 8 9 10 11" + kSeven + L" 12 13 14 15 16 17 18" + kNine},
    {{29},
     L"0 1@2 3 4@5 28 20 _ 6 7 8 9 10 11 12 13 14 15 16 17 18 19 21 22 23 24 25 26 27" + kNine},
    {{30, 31}, kFirst30 + kNine},
    {{38}, kFirst30 + L" 30 31 32 33 34 35 36 37 _"},
    {{39, 40, 41}, kFirst30 + L" 30 31 32 33 34 35 36 37 38"},
    {{28, 29, 5000}, L"0 1@2 _ 3 4 @5 9 10 11 12 13 23 24 25 26 27", true},
};

// The fields that a value was read from.
std::set<int> fieldsOf(const std::wstring& origin) {
  std::set<int> fields;
  for (const std::wstring& number : split(origin, L"@")) {
    if (!number.empty() && number != L"_") fields.insert(std::stoi(number));
  }
  return fields;
}

// What a reading leaves that ends at a field.
std::wstring originsBefore(const Layout& layout, int field) {
  Lines parts = split(layout.origins, L" ");
  for (std::wstring& part : parts) {
    const std::set<int> fields = fieldsOf(part);
    if (!fields.empty() && *fields.rbegin() >= field) part = L"_";
  }
  return join(parts, L" ");
}

TEST(ReplyLayouts, EachValueTakesItsFieldAndNoOtherIsRead) {
  for (const Layout& layout : kLayouts) {
    std::set<int> read;
    for (const std::wstring& origin : split(layout.origins, L" ")) read.merge(fieldsOf(origin));
    for (const int count : layout.counts) {
      std::set<std::int32_t> holes;
      for (int field = 0; field < count; ++field) {
        if (!read.contains(field)) holes.insert(field);
      }
      EXPECT_EQ(layout.load(FieldsWithHoles(distinctFields(count), holes)),
                (Loaded{layout.origins, 0}))
          << count << " fields";
    }
  }
}

TEST(ReplyLayouts, FieldThatCannotBeReadLeavesWhatCameBeforeIt) {
  const std::pair<const wchar_t*, int> kBad[] = {
      {L"", 13}, {L"x", 13}, {L"1\x03", 13}, {L"99999999999999999", 6}};
  for (const Layout& layout : kLayouts) {
    const int count = layout.counts.front();
    const Lines origins = split(layout.origins, L" ");
    for (std::size_t i = 0; i < origins.size(); ++i) {
      if (origins[i] == L"_" || layout.isDate(i)) continue;
      const int field = *fieldsOf(origins[i]).begin();
      const std::wstring left = originsBefore(layout, field);
      for (const auto& [text, error] : kBad) {
        Lines fields = distinctFields(count);
        fields.at(static_cast<std::size_t>(field)) = text;
        EXPECT_EQ(layout.load(ReplyFields(fields)), (Loaded{left, layout.isZReport ? error : 0}))
            << count << " fields, bad one " << field;
      }
      const FieldsWithHoles hole(distinctFields(count), {field});
      EXPECT_EQ(layout.load(hole), (Loaded{left, layout.isZReport ? 13 : 0}));
    }
    Lines wide = distinctFields(count);
    wide.front() = L"32768";
    EXPECT_EQ(layout.load(ReplyFields(wide)),
              (Loaded{originsBefore(layout, 0), layout.isZReport ? 6 : 0}));
  }
}

TEST(ReplyLayouts, CutReplyFillsWhatItHas) {
  for (const Layout& layout : kLayouts) {
    const int whole = layout.counts.front();
    if (whole > 28) continue;  // one field less has another layout
    for (int count = 0; count < whole; ++count) {
      EXPECT_EQ(layout.load(ReplyFields(distinctFields(count))),
                (Loaded{originsBefore(layout, count), layout.isZReport ? 9 : 0}))
          << count << " of " << whole;
    }
  }
}

// Also those that a layout of fewer fields does not carry.
TEST(ReplyLayouts, ValuesStayUntilAReplyBringsThemAnew) {
  RecordOf<DailySummary> target;
  target.record.loadFromResponse(ReplyFields(distinctFields(39)));
  target.record.loadFromResponse(ReplyFields(distinctFields(20)));
  EXPECT_EQ(origins(target.record.values),
            L"0 1 2 3@4 19 6 8 5 6 7 8 9 10 11 16 17 18 19 20 21 22"
            L" 12 13 14 15 16 17 18 30 31 32 33 34 35 36 37 38");
}

constexpr const wchar_t* kPattern = L"yyyy-mm-dd hh:nn:ss";
constexpr const wchar_t* kNow = L"2026-03-14 10:30:15";

TEST(PrinterDate, ReadsWhatThePrinterWritesAndElseTellsTheTime) {
  struct Case {
    std::wstring fecha;
    std::wstring hora;
    std::wstring date;
    const char* reason;
  };
  const Case cases[] = {
      {L"240517", L"1030", L"2024-05-17 10:30:00", "date and time"},
      {L"240517", L"103015", L"2024-05-17 10:30:15", "with seconds"},
      {L"240517", L"", L"2024-05-17 00:00:00", "date alone"},
      {L"", L"1030", L"1899-12-30 10:30:00", "time alone lies on the zero date"},
      {L"", L"", kNow, "nothing"},
      {L"991231", L"2359", L"2099-12-31 23:59:00", "always this century"},
      {L"000101", L"0000", L"2000-01-01 00:00:00", "its first day"},
      {L"240229", L"", L"2024-02-29 00:00:00", "leap day"},
      {L"230229", L"1030", kNow, "no leap day"},
      {L"241305", L"", kNow, "no such month"},
      {L"240517", L"2460", kNow, "no such time"},
      {L"240517", L"10301", L"2024-05-17 10:30:00", "seconds count only in six characters"},
      {L"240517", L"930", kNow, "three digits of time"},
      {L"ab0517", L"1030", kNow, "a year that is no number"},
      {L"2", L"", kNow, "cut short"},
      {L"240517", L"ab", kNow, "a time that is no number"},
      {L"99999999999", L"", kNow, "too long"},
  };
  FakeClock clock;
  for (const Case& item : cases) {
    EXPECT_EQ(format(ParseFechaHora(item.fecha, item.hora, clock), kPattern), item.date)
        << item.reason;
  }
}

}  // namespace
}  // namespace corvid
