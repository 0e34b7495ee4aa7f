// One session with one printer: opening, closing, rates, amount formats.
#pragma once

#include "basic/currency.h"
#include "basic/decimal.h"
#include "exchange/exchange.h"
#include "protocol/housekeeping_commands.h"
#include "session/amount_formats.h"
#include "session/session_state.h"

#include <cstdint>
#include <string>

namespace corvid {

// Created closed, with its settings read once. Outcomes land in outcome() and are not thrown,
// except where a member says so. Everything runs on the host's thread. While a member waits for the
// printer the host's message loop runs; members that the host calls from there are refused, but for
// Abrir and Cerrar, which end the wait.
class PrinterSession {
 public:
  explicit PrinterSession(ThreadState& thread);
  PrinterSession(const PrinterSession&) = delete;
  PrinterSession& operator=(const PrinterSession&) = delete;
  // As Cerrar, without showing again what was shown in full; never throws.
  ~PrinterSession();

  [[nodiscard]] SessionState& state() { return state_; }
  [[nodiscard]] Exchange& exchange() { return exchange_; }
  [[nodiscard]] Outcome& outcome() { return exchange_.outcome(); }
  [[nodiscard]] ThreadState& thread() { return thread_; }
  [[nodiscard]] const Settings& settings() const { return exchange_.settings(); }

  // Opens COM<portNumber> at 9600 baud, even parity, 8 data bits, 1 stop bit, or connects to the
  // address that the settings have for the number; asks for the status and learns the serial
  // number. Throws 9 for a number outside 1 to 99 (nothing changes), and 40001 from
  // "PrinterFiscal.Abrir" when the port cannot be opened (the number is kept). In test mode it
  // creates the preview and opens no port.
  void Abrir(std::int16_t portNumber);
  // Closes the port that this session opened; shows the preview of test mode, or the debug view.
  void Cerrar();
  // The host has let go of the session in the middle of a member: closes the port, which ends the
  // member's wait as Cerrar does. No message is shown from here on.
  void abandon();

  // The model: setting "TipoPrinter", or, when that is negative, by the serial number's prefix.
  [[nodiscard]] std::int32_t tipoPrinter() const;
  [[nodiscard]] std::int16_t lError() const;  // pfError in 16 bits; overflow (6) if it has no room
  [[nodiscard]] static std::int16_t lStatus() { return 0; }
  // Width of an address line and the count of lines, read from the settings on every call.
  [[nodiscard]] std::int16_t AnchoDireccion() const;
  [[nodiscard]] std::int16_t LineasDireccion() const;
  // Waits n x "FactorDelay" seconds without letting the host run.
  void Demora(std::int16_t n);
  // Reads the rates and flags where none are there yet, once in a member, and takes flag 21 from
  // them. Does nothing where its turn is refused.
  void LoadFlag21();
  // Whether the printer's rates and flags are there, whole and not substituted.
  [[nodiscard]] bool knowsRates() const { return state_.s3 && !state_.s3->countsAsNone(); }

  [[nodiscard]] std::wstring FormatPrecio(const Decimal& value);
  [[nodiscard]] std::wstring FormatCantidad(const Decimal& value);
  [[nodiscard]] std::wstring FormatMedio(const Decimal& value);

  std::int16_t Execute(const std::wstring& command) { return exchange_.Execute(command); }
  // True when the drawer did NOT open without trouble: the command's outcome as a Boolean.
  bool AbrirGaveta() { return Execute(kOpenDrawer) != 0; }
  std::int16_t Reset() { return Execute(kReset); }

 private:
  OpeningRef openPort(std::int16_t portNumber);
  void closePort();
  void release();
  void learnSerial();

  ThreadState& thread_;
  Exchange exchange_;
  SessionState state_;
  AmountFormats formats_;
  float factorDelay_ = 0;
  std::uint32_t ratesAskedIn_ = 0;  // the last turn in which the printer was asked for its rates
};

}  // namespace corvid
