#include "simulator/fiscal_memory.h"

namespace corvid::simulator {
namespace {

std::size_t indexOf(DocumentKind kind) { return static_cast<std::size_t>(kind); }

void add(RateSums& sums, const RateSums& more) {
  for (std::size_t i = 0; i < kRateCount; ++i) {
    sums.at(i).base += more.at(i).base;
    sums.at(i).tax += more.at(i).tax;
  }
}

}  // namespace

const KindOfDay& Day::of(DocumentKind kind) const { return kinds.at(indexOf(kind)); }

int LastNumbers::of(DocumentKind kind) const { return documents.at(indexOf(kind)); }

FiscalMemory::FiscalMemory(int lastInvoice) {
  last_.documents.at(indexOf(DocumentKind::Invoice)) = lastInvoice;
}

void FiscalMemory::record(const Document& document, const LocalTime& time) {
  const Totals totals = document.totals();
  KindOfDay& kind = today_.kinds.at(indexOf(document.kind()));
  ++kind.count;
  kind.total += totals.total;
  add(kind.byRate, totals.byRate);
  for (const Payment& payment : document.payments()) {
    kind.payments.at(payment.means - 1) += payment.amount;
  }
  kind.payments.at(document.payments().back().means - 1) -= document.change();
  ++last_.documents.at(indexOf(document.kind()));
  if (document.kind() == DocumentKind::Invoice) {
    last_.invoiceTime = time;
  }
}

void FiscalMemory::recordNonFiscal() {
  ++last_.nonFiscal;
  ++today_.nonFiscal;
}

const Closure& FiscalMemory::closeDay(const LocalTime& time) {
  ++last_.closures;
  closures_.push_back({time, last_, today_});
  today_ = Day{};
  return closures_.back();
}

}  // namespace corvid::simulator
