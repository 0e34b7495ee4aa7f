#include "records/document_state_record.h"

#include "basic/format.h"
#include "basic/text.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

// Every value of a record in interface order.
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

using Record = RecordOf<DocumentStateRecord>;

TEST(DocumentState, ReplyFillsItUpToTheFirstBadField) {
  const std::wstring nothing = L"0|0||0|0|0";
  const struct {
    std::wstring fields;
    std::wstring values;
    int error;
    const char* reason;
  } kCases[] = {
      {L"S2 0001500|101|x|2.5|104|5|6", L"15|1.01|2.5|1.04|5|6", 0, "7 fields, the third not read"},
      {L"S2 100 rest|1|| a\tb |1|1|1", L"1|0.01| a\tb |0.01|1|1", 0, "a third part, a raw note"},
      {L"long-echo 100|1|||1|1|1", L"1|0.01||0.01|1|1", 0, "an echo of any length"},
      {L"pfError", nothing, 0, "a failed reply"},
      {L"S20001500|1|1|1|1|1|1", nothing, 0, "no blank: nothing is loaded"},
      {L"S2\t100|1|1|1|1|1|1", nothing, 0, "a tab is no blank"},
      {L"S2 |1|1|1|1|1|1", nothing, 13, "nothing behind the blank"},
      {L"S2  100|1|1|1|1|1|1", nothing, 13, "nothing between two blanks"},
      {L"S2 100|100|1|n|100|40000|1", L"1|1|n|1|0|0", 6, "payments beyond 16 bits"},
      {L"S2 100|100|1|n|100|5|-40000", L"1|1|n|1|5|0", 6, "state beyond 16 bits"},
      {L"S2 100|100|1|n|100|5", L"1|1|n|1|5|0", 9, "cut short"},
  };
  for (const auto& item : kCases) {
    Record target;
    const int error = errorOf([&] { target.record.loadFromResponse(reply(item.fields)); });
    EXPECT_EQ(error, item.error) << item.reason;
    EXPECT_EQ(image(target.record.values), item.values) << item.reason;
  }
}

TEST(DocumentState, TextFormFollowsTheUsersLocale) {
  Record target;
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
