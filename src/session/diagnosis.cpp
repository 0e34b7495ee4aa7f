#include "session/diagnosis.h"

#include "session/setting_names.h"

namespace corvid {
namespace {

constexpr const wchar_t* kLineEnd = L"\r\n";

class Facts {
 public:
  void add(const std::wstring& name, const std::wstring& value) {
    text_ += name + L": " + value + kLineEnd;
  }
  void add(const std::wstring& name, std::int32_t value) { add(name, std::to_wstring(value)); }
  [[nodiscard]] std::wstring text() && { return std::move(text_); }

 private:
  std::wstring text_;
};

std::wstring textOf(const Settings& settings, const FoundSetting& found) {
  switch (found.origin) {
    case SettingOrigin::File:
      return found.text + L" (" + settings.filePath(kApplication) + L")";
    case SettingOrigin::UserStore:
      return found.text + L" (registro del usuario)";
    default:
      return L"valor predeterminado";
  }
}

void addSetting(Facts& facts, const Settings& settings, const std::wstring& section,
                const std::wstring& key) {
  const FoundSetting found = settings.find(kApplication, section, key, L"");
  facts.add(section + L"\\" + key, textOf(settings, found));
}

void addSettings(Facts& facts, const Settings& settings) {
  for (const auto& one : sessionSettings()) addSetting(facts, settings, one.section, one.key);
}

std::wstring portList(ThreadState& thread) {
  std::wstring list;
  for (const std::int16_t port : thread.transports().present()) {
    list += (list.empty() ? L"COM" : L", COM") + std::to_wstring(port);
  }
  return list.empty() ? L"ninguno" : list;
}

std::wstring mannerOf(const OpeningRef& opening) {
  switch (opening ? opening->transport->readManner() : ReadManner::Unseen) {
    case ReadManner::AtOnce:
      return L"devuelve en seguida lo que hay";
    case ReadManner::WaitsOut:
      return L"espera hasta el final del plazo";
    default:
      return L"no se ha visto";
  }
}

void addPort(Facts& facts, PrinterSession& session) {
  Exchange& exchange = session.exchange();
  facts.add(L"Puertos que existen", portList(session.thread()));
  const std::int16_t port = exchange.state().port;
  const OpeningRef opening = exchange.opening();
  const std::wstring address = opening ? opening->transport->address() : std::wstring();
  const std::wstring serial = port == 0 ? L"ninguno" : L"COM" + std::to_wstring(port);
  const std::wstring name = address.empty() ? serial : address;
  if (port != 0) addSetting(facts, session.settings(), kPlacesSection, std::to_wstring(port));
  facts.add(L"Puerto de la sesi\u00F3n", name + (opening ? L", abierto" : L", cerrado"));
  facts.add(L"Lecturas del controlador", mannerOf(opening));
}

void addOutcome(Facts& facts, PrinterSession& session) {
  const Outcome& outcome = session.outcome();
  const SendRecord& sent = session.exchange().lastSend();
  facts.add(L"pfError", outcome.pfError);
  facts.add(L"DescripcionError", outcome.DescripcionError);
  facts.add(L"resultFlag", outcome.resultFlag);
  facts.add(L"STS1", outcome.STS1);
  facts.add(L"STS2", outcome.STS2);
  facts.add(L"UltimoEnvio", sent.outcome());
  facts.add(L"BloquesEnviados", sent.blocks());
  facts.add(L"Milisegundos", sent.milliseconds());
}

std::wstring orNone(const std::wstring& name) { return name.empty() ? L"ninguno" : name; }

}  // namespace

std::wstring diagnosis(PrinterSession& session, const Installation& installation) {
  Facts facts;
  facts.add(L"CorvidAPI", installation.version);
  facts.add(L"Archivo", installation.file);
  facts.add(L"Windows", installation.system);
  facts.add(L"Regi\u00F3n", installation.region);
  facts.add(L"Carpeta de los ajustes", session.settings().filePath(kApplication));
  addSettings(facts, session.settings());
  addPort(facts, session);
  facts.add(L"SerialPrinter", session.state().SerialPrinter);
  addOutcome(facts, session);
  facts.add(L"Archivo de la traza", orNone(session.thread().trace().fileName()));
  facts.add(L"Archivo del volcado", orNone(session.thread().transports().dumpName()));
  return std::move(facts).text();
}

}  // namespace corvid
