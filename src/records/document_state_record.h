// EstadoDocumento: what is still to be paid, and the state of the document (reply to "S2").
#pragma once

#include "basic/currency.h"
#include "exchange/thread_state.h"
#include "records/field_array.h"

#include <cstdint>
#include <string>

namespace corvid {

// Plain values with their published names, in interface order.
struct DocumentStateValues {
  Currency subTotalBasesImponibles;
  Currency subTotalIVA;
  std::wstring NotaS2;  // the count of items as the printer wrote it
  Currency MontoPorPagar;
  std::int16_t numeroPagosRealizados = 0;
  std::int16_t estado = 0;  // the printer's own code
};

class DocumentStateRecord {
 public:
  explicit DocumentStateRecord(ThreadState& thread) : thread_(thread) {}

  DocumentStateValues values;

  // Loads nothing where field 0 has no blank, as in a failed reply. Otherwise throws where a field
  // is missing (9), no number (13) or too large (6); what comes before it is set.
  void loadFromResponse(const FieldArray& fields);
  // One "name = value" line each, ended by CR LF, by the user's locale.
  [[nodiscard]] std::wstring toString() const;

 private:
  ThreadState& thread_;
};

}  // namespace corvid
