#include "simulator/device/receipt.h"

#include <array>
#include <string>

namespace corvid::simulator {
namespace {

// General, reduced, additional; percibido is the collected levy.
constexpr std::string_view kRateMarks = "EGRAP";

std::string money(Amount amount) { return "Bs " + amountText(amount); }

std::string percent(std::int64_t hundredths) { return amountText(hundredths) + "%"; }

std::string markOf(std::size_t rate) { return std::string("(") + kRateMarks.at(rate) + ")"; }

std::string nameOfMethod(std::size_t method) {
  return method == 1 ? "EFECTIVO" : "MEDIO DE PAGO " + zeroPadded(static_cast<int>(method), 2);
}

void printProgrammed(Paper& paper, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    if (!line.empty()) {
      paper.centred(line);
    }
  }
}

void printOwner(Paper& paper, const Configuration& configuration) {
  paper.centred("RIF: " + configuration.rif);
  printProgrammed(paper, configuration.header);
}

void printLabelled(Paper& paper, std::string_view label, std::string_view text) {
  if (!text.empty()) {
    paper.line(std::string(label).append(text));
  }
}

void printCustomer(Paper& paper, const Customer& customer) {
  printLabelled(paper, "RIF/C.I.: ", customer.rif);
  printLabelled(paper, "RAZON SOCIAL: ", customer.name);
  for (const auto& [number, text] : customer.lines) {
    paper.line(text);
  }
  printLabelled(paper, "FACTURA AFECTADA: ", customer.affectedInvoice);
  printLabelled(paper, "SERIAL AFECTADO: ", customer.affectedSerial);
  printLabelled(paper, "FECHA AFECTADA: ", customer.affectedDate);
}

void printDateAndTime(Paper& paper, const LocalTime& time) {
  paper.columns("FECHA: " + paperDate(time), "HORA: " + paperTime(time));
}

void printItemLines(Paper& paper, const Item& item, Amount amount) {
  if (item.quantity != 1000) {
    paper.line(quantityText(item.quantity) + " x Bs " + priceText(item.price));
  }
  const std::string code = item.code.empty() ? "" : item.code + " ";
  paper.columns(code + item.description + " " + markOf(item.rate), money(amount));
}

void printSum(Paper& paper, std::size_t rate, const TaxedAmount& sum, const Rates& rates) {
  if (sum.base == 0 && sum.tax == 0) {
    return;
  }
  if (rate == 0 || rate == kCollectedRate) {
    paper.columns((rate == 0 ? "EXENTO " : "PERCIBIDO ") + markOf(rate), money(sum.base));
    return;
  }
  const std::string mark{kRateMarks.at(rate)};
  const std::string name = mark + " (" + percent(rates.at(rate - 1).hundredths) + ")";
  paper.columns("BI " + name, money(sum.base));
  paper.columns("IVA " + name, money(sum.tax));
}

}  // namespace

std::string_view titleOf(DocumentKind kind) {
  constexpr std::array<std::string_view, kDocumentKinds> kTitles = {"FACTURA", "NOTA DE DEBITO",
                                                                    "NOTA DE CREDITO"};
  return kTitles.at(static_cast<std::size_t>(kind));
}

void printHeading(Paper& paper, const Configuration& configuration, const Customer& customer,
                  DocumentKind kind, int number, const LocalTime& time) {
  printOwner(paper, configuration);
  printCustomer(paper, customer);
  paper.centred(titleOf(kind));
  paper.columns(std::string(titleOf(kind)) + ":", zeroPadded(number, 8));
  printDateAndTime(paper, time);
  paper.rule();
}

void printPlainHeading(Paper& paper, const Configuration& configuration, std::string_view title,
                       const LocalTime& time) {
  printOwner(paper, configuration);
  paper.centred(title);
  printDateAndTime(paper, time);
  paper.rule();
}

void printItem(Paper& paper, const Item& item, Amount amount) {
  printItemLines(paper, item, amount);
}

void printTakenBack(Paper& paper, const Item& item, Amount amount) {
  paper.line("ANULADO:");
  printItemLines(paper, item, -amount);
}

void printSubtotal(Paper& paper, const Document& document) {
  paper.columns("SUBTOTAL", money(document.totals().subtotal));
}

void printAdjustment(Paper& paper, const Adjustment& adjustment, Amount amount) {
  const std::string name = adjustment.isDiscount ? "DESCUENTO" : "RECARGO";
  paper.columns(adjustment.isPercent ? name + " " + percent(adjustment.value) : name,
                money(amount));
}

void printSums(Paper& paper, const RateSums& sums, const Rates& rates) {
  for (std::size_t rate = 0; rate < kRateCount; ++rate) {
    printSum(paper, rate, sums.at(rate), rates);
  }
}

void printAmount(Paper& paper, std::string_view name, Amount amount) {
  paper.columns(name, money(amount));
}

void printTotals(Paper& paper, const Document& document) {
  const Totals totals = document.totals();
  paper.rule();
  printSums(paper, totals.byRate, document.rates());
  paper.rule();
  paper.columns("TOTAL", money(totals.total));
}

void printPayment(Paper& paper, const Payment& payment) {
  paper.columns(nameOfMethod(payment.method), money(payment.amount));
  printLevy(paper, payment.levy);
}

void printLevy(Paper& paper, const TaxedAmount& levy) {
  if (levy.base != 0) {
    paper.columns("IGTF SOBRE " + money(levy.base), money(levy.tax));
  }
}

void printClosing(Paper& paper, const Document& document, const Configuration& configuration) {
  if (document.levy().tax > 0) {
    paper.columns("TOTAL CON IGTF", money(document.totals().total + document.levy().tax));
  }
  if (document.change() > 0) {
    paper.columns("CAMBIO", money(document.change()));
  }
  printFoot(paper, configuration);
}

void printCancelled(Paper& paper, const Configuration& configuration) {
  paper.rule('*');
  paper.centred("DOCUMENTO ANULADO");
  paper.rule('*');
  printFoot(paper, configuration);
}

void printFoot(Paper& paper, const Configuration& configuration) {
  printProgrammed(paper, configuration.footer);
  paper.centred(configuration.serial);
  paper.rule('=');
}

void printTrainingMark(Paper& paper) { paper.centred("*** ENTRENAMIENTO: SIN VALIDEZ ***"); }

void printCopy(Paper& paper, const Copy& copy) {
  paper.centred("*** COPIA ***");
  for (const std::string& line : copy.lines) {
    paper.line(line);
  }
}

}  // namespace corvid::simulator
