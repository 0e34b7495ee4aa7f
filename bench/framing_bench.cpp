// A command on its way to the port: framed, and made readable for the trace.
#include "basic/code_page.h"
#include "counted.h"
#include "protocol/framing.h"

#include <string>

namespace corvid {
namespace {

const std::wstring kCommand = L"!000000125000002000Pan campesino de masa madre";

void framing(benchmark::State& state) {
  const std::size_t bytes = BuildCommandBlock(kCommand, windows1252()).size();
  for (auto _ : state) {
    benchmark::DoNotOptimize(BuildCommandBlock(kCommand, windows1252()));
  }
  countWire(state, bytes);
}
BENCHMARK(framing)->Name("framing");

void escape(benchmark::State& state) {
  const std::wstring block = BuildCommandBlock(kCommand, windows1252());
  for (auto _ : state) {
    benchmark::DoNotOptimize(EscapeString(block));
  }
  countWire(state, block.size());
}
BENCHMARK(escape)->Name("escape");

}  // namespace
}  // namespace corvid
