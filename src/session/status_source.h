// What the session itself needs of the printer's status records.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace corvid {

class PrinterFiscal;

// The printer's tax rates and flags, as the session reads them.
class RateRecord {
 public:
  virtual ~RateRecord() = default;
  // Printer flag n, or -1 when the record has no such flag.
  [[nodiscard]] virtual std::int16_t Flag(std::int16_t n) const = 0;
  // Rate n (1 to 3) in percent.
  [[nodiscard]] virtual double rate(int n) const = 0;
  // True for substitute values: such a record counts as none.
  [[nodiscard]] virtual bool isSubstitute() const = 0;
};

// Reads status records through a session; each call is one query and never returns nothing.
class StatusSource {
 public:
  virtual ~StatusSource() = default;
  [[nodiscard]] virtual std::wstring readSerial(PrinterFiscal& session) = 0;
  [[nodiscard]] virtual std::shared_ptr<RateRecord> readRates(PrinterFiscal& session) = 0;
};

}  // namespace corvid
