#include "documents/item_lines.h"

#include "documents/member.h"
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

bool isSameRate(const Decimal& a, const Decimal& b) {
  return (a - b).absolute() < Decimal::fromUnscaled(1, 1);
}

std::optional<std::int16_t> configuredIndex(const SessionState& state, const Decimal& rate) {
  for (std::int16_t i = 0; i < state.numTasas; ++i) {
    const double configured = state.tasas.at(static_cast<std::size_t>(i));
    if (isSameRate(Decimal::fromDouble(configured), rate)) return i;
  }
  return std::nullopt;
}

std::int16_t printerIndex(const RatesRecord& record, const Decimal& rate) {
  for (std::int16_t i = 1; i <= 3; ++i) {
    if (isSameRate(Decimal::fromDouble(record.rate(i)), rate)) return i;
  }
  return 0;
}

// Nothing where the printer's rates are needed and cannot be read.
std::optional<std::int16_t> findIndex(PrinterSession& session, const Decimal& rate) {
  if (rate.isNegative()) {
    return int16Setting(session.settings(), L"IndicePercibido", kUsualLevyIndex);
  }
  if (const auto configured = configuredIndex(session.state(), rate)) return configured;
  session.LoadFlag21();
  if (!session.knowsRates()) return std::nullopt;
  return printerIndex(*session.state().s3, rate);
}

// The index that a line is sold with; nothing, with the outcome set, where the line must not be
// sold. A closed port is told by Execute, in its own words.
std::optional<std::int16_t> indexForSale(PrinterSession& session, const Decimal& rate) {
  const std::optional<std::int16_t> found = findIndex(session, rate);
  Exchange& exchange = session.exchange();
  if (found || rate.isZero() || exchange.answersWithSubstitutes() || !exchange.isOpen()) {
    return found.value_or(0);
  }
  exchange.refuseCommand(pfCommError, L"Tasas no disponibles");
  return std::nullopt;
}

std::int16_t sendClassic(PrinterSession& session, const ClassicKind& kind,
                         const std::wstring& description, Currency price, double hostQuantity,
                         double rate) {
  Member member(session, kind.name);
  if (member.isRefused()) return pfClientError;
  const Decimal quantity = Decimal::fromDouble(hostQuantity);
  if (quantity.isNegative()) return member.refuse(L"cantidad negativa");
  const std::wstring shown = left(description, session.state().columnasDescripcion);
  // Before the rates are asked for: nothing at all is sent for such a text.
  if (member.refusesText(shown)) return pfClientError;
  const std::optional<std::int16_t> index = indexForSale(session, Decimal::fromDouble(rate));
  if (!index) return pfCommError;
  std::wstring command = kind.prefix(*index, session.thread().codePage());
  command += session.FormatPrecio(price.toDecimal());
  command += session.FormatCantidad(quantity);
  return member.send(command + shown);
}

std::int16_t sendGeneral(PrinterSession& session, const wchar_t* name, const std::wstring& kind,
                         const GeneralItem& item) {
  Member member(session, name);
  const std::wstring code = item.code.value_or(L"");
  if (member.isRefused() || member.refusesText(kind + code + item.description)) {
    return pfClientError;
  }
  const auto index = indexForSale(session, Decimal::fromDouble(item.rate));
  if (!index) return pfCommError;
  return member.send(generalCommand(
      {kind, *index, item.price, Decimal::fromDouble(item.quantity), code, item.description}));
}

}  // namespace

std::int16_t PasarItem(PrinterSession& session, const std::wstring& description, Currency price,
                       double quantity, double rate) {
  return sendClassic(session, kSale, description, price, quantity, rate);
}

std::int16_t RefundItem(PrinterSession& session, const std::wstring& description, Currency price,
                        double quantity, double rate) {
  return sendClassic(session, kRefund, description, price, quantity, rate);
}

std::int16_t AnularItem(PrinterSession& session, const std::wstring& description, Currency price,
                        double quantity, double rate) {
  return sendClassic(session, kVoid, description, price, quantity, rate);
}

std::int16_t detalleGeneral(PrinterSession& session, const std::wstring& kind,
                            const GeneralItem& item) {
  return sendGeneral(session, L"detalleGeneral", kind, item);
}

std::int16_t pasarLineaFacturaG(PrinterSession& session, const GeneralItem& item) {
  return sendGeneral(session, L"pasarLineaFacturaG", kInvoiceLine, item);
}

std::int16_t anularLineaFacturaG(PrinterSession& session, const GeneralItem& item) {
  return sendGeneral(session, L"anularLineaFacturaG", kInvoiceVoid, item);
}

std::int16_t pasarLineaNCG(PrinterSession& session, const GeneralItem& item) {
  return sendGeneral(session, L"pasarLineaNCG", kCreditLine, item);
}

std::int16_t anularLineaNCG(PrinterSession& session, const GeneralItem& item) {
  return sendGeneral(session, L"anularLineaNCG", kCreditVoid, item);
}

std::int16_t IndiceTasa(PrinterSession& session, double rate) {
  return findIndex(session, Decimal::fromDouble(rate)).value_or(0);
}

}  // namespace corvid
