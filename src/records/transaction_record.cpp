#include "records/transaction_record.h"

#include "basic/format.h"
#include "records/field_layout.h"
#include "records/record_text.h"

namespace corvid {
namespace {

using V = TransactionValues;

// Field 0 begins with the command's echo and a blank.
constexpr LayoutLine<V> kLayout[] = {
    {0, amountFrom<&V::subTotalVenta, 4>}, {1, amount<&V::subTotalImpuestos>},
    {3, number<&V::cantidadItems>},        {4, amount<&V::total>},
    {5, counter<&V::cantidadPagos>},       {6, counter<&V::tipoTrans>},
};

}  // namespace

void TransactionRecord::loadFake() { values.tipoTrans = -1; }

void TransactionRecord::loadFromResponse(const FieldArray& fields) {
  fillRecord(values, kLayout, {fields, thread_.clock()});
}

std::wstring TransactionRecord::toString() const {
  const Locale locale = thread_.locale();
  RecordText record;
  record.line(L"subTotalVenta = ", toText(values.subTotalVenta, locale));
  record.line(L"subTotalImpuestos = ", toText(values.subTotalImpuestos, locale));
  record.line(L"cantidadItems = ", toText(values.cantidadItems, locale));
  record.line(L"total = ", toText(values.total, locale));
  record.line(L"cantidadPagos = ", std::to_wstring(values.cantidadPagos));
  record.line(L"tipoTrans = ", std::to_wstring(values.tipoTrans));
  return record.text();
}

}  // namespace corvid
