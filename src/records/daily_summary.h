// ResumenZ: the daily summary: last document numbers and the day's amounts (reply to "U0Z").
#pragma once

#include "basic/currency.h"
#include "basic/date.h"
#include "exchange/exchange.h"
#include "exchange/thread_state.h"
#include "records/field_array.h"

#include <cstdint>
#include <string>

namespace corvid {

// Plain values with their published names, in interface order. VG, IR and IA are the general, the
// reduced and the additional rate; ND are debit notes, NC credit notes.
struct DailySummaryValues {
  std::int16_t numeroUltimoZ = -1;  // -1 until loaded
  Date fechaUltimoReporte;
  std::int32_t numeroUltimaFactura = 0;
  Date fechaUltimaFactura;
  std::int32_t ultimaNC = 0;
  std::int32_t ultimaND = 0;
  std::int32_t ultimoDNF = 0;

  Currency ventasExentas;
  Currency baseVG;
  Currency impuestoVG;
  Currency baseIR;
  Currency impuestoIR;
  Currency baseIA;
  Currency impuestoIA;

  Currency exentoND;
  Currency baseVGND;
  Currency impuestoVGND;
  Currency baseIRND;
  Currency impuestoIRND;
  Currency baseIAND;
  Currency impuestoIAND;

  Currency exentoNC;
  Currency baseVGNC;
  Currency impuestoVGNC;
  Currency baseIRNC;
  Currency impuestoIRNC;
  Currency baseIANC;
  Currency impuestoIANC;

  Currency percibidoVentas;
  Currency percibidoND;
  Currency percibidoNC;

  Currency BaseIGTF;
  Currency ValorIGTF;
  Currency BaseIGTFND;
  Currency IGTFND;
  Currency BaseIGTFNC;
  Currency IGTFNC;
};

class DailySummary {
 public:
  explicit DailySummary(ThreadState& thread) : thread_(thread) {}

  DailySummaryValues values;

  // Asks the printer for its summary and reads it. A failed query changes nothing; the session's
  // outcome tells why. Does not keep the session.
  void load(Exchange& exchange);
  void Refresh(Exchange& exchange) { load(exchange); }
  // Chooses the layout by the count of fields, whatever the printer's model. The first field that
  // is missing or cannot be read ends the reading, and what comes before it stays; never throws.
  // Values that a layout does not carry keep what they held.
  void loadFromResponse(const FieldArray& fields);
  // One "name = value" line each, ended by CR LF, by the user's locale; the serial number is the
  // one that the library learnt last.
  [[nodiscard]] std::wstring toString() const;

 private:
  ThreadState& thread_;
};

}  // namespace corvid
