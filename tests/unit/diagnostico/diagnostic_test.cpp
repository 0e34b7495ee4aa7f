// What the diagnostic program sends, tells and ends with, and what it says of settings.
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

using Arrange = void (*)(DiagnosticBench& bench);

void leaveAlone(DiagnosticBench&) {}
template <simulator::Fault fault, int times = simulator::kForEver>
void misbehave(DiagnosticBench& bench) {
  bench.line.misbehaviour().set(fault, times);
}
void refuseConnections(DiagnosticBench& bench) {
  placeInNetwork(bench);
  bench.world.sockets.answers["10.0.0.1:4000"] = SocketDouble::Answer::Refuse;
}
void takePaper(DiagnosticBench& bench) {
  bench.line.printer().machine().error = simulator::kNoPaper;
}
void fillMemory(DiagnosticBench& bench) { bench.line.printer().machine().isMemoryFull = true; }
void garbleCounters(DiagnosticBench& bench) {
  bench.line.misbehaviour().addAnswer("S1", "S100\nx");
}
void takePort(DiagnosticBench& bench) { bench.world.faults.failFrom("createFile", 1, 5); }
void setWrongly(DiagnosticBench& bench) {
  bench.world.settings.set(kSessionSection, L"TimeOut", L"diez");
}
void setWronglyAndSilence(DiagnosticBench& bench) {
  setWrongly(bench);
  misbehave<simulator::Fault::Silent>(bench);
}
void removeLibrary(DiagnosticBench& bench) { bench.machine.libraries.emplace_back().bits = 32; }
void refuseReportAndSilence(DiagnosticBench& bench) {
  bench.canSave = false;
  misbehave<simulator::Fault::Silent>(bench);
}

TEST(Diagnostic, ExitCodeTellsTheGravestTrouble) {
  using simulator::Fault;
  const Lines kPort = {L"--puerto", L"7"};
  const Lines kSearch = {L"--buscar"};
  const struct {
    const char* name;
    Arrange arrange;
    Lines arguments;
    int exitCode;
  } cases[] = {
      {"well", leaveAlone, kWhole, 0},
      {"a serial port without a printer", misbehave<Fault::Silent, 2>, kSearch, 0},
      {"silence", misbehave<Fault::Silent>, kPort, 1},
      {"silence everywhere", misbehave<Fault::Silent>, kSearch, 1},
      {"an address that is silent", refuseConnections, kSearch, 1},
      {"no paper", takePaper, kPort, 1},
      {"full memory", fillMemory, kPort, 1},
      {"wrong check bytes", misbehave<Fault::CorruptCheck>, kPort, 1},
      {"counters refused", misbehave<Fault::Refuse>, kPort, 1},
      {"counters that cannot be read", garbleCounters, kPort, 1},
      {"port taken", takePort, kPort, 1},
      {"wrong setting", setWrongly, {}, 4},
      {"wrong setting and silence", setWronglyAndSilence, kPort, 1},
      {"library gone", removeLibrary, {}, 4},
      {"report and silence", refuseReportAndSilence, {L"--puerto", L"7", L"--informe", L"r"}, 3},
      {"no such folder", leaveAlone, {L"--carpeta", L"C:\\nowhere"}, 2},
      {"no number", leaveAlone, {L"--puerto", L"COM7"}, 2},
      {"no port", leaveAlone, {L"--puerto", L"0"}, 2},
      {"no value", leaveAlone, {L"--informe"}, 2},
      {"no option", leaveAlone, {L"7"}, 2},
      {"help", leaveAlone, {L"--ayuda"}, 0},
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

constexpr const wchar_t* kRateSection = L"Config\\NimbusPF\\Tasas";
const std::wstring kInFile = L" (C:\\host\\ORV.ini)";

struct Case {
  const wchar_t* section;
  const wchar_t* key;
  const wchar_t* text;
  bool isWrong;
};

const Case kCases[] = {
    {kSessionSection, L"TimeOut", L"7,5 s", false},
    {kSessionSection, L"TimeOut", L"s 7", true},
    {kSessionSection, L"TimeOut", L"32768", true},
    {kSessionSection, L"TipoPrinter", L"32768", false},
    {kSessionSection, L"LimiteEspera", L"0,5", false},
    {kSessionSection, L"LimiteEspera", L"1e30", true},
    {kSessionSection, L"SinMensajes", L"true", false},
    {kSessionSection, L"SinMensajes", L"-1", false},
    {kSessionSection, L"SinMensajes", L"Sí", true},
    {kPortSection, L"LecturaInmediata", L"no", true},
    {kPortSection, L"DEBUG", L"0", false},
    {kPortSection, L"DEBUG", L"False", true},
    {kPortSection, L"DumpFile", L"dump.txt", false},
    {kPortSection, L"DumpFile", L"\\\\server\\dump.txt", true},
    {kRateSection, L"1", L"16.5", false},
    {kRateSection, L"1", L"nil", false},
    {kRateSection, L"1", L"16,5", true},
    {kRateSection, L"1", L"IVA", true},
    {kPlacesSection, L"99", L"tcp:box:4000", false},
    {kPlacesSection, L"99", L"box:4000", true},
};

TEST(SettingsFacts, TellOriginAndNameWhatIsWrong) {
  for (const Case& one : kCases) {
    DiagnosticBench bench;
    bench.world.settings.set(one.section, one.key, one.text);
    const std::wstring name = std::wstring(one.section) + L"\\" + one.key;
    EXPECT_EQ(bench.run({}), one.isWrong ? 4 : 0) << testing::PrintToString(name);
    const std::wstring line = L"\n  " + name + L": " + one.text + kInFile + L"\n";
    const auto found = bench.said.find(line);
    ASSERT_NE(found, std::wstring::npos) << testing::PrintToString(name);
    const std::wstring warning = L"  AVISO: " + name + L": ";
    EXPECT_EQ(bench.said.compare(found + line.size(), warning.size(), warning) == 0, one.isWrong)
        << testing::PrintToString(name);
  }
}

TEST(SettingsFacts, FileOfTheFolderGoesBeforeTheStore) {
  DiagnosticBench bench;
  bench.world.settings.setInStore(kSessionSection, L"TimeOut", L"8");
  bench.world.settings.setInStore(kSessionSection, L"Retries", L"4");
  // The user's store may name a network.
  bench.world.settings.setInStore(kSessionSection, L"DEBUGFILE", L"\\\\server\\trace.log");
  bench.world.settings.setIn(L"C:\\other", kSessionSection, L"TimeOut", L"6");
  EXPECT_EQ(bench.run({L"--carpeta", L"C:\\other"}), 0);
  for (const wchar_t* line :
       {L"TimeOut: 6 (C:\\other\\ORV.ini)\n", L"Retries: 4 (registro del usuario)\n",
        L"SkipChecks: False (valor predeterminado)\n"}) {
    EXPECT_NE(bench.said.find(line), std::wstring::npos)
        << testing::PrintToString(std::wstring(line));
  }
}

}  // namespace
}  // namespace corvid
