#include "session/amount_formats.h"

#include "basic/format.h"
#include "session/session_settings.h"

namespace corvid {
namespace {

struct KindKeys {
  const wchar_t* digits;
  const wchar_t* decimals;
};

constexpr auto kKeys = std::to_array<KindKeys>({
    {L"DigitosPrecio", L"DecimalesPrecio"},
    {L"DigitosCantidad", L"DecimalesCantidad"},
    {L"DigitosMedio", L"DecimalesMedio"},
});

struct FlagFormats {
  std::int16_t flag21;
  std::array<AmountFormat, 3> formats;  // price, quantity, payment
};

constexpr std::array<AmountFormat, 3> kUsualFormats = {{{10, 2}, {8, 3}, {12, 2}}};
constexpr std::array<FlagFormats, 5> kFlagFormats = {{
    {2, {{{10, 3}, {8, 3}, {12, 2}}}},
    {3, {{{10, 4}, {8, 3}, {12, 2}}}},
    {11, {{{10, 1}, {8, 3}, {12, 1}}}},
    {12, {{{10, 0}, {8, 3}, {12, 0}}}},
    {30, {{{16, 2}, {17, 3}, {17, 2}}}},
}};

}  // namespace

AmountFormat printerFormat(AmountKind kind, std::int16_t flag21) {
  const auto index = static_cast<std::size_t>(kind);
  for (const FlagFormats& entry : kFlagFormats) {
    if (entry.flag21 == flag21) return entry.formats.at(index);
  }
  return kUsualFormats.at(index);
}

std::wstring AmountFormats::digits(AmountKind kind, const Decimal& amount) {
  const AmountFormat format = formatOf(kind);
  return formatFixedPoint(amount, format.digits, format.decimals);
}

AmountFormat AmountFormats::formatOf(AmountKind kind) {
  AmountFormat& cached = cache_.at(static_cast<std::size_t>(kind));
  if (cached.digits != 0) return cached;

  const KindKeys& keys = kKeys.at(static_cast<std::size_t>(kind));
  const AmountFormat configured{int16Setting(settings_, keys.digits, -1),
                                int16Setting(settings_, keys.decimals, -1)};
  if (configured.digits >= 0 && configured.decimals >= 0) return cached = configured;

  const Flag21 flag = loadFlag21_();
  const AmountFormat fallback = printerFormat(kind, flag.value);
  if (flag.isKnown) cached = fallback;
  return fallback;
}

}  // namespace corvid
