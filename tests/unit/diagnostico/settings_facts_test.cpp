// Where settings come from, and which of them are wrong.
#include "diagnostic_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

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
