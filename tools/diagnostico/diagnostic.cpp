#include "tools/diagnostico/diagnostic.h"

#include "basic/format.h"
#include "tools/diagnostico/arguments.h"
#include "tools/diagnostico/own_settings.h"
#include "tools/diagnostico/printer_check.h"
#include "tools/diagnostico/printer_facts.h"
#include "tools/diagnostico/settings_facts.h"
#include "tools/diagnostico/simulated_transport.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>

namespace corvid {
namespace {

constexpr int kWrongUsage = 2;
constexpr int kReportNotWritten = 3;

constexpr int kMeasuredStatuses = 5;
constexpr std::int16_t kSeconds = 5;        // for the answer of one printer
constexpr std::int16_t kSearchSeconds = 2;  // for that of each place

constexpr std::int16_t kSimulatedPort = 1;

// One run.
class Diagnostic {
 public:
  Diagnostic(const DiagnosticArguments& arguments, DiagnosticSystem& system)
      : arguments_(arguments),
        facts_(system.facts()),
        thread_(system.environment()),
        settings_(thread_.currentSettings()),
        printer_({}, simulator::systemTime),
        report_(arguments.tellsPrivateData, [&](const auto& text) { system.say(text); }) {}

  const DiagnosticReport& run() {
    tellMachine();
    tellLibraries();
    tellPorts();
    tellSettings(settings_, report_);
    if (arguments_.searches) search();
    if (arguments_.port) checkPrinter(*arguments_.port);
    if (!arguments_.port && arguments_.isSimulated) checkPrinter(kSimulatedPort);
    return report_;
  }

 private:
  void tellMachine();
  void tellLibraries();
  void tellLibrary(const RegisteredLibrary& library);
  void tellPorts();
  void search();
  void checkPrinter(std::int16_t port);
  [[nodiscard]] std::set<std::int16_t> places();
  [[nodiscard]] std::wstring addressOf(std::int16_t port) const;
  [[nodiscard]] std::wstring nameOf(std::int16_t port) const;
  [[nodiscard]] std::wstring deviceOf(std::int16_t port) const;
  [[nodiscard]] std::shared_ptr<Transport> stream(std::int16_t port, bool readsExactly);

