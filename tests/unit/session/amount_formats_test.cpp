// Fixed-point digit strings of prices, quantities and payments.
#include "support/session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

// An S3 reply whose flag 21 has the given value.
Answer rateReply(const char* flag21) {
  return blockOf("21600\n20800\n23100\n20300\n" + std::string(42, '0') + flag21 + "0000");
}

TEST(AmountFormats, WidthsFollowPrinterFlag21) {
  const struct {
    const char* flag21;
    std::wstring price, quantity, payment;
  } kCases[] = {
      {"00", L"0000001250", L"00012500", L"000000001250"},
      {"02", L"0000012500", L"00012500", L"000000001250"},
      {"03", L"0000125000", L"00012500", L"000000001250"},
      {"11", L"0000000125", L"00012500", L"000000000125"},
      {"12", L"0000000013", L"00012500", L"000000000013"},
      {"30", L"0000000000001250", L"00000000000012500", L"00000000000001250"},
  };
  for (const auto& item : kCases) {
    OpenBench bench;
    bench.printer().answersToBlock = {rateReply(item.flag21)};
    const Decimal amount = Decimal::fromDouble(12.5);
    EXPECT_EQ(bench.session().FormatPrecio(amount), item.price) << item.flag21;
    EXPECT_EQ(bench.session().FormatCantidad(amount), item.quantity) << item.flag21;
    EXPECT_EQ(bench.session().FormatMedio(amount), item.payment) << item.flag21;
    EXPECT_EQ(bench.printer().blocks.size(), 1U) << "the flags are asked for once";
  }
}

TEST(AmountFormats, SettingsWinWhenBothAreThere) {
  SessionBench both({{L"DigitosPrecio", L"6"}, {L"DecimalesPrecio", L"0"}});
  EXPECT_EQ(both.session().FormatPrecio(Decimal::fromDouble(12.5)), L"000013");
  EXPECT_TRUE(both.printer().blocks.empty()) << "no need to ask the printer";

  SessionBench half({{L"DigitosPrecio", L"6"}});
  EXPECT_EQ(half.session().FormatPrecio(Decimal::fromDouble(12.5)), L"0000001250")
      << "one alone is none";
}

TEST(AmountFormats, SubstituteFlagsAreNotKept) {
  SessionBench bench;
  EXPECT_EQ(bench.session().FormatPrecio(Decimal::fromDouble(1)), L"0000000100");
  EXPECT_TRUE(bench.session().state().s3) << "asked for by the very first member, too";
  bench.open();
  bench.printer().answersToBlock = {rateReply("12")};
  EXPECT_EQ(bench.session().FormatPrecio(Decimal::fromDouble(1)), L"0000000001");
}

}  // namespace
}  // namespace corvid
