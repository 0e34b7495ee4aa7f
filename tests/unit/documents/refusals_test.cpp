// What documented members refuse to send.
#include "documents/closing.h"
#include "documents/customer_data.h"
#include "documents/non_fiscal.h"
#include "support/document_bench.h"
#include "support/item_line.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace corvid {
namespace {

using S = PrinterSession;

struct TextMember {
  std::wstring name;
  std::function<int(S& session, const std::wstring& text)> call;
  std::wstring box;  // before the outcome's words; "-" for no box
};

// What members take, with the text in one place.
using T = const std::wstring&;
ItemLine sold(T text) { return {text, 0, 0, 16}; }
Customer named(T name) { return {name, L"B", L"C"}; }
Customer living(T address) { return {L"A", L"B", address}; }

const TextMember kMembers[] = {
    {L"PasarItem", [](S& s, T t) { return PasarItem(s, sold(t)); }, L"-"},
    {L"AnularItem", [](S& s, T t) { return AnularItem(s, sold(t)); }, L"-"},
    {L"detalleGeneral", [](S& s, T t) { return detalleGeneral(s, L"F+", general(sold(L"A"), t)); },
     L"-"},
    {L"pasarLineaFacturaG", [](S& s, T t) { return pasarLineaFacturaG(s, general(sold(t))); },
     L"-"},
    {L"anularLineaFacturaG", [](S& s, T t) { return anularLineaFacturaG(s, general(sold(t))); },
     L"-"},
    {L"pasarLineaNCG", [](S& s, T t) { return pasarLineaNCG(s, general(sold(t))); }, L"-"},
    {L"anularLineaNCG", [](S& s, T t) { return anularLineaNCG(s, general(sold(t))); }, L"-"},
    {L"PasarDatosCliente", [](S& s, T t) { return PasarDatosCliente(s, living(t), {}); }, L""},
    {L"PasarDatosClienteNC",
     [](S& s, T t) { return PasarDatosClienteNC(s, named(L"A"), L"D", t, {}); }, L"-"},
    {L"IniciarFactura", [](S& s, T t) { return IniciarFactura(s, living(t)); }, L""},
    {L"PasarDatosClientePA", [](S& s, T t) { return PasarDatosClientePA(s, named(L"A"), t); },
     L"PasarDatosClientePA (3): "},
    {L"PasarDatosClienteNCPA", [](S& s, T t) { return PasarDatosClienteNCPA(s, named(t), L"D"); },
     L"PasarDatosClienteNCPA (2): "},
    {L"PrintNoFiscal", [](S& s, T t) { return PrintNoFiscal(s, t, false); }, L"-"},
    {L"ReporteDiario", [](S& s, T t) { return ReporteDiario(s, L"0", t); }, L"-"},
    {L"SetHeader", [](S& s, T t) { return SetHeader(s, t, L"A"); }, L"-"},
    {L"SetFooter", [](S& s, T t) { return SetFooter(s, 1, t); }, L"-"},
    {L"reimprimirDocumentos",
     [](S& s, T t) {
       const ReprintLimit limit{[] { return Date{}; }, [] { return Decimal(); }};
       reimprimirDocumentos(s, t, limit, limit);
       return s.outcome().pfError;
     },
     L"-"},
};

// Such a byte would end a block in its middle, or pass for an answer.
TEST(Refusals, TextWithAControlByteOfTheLineIsNotSent) {
  for (const TextMember& member : kMembers) {
    for (const wchar_t control : {L'\2', L'\3', L'\4', L'\5', L'\6', L'\x15', L'\x17'}) {
      DocumentBench bench;
      bench.session().state().retries = 0;  // opens it
      bench.world().serial.clearLog();
      EXPECT_EQ(member.call(bench.session(), std::wstring(L"x") + control), pfClientError);
      EXPECT_TRUE(bench.world().serial.written().empty()) << testing::PrintToString(member.name);
      const std::wstring words =
          L"Argumento inv\u00E1lido (car\u00E1cter de control) en " + member.name;
      EXPECT_EQ(bench.outcome().DescripcionError, words);
      const auto& shown = bench.world().dialog.shown;
      ASSERT_EQ(shown.size(), member.box == L"-" ? 0U : 1U) << testing::PrintToString(member.name);
      if (!shown.empty()) {
        EXPECT_EQ(shown.front().text, member.box + words);
      }
    }
    DocumentBench bench;
    EXPECT_EQ(member.call(bench.session(), L"x\t\x1E\n"), pfOk)
        << testing::PrintToString(member.name) << ": other control characters are data";
  }
}

TEST(Refusals, OnlyWhatWouldBeSentCounts) {
  DocumentBench bench({{L"ColumnasDescripcion", L"3"}});
  EXPECT_EQ(PasarItem(bench.session(), {L"PAN\x06", 0, 0, 16}), pfOk) << "is cut";
  EXPECT_EQ(bench.session().Execute(L"a\x06z"), pfOk) << "the raw members send as given";
}

TEST(Refusals, AddressLinesHoldNoLineBreak) {
  DocumentBench bench;
  EXPECT_EQ(IniciarFactura(bench.session(), {L"A", L"B", L"uno\ndos\rtres"}), pfOk);
  EXPECT_EQ(bench.commands(), (Sent{"iR*B", "iS*A", "i01uno dos", "i02tres"}));
}

TEST(Refusals, ItemIsNotSoldAsExemptForWantOfRates) {
  const struct {
    double rate;
    const wchar_t* setting;  // that is on
    Answer rates;
    int result;
    std::wstring words;
    const char* reason;
  } kCases[] = {
      {16, L"", Answer{}, pfCommError, L"Tasas no disponibles", "silence"},
      {16, L"", {"\x15"}, pfCommError, L"Tasas no disponibles", "refused"},
      {16, L"", blockOf("21600\n20800"), pfCommError, L"Tasas no disponibles", "not whole"},
      {0, L"", Answer{}, pfOk, L"Ok", "an exempt one needs none"},
      {-1, L"", Answer{}, pfOk, L"Ok", "the levy neither"},
      {99, L"", usualRates(), pfOk, L"Ok", "a rate that the printer has not is its own affair"},
      {16, L"TestMode", Answer{}, pfOk, L"", "test mode"},
      {16, L"SkipChecks", Answer{}, pfOk, L"NO_STATUS_CHECK", "unchecked mode"},
  };
  for (const auto& item : kCases) {
    for (const bool isGeneral : {false, true}) {
      DocumentBench bench({{item.setting, L"True"}, {L"LimiteEspera", L"1"}});
      bench.printer().answers["S3"] = item.rates;
      const ItemLine line = {L"PAN", 1, 1, item.rate};
      EXPECT_EQ(isGeneral ? detalleGeneral(bench.session(), L"F+", general(line))
                          : PasarItem(bench.session(), line),
                item.result)
          << item.reason;
      EXPECT_EQ(bench.outcome().DescripcionError, item.words) << item.reason;
      EXPECT_EQ(bench.commands().empty(),
                item.result != pfOk || item.setting == std::wstring(L"TestMode"))
          << item.reason;
      const bool isLevy = item.rate < 0;
      for (const std::string& sent : bench.commands()) {
        EXPECT_EQ(sent.substr(0, isGeneral ? 3 : 1),
                  isGeneral ? (isLevy ? "F+4" : "F+0") : (isLevy ? "$" : " "))
            << item.reason;
      }
    }
  }
  DocumentBench refusing;
  refusing.printer().answers["S3"] = {"\x15"};
  EXPECT_EQ(PasarItem(refusing.session(), {L"PAN", 1, 1, 0}), pfOk);
  EXPECT_EQ(refusing.printer().blocks.size(), 7U + 1) << "the rates are asked for once in a line";
  DocumentBench closed;
  closed.session().Cerrar();
  EXPECT_EQ(PasarItem(closed.session(), {L"PAN", 0, 0, 16}), pfCommError);
  EXPECT_EQ(closed.outcome().DescripcionError, L"PUERTO CERRADO");
}

}  // namespace
}  // namespace corvid
