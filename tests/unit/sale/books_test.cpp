// The books balance: what a host sells in random days stands alike on the receipts, in the
// counters, in the day's summary and in the fiscal memory, and before each closing in the
// document's state.
#include "documents/non_fiscal.h"
#include "faulty_line.h"
#include "receipts.h"
#include "shop.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace corvid {
namespace {

constexpr int kDaysOfABook = 2;
constexpr std::size_t kRates = 5;
constexpr std::array<double, kRates> kPercents = {0, 16, 8, 31, -1};  // -1: the collected levy
constexpr int kFirstForeignMethod = 20;

Currency fromCents(Cents cents) { return Currency::fromUnits(cents * 100); }
// Of numbers that are not negative, half up.
Cents share(Cents amount, Cents of, Cents whole) { return (2 * amount * of + whole) / (2 * whole); }

// A document as the host adds it up by itself.
struct Expected {
  std::array<Cents, kRates> amounts{};
  Cents quantity = 0;  // thousandths
  Cents paid = 0;
  Cents levy = 0;
  bool isKnown = true;  // how a discount is spread is the printer's own

  [[nodiscard]] Cents bases() const {
    Cents sum = 0;
    for (const Cents amount : amounts) sum += amount;
    return sum;
  }
  [[nodiscard]] Cents taxes() const {
    return share(amounts[1], 16, 100) + share(amounts[2], 8, 100) + share(amounts[3], 31, 100);
  }
  [[nodiscard]] Cents total() const { return bases() + taxes(); }
};

// The sums of a receipt, and the values that have them for the receipts of a day.
constexpr std::array<const char*, 10> kSums = {
    "EXENTO", "BI G", "IVA G", "BI R", "IVA R", "BI A", "IVA A", "PERCIBIDO", "IGTF SOBRE", "IGTF"};
template <class Values>
struct SumsOfKind {
  const char* title;
  std::size_t fewestFields;  // of the layouts that have the first seven
  std::array<Currency Values::*, kSums.size()> values;
};
using D = DailySummaryValues;
constexpr SumsOfKind<D> kSummary[] = {
    {kInvoices,
     20,
     {&D::ventasExentas, &D::baseVG, &D::impuestoVG, &D::baseIR, &D::impuestoIR, &D::baseIA,
      &D::impuestoIA, &D::percibidoVentas, &D::BaseIGTF, &D::ValorIGTF}},
    {kDebitNotes,
     29,
     {&D::exentoND, &D::baseVGND, &D::impuestoVGND, &D::baseIRND, &D::impuestoIRND, &D::baseIAND,
      &D::impuestoIAND, &D::percibidoND, &D::BaseIGTFND, &D::IGTFND}},
    {kCreditNotes,
     20,
     {&D::exentoNC, &D::baseVGNC, &D::impuestoVGNC, &D::baseIRNC, &D::impuestoIRNC, &D::baseIANC,
      &D::impuestoIANC, &D::percibidoNC, &D::BaseIGTFNC, &D::IGTFNC}},
};
using Z = ZReportValues;
constexpr SumsOfKind<Z> kZReport[] = {
    {kInvoices, 30, {&Z::ventasExentas, &Z::baseVG, &Z::impuestoVG, &Z::baseIR, &Z::impuestoIR}},
    {kCreditNotes,
     30,
     {&Z::NCExentas, &Z::baseNCVG, &Z::impuestoNCVG, &Z::baseNCIR, &Z::impuestoNCIR}},
};

// Each kind of document: how a line is passed and taken back.
struct Kind {
  const char* title;
  std::int16_t (*pass)(PrinterSession& session, const ItemLine& line);
  std::int16_t (*takeBack)(PrinterSession& session, const ItemLine& line);
  std::int16_t state;  // the printer's own code
};
using S = PrinterSession;
constexpr Kind kKinds[] = {
    {kInvoices, [](S& s, const ItemLine& line) { return PasarItem(s, line); },
     [](S& s, const ItemLine& line) { return AnularItem(s, line); }, 1},
    {kInvoices,
     [](S& s, const ItemLine& line) { return pasarLineaFacturaG(s, general(line, L"7")); },
     [](S& s, const ItemLine& line) { return anularLineaFacturaG(s, general(line)); }, 1},
    {kDebitNotes,
     [](S& s, const ItemLine& line) { return detalleGeneral(s, L"D+", general(line)); },
     [](S& s, const ItemLine& line) { return detalleGeneral(s, L"D-", general(line)); }, 2},
    {kCreditNotes, [](S& s, const ItemLine& line) { return RefundItem(s, line); },
     [](S& s, const ItemLine& line) { return anularLineaNCG(s, general(line)); }, 3},
    {kCreditNotes, [](S& s, const ItemLine& line) { return pasarLineaNCG(s, general(line)); },
     [](S& s, const ItemLine& line) { return anularLineaNCG(s, general(line)); }, 3},
};

class Books {
 public:
  explicit Books(Draw& draw) : draw_(draw), faulty_(shop_.line, 10), isFaulty_(draw.oneIn(2)) {
    simulator::Configuration& printer = shop_.machine().configuration;
    const char* const kModels[] = {"short",   "short-29", "short-30", "long-31", "long-38",
                                   "long-39", "long-40",  "long-41",  "long",    "short-41"};
    printer.model = *simulator::modelNamed(draw.oneOf(kModels));
    if (draw.oneIn(4)) printer.igtf.reset();
    printer.flags[21] = draw.oneOf({0, 2, 3, 30});
    shop_.world.serial.connect(&faulty_);
    openKnown(shop_);
  }

