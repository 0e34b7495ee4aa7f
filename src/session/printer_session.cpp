#include "session/printer_session.h"

#include "basic/conversions.h"
#include "basic/run_time_error.h"
#include "records/status_queries.h"
#include "session/session_settings.h"

#include <array>
#include <utility>

namespace corvid {
namespace {

constexpr const wchar_t* kLineSettings = L"baud=9600 parity=E data=8 stop=1";
constexpr std::int32_t kCannotOpenPort = 40001;
constexpr float kSecondsPerDay = 86400;

// Models by the first three characters of the serial number; all others are SRP350.
constexpr std::array<std::pair<std::wstring_view, VariantesPF>, 3> kModels = {{
    {L"Z6B", DT230},
    {L"Z7A", HKA112},
    {L"Z1F", SRP812},
}};

}  // namespace

PrinterSession::PrinterSession(ProcessState& process)
    : process_(process), exchange_(process), formats_(process.settings(), [this] {
        LoadFlag21();
        return AmountFormats::Flag21{state_.f21, !state_.s3->isSubstitute()};
      }) {
  readSettings(state_, exchange_.state(), process_);
}

PrinterSession::~PrinterSession() {
  try {
    release();
  } catch (...) {  // NOLINT(bugprone-empty-catch): releasing an object never raises
  }
}

void PrinterSession::Abrir(std::int16_t portNumber) {
  if (exchange_.state().testMode) {
    if (!exchange_.state().preview.isPending()) exchange_.state().preview.make(process_.views());
    return;
  }
  if (portNumber < 1 || portNumber > kHighestPort) throw subscriptOutOfRange();
  closeOwnPort();
  openPort(portNumber);
  process_.comm().CommSetLine(portNumber, CommLine::Rts, 0);
  process_.comm().CommSetLine(portNumber, CommLine::Dtr, 1);
  exchange_.GetStatus();
  learnSerial();
}

void PrinterSession::openPort(std::int16_t portNumber) {
  modCOMM& comm = process_.comm();
  // The record may be open behind a failed configuration; then it is this session's to close. One
  // that was open before belongs to another session.
  const bool wasOpen = comm.isOpen(portNumber);
  exchange_.state().port = portNumber;
  const bool failed =
      comm.CommOpen(portNumber, L"COM" + std::to_wstring(portNumber), kLineSettings) != 0;
  exchange_.state().ownsPort = !wasOpen && comm.isOpen(portNumber);
  ++exchange_.state().openings;
  if (!failed) return;
  std::wstring description;
  comm.CommGetError(description);
  throw RunTimeError(kCannotOpenPort, L"PrinterFiscal.Abrir", description);
}

void PrinterSession::learnSerial() {
  if (!state_.SerialPrinter.empty()) return;
  state_.SerialPrinter = Response1(exchange_)->values.Serial;
  process_.lastSerial = state_.SerialPrinter;
}

void PrinterSession::Cerrar() {
  if (exchange_.state().testMode) {
    exchange_.state().preview.showModal();
    return;
  }
  closeOwnPort();
  if (process_.trace().isDebug) process_.trace().debugView().showModal();
}

// As Cerrar, but a view that was shown in full does not come again.
void PrinterSession::release() {
  const PendingView& view =
      exchange_.state().testMode ? exchange_.state().preview : process_.trace().debugView();
  if (view.isPending()) {
    Cerrar();
  } else {
    closeOwnPort();
  }
}

void PrinterSession::closeOwnPort() {
  const std::int16_t port = std::exchange(exchange_.state().port, std::int16_t{0});
  ++exchange_.state().openings;
  if (std::exchange(exchange_.state().ownsPort, false)) process_.comm().CommClose(port);
}

std::int32_t PrinterSession::tipoPrinter() const {
  const std::int32_t configured = int32Setting(process_.settings(), L"TipoPrinter", -1);
  if (configured >= 0) return configured;
  const std::wstring prefix = left(state_.SerialPrinter, 3);
  for (const auto& [known, model] : kModels) {
    if (prefix == known) return model;
  }
  return SRP350;
}

std::int16_t PrinterSession::lError() const { return narrowToInt16(exchange_.outcome().pfError); }

std::int16_t PrinterSession::AnchoDireccion() const {
  return int16Setting(process_.settings(), L"AnchoDireccion", 40);
}

std::int16_t PrinterSession::LineasDireccion() const {
  return int16Setting(process_.settings(), L"LineasDireccion", 10);
}

void PrinterSession::Demora(std::int16_t n) {
  if (factorDelay_ == 0) {
    const Currency factor = process_.settings().number(kApplication, kSessionSection,
                                                       L"FactorDelay", Currency::fromUnits(3000));
    factorDelay_ = static_cast<float>(factor.toDouble());
  }
  Clock& clock = process_.clock();
  const float start = clock.secondsSinceMidnight();
  const float delay = static_cast<float>(n) * factorDelay_;
  float elapsed = 0;
  while (elapsed < delay) {
    clock.rest();
    elapsed = clock.secondsSinceMidnight() - start;
    // Without this, a target behind midnight would never be reached.
    if (elapsed < 0) elapsed += kSecondsPerDay;
  }
}

void PrinterSession::LoadFlag21() {
  if (!state_.s3 || state_.s3->isSubstitute()) state_.s3 = Response3(exchange_);
  state_.f21 = state_.s3->Flag(21);
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
