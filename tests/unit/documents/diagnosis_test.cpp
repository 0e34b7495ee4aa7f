// The text for support, and what a host is told of its last command where no printer was asked.
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
  const std::wstring ofNone = diagnosis(bench.session(), kInstallation);
  EXPECT_EQ(L"ninguno, cerrado", valueOf(ofNone, L"Puerto de la sesi\u00F3n"));
  EXPECT_EQ(L"<none>", valueOf(ofNone, L"Config\\Puertos\\0"));
  for (const wchar_t* name : {L"pfError", L"resultFlag", L"STS1", L"STS2", L"UltimoEnvio"}) {
    EXPECT_EQ(L"0", valueOf(ofNone, name)) << ::testing::PrintToString(name);
  }
  bench.world().settings.setInStore(kSessionSection, L"Retries", L"4");
  bench.world().settings.set(kPortSection, L"LecturaInmediata", L"False");
  bench.open();
  bench.printer().delaySeconds = 0.125;
  bench.session().Execute(L"101");
  const std::wstring text = diagnosis(bench.session(), kInstallation);
  EXPECT_EQ(L"5 (C:\\host\\ORV.ini)", valueOf(text, L"Config\\NimbusPF\\TimeOut"));
  EXPECT_EQ(L"4 (registro del usuario)", valueOf(text, L"Config\\NimbusPF\\Retries"));
  EXPECT_EQ(L"valor predeterminado", valueOf(text, L"Config\\NimbusPF\\SkipChecks"));
  Lines rest = split(text, L"\r\n");
  std::erase_if(rest, [](const std::wstring& line) { return line.starts_with(L"Config"); });
  EXPECT_EQ(rest, (Lines{L"CorvidAPI: 1.2.3 (64 bits)",
                         L"Archivo: C:\\shop\\CorvidAPI.dll",
                         L"Windows: 10.0.19045",
                         L"Regi\u00F3n: 1252, es-VE",
                         L"Carpeta de los ajustes: C:\\host\\ORV.ini",
                         L"Puertos que existen: COM3, COM7",
                         L"Puerto de la sesi\u00F3n: COM7, abierto",
                         L"Lecturas del controlador: devuelve en seguida lo que hay",
                         L"SerialPrinter: KNOWN",
                         L"pfError: 0",
                         L"DescripcionError: Ok",
                         L"resultFlag: 6",
                         L"STS1: 96",
                         L"STS2: 64",
                         L"UltimoEnvio: 1",
                         L"BloquesEnviados: 1",
                         L"Milisegundos: 250",
                         L"Archivo de la traza: ninguno",
                         L"Archivo del volcado: ninguno",
                         L""}));

  bench.world().settings.set(kPlacesSection, L"7", L"TCP:box:4000");
  bench.session().Abrir(7);
  const std::wstring ofTcp = diagnosis(bench.session(), kInstallation);
  EXPECT_EQ(L"tcp:box:4000, abierto", valueOf(ofTcp, L"Puerto de la sesi\u00F3n"));
  EXPECT_EQ(L"TCP:box:4000 (C:\\host\\ORV.ini)", valueOf(ofTcp, L"Config\\Puertos\\7"));
}

TEST(Diagnosis, DoesNotKnowTheReadsOfASilentLine) {
  SessionBench bench;
  bench.world().settings.set(kPortSection, L"LecturaInmediata", L"False");
  bench.printer().answersToStatus = {Answer{}};
  bench.open();
  EXPECT_EQ(L"no se ha visto",
            valueOf(diagnosis(bench.session(), kInstallation), L"Lecturas del controlador"));
}

TEST(LastSend, IsUnsentOrUncertainWithoutAPrinterThatIsAsked) {
  const struct {
    const char* reason;
    void (*send)(SessionBench& bench);
    EnviosPF outcome;
    int blocks;
  } cases[] = {
      {"closed port",
       [](SessionBench& bench) {
         bench.session().Cerrar();
         bench.session().Execute(L"101");
       },
       envNoEnviado, 0},
      {"refused argument",
       [](SessionBench& bench) { PasarItem(bench.session(), L"A\x03", Currency(), 1, 0); },
       envNoEnviado, 0},
      {"negative quantity",
       [](SessionBench& bench) { PasarItem(bench.session(), L"A", Currency(), -1, 0); },
       envNoEnviado, 0},
      {"no rates to be had",
       [](SessionBench& bench) { PasarItem(bench.session(), L"A", Currency(), 1, 16); },
       envNoEnviado, 0},
      {"unchecked command", [](SessionBench& bench) { bench.exchange().ExecuteNoCheck(L"101"); },
       envIncierto, 1},
      {"direct command", [](SessionBench& bench) { bench.exchange().SendDirect(L"101"); },
       envIncierto, 1},
      {"direct command that the port does not take",
       [](SessionBench& bench) {
         bench.world().serial.shortenWrite(1, 6);
         bench.exchange().SendDirect(L"101");
       },
       envNoEnviado, 0},
      {"unchecked mode",
       [](SessionBench& bench) {
         bench.exchange().state().skipChecks = true;
         bench.session().Execute(L"101");
       },
       envIncierto, 1},
      {"test mode",
       [](SessionBench& bench) {
         bench.exchange().state().testMode = true;
         bench.session().Execute(L"101");
       },
       envAceptado, 0},
      {"query in test mode",
       [](SessionBench& bench) {
         bench.exchange().state().testMode = true;
         static_cast<void>(bench.exchange().GetResponse(L"S2"));
       },
       envAceptado, 0},
      {"query in unchecked mode",
       [](SessionBench& bench) {
         bench.exchange().state().skipChecks = true;
         EXPECT_EQ(bench.exchange().GetResponse(L"S2"), Lines{L"VOID"});
       },
       envNoEnviado, 0},
      {"accepted query",
       [](SessionBench& bench) {
         bench.printer().answers["S2"] = blockOf("1");
         static_cast<void>(bench.exchange().GetResponse(L"S2"));
       },
       envAceptado, 1},
  };
  for (const auto& one : cases) {
    OpenBench bench;
    EXPECT_EQ(envNinguno, bench.exchange().lastSend().outcome()) << one.reason;
    bench.printer().answers["S3"] = {"\x15"};
    bench.session().Execute(L"100");
    one.send(bench);
    EXPECT_EQ(one.outcome, bench.exchange().lastSend().outcome()) << one.reason;
    EXPECT_EQ(one.blocks, bench.exchange().lastSend().blocks()) << one.reason;
  }
}

// A host's timer sees that the session is busy, and the command it interrupts keeps its record.
TEST(LastSend, IsBusyWhileACommandIsUnderWay) {
  OpenBench bench;
  bool wasBusy = false;
  bench.atYield(1, [&] {
    wasBusy = bench.exchange().isBusy();
    EXPECT_EQ(0, bench.exchange().lastSend().milliseconds());
    bench.session().Execute(L"refused");
  });
  bench.session().Execute(L"101");
  EXPECT_TRUE(wasBusy);
  EXPECT_FALSE(bench.exchange().isBusy());
  EXPECT_EQ(envAceptado, bench.exchange().lastSend().outcome());
}

}  // namespace
}  // namespace corvid
