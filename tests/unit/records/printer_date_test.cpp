#include "records/printer_date.h"

#include "basic/format.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

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
