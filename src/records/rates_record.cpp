#include "records/rates_record.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "records/record_text.h"

namespace corvid {
namespace {

constexpr double kUsualIgtf = 3;  // percent, where the printer does not report it

// A kind digit and the rate in hundredths of a percent, such as "11600".
bool readKind(const std::wstring& field) { return left(field, 1) == L"1"; }
double readRate(const std::wstring& field) {
  return toInt16(parsePrinterNumber(mid(field, 2))) / 100.0;
}

void loadRate(const std::wstring& field, bool& kind, double& rate) {
  kind = readKind(field);
  rate = readRate(field);
}

}  // namespace

void RatesRecord::loadFake() {
  const std::int16_t flagBound = values.nFlags;
  values = RatesValues{};
  values.nFlags = flagBound;
  values.isFake = true;
  isPartial_ = false;
}

void RatesRecord::loadFromResponse(const FieldArray& fields) {
  values.isFake = false;
  isPartial_ = true;
  try {
    loadRates(fields);
    loadFlags(fields);
    isPartial_ = false;
  } catch (const RunTimeError& error) {
    thread_.trace().traceWith(
        [&] { return L"PrinterResponse3.LoadFormResponse. Error: " + error.description(); });
  }
}

void RatesRecord::loadRates(const FieldArray& fields) {
  const std::int32_t last = fields.upperBound();
  if (last >= 3) {
    loadRate(fields.text(0), values.TipoTasa1, values.ValorTasa1);
    loadRate(fields.text(1), values.TipoTasa2, values.ValorTasa2);
    loadRate(fields.text(2), values.TipoTasa3, values.ValorTasa3);
  }
  thread_.trace().traceWith(
      [&] { return L"PrinterResponse3.LoadFromResponse, UBound(v) = " + std::to_wstring(last); });
}

void RatesRecord::loadFlags(const FieldArray& fields) {
  const bool reportsIgtf = fields.upperBound() > 3 && !fields.text(4).empty();
  values.TasaIGTF = reportsIgtf ? readRate(fields.text(3)) : kUsualIgtf;
  const std::int32_t flagField = reportsIgtf ? 4 : 3;
  thread_.trace().traceWith([&] {
    return L"PrinterResponse3.LoadFromResponse, indiceFlags = " + std::to_wstring(flagField);
  });
  const std::wstring row = fields.text(flagField);
  const std::size_t count = row.size() / 2;
  values.nFlags = narrowToInt16(static_cast<std::int64_t>(count) - 1);
  flags_.assign(count, 0);
  for (std::size_t i = 0; i < count; ++i)
    flags_[i] = toInt16(parsePrinterNumber(row.substr(2 * i, 2)));
}

std::int16_t RatesRecord::Flag(std::int16_t n) const {
  if (n < 0 || static_cast<std::size_t>(n) >= flags_.size()) return -1;
  return flags_[static_cast<std::size_t>(n)];
}

std::wstring RatesRecord::imagenIncluido(bool included) {
  return included ? L"INCLUIDO" : L"ADICIONAL";
}

double RatesRecord::rate(int n) const {
  switch (n) {
    case 1:
      return values.ValorTasa1;
    case 2:
      return values.ValorTasa2;
    default:
      return values.ValorTasa3;
  }
}

std::wstring RatesRecord::flagRow() const {
  Lines texts;
  for (const std::int16_t flag : flags_) texts.push_back(formatInteger(flag, L"00"));
  return join(texts, L"  ");
}

std::wstring RatesRecord::toString() const {
  const Locale locale = thread_.locale();
  RecordText record;
  record.line(L"Tasa1: ", imagenIncluido(values.TipoTasa1));
  record.line(L"Valor 1: ", toText(values.ValorTasa1, locale));
  record.line(L"Tasa2: ", imagenIncluido(values.TipoTasa2));
  record.line(L"Valor 2: ", toText(values.ValorTasa2, locale));
  record.line(L"Tasa3: ", imagenIncluido(values.TipoTasa3));
  record.line(L"Valor 3: ", toText(values.ValorTasa3, locale));
  record.line(L"FLAGS: ", flagRow());
  return record.text();
}

}  // namespace corvid
