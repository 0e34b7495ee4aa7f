// What the printer remembers from document to document and from day to day. All sums are in
// hundredths.
#pragma once

#include "simulator/device/configuration.h"
#include "simulator/device/document.h"
#include "simulator/device/local_time.h"

#include <array>
#include <vector>

namespace corvid::simulator {

// The day's documents of one kind.
struct KindOfDay {
  int count = 0;
  Amount total = 0;  // all bases, taxes and levies: what the documents came to
  RateSums byRate{};
  TaxedAmount levy{};  // on payments in foreign currency
  // They add up to the total: with their levy, and the change taken off the method it came from.
  std::array<Amount, kPaymentMethods> payments{};
};

struct Day {
  std::array<KindOfDay, kDocumentKinds> kinds{};
  int nonFiscal = 0;

  [[nodiscard]] const KindOfDay& of(DocumentKind kind) const;
  [[nodiscard]] bool isEmpty() const;  // no document of any kind yet
};

// Numbers of the last documents; they never start again.
struct LastNumbers {
  std::array<int, kDocumentKinds> documents{};
  int nonFiscal = 0;
  int zReports = 0;
  int reports = 0;
  LocalTime invoiceTime;  // of the last invoice

  [[nodiscard]] int of(DocumentKind kind) const;
};

// A day as its closing left it; or a day that is not closed yet, and then the time and the number
// are those of the closing before.
struct ZReport {
  LocalTime time;
  LastNumbers last;  // Z reports: this Z report's own number
  Day day;
};

class FiscalMemory {
 public:
  explicit FiscalMemory(int lastInvoice);
  // One that goes on from what was kept.
  FiscalMemory(const LastNumbers& last, const Day& today, std::vector<ZReport> zReports);

  // A closed document enters the day's sums and takes the next number of its kind.
  void record(const Document& document, const LocalTime& time);
  void recordNonFiscal();
  void recordReport() { ++last_.reports; }

  // Ends the day: its sums become a Z report, and a new day starts at zero.
  const ZReport& closeDay(const LocalTime& time);

  [[nodiscard]] int nextNumber(DocumentKind kind) const { return last_.of(kind) + 1; }
  [[nodiscard]] const LastNumbers& last() const { return last_; }
  [[nodiscard]] const Day& today() const { return today_; }
  [[nodiscard]] ZReport runningDay() const;
  // The running day; until its first document, the day closed last, if any.
  [[nodiscard]] ZReport latestDay() const;
  // In the order of their numbers.
  [[nodiscard]] const std::vector<ZReport>& zReports() const { return zReports_; }

 private:
  LastNumbers last_;
  Day today_;
  std::vector<ZReport> zReports_;
};

}  // namespace corvid::simulator
