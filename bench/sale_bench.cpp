// The sale of twenty lines over a line as slow as a real one, on a clock that is moved by what the
// library sleeps: its figures are simulated seconds, the same on every machine.
#include "counted.h"
#include "counted_sale.h"

namespace corvid {
namespace {

constexpr double kCoarseTick = 0.0156;  // seconds; Windows' own

void withTimer(World& world) {
  world.clock.tickSeconds = kCoarseTick;
  world.clock.hasTimer = true;
}
void withBareTicks(World& world) { world.clock.tickSeconds = kCoarseTick; }

void sale(benchmark::State& state, bool immediate, CountedSale::Preparation prepare) {
  for (auto _ : state) {
    const CountedSale sale(immediate, prepare);
    if (sale.failure() != 0) state.SkipWithError("the sale failed");
    state.counters["simulated"] = sale.seconds();
    state.counters["wire"] = sale.wireSeconds();
    state.counters["requests"] = sale.requestSeconds();
    state.counters["reads"] = static_cast<double>(sale.sizesRead().size());
  }
}
BENCHMARK_CAPTURE(sale, off, false, nullptr)->Name("sale/off")->Iterations(1);
BENCHMARK_CAPTURE(sale, on, true, nullptr)->Name("sale/on")->Iterations(1);
BENCHMARK_CAPTURE(sale, timer, true, withTimer)->Name("sale/timer")->Iterations(1);
BENCHMARK_CAPTURE(sale, ticks, true, withBareTicks)->Name("sale/ticks")->Iterations(1);

}  // namespace
}  // namespace corvid
