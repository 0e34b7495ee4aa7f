#include "records/printer_date.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

#include <optional>
#include <string>

namespace corvid {
namespace {

constexpr int kCentury = 2000;

std::wstring dateText(std::wstring_view fecha) {
  if (fecha.empty()) return {};
  const int yearOfCentury = toInt16(parsePrinterNumber(left(fecha, 2)));
  const std::int16_t year = narrowToInt16(kCentury + yearOfCentury);
  return formatInteger(year, L"0000") + L"-" + mid(fecha, 3, 2) + L"-" + right(fecha, 2);
}

std::wstring timeText(std::wstring_view hora) {
  if (hora.empty()) return {};
  std::wstring text = L" " + left(hora, 2) + L":" + mid(hora, 3, 2);
  if (hora.size() == 6) text += L":" + mid(hora, 5, 2);
  return text;
}

std::optional<Date> readDate(std::wstring_view fecha, std::wstring_view hora) {
  try {
    return parseDate(trim(dateText(fecha) + timeText(hora)));
  } catch (const RunTimeError&) {
    return std::nullopt;  // the year is no number
  }
}

}  // namespace

Date ParseFechaHora(std::wstring_view fecha, std::wstring_view hora, Clock& clock) {
  const std::optional<Date> date = readDate(fecha, hora);
  return date ? *date : clock.now();
}

}  // namespace corvid