  const DiagnosticArguments& arguments_;
  MachineFacts facts_;
  ThreadState thread_;
  Settings settings_;
  simulator::Printer printer_;
  DiagnosticReport report_;
};

void Diagnostic::tellMachine() {
  report_.begin(L"corvid-diagnostico " + facts_.program);
  report_.tell(L"Fecha", format(thread_.clock().now(), L"dd-mm-yyyy hh:nn:ss"));
  report_.tell(L"Windows", facts_.system);
  report_.tell(L"Región", facts_.region);
}

void Diagnostic::tellLibraries() {
  report_.begin(L"Bibliotecas registradas");
  for (const int bits : facts_.bitnesses) {
    const auto isOfThose = [bits](const RegisteredLibrary& one) { return one.bits == bits; };
    if (std::ranges::none_of(facts_.libraries, isOfThose)) {
      report_.tell(std::to_wstring(bits) + L" bits", L"ninguna");
    }
    for (const RegisteredLibrary& one : facts_.libraries) {
      if (isOfThose(one)) tellLibrary(one);
    }
  }
}

void Diagnostic::tellLibrary(const RegisteredLibrary& library) {
  const std::wstring name = std::to_wstring(library.bits) + L" bits, " +
                            (library.isOfUser ? L"solo este usuario" : L"toda la máquina");
  const std::wstring version = library.version.empty() ? L"desconocida" : library.version;
  report_.tell(name, library.file + L", versión " + version);
  if (!library.exists) report_.warn(Trouble::Setup, name + L": el archivo no existe");
}

void Diagnostic::tellPorts() {
  report_.begin(L"Puertos");
  const std::set<std::int16_t> ports = places();
  if (ports.empty()) report_.tell(L"Puertos que existen", L"ninguno");
  for (const std::int16_t port : ports) report_.tell(nameOf(port), deviceOf(port));
}

std::wstring Diagnostic::deviceOf(std::int16_t port) const {
  if (arguments_.isSimulated) return L"en este programa";
  if (!addressOf(port).empty()) return L"en la red";
  const auto device = facts_.devices.find(port);
  return device == facts_.devices.end() ? L"sin nombre de dispositivo" : device->second;
}

void Diagnostic::search() {
  report_.begin(L"Búsqueda");
  bool isAnyWell = false;
  bool isAnyIll = false;
  for (const std::int16_t port : places()) {
    const PrinterAnswers answers =
        askPrinter(thread_, stream(port, true), 1, kSearchSeconds, false);
    report_.tell(nameOf(port), statusWords(answers));
    isAnyWell = isAnyWell || isWell(answers);
    isAnyIll = isAnyIll || (!isWell(answers) && (answers.hasStatus || !addressOf(port).empty()));
  }
  if (isAnyIll) report_.warn(Trouble::Printer, L"una impresora no responde o tiene un error");
  if (!isAnyWell && !isAnyIll) report_.warn(Trouble::Printer, L"ninguna impresora responde");
}

void Diagnostic::checkPrinter(std::int16_t port) {
  report_.begin(L"Impresora en " + nameOf(port));
  const PrinterAnswers answers =
      askPrinter(thread_, stream(port, true), kMeasuredStatuses, kSeconds, true);
  tellPrinter(answers, report_);
  // A network has no driver that could read in another way.
  if (!answers.hasStatus || arguments_.isSimulated || !addressOf(port).empty()) return;
  tellManner(askPrinter(thread_, stream(port, false), 1, kSeconds, false).manner, report_);
}

// Of the serial ports and the addresses.
std::set<std::int16_t> Diagnostic::places() {
  if (arguments_.isSimulated) return {kSimulatedPort};
  std::set<std::int16_t> ports;
  for (const std::int16_t port : thread_.transports().present()) ports.insert(port);
  for (std::int16_t port = 1; port <= kHighestPort; ++port) {
    if (!addressOf(port).empty()) ports.insert(port);
  }
  return ports;
}

std::wstring Diagnostic::addressOf(std::int16_t port) const {
  if (arguments_.isSimulated) return {};
  return settings_.text(kApplication, kPlacesSection, std::to_wstring(port), L"");
}

std::wstring Diagnostic::nameOf(std::int16_t port) const {
  const std::wstring name = L"COM" + std::to_wstring(port);
  if (arguments_.isSimulated) return name + L" (impresora simulada)";
  const std::wstring address = addressOf(port);
  return address.empty() ? name : name + L" = " + address;
}

std::shared_ptr<Transport> Diagnostic::stream(std::int16_t port, bool readsExactly) {
  if (arguments_.isSimulated) {
    return std::make_shared<SimulatedTransport>(printer_, thread_.clock());
  }
  OwnSettings settings([&](const std::wstring& section, const std::wstring& key) {
    if (section == kPlacesSection) return addressOf(port);
    return key == L"LecturaInmediata" ? toText(readsExactly) : std::wstring();
  });
  return thread_.transports().make(port, settings.readers());
}

// The exit code of a run whose arguments make sense.
int runWith(const DiagnosticArguments& arguments, DiagnosticSystem& system) {
  Diagnostic diagnostic(arguments, system);
  const DiagnosticReport& report = diagnostic.run();
  if (arguments.report && !system.save(*arguments.report, report.text())) {
    system.complain(L"corvid-diagnostico: no se pudo escribir " + *arguments.report + L"\n");
    return kReportNotWritten;
  }
  return report.exitCode();
}

}  // namespace

int runDiagnostic(const Lines& arguments, DiagnosticSystem& system) {
  auto [parsed, error] = parsedDiagnosticArguments(arguments);
  if (error.empty() && parsed.folder && !system.enterFolder(*parsed.folder)) {
    error = L"--carpeta: no existe " + *parsed.folder;
  }
  if (!error.empty()) {
    system.complain(L"corvid-diagnostico: " + error + L"; vea corvid-diagnostico --ayuda\n");
    return kWrongUsage;
  }
  if (parsed.isHelpWanted) {
    system.say(diagnosticHelp());
    return 0;
  }
  return runWith(parsed, system);
}

}  // namespace corvid
