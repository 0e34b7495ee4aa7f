// One whole exchange: status request, its reply, a command, its acknowledgement.
#include "counted.h"
#include "instant_line.h"
#include "records/status_queries.h"
#include "session/printer_session.h"
#include "support/world.h"

#include <string>

namespace corvid {
namespace {

const std::wstring kCommand = L"!000000125000002000Pan campesino de masa madre";

void exchange(benchmark::State& state, bool immediate) {
  World world;
  if (immediate) world.settings.set(L"Config\\ModComm", L"LecturaInmediata", L"True");
  InstantLine line;
  ProcessState process({world.settings, world.store, line, world.host, world.dialog, world.folders,
                   world.views, world.clock, windows1252(), world.locale});
  PrinterSession session(process, status);
  session.state().SerialPrinter = L"KNOWN";
  session.Abrir(7);
  const std::size_t before = line.bytes();
  session.Execute(kCommand);
  const std::size_t bytes = line.bytes() - before;
  for (auto _ : state) {
    if (session.Execute(kCommand) != pfOk) state.SkipWithError("the exchange failed");
  }
  countWire(state, bytes);
}
BENCHMARK_CAPTURE(exchange, off, false)->Name("exchange/off");
BENCHMARK_CAPTURE(exchange, on, true)->Name("exchange/on");

}  // namespace
}  // namespace corvid