  void run() {
    for (int day = 1; day <= kDaysOfABook; ++day) {
      first_ = paper().lines().size();
      sold_ = {};
      for (int left = draw_.below(7); left > 0; --left) document();
      if (isFaulty_) settle();
      expectCounters(day);
      expectSummary(summaryOf(L"U0X"), day - 1);
      const auto closed = CerrarZ(shop_.exchange());
      ASSERT_TRUE(closed);
      expectSummary(*closed, day);
      expectZReport(day);
      expectCountersOfANewDay(day);
    }
  }

 private:
  [[nodiscard]] S& session() { return *shop_.session; }
  [[nodiscard]] const simulator::Paper& paper() { return shop_.machine().paper; }
  [[nodiscard]] Receipts receiptsOfToday() { return {paper(), first_}; }

  DailySummary summaryOf(const wchar_t* query) {
    DailySummary summary(*shop_.thread);
    summary.loadFromResponse(ReplyFields(shop_.exchange().GetResponse(query)));
    return summary;
  }

  // What a host gets that must be 0 on a line without faults.
  void done(std::int32_t result) {
    if (!isFaulty_) {
      EXPECT_EQ(result, 0);
      EXPECT_EQ(shop_.exchange().lastSend().outcome(), envAceptado);
    }
  }

  void document() {
    if (isFaulty_) faulty_.drawFaults(draw_);
    const bool isTraining = draw_.oneIn(10);
    if (isTraining) done(StartTraining(session()));
    if (draw_.oneIn(6)) {
      done(PrintNoFiscal(session(), L"TEXT", false));
      done(PrintNoFiscal(session(), L"END", true));
    } else {
      fiscalDocument(draw_.oneOf(kKinds), isTraining);
    }
    if (isTraining) done(EndTraining(session()));
    faulty_.repair();
  }

  void fiscalDocument(const Kind& kind, bool isTraining) {
    Expected expected;
    for (int left = draw_.between(1, 4); left > 0; --left) passLine(kind, expected);
    if (draw_.oneIn(5)) done(SubTotal(session(), draw_.oneIn(2)) ? 1 : 0);
    if (draw_.oneIn(4)) {
      done(PasarDescuento(session(), draw_.between(1, 9999) / 100.0) ? 1 : 0);
      expected.isKnown = false;
    }
    const Cents total = isFaulty_ ? expected.total() : expectState(kind, expected);
    if (draw_.oneIn(8)) {
      done(CancelarTransaccion(session()));
      return;
    }
    pay(kind, expected, total);
    if (isFaulty_ && !shop_.machine().isIdle()) static_cast<void>(CancelarTransaccion(session()));
    if (!isTraining) sold_[kind.title] += total + expected.levy;
  }

