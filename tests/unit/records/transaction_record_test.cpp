#include "records/transaction_record.h"

#include "basic/format.h"
#include "basic/text.h"
#include "record_bench.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

// Every value of a record in interface order.
std::wstring image(const TransactionValues& v) {
  const Locale plain;
  const Lines parts = {toText(v.subTotalVenta, plain),   toText(v.subTotalImpuestos, plain),
                       toText(v.cantidadItems, plain),   toText(v.total, plain),
                       std::to_wstring(v.cantidadPagos), std::to_wstring(v.tipoTrans)};
  return join(parts, L" ");
}

using Record = RecordOf<TransactionRecord>;

TEST(SecondRecord, ReplyFillsItUpToTheFirstBadField) {
  const struct {
    std::wstring fields;
    std::wstring values;
    int error;
    const char* reason;
  } kCases[] = {
      {L"S2 0001500|101|x|2.5|104|5|6", L"15 1.01 2.5 1.04 5 6", 0, "7 fields, the third not read"},
      {L"S2 0001500|101||3|104|5|6|7|8", L"15 1.01 3 1.04 5 6", 0, "more fields are not read"},
      {L"S2  15 | 101 |x| 2.50 | 104- | 5 | 6 ", L"0.15 1.01 2.5 -1.04 5 6", 0, "blanks around"},
      {L"S2|1|1|1|1|1|1", L"0 0 0 0 0 0", 13, "no amount behind the echo"},
      {L"S2 1,5|1|1|1|1|1|1", L"0 0 0 0 0 0", 13, "a comma is no decimal point"},
      {L"S2 100|100|1||1|1|1", L"1 1 0 0 0 0", 13, "an empty count of items"},
      {L"S2 100|100|1|1|100|32768|1", L"1 1 1 1 0 0", 6, "payments beyond 16 bits"},
      {L"S2 100|100|1|1|100|32767|-99999999999", L"1 1 1 1 32767 0", 6, "kind beyond 32 bits"},
      {L"S2 100|100|1|" + std::wstring(400, L'9') + L"|1|1|1", L"1 1 0 0 0 0", 6,
       "beyond a double"},
      {L"S2 100|100|1|1|100|1", L"1 1 1 1 1 0", 9, "cut short"},
      {L"pfError", L"0 0 0 0 0 0", 13, "a failed reply, when a host hands it over"},
  };
  for (const auto& item : kCases) {
    Record target;
    const int error = errorOf([&] { target.record.loadFromResponse(reply(item.fields)); });
    EXPECT_EQ(error, item.error) << item.reason;
    EXPECT_EQ(image(target.record.values), item.values) << item.reason;
  }
}

TEST(SecondRecord, SubstituteTouchesTheKindAlone) {
  Record target;
  target.record.loadFake();
  EXPECT_EQ(image(target.record.values), L"0 0 0 0 0 -1");
  target.record.loadFromResponse(reply(L"S2 100|200||3|400|5|6"));
  target.record.loadFake();
  EXPECT_EQ(image(target.record.values), L"1 2 3 4 5 -1");
}

TEST(SecondRecord, TextFormIsTheUsersDefault) {
  Record target;
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

}  // namespace
}  // namespace corvid
