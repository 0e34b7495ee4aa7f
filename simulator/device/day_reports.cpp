#include "simulator/device/day_reports.h"

#include "simulator/device/receipt.h"

#include <string>

namespace corvid::simulator {
namespace {

constexpr std::array kKinds = {DocumentKind::Invoice, DocumentKind::DebitNote,
                               DocumentKind::CreditNote};

void printZReportNumber(Paper& paper, int number) {
  paper.columns("CIERRE Z:", zeroPadded(number, 4));
}

void printKindSums(Paper& paper, const KindOfDay& sums, const Rates& rates) {
  paper.columns("CANTIDAD", std::to_string(sums.count));
  printSums(paper, sums.byRate, rates);
  printLevy(paper, sums.levy);
  printAmount(paper, "TOTAL", sums.total);
}

void printPayments(Paper& paper, const KindOfDay& kind) {
  for (std::size_t method = 1; method <= kPaymentMethods; ++method) {
    const Amount amount = kind.payments.at(method - 1);
    if (amount != 0) {
      printPayment(paper, {method, amount});
    }
  }
}

void printKind(Paper& paper, DocumentKind kind, const ZReport& day, const Rates& rates) {
  paper.centred(titleOf(kind));
  paper.columns("ULTIMO NUMERO", zeroPadded(day.last.of(kind), 8));
  printKindSums(paper, day.day.of(kind), rates);
  printPayments(paper, day.day.of(kind));
  paper.rule();
}

void printDay(Paper& paper, const ZReport& day, const Rates& rates) {
  for (const DocumentKind kind : kKinds) {
    printKind(paper, kind, day, rates);
  }
  paper.columns("DOCUMENTOS NO FISCALES", std::to_string(day.day.nonFiscal));
}

void printZReport(Paper& paper, const ZReport& zReport, const Rates& rates) {
  printZReportNumber(paper, zReport.last.zReports);
  paper.columns("FECHA: " + paperDate(zReport.time), "HORA: " + paperTime(zReport.time));
  printDay(paper, zReport, rates);
  paper.rule();
}

}  // namespace

void printDayReport(Machine& machine, bool doClose) {
  const ZReport day = machine.memory.runningDay();
  printPlainHeading(machine.paper, machine.configuration, doClose ? "REPORTE Z" : "REPORTE X",
                    machine.now());
  if (doClose) {
    printZReportNumber(machine.paper, day.last.zReports + 1);
  }
  printDay(machine.paper, day, machine.configuration.rates);
  printFoot(machine.paper, machine.configuration);
}

void printZReports(Machine& machine, const std::vector<ZReport>& zReports) {
  printPlainHeading(machine.paper, machine.configuration, "REPORTE DE MEMORIA FISCAL",
                    machine.now());
  for (const ZReport& zReport : zReports) {
    printZReport(machine.paper, zReport, machine.configuration.rates);
  }
  printFoot(machine.paper, machine.configuration);
}

}  // namespace corvid::simulator