  void passLine(const Kind& kind, Expected& expected) {
    const std::size_t rate = static_cast<std::size_t>(draw_.below(kRates));
    const Cents price = draw_.between(1, 999'999);
    const Cents quantity = draw_.oneIn(2) ? 1000 * draw_.between(1, 9) : draw_.between(1, 9999);
    const ItemLine line = {L"Caf\u00E9", static_cast<double>(price) / 100,
                           static_cast<double>(quantity) / 1000, kPercents[rate]};
    const Cents amount = share(price, quantity, 1000);
    done(kind.pass(session(), line));
    expected.amounts[rate] += amount;
    expected.quantity += quantity;
    if (expected.quantity == quantity || !draw_.oneIn(5)) return;
    done(kind.takeBack(session(), line));
    expected.amounts[rate] -= amount;
    expected.quantity -= quantity;
  }

  // Returns the document's total.
  Cents expectState(const Kind& kind, const Expected& expected) {
    const TransactionValues now = Response2(shop_.exchange())->values;
    EXPECT_EQ(now.subTotalVenta.units() + now.subTotalImpuestos.units(), now.total.units());
    EXPECT_DOUBLE_EQ(now.cantidadItems, static_cast<double>(expected.quantity) / 1000);
    if (expected.isKnown) {
      EXPECT_EQ(now.subTotalVenta, fromCents(expected.bases()));
      EXPECT_EQ(now.subTotalImpuestos, fromCents(expected.taxes()));
    }
    const DocumentStateValues state = getEstadoDocumento(shop_.exchange())->values;
    EXPECT_EQ(state.subTotalBasesImponibles, now.subTotalVenta);
    EXPECT_EQ(state.subTotalIVA, now.subTotalImpuestos);
    EXPECT_EQ(state.MontoPorPagar, now.total);
    EXPECT_EQ(state.estado, kind.state);
    return now.total.units() / 100;
  }

  // In one payment or two, and now and then with change.
  void pay(const Kind& kind, Expected& expected, Cents total) {
    const bool isCredit = kind.title == kCreditNotes;
    const int method = draw_.between(1, 24);
    const auto payPart = [&](int by, Cents amount) {
      const Decimal how = Decimal::fromInteger(by);
      done(isCredit ? CerrarNotaCreditoConMedio(session(), how, fromCents(amount))
                    : CerrarConMedio(session(), how, fromCents(amount)));
      const Cents levied =
          std::min(amount == 0 ? total - expected.paid : amount, total - expected.paid);
      const bool isLevied = by >= kFirstForeignMethod && shop_.machine().configuration.igtf;
      if (isLevied) expected.levy += share(levied, 3, 100);
      expected.paid += levied;
    };
    if (total > 1 && draw_.oneIn(3)) {
      payPart(method, draw_.between(1, static_cast<int>(std::min<Cents>(total - 1, 1'000'000))));
      if (!isFaulty_) {
        const DocumentStateValues state = getEstadoDocumento(shop_.exchange())->values;
        EXPECT_EQ(state.MontoPorPagar, fromCents(total - expected.paid));
        EXPECT_EQ(state.numeroPagosRealizados, 1);
      }
    }
    if (draw_.oneIn(3)) {
      done(isCredit ? CerrarNotaCredito(session()) : CerrarComprobante(session(), std::nullopt));
    } else {
      const bool hasChange = !isCredit && draw_.oneIn(3);
      payPart(draw_.between(1, 24), hasChange ? total - expected.paid + 700 : 0);
    }
  }

  // After faults: ends what may be open still.
  void settle() {
    static_cast<void>(CancelarTransaccion(session()));
    static_cast<void>(PrintNoFiscal(session(), L"END", true));
    static_cast<void>(EndTraining(session()));
  }

  void expectCounters(int day) {
    const bool isLong =
        shop_.machine().configuration.model.counters == simulator::CountersLayout::Long;
    const Receipts today = receiptsOfToday();
    const Receipts all(paper(), 0);
    const CountersValues now = Response1(shop_.exchange())->values;
    EXPECT_EQ(now.totalVentasDiarias, fromCents(today.of(kInvoices).total));
    EXPECT_EQ(now.facturasDia, today.of(kInvoices).count);
    EXPECT_EQ(now.numeroUltimaFactura, all.of(kInvoices).count);
    EXPECT_EQ(now.notasCreditoDia, today.of(kCreditNotes).count);
    EXPECT_EQ(now.numeroUltimaNC, all.of(kCreditNotes).count);
    EXPECT_EQ(now.notasDebitoDia, isLong ? today.of(kDebitNotes).count : 0);
    EXPECT_EQ(now.numeroUltimaND, isLong ? all.of(kDebitNotes).count : 0);
    EXPECT_EQ(now.ndfDia, today.of(kNonFiscal).count);
    EXPECT_EQ(now.ultimoDNF, all.of(kNonFiscal).count);
    EXPECT_EQ(now.nCierres, day - 1);
    std::int64_t paid = 0;
    const auto methods = Response4(shop_.exchange());
    for (int n = 1; n <= 24; ++n) paid += methods->valor(Decimal::fromInteger(n)).units();
    EXPECT_EQ(paid / 100, today.of(kInvoices).total + today.of(kDebitNotes).total);
    if (isFaulty_) return;
    for (const auto& [title, total] : sold_) {
      EXPECT_EQ(today.of(title).total, total) << title << "\n" << shop_.line.paper();
    }
  }

  void expectSummary(const DailySummary& summary, int closings) {
    const std::size_t fields = shop_.machine().configuration.model.summaryFields;
    const Receipts today = receiptsOfToday();
    const Receipts all(paper(), 0);
    EXPECT_EQ(summary.values.numeroUltimoZ, closings);
    EXPECT_EQ(summary.values.numeroUltimaFactura, all.of(kInvoices).count);
    EXPECT_EQ(summary.values.ultimaNC, all.of(kCreditNotes).count);
    EXPECT_EQ(summary.values.ultimaND, fields > 20 ? all.of(kDebitNotes).count : 0);
    EXPECT_EQ(summary.values.ultimoDNF, fields > 29 ? all.of(kNonFiscal).count : 0);
    for (const SumsOfKind<D>& one : kSummary) {
      for (std::size_t i = 0; i < kSums.size(); ++i) {
        const std::size_t fewest = i < 7                                 ? one.fewestFields
                                   : i == 9 && one.title == kCreditNotes ? 39
                                                                         : 38;
        const Cents expected = fields >= fewest ? today.sum(one.title, kSums.at(i)) : 0;
        EXPECT_EQ(summary.values.*one.values.at(i), fromCents(expected))
            << one.title << ' ' << kSums.at(i) << " of " << fields << " fields";
      }
    }
  }

  void expectZReport(int number) {
    const Receipts today = receiptsOfToday();
    const auto report = loadReporteZMF(shop_.exchange(), Decimal::fromInteger(number));
    ASSERT_TRUE(report);
    EXPECT_EQ(report->values.numeroCierre, number);
    EXPECT_EQ(report->values.numeroUltimaFactura, Receipts(paper(), 0).of(kInvoices).count);
    for (const SumsOfKind<Z>& one : kZReport) {
      for (std::size_t i = 0; one.values.at(i) != nullptr; ++i) {
        EXPECT_EQ(report->values.*one.values.at(i), fromCents(today.sum(one.title, kSums.at(i))))
            << one.title << ' ' << kSums.at(i);
      }
    }
  }

  void expectCountersOfANewDay(int closings) {
    const CountersValues now = Response1(shop_.exchange())->values;
    EXPECT_EQ(now.nCierres, closings);
    EXPECT_EQ(now.totalVentasDiarias, Currency());
    EXPECT_EQ(now.facturasDia + now.ndfDia + now.notasDebitoDia + now.notasCreditoDia, 0);
  }

  Draw& draw_;
  Shop shop_{{kSessionSection, L"TimeOut", L"1"}, {kSessionSection, L"LimiteEspera", L"20"}};
  FaultyLine faulty_;
  bool isFaulty_;
  std::size_t first_ = 0;              // line of today's paper
  std::map<std::string, Cents> sold_;  // today, by title
};

TEST(Books, BalanceAfterRandomDays) {
  forEachSeed(seedCount() / 40 / kDaysOfABook, [](Draw& draw) { Books(draw).run(); });
}

}  // namespace
}  // namespace corvid
