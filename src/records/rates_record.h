// PrinterResponse3: tax rates with their kinds, IGTF, printer flags (reply to "S3").
#pragma once

#include "exchange/thread_state.h"
#include "records/field_array.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvid {

// Plain values with their published names, in interface order.
struct RatesValues {
  bool TipoTasa1 = false;  // kinds: True when the tax is included in the price
  double ValorTasa1 = 0;   // rates in percent
  bool TipoTasa2 = false;
  double ValorTasa2 = 0;
  bool TipoTasa3 = false;
  double ValorTasa3 = 0;
  std::int16_t nFlags = -1;  // upper index of the flag table
  bool isFake = false;       // True after loadFake, False after loadFromResponse
  double TasaIGTF = 0;
};

class RatesRecord {
 public:
  explicit RatesRecord(ThreadState& thread) : thread_(thread) {}

  RatesValues values;

  // Clears kinds and rates; the flags stay as they are.
  void loadFake();
  // Never throws: an error goes to the trace, and what was set before it remains.
  void loadFromResponse(const FieldArray& fields);
  // Printer flag n, or -1 when the record has no such flag.
  [[nodiscard]] std::int16_t Flag(std::int16_t n) const;
  [[nodiscard]] static std::wstring imagenIncluido(bool included);
  [[nodiscard]] std::wstring toString() const;

  // Rate n (1 to 3) in percent.
  [[nodiscard]] double rate(int n) const;
  // Substitute values, and a record whose last reply could not be read whole, count as none.
  [[nodiscard]] bool countsAsNone() const { return values.isFake || isPartial_; }

 private:
  void loadRates(const FieldArray& fields);
  void loadFlags(const FieldArray& fields);
  [[nodiscard]] std::wstring flagRow() const;

  ThreadState& thread_;
  std::vector<std::int16_t> flags_;
  bool isPartial_ = false;
};

}  // namespace corvid
