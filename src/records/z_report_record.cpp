#include "records/z_report_record.h"

#include "basic/format.h"
#include "records/field_layout.h"
#include "records/record_text.h"
#include "records/z_report_rows.h"

namespace corvid {
namespace {

using V = ZReportValues;

// Fields 6 to 8 and 14 to 22 are not read.
constexpr LayoutLine<V> kLayout[] = {
    {0, counter<&V::numeroCierre>},
    {1, dateWithTimeIn<&V::fechaCierre, 2>},
    {3, counter<&V::numeroUltimaFactura>},
    {4, dateOnly<&V::fechaUltimaFactura>},
    {5, timeOnly<&V::horaUltimaFactura>},
    {9, amount<&V::ventasExentas>},
    {10, amount<&V::baseVG>},
    {11, amount<&V::impuestoVG>},
    {12, amount<&V::baseIR>},
    {13, amount<&V::impuestoIR>},
    {23, amount<&V::NCExentas>},
    {24, amount<&V::baseNCVG>},
    {25, amount<&V::impuestoNCVG>},
    {26, amount<&V::baseNCIR>},
    {27, amount<&V::impuestoNCIR>},
};

}  // namespace

void ZReportRecord::loadFromResponse(const FieldArray& row) {
  fillRecord(values, kLayout, {row, thread_.clock()});
}

bool ZReportRecord::load(Exchange& exchange, const Decimal& numero) {
  const std::vector<Lines> rows = zReportRows(exchange, numero, numero);
  if (rows.empty()) return false;
  loadFromResponse(ReplyFields(rows.front()));
  return true;
}

std::wstring ZReportRecord::toString() const {
  const Locale locale = thread_.locale();
  RecordText record;
  record.line(L"NumeroCierre = ", std::to_wstring(values.numeroCierre));
  record.line(L"Fecha Cierre = ", toText(values.fechaCierre, locale));
  record.line(L"numeroUltimaFactura = ", std::to_wstring(values.numeroUltimaFactura));
  record.line(L"fechaUltimaFactura = ", toText(values.fechaUltimaFactura, locale));
  record.line(L"horaUltimaFactura = ", toText(values.horaUltimaFactura, locale));
  record.line(L"ventasExentas = ", toText(values.ventasExentas, locale));
  record.line(L"baseVG = ", toText(values.baseVG, locale));
  record.line(L"impuestoVG = ", toText(values.impuestoVG, locale));
  record.line(L"baseIR = ", toText(values.baseIR, locale));
  record.line(L"impuestoIR = ", toText(values.impuestoIR, locale));
  record.line(L"NCExentas = ", toText(values.NCExentas, locale));
  record.line(L"baseNCVG = ", toText(values.baseNCVG, locale));
  record.line(L"impuestoNCVG = ", toText(values.impuestoNCVG, locale));
  record.line(L"baseNCIR = ", toText(values.baseNCIR, locale));
  record.line(L"impuestoNCIR = ", toText(values.impuestoNCIR, locale));
  return record.text();
}

}  // namespace corvid
