#include "records/counters_record.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "protocol/reply.h"
#include "records/field_layout.h"
#include "records/record_text.h"

namespace corvid {
namespace {

using V = CountersValues;

constexpr const wchar_t* kFakeSection = L"Config\\NimbusPF\\Response1";
constexpr std::int32_t kLongLayoutUpperBound = 15;

// Printers without debit notes.
constexpr LayoutLine<V> kShortLayout[] = {
    {0, cashier<&V::numeroCajero>},
    {1, amount<&V::totalVentasDiarias>},
    {2, counter<&V::numeroUltimaFactura>},
    {3, counter<&V::facturasDia>},
    {kNoField, zero<&V::numeroUltimaND>},
    {kNoField, zero<&V::notasDebitoDia>},
    {4, counter<&V::ultimoDNF>},
    {5, counter<&V::ndfDia>},
    {6, counter<&V::nCierres>},
    {7, counter<&V::contadorReportes>},
    {8, text<&V::RIF>},
    {9, text<&V::Serial>},
    {10, dateWithTimeIn<&V::Fecha, 11>},
    {12, counterOrZero<&V::numeroUltimaNC>},
    {13, counterOrZero<&V::notasCreditoDia>},
};

// Here the report counter stands before the Z reports, and the time before the date.
constexpr LayoutLine<V> kLongLayout[] = {
    {0, cashier<&V::numeroCajero>},
    {1, amount<&V::totalVentasDiarias>},
    {2, counter<&V::numeroUltimaFactura>},
    {3, counter<&V::facturasDia>},
    {4, counter<&V::numeroUltimaND>},
    {5, counter<&V::notasDebitoDia>},
    {6, counter<&V::numeroUltimaNC>},
    {7, counter<&V::notasCreditoDia>},
    {8, counter<&V::ultimoDNF>},
    {9, counter<&V::ndfDia>},
    {10, counter<&V::contadorReportes>},
    {11, counter<&V::nCierres>},
    {12, text<&V::RIF>},
    {13, text<&V::Serial>},
    {15, dateWithTimeIn<&V::Fecha, 14>},
};

class FakeSettings {
 public:
  explicit FakeSettings(const Settings& settings) : settings_(settings) {}

  [[nodiscard]] std::wstring text(const wchar_t* key, const wchar_t* fallback) const {
    return settings_.text(kApplication, kFakeSection, key, fallback);
  }
  [[nodiscard]] Decimal number(const wchar_t* key) const {
    return parsePrinterNumber(replaceAll(text(key, L"0"), L",", L"."));
  }
  [[nodiscard]] std::int32_t counter(const wchar_t* key) const { return toInt32(number(key)); }

 private:
  const Settings& settings_;
};

}  // namespace

void CountersRecord::loadFake() {
  const FakeSettings settings(settings_);
  values.numeroCajero = toInt16(settings.number(L"numeroCajero"));
  // Hosts set one key for both: the cashier's number is the day's total too.
  values.totalVentasDiarias = Currency::fromDecimal(settings.number(L"numeroCajero"));
  values.numeroUltimaFactura = settings.counter(L"ultimaFactura");
  values.facturasDia = settings.counter(L"facturasDia");
  values.ultimoDNF = settings.counter(L"ultimoDNF");
  values.ndfDia = settings.counter(L"ndnfDia");  // the key is published with this spelling
  values.nCierres = settings.counter(L"nCierres");
  values.contadorReportes = settings.counter(L"contadorReportes");
  values.RIF = settings.text(L"RIF", L"J-12345678-9");
  values.Serial = settings.text(L"Serial", L"");
  values.Fecha = thread_.clock().now();
}

void CountersRecord::loadFakeQuietly() {
  try {
    loadFake();
  } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch): the values stay as they are
  }
}

void CountersRecord::loadFromResponse(std::wstring_view reply) {
  values.isFake = false;
  const ReplyFields fields(fieldsOf(reply));
  const Reply source{fields, thread_.clock()};
  try {
    if (fields.upperBound() < kLongLayoutUpperBound) {
      fillRecord(values, kShortLayout, source);
    } else {
      fillRecord(values, kLongLayout, source);
    }
  } catch (const RunTimeError&) {
    loadFakeQuietly();
  }
}

std::wstring CountersRecord::toString() const {
  const Locale locale = thread_.locale();
  RecordText record;
  record.line(L"numeroCajero = ", formatInteger(values.numeroCajero, L"000", locale));
  record.line(L"TotalVentasDiarias = ", format(values.totalVentasDiarias, L"Currency", locale));
  record.line(L"NumeroUltimaFactura = ",
              formatInteger(values.numeroUltimaFactura, L"000000", locale));
  record.line(L"facturasDia = ", formatInteger(values.facturasDia, L"0000", locale));
  record.line(L"ultimoDNF = ", formatInteger(values.ultimoDNF, L"000000", locale));
  record.line(L"ndfDia = ", formatInteger(values.ndfDia, L"#,##0", locale));
  record.line(L"nCierres = ", formatInteger(values.nCierres, L"#,##0", locale));
  record.line(L"contadorReportes = ", formatInteger(values.contadorReportes, L"#,##0", locale));
  record.line(L"RIF = ", values.RIF);
  record.line(L"Serial = ", upperCase(values.Serial));
  record.line(L"Fecha = ", format(values.Fecha, L"dd-mm-yyyy hh:nn"));
  return record.text();
}

}  // namespace corvid
