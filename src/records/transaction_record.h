// PrinterResponse2: the document being issued: totals, items, payments, kind (reply to "S2").
#pragma once

#include "basic/currency.h"
#include "exchange/thread_state.h"
#include "records/field_array.h"

#include <cstdint>
#include <string>

namespace corvid {

// Plain values with their published names, in interface order.
struct TransactionValues {
  Currency subTotalVenta;
  Currency subTotalImpuestos;
  double cantidadItems = 0;
  Currency total;
  std::int16_t cantidadPagos = 0;
  std::int16_t tipoTrans = 0;  // the printer's own code
};

class TransactionRecord {
 public:
  explicit TransactionRecord(ThreadState& thread) : thread_(thread) {}

  TransactionValues values;

  // Sets tipoTrans to -1 and leaves all other values as they are.
  void loadFake();
  // Throws where a field is missing (9), no number (13) or too large (6); what comes before it is
  // set.
  void loadFromResponse(const FieldArray& fields);
  // One "name = value" line each, ended by CR LF, in the user's default text forms.
  [[nodiscard]] std::wstring toString() const;

 private:
  ThreadState& thread_;
};

}  // namespace corvid
