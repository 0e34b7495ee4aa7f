// PrinterFiscal: the session object through which a host drives the printer.
#pragma once

#include "basic/currency.h"
#include "basic/decimal.h"
#include "basic/text.h"
#include "protocol/housekeeping_commands.h"
#include "session/amount_formats.h"
#include "session/exchange.h"
#include "session/library.h"
#include "session/session_state.h"
#include "session/status_source.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvid {

// The one field of a reply that failed; no other reply is this text.
inline constexpr const wchar_t* kFailedReply = L"pfError";

// One session with one printer. Created closed, with its settings read once. Outcomes land in
// state().outcome and are not raised, except where a member says so. Everything runs on the
// host's thread; the host must not call into a session from a message handled while it waits.
class PrinterFiscal {
 public:
  PrinterFiscal(Library& library, StatusSource& status);
  PrinterFiscal(const PrinterFiscal&) = delete;
  PrinterFiscal& operator=(const PrinterFiscal&) = delete;
  // As Cerrar, without showing again what was shown in full; never raises.
  ~PrinterFiscal();

  [[nodiscard]] SessionState& state() { return state_; }
  [[nodiscard]] Library& library() { return library_; }
  // Test mode or unchecked mode: queries give substitute records.
  [[nodiscard]] bool answersWithSubstitutes() const { return state_.testMode || state_.skipChecks; }

  // Opens COM<portNumber> at 9600 baud, even parity, 8 data bits, 1 stop bit, asks for the status
  // and learns the serial number. Raises 9 for a number outside 1 to 99 (nothing changes), and
  // 40001 from "PrinterFiscal.Abrir" when the port cannot be opened (the number is kept). In test
  // mode it creates the preview and opens no port.
  void Abrir(std::int16_t portNumber);
  // Closes the port that this session opened; shows the preview of test mode, or the debug view.
  void Cerrar();

  // The model: setting "TipoPrinter", or, when that is negative, by the serial number's prefix.
  [[nodiscard]] std::int32_t tipoPrinter() const;
  [[nodiscard]] std::int16_t lError() const;  // pfError in 16 bits; overflow (6) if it has no room
  [[nodiscard]] static std::int16_t lStatus() { return 0; }
  // Width of an address line and the count of lines, read from the settings on every call.
  [[nodiscard]] std::int16_t AnchoDireccion() const;
  [[nodiscard]] std::int16_t LineasDireccion() const;
  // Waits n x "FactorDelay" seconds without letting the host run.
  void Demora(std::int16_t n);
  // Reads the rates and flags where none are there yet, and takes flag 21 from them.
  void LoadFlag21();

  [[nodiscard]] std::wstring FormatPrecio(const Decimal& value);
  [[nodiscard]] std::wstring FormatCantidad(const Decimal& value);
  [[nodiscard]] std::wstring FormatMedio(const Decimal& value);

  std::int16_t Execute(const std::wstring& command) { return exchange_.Execute(command); }
  void ExecuteNoCheck(const std::wstring& command) { exchange_.ExecuteNoCheck(command); }
  void SendDirect(const std::wstring& command) { exchange_.SendDirect(command); }
  void SendAck() { exchange_.SendAck(); }
  void GetStatus() { exchange_.GetStatus(); }
  Lines NextStatusBlock();
  // True when the drawer did NOT open without trouble: the command's outcome as a Boolean.
  bool AbrirGaveta() { return Execute(kOpenDrawer) != 0; }
  std::int16_t Reset() { return Execute(kReset); }

  // The reply's fields; the one field "pfError" when the exchange failed, "Ok" in test mode, "VOID"
  // in unchecked mode, no field at all when the printer refused or merely acknowledged.
  [[nodiscard]] Lines GetResponse(const std::wstring& command);
  // Every field with the separator in front of it (also the first); empty means line feed.
  [[nodiscard]] std::wstring GetResponseString(const std::wstring& command,
                                               const std::wstring& separator);
  // One row per block; further blocks are acknowledged here. Ends at the first block that did not
  // arrive complete and keeps the rows so far.
  [[nodiscard]] std::vector<Lines> GetMultipleResponses(const std::wstring& command);
  // Rows and their fields joined; separators stand between neighbours only. Missing ones are US
  // between fields and RS between rows.
  [[nodiscard]] std::wstring GetMultipleResponsesStr(const std::wstring& command,
                                                     const std::optional<std::wstring>& itemSep,
                                                     const std::optional<std::wstring>& rowSep);

 private:
  [[nodiscard]] Lines fieldsOfResult();
  void openPort(std::int16_t portNumber);
  void closeOwnPort();
  void release();
  void learnSerial();

  Library& library_;
  StatusSource& status_;
  SessionState state_;
  Exchange exchange_;
  AmountFormats formats_;
  float factorDelay_ = 0;
};

}  // namespace corvid
