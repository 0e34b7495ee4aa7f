#include "records/document_state_record.h"

#include "basic/format.h"
#include "basic/text.h"
#include "records/field_layout.h"
#include "records/record_text.h"

namespace corvid {
namespace {

using V = DocumentStateValues;

// Field 0 begins with the command's echo and a blank.
constexpr LayoutLine<V> kLayout[] = {
    {0, amountAfterBlank<&V::subTotalBasesImponibles>},
    {1, amount<&V::subTotalIVA>},
    {3, text<&V::NotaS2>},
    {4, amount<&V::MontoPorPagar>},
    {5, counter<&V::numeroPagosRealizados>},
    {6, counter<&V::estado>},
};

}  // namespace

void DocumentStateRecord::loadFromResponse(const FieldArray& fields) {
  if (fields.text(0).find(L' ') == std::wstring::npos) return;
  fillRecord(values, kLayout, {fields, thread_.clock()});
}

std::wstring DocumentStateRecord::toString() const {
  const Locale locale = thread_.locale();
  RecordText record;
  record.line(L"subTotalBasesImponibles = ",
              format(values.subTotalBasesImponibles, L"Currency", locale));
  record.line(L"subTotalIVA = ", format(values.subTotalIVA, L"Currency", locale));
  record.line(L"NotaS2 = ", values.NotaS2);
  record.line(L"MontoPorPagar = ", format(values.MontoPorPagar, L"Currency", locale));
  record.line(L"numeroPagosRealizados = ", formatInteger(values.numeroPagosRealizados, L"#0"));
  record.line(L"estado = ", formatInteger(values.estado, L"#0"));
  return record.text();
}

}  // namespace corvid
