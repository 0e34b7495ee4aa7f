// The sale of twenty lines over a line as slow as a real one, on a clock that is moved by hand: its
// figures are simulated seconds, the same on every machine.
#include "counted.h"
#include "counted_sale.h"

namespace corvid {
namespace {

void sale(benchmark::State& state, bool immediate) {
  for (auto _ : state) {
    const CountedSale sale(immediate);
    if (sale.failure() != 0) state.SkipWithError("the sale failed");
    state.counters["simulated"] = sale.seconds();
    state.counters["wire"] = sale.wireSeconds();
    state.counters["requests"] = sale.requestSeconds();
    state.counters["reads"] = static_cast<double>(sale.sizesRead().size());
  }
}
BENCHMARK_CAPTURE(sale, off, false)->Name("sale/off")->Iterations(1);
BENCHMARK_CAPTURE(sale, on, true)->Name("sale/on")->Iterations(1);

}  // namespace
}  // namespace corvid
