#include "documents/item_lines.h"

#include "session/session_settings.h"

#include <optional>

namespace corvid {
namespace {

constexpr std::int16_t kUsualLevyIndex = 4;

using Prefix = std::wstring (*)(int index, const CodePage& codePage);

struct ClassicKind {
  const wchar_t* name;
  Prefix prefix;
};

constexpr ClassicKind kSale = {L"PasarItem", salePrefix};
constexpr ClassicKind kRefund = {L"RefundItem", refundPrefix};
constexpr ClassicKind kVoid = {L"AnularItem", voidPrefix};

std::int16_t refuseQuantity(PrinterSession& session, const ClassicKind& kind) {
  Outcome& outcome = session.outcome();
  outcome.pfError = pfClientError;
  outcome.DescripcionError =
      std::wstring(L"Argumento inv\u00E1lido (cantidad negativa) en ") + kind.name;
  return pfClientError;
}

std::int16_t sendClassic(PrinterSession& session, const ItemLine& line, const ClassicKind& kind) {
  if (line.quantity < 0) return refuseQuantity(session, kind);
  std::wstring command = kind.prefix(IndiceTasa(session, line.rate), session.process().codePage());
  command += session.FormatPrecio(line.price.toDecimal());
  command += session.FormatCantidad(Decimal::fromDouble(line.quantity));
  command += left(line.description, session.state().columnasDescripcion);
  return session.Execute(command);
}

// Decimal, because 8.1 - 8 is a little less than 0.1 in binary.
bool isSameRate(double a, double b) {
  const Decimal distance = Decimal::fromDouble(a).minus(Decimal::fromDouble(b)).absolute();
  return distance.compare(Decimal::fromUnscaled(1, 1)) < 0;
}

std::optional<std::int16_t> configuredIndex(const SessionState& state, double rate) {
  for (std::int16_t i = 0; i < state.numTasas; ++i) {
    if (isSameRate(state.tasas.at(static_cast<std::size_t>(i)), rate)) return i;
  }
  return std::nullopt;
}

std::int16_t printerIndex(PrinterSession& session, double rate) {
  session.LoadFlag21();
  const std::shared_ptr<RatesRecord> record = session.state().s3;
  if (!record || record->isSubstitute()) return 0;
  for (std::int16_t i = 1; i <= 3; ++i) {
    if (isSameRate(record->rate(i), rate)) return i;
  }
  return 0;
}

}  // namespace

std::int16_t PasarItem(PrinterSession& session, const ItemLine& line) {
  return sendClassic(session, line, kSale);
}

std::int16_t RefundItem(PrinterSession& session, const ItemLine& line) {
  return sendClassic(session, line, kRefund);
}

std::int16_t AnularItem(PrinterSession& session, const ItemLine& line) {
  return sendClassic(session, line, kVoid);
}

std::int16_t detalleGeneral(PrinterSession& session, const std::wstring& kind, const ItemLine& line,
                            const std::wstring& code) {
  const std::int16_t index = IndiceTasa(session, line.rate);
  return session.Execute(
      generalCommand({kind, index, line.price, line.quantity, code, line.description}));
}

std::int16_t IndiceTasa(PrinterSession& session, double rate) {
  if (rate < 0) {
    return int16Setting(session.process().settings(), L"IndicePercibido", kUsualLevyIndex);
  }
  const std::optional<std::int16_t> configured = configuredIndex(session.state(), rate);
  return configured ? *configured : printerIndex(session, rate);
}

}  // namespace corvid
