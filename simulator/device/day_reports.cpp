#include "simulator/device/day_reports.h"

#include "simulator/device/receipt.h"

#include <string>

namespace corvid::simulator {
namespace {

constexpr std::array kKinds = {DocumentKind::Invoice, DocumentKind::DebitNote,
                               DocumentKind::CreditNote};

void printClosureNumber(Paper& paper, int number) {
  paper.columns("CIERRE Z:", zeroPadded(number, 4));
}

void printKindSums(Paper& paper, const KindOfDay& sums, const Rates& rates) {
  paper.columns("CANTIDAD", std::to_string(sums.count));
  printSums(paper, sums.byRate, rates);
  printLevy(paper, sums.levy);
  printAmount(paper, "TOTAL", sums.total);
}

void printPayments(Paper& paper, const KindOfDay& kind) {
  for (std::size_t means = 1; means <= kPaymentMeans; ++means) {
    const Amount amount = kind.payments.at(means - 1);
    if (amount != 0) {
      printPayment(paper, {means, amount});
    }
  }
}

void printKind(Paper& paper, DocumentKind kind, const Closure& day, const Rates& rates) {
  paper.centred(titleOf(kind));
  paper.columns("ULTIMO NUMERO", zeroPadded(day.last.of(kind), 8));
  printKindSums(paper, day.day.of(kind), rates);
  printPayments(paper, day.day.of(kind));
  paper.rule();
}

void printDay(Paper& paper, const Closure& day, const Rates& rates) {
  for (const DocumentKind kind : kKinds) {
    printKind(paper, kind, day, rates);
  }
  paper.columns("DOCUMENTOS NO FISCALES", std::to_string(day.day.nonFiscal));
}

void printClosure(Paper& paper, const Closure& closure, const Rates& rates) {
  printClosureNumber(paper, closure.last.closures);
  paper.columns("FECHA: " + paperDate(closure.time), "HORA: " + paperTime(closure.time));
  printDay(paper, closure, rates);
  paper.rule();
}

}  // namespace

void printDayReport(Machine& machine, bool doClose) {
  const Closure day = machine.memory.runningDay();
  printPlainHeading(machine.paper, machine.configuration, doClose ? "REPORTE Z" : "REPORTE X",
                    machine.now());
  if (doClose) {
    printClosureNumber(machine.paper, day.last.closures + 1);
  }
  printDay(machine.paper, day, machine.configuration.rates);
  printFoot(machine.paper, machine.configuration);
}

void printClosures(Machine& machine, const std::vector<Closure>& closures) {
  printPlainHeading(machine.paper, machine.configuration, "REPORTE DE MEMORIA FISCAL",
                    machine.now());
  for (const Closure& closure : closures) {
    printClosure(machine.paper, closure, machine.configuration.rates);
  }
  printFoot(machine.paper, machine.configuration);
}

}  // namespace corvid::simulator
