#include "records/daily_summary.h"

#include "basic/format.h"
#include "basic/run_time_error.h"
#include "protocol/query_commands.h"
#include "records/field_layout.h"
#include "records/record_text.h"

namespace corvid {
namespace {

using V = DailySummaryValues;
using Amount = Currency V::*;

constexpr Amount kSales[] = {
    &V::ventasExentas, &V::baseVG, &V::impuestoVG, &V::baseIR,
    &V::impuestoIR,    &V::baseIA, &V::impuestoIA,
};
constexpr Amount kDebitNotes[] = {
    &V::exentoND,     &V::baseVGND, &V::impuestoVGND, &V::baseIRND,
    &V::impuestoIRND, &V::baseIAND, &V::impuestoIAND,
};
constexpr Amount kCreditNotes[] = {
    &V::exentoNC,     &V::baseVGNC, &V::impuestoVGNC, &V::baseIRNC,
    &V::impuestoIRNC, &V::baseIANC, &V::impuestoIANC,
};
constexpr Amount kCollected[] = {&V::percibidoVentas, &V::percibidoND, &V::percibidoNC};
constexpr Amount kIgtf[] = {
    &V::BaseIGTF, &V::ValorIGTF, &V::BaseIGTFND, &V::IGTFND, &V::BaseIGTFNC, &V::IGTFNC,
};

constexpr LayoutLine<V> kBasicLayout[] = {
    {0, counter<&V::numeroUltimoZ>},
    {1, dateOnly<&V::fechaUltimoReporte>},
    {2, counter<&V::numeroUltimaFactura>},
    {3, dateWithTimeIn<&V::fechaUltimaFactura, 4>},
    {5, amounts<kSales>},         // to 11
    {12, amounts<kCreditNotes>},  // to 18
    {19, counter<&V::ultimaNC>},
};

constexpr LayoutLine<V> k29FieldLayout[] = {
    {0, counter<&V::numeroUltimoZ>},
    {1, dateWithTimeIn<&V::fechaUltimoReporte, 2>},
    {3, counter<&V::numeroUltimaFactura>},
    {4, dateWithTimeIn<&V::fechaUltimaFactura, 5>},
    {6, amounts<kSales>},        // to 12
    {13, amounts<kDebitNotes>},  // to 19
    {20, counter<&V::ultimaND>},
    {21, amounts<kCreditNotes>},  // to 27
    {28, counter<&V::ultimaNC>},
};

// Of 30 or 31 fields, the last of which is not read.
constexpr LayoutLine<V> k30FieldLayout[] = {
    {0, counter<&V::numeroUltimoZ>},
    {1, dateWithTimeIn<&V::fechaUltimoReporte, 2>},
    {3, counter<&V::numeroUltimaFactura>},
    {4, dateWithTimeIn<&V::fechaUltimaFactura, 5>},
    {6, counter<&V::ultimaND>},
    {7, counter<&V::ultimaNC>},
    {8, counter<&V::ultimoDNF>},
    {9, amounts<kSales>},         // to 15
    {16, amounts<kDebitNotes>},   // to 22
    {23, amounts<kCreditNotes>},  // to 29
};

// After the fields of k30FieldLayout.
constexpr LayoutLine<V> kLongLayoutEnd[] = {
    {30, amounts<kCollected>},  // to 32
    {33, amounts<kIgtf>},       // to 38
};

void fillByLayout(V& values, const Reply& reply) {
  const std::int32_t last = reply.fields.upperBound();
  if (last == 28) {
    fillRecord(values, k29FieldLayout, reply);
  } else if (last == 29 || last == 30) {
    fillRecord(values, k30FieldLayout, reply);
  } else if (last >= 37 && last <= 40) {
    fillRecord(values, k30FieldLayout, reply);
    fillRecord(values, kLongLayoutEnd, reply);
  } else {
    fillRecord(values, kBasicLayout, reply);
  }
}

struct LabelledAmount {
  const wchar_t* label;
  Amount value;
};

// The labels are published with their spelling.
constexpr LabelledAmount kShownAmounts[] = {
    {L"VentaExenta = ", &V::ventasExentas}, {L"VentaBase1 = ", &V::baseVG},
    {L"IVABAse1 = ", &V::impuestoVG},       {L"VentaBase2 = ", &V::baseIR},
    {L"IVABase2 = ", &V::impuestoIR},       {L"VentaBase3 = ", &V::baseIA},
    {L"IVABase3 = ", &V::impuestoIA},       {L"DevolucionExenta = ", &V::exentoNC},
    {L"DevolucionBase1 = ", &V::baseVGNC},  {L"IVADevBase1 = ", &V::impuestoVGNC},
    {L"DevolucionBase2 = ", &V::baseIRNC},  {L"IVADevBase2 = ", &V::impuestoIRNC},
    {L"DevolucionBase3 = ", &V::baseIANC},  {L"IVADevBase3 = ", &V::impuestoIANC},
};

}  // namespace

void DailySummary::load(Exchange& exchange) {
  loadFromResponse(ReplyFields(exchange.GetResponse(kQueryDailySummary)));
}

void DailySummary::loadFromResponse(const FieldArray& fields) {
  try {
    fillByLayout(values, {fields, thread_.clock()});
  } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch): the rest stays as it is
  }
}

std::wstring DailySummary::toString() const {
  const Locale locale = thread_.locale();
  RecordText record;
  record.line(L"Serial = ", thread_.process().lastSerial());
  record.line(L"NumeroCierre = ", formatInteger(values.numeroUltimoZ, L"00000"));
  record.line(L"ultimaFactura = ", formatInteger(values.numeroUltimaFactura, L"000000"));
  record.line(L"fechaUltimaFactura = ", format(values.fechaUltimaFactura, L"dd-mm-yyyy hh:nn"));
  for (const auto& [label, value] : kShownAmounts) {
    record.line(label, format(values.*value, L"Currency", locale));
  }
  record.line(L"UltimaNC = ", formatInteger(values.ultimaNC, L"000000"));
  record.line(L"UltimoDNF = ", formatInteger(values.ultimoDNF, L"000000"));
  record.line(L"BaseIGTF = ", format(values.BaseIGTF, L"Currency", locale));
  record.line(L"ValorIGTF = ", format(values.ValorIGTF, L"Currency", locale));
  return record.text();
}

}  // namespace corvid
