// Amounts and dates in their formats, beside the C library's; word wrap, beside a plain copy.
#include "basic/currency.h"
#include "basic/format.h"
#include "counted.h"
#include "documents/str2lines.h"

#include <array>
#include <cwchar>
#include <string>

namespace corvid {
namespace {

void fixedPoint(benchmark::State& state) {
  const Decimal price = Currency::fromDouble(12.5).toDecimal();
  for (auto _ : state) {
    benchmark::DoNotOptimize(formatFixedPoint(price, 10, 2));
  }
}
BENCHMARK(fixedPoint)->Name("format/amount");

void byPattern(benchmark::State& state) {
  const Currency total = Currency::fromDouble(1234567.891);
  for (auto _ : state) {
    benchmark::DoNotOptimize(format(total, L"#,##0.00"));
  }
}
BENCHMARK(byPattern)->Name("format/pattern");

void date(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(format(Date{46095.4376736111}, L"dd/mm/yyyy hh:nn:ss"));
  }
}
BENCHMARK(date)->Name("format/date");

template <typename... Values>
void print(benchmark::State& state, const wchar_t* pattern, Values... values) {
  std::array<wchar_t, 40> buffer{};
  for (auto _ : state) {
    const int length = std::swprintf(buffer.data(), buffer.size(), pattern, values...);
    benchmark::DoNotOptimize(std::wstring(buffer.data(), static_cast<std::size_t>(length)));
  }
}
BENCHMARK_CAPTURE(print, amount, L"%012.0f", 1250.0)->Name("format/amount/std");
BENCHMARK_CAPTURE(print, pattern, L"%.2f", 1234567.891)->Name("format/pattern/std");
BENCHMARK_CAPTURE(print, date, L"%02d/%02d/%04d %02d:%02d:%02d", 14, 3, 2026, 10, 30, 15)
    ->Name("format/date/std");

const std::wstring kAddress =
    L"Avenida Bolivar, edificio Los Proceres, piso 3, apartamento 3-B, urbanizacion El Parque, "
    L"municipio Chacao; Caracas, estado Miranda, codigo postal 1060 (frente a la plaza)";

void wrap(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(lmStr2Lines(kAddress, 40));
  }
  countWire(state, kAddress.size());
}
BENCHMARK(wrap)->Name("wrap");

}  // namespace
}  // namespace corvid
