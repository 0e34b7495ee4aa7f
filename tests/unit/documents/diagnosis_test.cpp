// The text for support.
#include "session/diagnosis.h"

#include "documents/item_lines.h"
#include "support/session_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

const Installation kInstallation = {L"1.2.3 (64 bits)", L"C:\\shop\\CorvidAPI.dll", L"10.0.19045",
                                    L"1252, es-VE"};

std::wstring valueOf(const std::wstring& text, const std::wstring& name) {
  for (const std::wstring& line : split(text, L"\r\n")) {
    if (line.starts_with(name + L": ")) return line.substr(name.size() + 2);
  }
  return L"<none>";
}

// A setting that is read and not told makes a support call longer.
TEST(Diagnosis, TellsEverySettingThatASessionReads) {
  SessionBench bench;
  bench.world().settings.asked.clear();
  const auto session = bench.another();
  session->Abrir(7);
  bench.printer().answers["S3"] = blockOf("21600\n20800\n23100\n" + std::string(60, '0'));
  PasarItem(*session, L"PAN", Currency(), 1, -1);
  static_cast<void>(session->FormatMedio(Decimal()));
  static_cast<void>(session->tipoPrinter());
  static_cast<void>(session->AnchoDireccion());
  static_cast<void>(session->LineasDireccion());
  session->Demora(1);
  const std::set<std::wstring> read = std::exchange(bench.world().settings.asked, {});
  static_cast<void>(diagnosis(*session, kInstallation));
  for (const std::wstring& one : read) {
    EXPECT_TRUE(bench.world().settings.asked.contains(one)) << ::testing::PrintToString(one);
  }
}

TEST(Diagnosis, TellsWhereFromAndHowItStands) {
  SessionBench bench({{L"TimeOut", L"5"}});
  bench.world().settings.setInStore(kSessionSection, L"Retries", L"4");
  bench.world().settings.set(kPortSection, L"LecturaInmediata", L"False");
  bench.open();
  bench.session().Execute(L"101");
  const std::wstring text = diagnosis(bench.session(), kInstallation);
  const struct {
    const wchar_t* name;
    const wchar_t* value;
  } cases[] = {
      {L"CorvidAPI", L"1.2.3 (64 bits)"},
      {L"Archivo", L"C:\\shop\\CorvidAPI.dll"},
      {L"Config\\NimbusPF\\TimeOut", L"5 (C:\\host\\ORV.ini)"},
      {L"Config\\NimbusPF\\Retries", L"4 (registro del usuario)"},
      {L"Config\\NimbusPF\\SkipChecks", L"valor predeterminado"},
      {L"Puertos que existen", L"COM3, COM7"},
      {L"Puerto de la sesi\u00F3n", L"COM7, abierto"},
      {L"Lecturas del controlador", L"devuelve en seguida lo que hay"},
      {L"UltimoEnvio", L"1"},
      {L"Archivo del volcado", L"ninguno"},
  };
  for (const auto& one : cases) EXPECT_EQ(one.value, valueOf(text, one.name));

  bench.world().settings.set(kPlacesSection, L"7", L"TCP:box:4000");
  bench.session().Abrir(7);
  const std::wstring ofTcp = diagnosis(bench.session(), kInstallation);
  EXPECT_EQ(L"tcp:box:4000, abierto", valueOf(ofTcp, L"Puerto de la sesi\u00F3n"));
  EXPECT_EQ(L"TCP:box:4000 (C:\\host\\ORV.ini)", valueOf(ofTcp, L"Config\\Puertos\\7"));
}

}  // namespace
}  // namespace corvid
