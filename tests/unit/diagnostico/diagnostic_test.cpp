// What the diagnostic program sends, tells and ends with.
#include "diagnostic_bench.h"
#include "session/setting_names.h"

#include <gtest/gtest.h>

#include <set>

namespace corvid {
namespace {

const Lines kWhole = {L"--buscar", L"--puerto", L"7", L"--carpeta", L"C:\\host"};

// The value of the first line with that name; "<none>" without one.
std::wstring valueOf(const std::wstring& report, const std::wstring& name) {
  for (const std::wstring& one : split(report, L"\n")) {
    if (one.starts_with(L"  " + name + L": ")) return one.substr(name.size() + 4);
  }
  return L"<none>";
}

// A printer must be as it was, whatever goes wrong: nothing but the questions stood on the line.
void expectOnlyAsked(DiagnosticBench& bench, int exitCode) {
  static const std::set<std::string> kQuestions = {"\x05", "\x06", "\x02S1\x03\x61"};
  for (const std::string& one : bench.sent) EXPECT_TRUE(kQuestions.contains(one)) << one;
  EXPECT_EQ(bench.line.paper(), "");
  EXPECT_EQ(bench.line.printer().machine().drawerOpenings, 0);
  // One that the system refuses to close stays open.
  EXPECT_LE(bench.world.serial.openHandles(), bench.world.serial.count("closeHandle"));
  EXPECT_EQ(bench.world.sockets.openSockets(), 0U);
  EXPECT_EQ(bench.world.files.openFiles, 0);
  EXPECT_LT(bench.world.clock.total(), 180);
  EXPECT_TRUE(exitCode == 0 || exitCode == 1) << exitCode;
  // Nothing passes for the printer's that it did not tell.
  const std::wstring invoice = valueOf(bench.said, L"Última factura");
  EXPECT_TRUE(invoice == L"0" || exitCode != 0) << testing::PrintToString(invoice);
}

void placeInNetwork(DiagnosticBench& bench) {
  bench.world.settings.set(kPlacesSection, L"7", L"tcp:box:4000");
}

TEST(Diagnostic, OnlyAsksAtEveryFailingCall) {
  for (const bool isInNetwork : {false, true}) {
    int calls = 1;
    for (int nth = 0; nth <= calls; ++nth) {
      DiagnosticBench bench;
      if (isInNetwork) placeInNetwork(bench);
      if (nth > 0) bench.world.faults.failFrom("", nth, isInNetwork ? SocketDouble::kHangUp : 5);
      const int exitCode = bench.run({L"--puerto", L"7"});
      if (nth == 0) calls = bench.world.faults.count();
      SCOPED_TRACE(std::to_string(isInNetwork) + ", call " + std::to_string(nth));
      expectOnlyAsked(bench, exitCode);
      if (testing::Test::HasFailure()) return;
    }
  }
}

// With a printer that hangs it is all that there is to see.
TEST(Diagnostic, SaysAtOnceWhatItKnows) {
  DiagnosticBench bench;
  bench.run({L"--puerto", L"7"});
  EXPECT_TRUE(bench.said.starts_with(bench.saidUnanswered));
  EXPECT_NE(bench.saidUnanswered.find(L"\nImpresora en COM7\n"), std::wstring::npos);
}

TEST(Diagnostic, OnlyAsksOnEveryDamagedLine) {
  forEachSeed(seedCount() / 10, [](Draw& draw) {
    DiagnosticBench bench;
    if (draw.oneIn(3)) placeInNetwork(bench);
    bench.world.serial.driver = {
        draw.oneOf({DriverModel::Reads::AtOnce, DriverModel::Reads::WaitOut}),
        draw.oneOf({DriverModel::Arrival::Bytes, DriverModel::Arrival::Fifo,
                    DriverModel::Arrival::UsbFrames, DriverModel::Arrival::Lumps})};
    bench.faulty.drawFaults(draw);
    expectOnlyAsked(bench, bench.run(kWhole));
    EXPECT_EQ(bench.world.serial.openHandles(), 0U);
  });
}

TEST(Diagnostic, ExitCodeTellsTheGravestTrouble) {
  using simulator::Fault;
  const struct {
    const char* name;
    void (*arrange)(DiagnosticBench&);
    Lines arguments;
    int exitCode;
  } cases[] = {
      {"well", [](auto&) {}, kWhole, 0},
      {"a serial port without a printer",
       [](auto& b) { b.line.misbehaviour().set(Fault::Silent, 2); },
       {L"--buscar"},
       0},
      {"silence",
       [](auto& b) { b.line.misbehaviour().set(Fault::Silent, simulator::kForEver); },
       {L"--puerto", L"7"},
       1},
      {"silence everywhere",
       [](auto& b) { b.line.misbehaviour().set(Fault::Silent, simulator::kForEver); },
       {L"--buscar"},
       1},
      {"an address that is silent",
       [](auto& b) {
         placeInNetwork(b);
         b.world.sockets.answers["10.0.0.1:4000"] = SocketDouble::Answer::Refuse;
       },
       {L"--buscar"},
       1},
      {"no paper",
       [](auto& b) { b.line.printer().machine().error = simulator::kNoPaper; },
       {L"--puerto", L"7"},
       1},
      {"full memory",
       [](auto& b) { b.line.printer().machine().isMemoryFull = true; },
       {L"--puerto", L"7"},
       1},
      {"wrong check bytes",
       [](auto& b) { b.line.misbehaviour().set(Fault::CorruptCheck, simulator::kForEver); },
       {L"--puerto", L"7"},
       1},
      {"counters refused",
       [](auto& b) { b.line.misbehaviour().set(Fault::Refuse, simulator::kForEver); },
       {L"--puerto", L"7"},
       1},
      {"counters that cannot be read",
       [](auto& b) { b.line.misbehaviour().addAnswer("S1", "S100\nx"); },
       {L"--puerto", L"7"},
       1},
      {"port taken",
       [](auto& b) { b.world.faults.failFrom("createFile", 1, 5); },
       {L"--puerto", L"7"},
       1},
      {"wrong setting",
       [](auto& b) { b.world.settings.set(kSessionSection, L"TimeOut", L"diez"); },
       {},
       4},
      {"wrong setting and silence",
       [](auto& b) {
         b.world.settings.set(kPlacesSection, L"3", L"COM4");
         b.line.misbehaviour().set(Fault::Silent, simulator::kForEver);
       },
       {L"--puerto", L"7"},
       1},
      {"library gone", [](auto& b) { b.machine.libraries.emplace_back().bits = 32; }, {}, 4},
      {"report and silence",
       [](auto& b) {
         b.canSave = false;
         b.line.misbehaviour().set(Fault::Silent, simulator::kForEver);
       },
       {L"--puerto", L"7", L"--informe", L"C:\\r.txt"},
       3},
      {"no such folder", [](auto&) {}, {L"--carpeta", L"C:\\nowhere"}, 2},
      {"no number", [](auto&) {}, {L"--puerto", L"COM7"}, 2},
      {"no port", [](auto&) {}, {L"--puerto", L"0"}, 2},
      {"no value", [](auto&) {}, {L"--informe"}, 2},
      {"no option", [](auto&) {}, {L"7"}, 2},
      {"help", [](auto&) {}, {L"--ayuda"}, 0},
  };
  for (const auto& one : cases) {
    DiagnosticBench bench;
    one.arrange(bench);
    EXPECT_EQ(bench.run(one.arguments), one.exitCode) << one.name;
    const bool isDone = one.exitCode != 2 && one.exitCode != 3;
    EXPECT_EQ(bench.complained.empty(), isDone) << one.name;
    EXPECT_TRUE(bench.sent.empty() || one.exitCode != 2) << one.name;
  }
}

// Mailed as it is, unless the shop has agreed.
TEST(Diagnostic, ReportIsTheWholeTextWithoutTheShopsData) {
  for (const bool tells : {false, true}) {
    DiagnosticBench bench;
    Lines arguments = {L"--puerto", L"7", L"--informe", L"C:\\r.txt"};
    if (tells) arguments.emplace_back(L"--con-datos");
    EXPECT_EQ(bench.run(arguments), 0);
    EXPECT_EQ(bench.saved[L"C:\\r.txt"], bench.said);
    for (const wchar_t* one : {L"Z1F0000001", L"J-12345678-9"}) {
      EXPECT_EQ(bench.said.find(one) != std::wstring::npos, tells);
    }
  }
}

TEST(Diagnostic, SimulationTouchesNoPort) {
  DiagnosticBench bench;
  bench.world.settings.set(kPlacesSection, L"1", L"tcp:box:4000");
  EXPECT_EQ(bench.run({L"--simulado", L"--buscar"}), 0);
  EXPECT_EQ(valueOf(bench.said, L"Última factura"), L"0");
  EXPECT_TRUE(bench.sent.empty());
  EXPECT_TRUE(bench.world.serial.opened().empty() && bench.world.sockets.asked().empty());
}

TEST(Diagnostic, ShowsHowTheDriverReads) {
  using Arrival = DriverModel::Arrival;
  using Reads = DriverModel::Reads;
  const struct {
    DriverModel driver;
    const wchar_t* reads;
    const wchar_t* arrival;  // how the counters came
  } cases[] = {
      {{Reads::AtOnce, Arrival::Whole}, L"devuelve en seguida", L" de una vez"},
      {{Reads::AtOnce, Arrival::Bytes}, L"devuelve en seguida", L" lecturas seguidas"},
      {{Reads::WaitOut, Arrival::Lumps},
       L"espera hasta el final",
       L" a golpes, con pausas de hasta 16 ms"},
  };
  for (const auto& one : cases) {
    DiagnosticBench bench;
    bench.world.serial.driver = one.driver;
    EXPECT_EQ(bench.run({L"--puerto", L"7"}), 0);
    const std::wstring manner = valueOf(bench.said, L"Una lectura que pide más de lo que hay");
    EXPECT_TRUE(manner.starts_with(one.reads)) << testing::PrintToString(manner);
    const std::wstring counters = valueOf(bench.said, L"Contadores (S1)");
    EXPECT_TRUE(counters.ends_with(one.arrival)) << testing::PrintToString(counters);
  }
}

}  // namespace
}  // namespace corvid
