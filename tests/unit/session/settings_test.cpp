// What a session takes from its settings, and how wide its amounts are.
#include "session/setting_names.h"
#include "support/session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(SessionSettings, DefaultsHoldWithoutASetting) {
  SessionBench bench;
  const SessionState& state = bench.session().state();
  EXPECT_EQ(bench.exchange().state().timeOut, 10);
  EXPECT_EQ(state.retries, 3);
  EXPECT_EQ(state.columnasDescripcion, 28);
  EXPECT_EQ(state.numTasas, 0);
  EXPECT_EQ(state.f21, 0);
  EXPECT_EQ(PrinterSession::lStatus(), 0);
  EXPECT_FALSE(bench.exchange().state().skipChecks);
  EXPECT_FALSE(bench.exchange().state().testMode);
  EXPECT_EQ(bench.session().AnchoDireccion(), 40);
  EXPECT_EQ(bench.session().LineasDireccion(), 10);
  SessionBench asked({{L"Retries", L"5"}});
  EXPECT_EQ(asked.session().state().retries, 5);
}

std::vector<std::wstring> behaviourOf(SessionBench& bench) {
  const auto session = bench.another();
  const SessionState& state = session->state();
  const ExchangeState& exchange = session->exchange().state();
  const double start = bench.world().clock.total();
  session->Demora(4);
  std::vector<std::wstring> behaviour = {session->FormatPrecio(Decimal()),
                                         session->FormatCantidad(Decimal()),
                                         session->FormatMedio(Decimal())};
  for (const double value :
       {bench.world().clock.total() - start, exchange.limiteEspera, 1.0 * exchange.timeOut,
        1.0 * exchange.skipChecks, 1.0 * exchange.testMode, 1.0 * exchange.rechazoEsError,
        1.0 * exchange.verificarRespuesta, 1.0 * exchange.sinMensajes, 1.0 * state.retries,
        1.0 * state.columnasDescripcion, 1.0 * session->AnchoDireccion(),
        1.0 * session->LineasDireccion(), 1.0 * session->tipoPrinter(),
        1.0 * bench.thread().trace().isOn()}) {
    behaviour.push_back(std::to_wstring(value));
  }
  return behaviour;
}

// Support believes the table: writing down what it tells as the default changes nothing.
TEST(SessionSettings, TableTellsTheDefaultsThatHold) {
  SessionBench bare;
  SessionBench told;
  for (const SettingName& one : sessionSettings()) {
    if (one.kind == SettingKind::FileName || one.kind == SettingKind::Rate) continue;
    told.world().settings.set(one.section, one.key, one.fallback);
  }
  EXPECT_EQ(behaviourOf(told), behaviourOf(bare));
}

TEST(SessionSettings, TimeOutIsAWholeNumberOrItsDefault) {
  const struct {
    std::wstring text;
    std::int16_t seconds;
    const char* reason;
  } kCases[] = {
      {L"5", 5, "plain"},          {L"7,5", 8, "half to even"},
      {L"6.5", 6, "half to even"}, {L"99999", 10, "does not fit 16 bits"},
      {L"abc", 10, "no number"},   {L"3 s", 3, "leading number"},
  };
  for (const auto& item : kCases) {
    SessionBench bench({{L"TimeOut", item.text}});
    EXPECT_EQ(bench.session().exchange().state().timeOut, item.seconds) << item.reason;
  }
}

TEST(SessionSettings, RateListEndsAtTheFirstGapAndAtSeven) {
  SessionBench bench;
  FakeSettings& settings = bench.world().settings;
  for (const wchar_t* key : {L"0", L"1", L"3"}) settings.set(kRates, key, L"16.5");
  const auto two = bench.another();
  EXPECT_EQ(two->state().numTasas, 2);
  EXPECT_DOUBLE_EQ(two->state().tasas[1], 16.5);
  settings.set(kRates, L"1", L"exento");
  EXPECT_DOUBLE_EQ(bench.another()->state().tasas[1], 0) << "no number";
  for (int i = 0; i < 9; ++i) settings.set(kRates, std::to_wstring(i), L"8 %");
  const auto seven = bench.another();
  EXPECT_EQ(seven->state().numTasas, 7);
  EXPECT_DOUBLE_EQ(seven->state().tasas[6], 8);
}

TEST(SessionSettings, ModelComesFromTheSettingOrTheSerial) {
  const struct {
    std::wstring setting;
    std::wstring serial;
    std::int32_t model;
  } kCases[] = {
      {L"", L"Z6B1234567", DT230},   {L"", L"Z7A1", HKA112},  {L"", L"Z1F", SRP812},
      {L"", L"z6b1234567", SRP350},  {L"", L"", SRP350},      {L"7", L"Z6B1234567", 7},
      {L"0", L"Z6B1234567", SRP350}, {L"-2", L"Z1F", SRP812},
  };
  for (const auto& item : kCases) {
    SessionBench bench({{L"TipoPrinter", item.setting}});
    bench.session().state().SerialPrinter = item.serial;
    EXPECT_EQ(bench.session().tipoPrinter(), item.model) << testing::PrintToString(item.serial);
  }
}

TEST(SessionSettings, DelayEndsAlsoAcrossMidnight) {
  SessionBench bench({{L"FactorDelay", L"0,5"}});
  FakeClock& clock = bench.world().clock;
  clock.setSeconds(86399.0F);
  bench.session().Demora(4);
  EXPECT_NEAR(clock.secondsSinceMidnight(), 1.0F, 0.1F);
  SessionBench byDefault;
  byDefault.session().Demora(100);
  EXPECT_NEAR(byDefault.world().clock.total(), 30, 0.005);
  byDefault.session().Demora(3);
  EXPECT_NEAR(byDefault.world().clock.total(), 30.9, 0.01) << "less than a second, too";
}

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
    bench.session().state().s3 = nullptr;
    bench.printer().answersToBlock = {rateReply("12")};
    EXPECT_EQ(bench.session().FormatPrecio(amount), item.price) << "and the form is kept";
  }
}

TEST(AmountFormats, SettingsWinWhenBothAreThere) {
  SessionBench both({{L"DigitosPrecio", L"6"}, {L"DecimalesPrecio", L"0"}});
  EXPECT_EQ(both.session().FormatPrecio(Decimal::fromDouble(12.5)), L"000013");
  EXPECT_TRUE(both.printer().blocks.empty()) << "no need to ask the printer";

  SessionBench bare({{L"DigitosPrecio", L"0"}, {L"DecimalesPrecio", L"2"}});
  EXPECT_EQ(bare.session().FormatPrecio(Decimal::fromDouble(12.5)), L"1250") << "without padding";

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
