#include "session/printer_fiscal.h"

#include "basic/conversions.h"
#include "basic/run_time_error.h"
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

PrinterFiscal::PrinterFiscal(Library& library, StatusSource& status)
    : library_(library),
      status_(status),
      exchange_(library, state_),
      formats_(library.settings(), [this] {
        LoadFlag21();
        return AmountFormats::Flag21{state_.f21, !state_.s3->isSubstitute()};
      }) {
  readSettings(state_, library_);
}

PrinterFiscal::~PrinterFiscal() {
  try {
    release();
  } catch (...) {  // NOLINT(bugprone-empty-catch): releasing an object never raises
  }
}

void PrinterFiscal::Abrir(std::int16_t portNumber) {
  if (state_.testMode) {
    if (!state_.preview.isPending()) state_.preview.make(library_.views());
    return;
  }
  if (portNumber < 1 || portNumber > kHighestPort) throw subscriptOutOfRange();
  closeOwnPort();
  openPort(portNumber);
  library_.comm().CommSetLine(portNumber, CommLine::Rts, 0);
  library_.comm().CommSetLine(portNumber, CommLine::Dtr, 1);
  GetStatus();
  learnSerial();
}

void PrinterFiscal::openPort(std::int16_t portNumber) {
  modCOMM& comm = library_.comm();
  // The record may be open behind a failed configuration; then it is this session's to close. One
  // that was open before belongs to another session.
  const bool wasOpen = comm.isOpen(portNumber);
  state_.port = portNumber;
  const bool failed =
      comm.CommOpen(portNumber, L"COM" + std::to_wstring(portNumber), kLineSettings) != 0;
  state_.ownsPort = !wasOpen && comm.isOpen(portNumber);
  ++state_.openings;
  if (!failed) return;
  std::wstring description;
  comm.CommGetError(description);
  throw RunTimeError(kCannotOpenPort, L"PrinterFiscal.Abrir", description);
}

void PrinterFiscal::learnSerial() {
  if (!state_.SerialPrinter.empty()) return;
  state_.SerialPrinter = status_.readSerial(*this);
  library_.lastSerial = state_.SerialPrinter;
}

void PrinterFiscal::Cerrar() {
  if (state_.testMode) {
    state_.preview.showModal();
    return;
  }
  closeOwnPort();
  if (library_.trace().isDebug) library_.trace().debugView().showModal();
}

// As Cerrar, but a view that was shown in full does not come again.
void PrinterFiscal::release() {
  const PendingView& view = state_.testMode ? state_.preview : library_.trace().debugView();
  if (view.isPending()) {
    Cerrar();
  } else {
    closeOwnPort();
  }
}

void PrinterFiscal::closeOwnPort() {
  const std::int16_t port = std::exchange(state_.port, std::int16_t{0});
  ++state_.openings;
  if (std::exchange(state_.ownsPort, false)) library_.comm().CommClose(port);
}

std::int32_t PrinterFiscal::tipoPrinter() const {
  const std::int32_t configured = int32Setting(library_.settings(), L"TipoPrinter", -1);
  if (configured >= 0) return configured;
  const std::wstring prefix = left(state_.SerialPrinter, 3);
  for (const auto& [known, model] : kModels) {
    if (prefix == known) return model;
  }
  return SRP350;
}

std::int16_t PrinterFiscal::lError() const { return narrowToInt16(state_.outcome.pfError); }

std::int16_t PrinterFiscal::AnchoDireccion() const {
  return int16Setting(library_.settings(), L"AnchoDireccion", 40);
}

std::int16_t PrinterFiscal::LineasDireccion() const {
  return int16Setting(library_.settings(), L"LineasDireccion", 10);
}

void PrinterFiscal::Demora(std::int16_t n) {
  if (factorDelay_ == 0) {
    const Currency factor = library_.settings().number(kApplication, kSessionSection,
                                                       L"FactorDelay", Currency::fromUnits(3000));
    factorDelay_ = static_cast<float>(factor.toDouble());
  }
  Clock& clock = library_.clock();
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

void PrinterFiscal::LoadFlag21() {
  if (!state_.s3 || state_.s3->isSubstitute()) state_.s3 = status_.readRates(*this);
  state_.f21 = state_.s3->Flag(21);
}

std::wstring PrinterFiscal::FormatPrecio(const Decimal& value) {
  return formats_.digits(AmountKind::Price, value);
}

std::wstring PrinterFiscal::FormatCantidad(const Decimal& value) {
  return formats_.digits(AmountKind::Quantity, value);
}

std::wstring PrinterFiscal::FormatMedio(const Decimal& value) {
  return formats_.digits(AmountKind::Payment, value);
}

Lines PrinterFiscal::NextStatusBlock() {
  exchange_.NextStatusBlock();
  return {};
}

}  // namespace corvid
