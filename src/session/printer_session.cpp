#include "session/printer_session.h"

#include "basic/conversions.h"
#include "basic/run_time_error.h"
#include "records/status_queries.h"
#include "session/session_settings.h"

#include <utility>

namespace corvid {
namespace {

constexpr std::int32_t kCannotOpenPort = 40001;
constexpr float kSecondsPerDay = 86400;

// Models by the first three characters of the serial number; all others are SRP350.
constexpr std::pair<std::wstring_view, VariantesPF> kModels[] = {
    {L"Z6B", DT230},
    {L"Z7A", HKA112},
    {L"Z1F", SRP812},
};

}  // namespace

PrinterSession::PrinterSession(ThreadState& thread)
    : thread_(thread), exchange_(thread), formats_(exchange_.settings(), [this] {
        LoadFlag21();
        return AmountFormats::Flag21{state_.f21, knowsRates()};
      }) {
  readSettings(state_, exchange_);
}

PrinterSession::~PrinterSession() {
  try {
    release();
  } catch (...) {  // NOLINT(bugprone-empty-catch): releasing an object never throws
  }
}

void PrinterSession::Abrir(std::int16_t portNumber) {
  if (exchange_.state().testMode) {
    PendingView& preview = exchange_.state().preview;
    if (!preview.isPending()) preview.make(thread_.views(), settings());
    return;
  }
  if (!Transports::isPortNumber(portNumber)) throw subscriptOutOfRange();
  closePort();
  const OpeningRef opening = openPort(portNumber);
  // The host may have closed or reopened the session from a message box, and below from a wait.
  if (exchange_.opening() != opening) return;
  const Exchange::Turn turn(exchange_, L"Abrir");
  opening->transport->setLines();
  exchange_.GetStatus();
  learnSerial();
}

// The stream is this session's before anything runs the host's code. A failed configuration leaves
// it open, and then it is the session's to close.
OpeningRef PrinterSession::openPort(std::int16_t portNumber) {
  const std::shared_ptr<Transport> transport = thread_.transports().make(portNumber, settings());
  exchange_.state().port = portNumber;
  if (const std::wstring address = transport->address(); !address.empty()) {
    thread_.trace().traceWith(
        [&] { return L"Abrir: COM" + std::to_wstring(portNumber) + L" = " + address; });
  }
  const bool failed = transport->open() != 0;
  const std::wstring words = failed ? transport->errorText() : std::wstring();
  if (transport->isOpen()) exchange_.attach(transport);
  OpeningRef opening = exchange_.opening();
  thread_.transports().openDump(settings(), exchange_.dialog());
  if (failed) throw RunTimeError(kCannotOpenPort, L"PrinterFiscal.Abrir", words);
  return opening;
}

// The host may reopen the session while the number is asked for, and the later opening knows it.
void PrinterSession::learnSerial() {
  if (!state_.SerialPrinter.empty() || !exchange_.isOpen()) return;
  const std::wstring serial = Response1(exchange_)->values.Serial;
  if (!state_.SerialPrinter.empty() || !exchange_.isOpen()) return;
  state_.SerialPrinter = serial;
  thread_.process().setLastSerial(serial);
}

void PrinterSession::Cerrar() {
  if (exchange_.state().testMode) {
    exchange_.state().preview.showModal();
    return;
  }
  closePort();
  TraceLog& trace = thread_.trace();
  trace.closeFile();
  if (trace.isOn()) trace.debugView().showModal();
}

// As Cerrar, but a view that was shown in full does not come again.
void PrinterSession::release() {
  const PendingView& view =
      exchange_.state().testMode ? exchange_.state().preview : thread_.trace().debugView();
  if (view.isPending()) {
    Cerrar();
  } else {
    closePort();
    thread_.trace().closeFile();
  }
}

void PrinterSession::abandon() {
  exchange_.state().sinMensajes = true;
  closePort();
}

void PrinterSession::closePort() {
  // A port that could not be opened has opened the dump all the same.
  if (std::exchange(exchange_.state().port, std::int16_t{0}) != 0) thread_.transports().closeDump();
  exchange_.detach();
}

std::int32_t PrinterSession::tipoPrinter() const {
  const std::int32_t configured = int32Setting(settings(), L"TipoPrinter", -1);
  if (configured >= 0) return configured;
  const std::wstring prefix = left(state_.SerialPrinter, 3);
  for (const auto& [known, model] : kModels) {
    if (prefix == known) return model;
  }
  return SRP350;
}

std::int16_t PrinterSession::lError() const { return narrowToInt16(exchange_.outcome().pfError); }

std::int16_t PrinterSession::AnchoDireccion() const {
  return int16Setting(settings(), L"AnchoDireccion", 40);
}

std::int16_t PrinterSession::LineasDireccion() const {
  return int16Setting(settings(), L"LineasDireccion", 10);
}

void PrinterSession::Demora(std::int16_t n) {
  if (factorDelay_ == 0) {
    const Currency factor =
        settings().number(kApplication, kSessionSection, L"FactorDelay", Currency::fromUnits(3000));
    factorDelay_ = static_cast<float>(factor.toDouble());
  }
  Clock& clock = thread_.clock();
  const float start = clock.secondsSinceMidnight();
  const float delay = static_cast<float>(n) * factorDelay_;
  float elapsed = 0;
  while (elapsed < delay) {
    thread_.sleep().sleep(1);
    elapsed = clock.secondsSinceMidnight() - start;
    // Without this, a target after midnight would never be reached.
    if (elapsed < 0) elapsed += kSecondsPerDay;
  }
}

void PrinterSession::LoadFlag21() {
  const Exchange::Turn turn(exchange_, L"LoadFlag21");
  if (turn.isRefused()) return;
  // A printer that refuses the query is asked once for a line, not for each number in it.
  if (!knowsRates() && ratesAskedIn_ != exchange_.turnNumber()) {
    ratesAskedIn_ = exchange_.turnNumber();
    state_.s3 = Response3(exchange_);
  }
  if (state_.s3) state_.f21 = state_.s3->Flag(21);  // the host may have taken it away meanwhile
}

std::wstring PrinterSession::FormatPrecio(const Decimal& value) {
  return formats_.digits(AmountKind::Price, value);
}

std::wstring PrinterSession::FormatCantidad(const Decimal& value) {
  return formats_.digits(AmountKind::Quantity, value);
}

std::wstring PrinterSession::FormatMedio(const Decimal& value) {
  return formats_.digits(AmountKind::Payment, value);
}

}  // namespace corvid
