// Short sales over a line with faults: whatever goes wrong, the host is told what became of each
// line, and the session goes on.
#include "documents/non_fiscal.h"
#include "faulty_line.h"
#include "shop.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvid {
namespace {

constexpr double kTimeOut = 1;    // seconds
constexpr double kPatience = 45;  // the host's, with one sale
constexpr double kLongestMember = 2 * kPatience;

struct SoldLine {
  std::string text;
  std::int32_t result;
  Outcome outcome;
  EnviosPF sent;
  int unheard;  // commands done whose ACK did not come through
};

class SeededSale {
 public:
  explicit SeededSale(Draw& draw)
      : draw_(draw),
        shop_({{kPortSection, L"LecturaInmediata", flag()},
               {kSessionSection, L"VerificarRespuesta", flag()},
               {kSessionSection, L"RechazoEsError", flag()},
               {kSessionSection, L"TimeOut", L"1"},
               {kSessionSection, L"LimiteEspera", draw.oneIn(3) ? L"3" : L"0"}}),
        faulty_(shop_.line, kTimeOut) {
    shop_.world.serial.connect(&faulty_);
    shop_.world.serial.driver = {.reads = static_cast<DriverModel::Reads>(draw.below(2)),
                                 .arrival = static_cast<DriverModel::Arrival>(draw.below(5)),
                                 .phase = draw.below(16) / 1000.0};
    shop_.world.pump.seconds = draw.oneOf({0.0, 0.01, 0.03, 0.2});
  }

  void run() {
    faulty_.drawFaults(draw_);
    shop_.world.pump.whenYielded = [this, end = now() + kPatience] {
      if (now() > end) shop_.session->Cerrar();
    };
    openKnown(shop_);
    if (draw_.oneIn(2)) static_cast<void>(IniciarFactura(*shop_.session, {L"N", L"R", L"A"}));
    const int kind = draw_.below(4);
    for (int left = draw_.between(1, 4); left > 0; --left) {
      sell(kind);
      if (draw_.oneIn(4)) static_cast<void>(Response1(shop_.exchange()));
    }
    static_cast<void>(CerrarComprobante(*shop_.session, std::nullopt));
    for (const SoldLine& line : lines_) expectTold(line);
    EXPECT_LT(now(), kLongestMember);
    expectUsable();
  }

 private:
  const wchar_t* flag() { return draw_.oneIn(2) ? L"True" : L"False"; }
  [[nodiscard]] double now() { return shop_.world.clock.total(); }

  std::int32_t pass(int kind, const std::wstring& text) {
    PrinterSession& session = *shop_.session;
    const ItemLine item = {text, draw_.between(1, 9999) / 100.0, 1, draw_.oneOf({0.0, 8.0, 16.0})};
    if (kind == 0) return PasarItem(session, item);
    if (kind == 1) return RefundItem(session, item);
    if (kind == 2) return pasarLineaFacturaG(session, general(item));
    return PrintNoFiscal(session, text, false);
  }

  void sell(int kind) {
    const std::string text = "LINE-" + std::to_string(lines_.size());
    const int before = faulty_.unheard();
    const std::int32_t result = pass(kind, std::wstring(text.begin(), text.end()));
    lines_.push_back({text, result, shop_.outcome(), shop_.exchange().lastSend().outcome(),
                      faulty_.unheard() - before});
  }

  void expectTold(const SoldLine& line) {
    SCOPED_TRACE(line.text + ", sent " + std::to_string(line.sent) + "\n" + shop_.line.paper());
    const int times = countOf(shop_.line.paper(), line.text);
    EXPECT_LE(times, 1 + line.unheard) << "a line stands there twice, and no ACK was lost";
    EXPECT_TRUE(times <= 1 || line.sent == envIncierto || line.sent == envAceptadoDudoso);
    switch (line.sent) {
      case envAceptado:
        EXPECT_EQ(times, 1);
        break;
      case envAceptadoDudoso:
        EXPECT_GE(times, 1);
        break;
      case envRechazado:
        EXPECT_EQ(times, 0);
        EXPECT_EQ(line.outcome.resultFlag, NAK);
        break;
      case envNoEnviado:
        EXPECT_EQ(times, 0);
        EXPECT_NE(line.result, 0);
        break;
      case envIncierto:
        EXPECT_TRUE(line.result != 0 || line.outcome.resultFlag == NAK);
        break;
      default:
        ADD_FAILURE() << "a command leaves a record";
    }
  }

  void expectUsable() {
    faulty_.repair();
    shop_.world.pump.whenYielded = nullptr;
    shop_.session->Cerrar();
    EXPECT_EQ(shop_.world.serial.openHandles(), 0U);
    openKnown(shop_);
    static_cast<void>(CancelarTransaccion(*shop_.session));
    EXPECT_EQ(PrintNoFiscal(*shop_.session, L"AFTER", true), 0);
    EXPECT_EQ(shop_.exchange().lastSend().outcome(), envAceptado);
    EXPECT_EQ(countOf(shop_.line.paper(), "AFTER"), 1);
  }

  Draw& draw_;
  Shop shop_;
  FaultyLine faulty_;
  std::vector<SoldLine> lines_;
};

TEST(Seeds, EachLineIsToldAsWhatBecameOfIt) {
  forEachSeed(seedCount(), [](Draw& draw) { SeededSale(draw).run(); });
}

}  // namespace
}  // namespace corvid
