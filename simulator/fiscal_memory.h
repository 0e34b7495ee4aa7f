// What the printer remembers from document to document and from day to day.
#pragma once

#include "simulator/configuration.h"
#include "simulator/document.h"
#include "simulator/local_time.h"

#include <array>
#include <vector>

namespace corvid::simulator {

// The day's documents of one kind.
struct KindOfDay {
  int count = 0;
  Amount total = 0;
  RateSums byRate{};
  std::array<Amount, kPaymentMeans> payments{};  // change taken off the means that it came from
};

struct Day {
  std::array<KindOfDay, kDocumentKinds> kinds{};
  int nonFiscal = 0;

  [[nodiscard]] const KindOfDay& of(DocumentKind kind) const;
};

// Numbers of the last documents; they never start again.
struct LastNumbers {
  std::array<int, kDocumentKinds> documents{};
  int nonFiscal = 0;
  int closures = 0;
  int reports = 0;
  LocalTime invoiceTime;  // of the last invoice

  [[nodiscard]] int of(DocumentKind kind) const;
};

// A day as its closing left it.
struct Closure {
  LocalTime time;
  LastNumbers last;  // closures: this closure's own number
  Day day;
};

class FiscalMemory {
 public:
  explicit FiscalMemory(int lastInvoice);

  // A closed document enters the day's sums and takes the next number of its kind.
  void record(const Document& document, const LocalTime& time);
  void recordNonFiscal();
  void recordReport() { ++last_.reports; }

  // Ends the day: its sums become a closure, and a new day starts at zero.
  const Closure& closeDay(const LocalTime& time);

  [[nodiscard]] int nextNumber(DocumentKind kind) const { return last_.of(kind) + 1; }
  [[nodiscard]] const LastNumbers& last() const { return last_; }
  [[nodiscard]] const Day& today() const { return today_; }
  // In the order of their numbers.
  [[nodiscard]] const std::vector<Closure>& closures() const { return closures_; }

 private:
  LastNumbers last_;
  Day today_;
  std::vector<Closure> closures_;
};

}  // namespace corvid::simulator
