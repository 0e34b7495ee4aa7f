// PrinterResponse1: cashier, counters, tax id, serial number, date (reply to "S1").
#pragma once

#include "basic/currency.h"
#include "basic/date.h"
#include "exchange/thread_state.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace corvid {

// Plain values with their published names, in interface order.
struct CountersValues {
  std::int16_t numeroCajero = 0;
  Currency totalVentasDiarias;
  std::int32_t numeroUltimaFactura = 0;
  std::int32_t facturasDia = 0;
  std::int32_t ultimoDNF = 0;
  std::int32_t ndfDia = 0;
  std::int32_t nCierres = 0;
  std::int32_t contadorReportes = 0;
  std::wstring RIF;
  std::wstring Serial;
  Date Fecha;
  std::int32_t numeroUltimaND = 0;
  std::int16_t notasDebitoDia = 0;
  std::int32_t numeroUltimaNC = 0;
  std::int16_t notasCreditoDia = 0;
  bool isFake = false;  // no path sets it; kept for the host
};

class CountersRecord {
 public:
  // A record of a session's own reads its substitute values from the session's settings.
  CountersRecord(ThreadState& thread, Settings settings)
      : thread_(thread), settings_(std::move(settings)) {}
  explicit CountersRecord(ThreadState& thread) : CountersRecord(thread, thread.currentSettings()) {}

  CountersValues values;

  // Fills the values from the settings, section "Config\NimbusPF\Response1"; throws where a stored
  // text does not convert (what comes before it is set). A number's decimals stand after "." or
  // ",".
  void loadFake();
  // As loadFake, but the value that does not convert, and those after it, stay as they are.
  void loadFakeQuietly();
  // `reply` is the whole reply, fields joined by line feeds: fewer than 16 fields in the short
  // layout, others in the long one. Whatever cannot be read turns into loadFake; never throws.
  void loadFromResponse(std::wstring_view reply);
  // One "name = value" line each, ended by CR LF, by the user's locale.
  [[nodiscard]] std::wstring toString() const;

 private:
  ThreadState& thread_;
  Settings settings_;
};

}  // namespace corvid
