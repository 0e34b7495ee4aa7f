#include "com/variant_conversions.h"

#include "support/error_of.h"
#include "unit/com/automation_host.h"
#include "windows/locale.h"

#include <algorithm>

namespace corvid::testing {
namespace {

using VariantConversions = AutomationTest;

constexpr int kMismatch = 13;
constexpr int kOverflow = 6;

// As the user writes a number.
Variant numeral(std::wstring digits) {
  std::ranges::replace(digits, L'.', WindowsLocale().current().decimalSeparator.front());
  return text(digits.c_str());
}

// 79228162514264337593543950335 / 10^28: more digits than 64 bits hold.
Variant longDecimal() {
  Variant variant;
  DECIMAL value{};
  value.scale = 28;
  value.Hi32 = 0xFFFFFFFF;
  value.Lo64 = 0xFFFFFFFFFFFFFFFF;
  V_DECIMAL(variant.get()) = value;
  V_VT(variant.get()) = VT_DECIMAL;
  return variant;
}

TEST_F(VariantConversions, GiveTextsAsTheUserWritesThem) {
  const struct {
    Variant value;
    std::wstring text;
  } cases[] = {
      {text(L"PAN"), L"PAN"},
      {Variant(), L""},
      {nullValue(), L""},
      {Variant::ofInt32(-12345678), L"-12345678"},
      {boolean(true), L"True"},
      {Variant(Bstr(std::wstring_view(L"a\0b", 3))), std::wstring(L"a\0b", 3)},
  };
  for (const auto& one : cases) EXPECT_EQ(one.text, toText(one.value.value()));
  EXPECT_EQ(kMismatch, errorOf([] { return toText(missing().value()); }));
  EXPECT_EQ(kMismatch, errorOf([] { return toTextNoNull(nullValue().value()); }));
  EXPECT_EQ(L"", toTextNoNull(Variant().value()));
}

TEST_F(VariantConversions, GiveExactDecimals) {
  const struct {
    Variant value;
    const wchar_t* decimal;
    const char* reason;
  } cases[] = {
      {number(1.005), L"1.005", "a double counts by its 15 digits"},
      {number(0.1 + 0.2), L"0.3", "a double counts by its 15 digits"},
      {holding(VT_CY, std::int64_t{-10050}), L"-1.005", "four decimals, no double between"},
      {longDecimal(), L"7.9228162514264337593543950335", "96 bits"},
      {boolean(true), L"-1", "True is -1"},
      {Variant(), L"0", "Empty is zero"},
      {text(L"12"), L"12", "a text"},
      {numeral(L"922337203685477.5807"), L"922337203685477.5807", "no double between"},
      {holding(VT_UI8, ULONGLONG{9223372036854775807U}), L"9223372036854775807", "64 bits"},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(*Decimal::parse(one.decimal), toDecimal(one.value.value())) << one.reason;
  }
}

TEST_F(VariantConversions, RoundHalfToEvenAtTheEdgeOfTheType) {
  EXPECT_EQ(10002, toCurrency(number(1.00025).value()).units());
  EXPECT_EQ(10004, toCurrency(numeral(L"1.00035").value()).units());
  EXPECT_EQ(8, toInt16(number(7.5).value()));
  EXPECT_EQ(8, toInt16(text(L" 8 ").value()));
  EXPECT_EQ(32767, toInt16(Variant::ofInt32(32767).value()));
}

TEST_F(VariantConversions, RefuseWhatIsNoNumberOrTooLarge) {
  const struct {
    Variant value;
    int error;
    const char* reason;
  } cases[] = {
      {text(L"siete"), kMismatch, "words"},
      {text(L""), kMismatch, "no digits"},
      {nullValue(), kMismatch, "Null is no number"},
      {missing(), kMismatch, "a left-out argument"},
      {objectValue(nullptr), kMismatch, "Nothing has no default property"},
      {number(32768), kOverflow, "one above 16 bits"},
      {numeral(L"32767.5"), kOverflow, "rounds to one above"},
      {holding(VT_UI8, ULONGLONG{9223372036854775808U}), kOverflow, "one above 64 bits"},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(one.error, errorOf([&] { return toInt16(one.value.value()); })) << one.reason;
  }
  EXPECT_EQ(kOverflow, errorOf([] { return toCurrency(number(1e15).value()); }));
  EXPECT_EQ(kMismatch, errorOf([] { return toDouble(nullValue().value()); }));
}

TEST_F(VariantConversions, LookThroughVariablesAndObjects) {
  Variant inner = number(2.5);
  Variant outer;
  *outer.get() = variable(inner);
  EXPECT_EQ(2.5, toDouble(outer.value()));
  EXPECT_EQ(2.5, toDouble(variable(inner)));
  Variant left = missing();
  EXPECT_TRUE(isMissing(variable(left)));
  EXPECT_EQ(std::nullopt, toOptionalText(left.value()));
  EXPECT_EQ(L"", toOptionalText(Variant().value()));

  const auto buffer = newBuffer();
  putLate(buffer.get(), L"Value", text(L"42").value());
  EXPECT_EQ(42, toInt16(objectValue(buffer.get()).value()));
  EXPECT_EQ(kMismatch, errorOf([] { return toText(objectValue(newSession().get()).value()); }));
}

TEST_F(VariantConversions, ReadBooleans) {
  EXPECT_TRUE(toBoolean(boolean(true).value()));
  EXPECT_TRUE(toBoolean(number(0.1).value()));
  EXPECT_TRUE(toBoolean(text(L"true").value()));
  EXPECT_FALSE(toBoolean(text(L"0").value()));
  EXPECT_FALSE(toBoolean(Variant().value()));
  EXPECT_EQ(kMismatch, errorOf([] { return toBoolean(text(L"si").value()); }));
  EXPECT_EQ(kMismatch, errorOf([] { return toBoolean(nullValue().value()); }));
}

TEST_F(VariantConversions, ReadDatesOrBlanks) {
  EXPECT_EQ(std::nullopt, toDateOrBlank(nullValue().value()));
  EXPECT_EQ(std::nullopt, toDateOrBlank(Variant().value()));
  EXPECT_EQ(std::nullopt, toDateOrBlank(text(L"").value()));
  EXPECT_EQ(Date{46095.5}, toDateOrBlank(holding(VT_DATE, 46095.5).value()));
  EXPECT_EQ(Date{46095}, toDateOrBlank(Variant::ofInt32(46095).value()));
  EXPECT_EQ(Date{46095}, toDateOrBlank(text(L"2026-03-14").value()));
  EXPECT_EQ(kMismatch, errorOf([] { return toDateOrBlank(text(L"ayer").value()); }));
  EXPECT_EQ(kOverflow, errorOf([] { return toDateOrBlank(holding(VT_DATE, 1e9).value()); }));
}

}  // namespace
}  // namespace corvid::testing
