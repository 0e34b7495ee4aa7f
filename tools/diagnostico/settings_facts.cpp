#include "tools/diagnostico/settings_facts.h"

#include "basic/conversions.h"
#include "platform/file_names.h"
#include "session/session_settings.h"
#include "transport/modcomm.h"
#include "transport/tcp_address.h"

#include <cstdint>

namespace corvid {
namespace {

// With a text that no reader takes, the answer is the caller's.
template <class Read>
bool fallsBack(const Read& read) {
  return read(0) != read(1);
}

std::wstring faultOfTruth(const Settings& settings, const SettingName& one) {
  const auto read = [&](int fallback) {
    return settings.boolean(kApplication, one.section, one.key, fallback != 0);
  };
  return fallsBack(read) ? L"no es True, False ni un número; vale el predeterminado" : L"";
}

std::wstring faultOfNumber(const Settings& settings, const SettingName& one) {
  const auto asInt16 = [&](std::int16_t fallback) {
    return int16Setting(settings, one.key, fallback);
  };
  const auto asInt32 = [&](int fallback) { return int32Setting(settings, one.key, fallback); };
  const auto asNumber = [&](int fallback) {
    return settings.number(kApplication, one.section, one.key, Currency::fromUnits(fallback))
        .units();
  };
  const bool isWrong = one.kind == SettingKind::Int16   ? fallsBack(asInt16)
                       : one.kind == SettingKind::Int32 ? fallsBack(asInt32)
                                                        : fallsBack(asNumber);
  return isWrong ? L"no empieza con un número, o no cabe; vale el predeterminado" : L"";
}

std::wstring faultOfRate(const std::wstring& text) {
  if (text == L"nil") return {};
  if (!leadingNumber(text)) return L"no empieza con un número; vale 0";
  return text.find(L',') == std::wstring::npos ? L"" : L"la coma no vale aquí; escriba un punto";
}

std::wstring faultOfFile(const FoundSetting& found) {
  const bool counts = found.origin != SettingOrigin::File || !namesNetworkOrDevice(found.text);
  return counts ? L"" : L"un nombre de red o de dispositivo no vale en ORV.ini";
}

std::wstring faultOfDump(const std::wstring& text) {
  return text == L"0" || text == L"1" ? L"" : L"solo 0 apaga el volcado: está encendido";
}

void tellSetting(const Settings& settings, const SettingName& setting, DiagnosticReport& report) {
  const FoundSetting found =
      settings.find(kApplication, setting.section, setting.key, setting.fallback);
  const std::wstring name = std::wstring(setting.section) + L"\\" + setting.key;
  report.tell(name, found.text + L" (" + originOf(settings, found) + L")");
  const std::wstring fault = faultOf(settings, setting);
  if (!fault.empty()) report.warn(Trouble::Setup, name + L": " + fault);
}

void tellPlace(const Settings& settings, const std::wstring& port, DiagnosticReport& report) {
  const FoundSetting found = settings.find(kApplication, kPlacesSection, port, L"");
  if (found.text.empty()) return;
  const std::wstring name = std::wstring(kPlacesSection) + L"\\" + port;
  report.tell(name, found.text + L" (" + originOf(settings, found) + L")");
  if (!parseTcpAddress(found.text)) {
    report.warn(Trouble::Setup, name + L": no es una dirección como tcp:192.168.1.50:4000");
  }
}

}  // namespace

std::wstring faultOf(const Settings& settings, const SettingName& one) {
  const FoundSetting found = settings.find(kApplication, one.section, one.key, one.fallback);
  if (found.origin == SettingOrigin::Default) return {};
  switch (one.kind) {
    case SettingKind::Truth:
      return faultOfTruth(settings, one);
    case SettingKind::Rate:
      return faultOfRate(found.text);
    case SettingKind::FileName:
      return faultOfFile(found);
    case SettingKind::DumpSwitch:
      return faultOfDump(found.text);
    default:
      return faultOfNumber(settings, one);
  }
}

std::wstring originOf(const Settings& settings, const FoundSetting& found) {
  switch (found.origin) {
    case SettingOrigin::File:
      return settings.filePath(kApplication);
    case SettingOrigin::UserStore:
      return L"registro del usuario";
    default:
      return L"valor predeterminado";
  }
}

void tellSettings(const Settings& settings, DiagnosticReport& report) {
  report.begin(L"Ajustes según " + settings.filePath(kApplication));
  for (const SettingName& one : sessionSettings()) tellSetting(settings, one, report);
  for (std::int16_t port = 1; port <= kHighestPort; ++port) {
    tellPlace(settings, std::to_wstring(port), report);
  }
}

}  // namespace corvid
