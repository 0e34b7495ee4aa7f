// The two records of the open document, both filled from the reply to "S2".
#include "basic/format.h"
#include "basic/text.h"
#include "record_bench.h"
#include "records/document_state_record.h"
#include "records/transaction_record.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

struct Case {
  std::wstring fields;
  std::wstring values;
  int error;
  const char* reason;
};

// Every value of a record in interface order.
std::wstring image(const TransactionValues& v) {
  const Locale plain;
  const Lines parts = {toText(v.subTotalVenta, plain),   toText(v.subTotalImpuestos, plain),
                       toText(v.cantidadItems, plain),   toText(v.total, plain),
                       std::to_wstring(v.cantidadPagos), std::to_wstring(v.tipoTrans)};
  return join(parts, L"|");
}
std::wstring image(const DocumentStateValues& v) {
  const Locale plain;
  const Lines parts = {toText(v.subTotalBasesImponibles, plain),
                       toText(v.subTotalIVA, plain),
                       v.NotaS2,
                       toText(v.MontoPorPagar, plain),
                       std::to_wstring(v.numeroPagosRealizados),
                       std::to_wstring(v.estado)};
  return join(parts, L"|");
}

template <class Record>
void expectLoaded(const Case& item) {
  RecordOf<Record> target;
  EXPECT_EQ(errorOf([&] { target.record.loadFromResponse(reply(item.fields)); }), item.error)
      << item.reason;
  EXPECT_EQ(image(target.record.values), item.values) << item.reason;
}

TEST(SecondRecord, ReplyFillsItUpToTheFirstBadField) {
  const Case kCases[] = {
      {L"S2 0001500|101|x|2.5|104|5|6", L"15|1.01|2.5|1.04|5|6", 0, "7 fields, the third not read"},
      {L"S2 0001500|101||3|104|5|6|7|8", L"15|1.01|3|1.04|5|6", 0, "more fields are not read"},
      {L"S2|1|1|1|1|1|1", L"0|0|0|0|0|0", 13, "no amount behind the echo"},
      {L"S2 100|100|1||1|1|1", L"1|1|0|0|0|0", 13, "an empty count of items"},
      {L"S2 100|100|1|1|100|32768|1", L"1|1|1|1|0|0", 6, "payments beyond 16 bits"},
      {L"S2 100|100|1|1|100|32767|-32769", L"1|1|1|1|32767|0", 6, "kind beyond 16 bits"},
      {L"S2 100|100|1|" + std::wstring(400, L'9') + L"|1|1|1", L"1|1|0|0|0|0", 6,
       "beyond a double"},
      {L"S2 100|100|1|1|100|1", L"1|1|1|1|1|0", 9, "cut short"},
  };
  for (const Case& item : kCases) expectLoaded<TransactionRecord>(item);
}

TEST(DocumentState, ReplyFillsItUpToTheFirstBadField) {
  const std::wstring nothing = L"0|0||0|0|0";
  const Case kCases[] = {
      {L"S2 0001500|101|x|2.5|104|5|6", L"15|1.01|2.5|1.04|5|6", 0, "7 fields, the third not read"},
      {L"S2 100 rest|1|| a\tb |1|1|1", L"1|0.01| a\tb |0.01|1|1", 0, "a third part, a raw note"},
      {L"long-echo 100|1|||1|1|1", L"1|0.01||0.01|1|1", 0, "an echo of any length"},
      {L"pfError", nothing, 0, "a failed reply"},
      {L"S2\t100|1|1|1|1|1|1", nothing, 0, "a tab is no blank: nothing is loaded"},
      {L"S2 |1|1|1|1|1|1", nothing, 13, "nothing behind the blank"},
      {L"S2  100|1|1|1|1|1|1", nothing, 13, "nothing between two blanks"},
      {L"S2 100|100|1|n|100|40000|1", L"1|1|n|1|0|0", 6, "payments beyond 16 bits"},
      {L"S2 100|100|1|n|100|5|-40000", L"1|1|n|1|5|0", 6, "state beyond 16 bits"},
      {L"S2 100|100|1|n|100|5", L"1|1|n|1|5|0", 9, "cut short"},
  };
  for (const Case& item : kCases) expectLoaded<DocumentStateRecord>(item);
}

TEST(SecondRecord, SubstituteTouchesTheKindAlone) {
  RecordOf<TransactionRecord> target;
  target.record.loadFromResponse(reply(L"S2 100|200||3|400|5|6"));
  target.record.loadFake();
  EXPECT_EQ(image(target.record.values), L"1|2|3|4|5|-1");
}

TEST(SecondRecord, TextFormIsTheUsersDefault) {
  RecordOf<TransactionRecord> target;
  target.world.locale.locale = venezuelan();
  target.record.loadFromResponse(reply(L"S2 123456789|150||2.5|-1|5|-6"));
  EXPECT_EQ(target.record.toString(),
            L"subTotalVenta = 1234567,89\r\n"
            L"subTotalImpuestos = 1,5\r\n"
            L"cantidadItems = 2,5\r\n"
            L"total = -0,01\r\n"
            L"cantidadPagos = 5\r\n"
            L"tipoTrans = -6\r\n");
}

TEST(DocumentState, TextFormFollowsTheUsersLocale) {
  RecordOf<DocumentStateRecord> target;
  target.world.locale.locale = venezuelan();
  target.record.loadFromResponse(reply(L"S2 123456789|150||2.5|100|12345|-6"));
  EXPECT_EQ(target.record.toString(),
            L"subTotalBasesImponibles = Bs. 1.234.567,89\r\n"
            L"subTotalIVA = Bs. 1,50\r\n"
            L"NotaS2 = 2.5\r\n"
            L"MontoPorPagar = Bs. 1,00\r\n"
            L"numeroPagosRealizados = 12345\r\n"
            L"estado = -6\r\n");
}

}  // namespace
}  // namespace corvid
