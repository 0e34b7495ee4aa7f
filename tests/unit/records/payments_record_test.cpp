#include "records/payments_record.h"

#include "basic/format.h"
#include "basic/text.h"
#include "records/field_array.h"
#include "support/world.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

// The count, then the amount of every number from 0 to one beyond the most.
std::wstring image(const PaymentsRecord& record) {
  std::wstring text = std::to_wstring(record.nMedios()) + L":";
  for (int n = 0; n <= 25; ++n) {
    text += L" " + toText(record.valor(Decimal::fromInteger(n)), Locale{});
  }
  return text;
}

// Means n of the reply is worth n.
ReplyFields reply(int count) {
  Lines fields;
  for (int n = 1; n <= count; ++n)
    fields.push_back((n == 1 ? L"S4" : L"") + std::to_wstring(n) + L"00");
  return ReplyFields(fields);
}

std::wstring imageOf(int loaded) {
  std::wstring text = std::to_wstring(loaded) + L":";
  for (int n = 0; n <= 25; ++n) text += L" " + std::to_wstring(n <= loaded ? n : 0);
  return text;
}

TEST(FourthRecord, LoadsOneAmountForEachOfTheFirst24FieldsAndHidesOlderOnes) {
  PaymentsRecord reloaded;
  for (const int count : {24, 3, 0, 1, 2, 23, 25, 30, 5000}) {
    PaymentsRecord fresh;
    for (PaymentsRecord* record : {&fresh, &reloaded}) {
      record->loadFromResponse(reply(count));
      EXPECT_EQ(image(*record), imageOf(count < 24 ? count : 24)) << count;
    }
  }
}

TEST(FourthRecord, BadFieldIsRaisedAndLeavesNoMethodInView) {
  const struct {
    std::wstring fields;
    int error;
    const char* reason;
  } kCases[] = {
      {L"S4", 13, "no amount behind the echo"},
      {L"S4100|x", 13, "letters"},
      {L"S4100|99999999999999999", 6, "an amount beyond its type"},
  };
  for (const auto& item : kCases) {
    PaymentsRecord record;
    record.loadFromResponse(reply(24));
    const ReplyFields fields(split(item.fields, L"|"));
    EXPECT_EQ(errorOf([&] { record.loadFromResponse(fields); }), item.error) << item.reason;
    EXPECT_EQ(image(record), imageOf(0)) << item.reason;
  }
}

TEST(FourthRecord, SubstituteShowsNoMeans) {
  PaymentsRecord record;
  record.loadFromResponse(reply(24));
  EXPECT_FALSE(record.isFake);
  record.loadFake();
  EXPECT_TRUE(record.isFake);
  EXPECT_EQ(image(record), imageOf(0));
}

TEST(FourthRecord, NumberBetweenTwoMethodCountsAsAnIndexDoes) {
  PaymentsRecord record;
  record.loadFromResponse(reply(24));
  const struct {
    double n;
    int amount;
  } kCases[] = {{0.9, 0}, {1.5, 1}, {2.5, 3}, {2.4, 2}, {23.6, 24}, {24.1, 0}, {-1, 0}};
  for (const auto& item : kCases) {
    EXPECT_EQ(record.valor(Decimal::fromDouble(item.n)),
              Currency::fromDecimal(Decimal::fromInteger(item.amount)))
        << item.n;
  }
}

}  // namespace
}  // namespace corvid
