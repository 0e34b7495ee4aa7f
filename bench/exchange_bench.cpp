// One whole exchange: status request, its reply, a command, its acknowledgement.
#include "counted.h"
#include "instant_line.h"
#include "session/printer_session.h"
#include "support/world.h"

#include <string>

namespace corvid {
namespace {

const std::wstring kCommand = L"!000000125000002000Pan campesino de masa madre";

void exchange(benchmark::State& state, const wchar_t* setting) {
  World world;
  world.settings.set(kSessionSection, setting, L"True");
  InstantLine line;
  ThreadState thread({world.process, world.settings, world.store, line, world.pump, world.dialog,
                      world.folders, world.files, world.views, world.clock, world.clock,
                      windows1252(), world.locale});
  PrinterSession session(thread);
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
BENCHMARK_CAPTURE(exchange, plain, L"None")->Name("exchange");
BENCHMARK_CAPTURE(exchange, traced, L"IsDebug")->Name("exchange/traced");

}  // namespace
}  // namespace corvid
