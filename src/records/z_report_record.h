// ReporteZMF: one Z report as the printer's fiscal memory keeps it (a block of "U3A").
#pragma once

#include "basic/currency.h"
#include "basic/date.h"
#include "basic/decimal.h"
#include "exchange/exchange.h"
#include "exchange/thread_state.h"
#include "records/field_array.h"

#include <cstdint>
#include <string>

namespace corvid {

// Plain values with their published names, in interface order. VG and IR are the general and the
// reduced rate; NC are credit notes.
struct ZReportValues {
  std::int16_t numeroCierre = 0;
  Date fechaCierre;  // with the time of day
  Date horaCierre;   // no path sets it; kept for the host
  std::int32_t numeroUltimaFactura = 0;
  Date fechaUltimaFactura;
  Date horaUltimaFactura;  // on the zero date
  Currency ventasExentas;
  Currency baseVG;
  Currency impuestoVG;
  Currency baseIR;
  Currency impuestoIR;
  Currency NCExentas;
  Currency baseNCVG;
  Currency impuestoNCVG;
  Currency baseNCIR;
  Currency impuestoNCIR;
};

class ZReportRecord {
 public:
  explicit ZReportRecord(ThreadState& thread) : thread_(thread) {}

  ZReportValues values;

  // Throws where a field is missing (9), no number (13) or too large (6); what comes before it is
  // set.
  void loadFromResponse(const FieldArray& row);
  // Asks the printer for Z report `numero` (rounded half away from zero) and reads it as
  // loadFromResponse does. False when the exchange failed; the values are then untouched.
  [[nodiscard]] bool load(Exchange& exchange, const Decimal& numero);
  // One "name = value" line each, ended by CR LF, in the user's default text forms.
  [[nodiscard]] std::wstring toString() const;

 private:
  ThreadState& thread_;
};

}  // namespace corvid
