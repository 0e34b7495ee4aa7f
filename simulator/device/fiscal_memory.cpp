#include "simulator/device/fiscal_memory.h"

#include <algorithm>

namespace corvid::simulator {
namespace {

std::size_t indexOf(DocumentKind kind) { return static_cast<std::size_t>(kind); }

void add(TaxedAmount& sum, const TaxedAmount& more) {
  sum.base += more.base;
  sum.tax += more.tax;
}

void add(RateSums& sums, const RateSums& more) {
  for (std::size_t i = 0; i < kRateCount; ++i) {
    add(sums.at(i), more.at(i));
  }
}

void addPayments(KindOfDay& kind, const Document& document) {
  for (const Payment& payment : document.payments()) {
    kind.payments.at(payment.method - 1) += payment.amount + payment.levy.tax;
  }
  kind.payments.at(document.payments().back().method - 1) -= document.change();
}

}  // namespace

const KindOfDay& Day::of(DocumentKind kind) const { return kinds.at(indexOf(kind)); }

bool Day::isEmpty() const {
  return nonFiscal == 0 && std::all_of(kinds.begin(), kinds.end(),
                                       [](const KindOfDay& kind) { return kind.count == 0; });
}

int LastNumbers::of(DocumentKind kind) const { return documents.at(indexOf(kind)); }

FiscalMemory::FiscalMemory(int lastInvoice) {
  last_.documents.at(indexOf(DocumentKind::Invoice)) = lastInvoice;
}

FiscalMemory::FiscalMemory(const LastNumbers& last, const Day& today, std::vector<ZReport> zReports)
    : last_(last), today_(today), zReports_(std::move(zReports)) {}

void FiscalMemory::record(const Document& document, const LocalTime& time) {
  const Totals totals = document.totals();
  KindOfDay& kind = today_.kinds.at(indexOf(document.kind()));
  ++kind.count;
  kind.total += totals.total + document.levy().tax;
  add(kind.byRate, totals.byRate);
  add(kind.levy, document.levy());
  addPayments(kind, document);
  ++last_.documents.at(indexOf(document.kind()));
  if (document.kind() == DocumentKind::Invoice) {
    last_.invoiceTime = time;
  }
}

void FiscalMemory::recordNonFiscal() {
  ++last_.nonFiscal;
  ++today_.nonFiscal;
}

ZReport FiscalMemory::runningDay() const {
  return {zReports_.empty() ? LocalTime{} : zReports_.back().time, last_, today_};
}

ZReport FiscalMemory::latestDay() const {
  return today_.isEmpty() && !zReports_.empty() ? zReports_.back() : runningDay();
}

const ZReport& FiscalMemory::closeDay(const LocalTime& time) {
  ++last_.zReports;
  zReports_.push_back({time, last_, today_});
  today_ = Day{};
  return zReports_.back();
}

}  // namespace corvid::simulator
