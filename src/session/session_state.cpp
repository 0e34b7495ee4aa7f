#include "session/session_state.h"

#include "basic/conversions.h"
#include "exchange/process_state.h"
#include "session/session_settings.h"

namespace corvid {
namespace {

constexpr const wchar_t* kRatesSection = L"Config\\NimbusPF\\Tasas";
constexpr const wchar_t* kNoRate = L"nil";

bool flag(const Settings& settings, const wchar_t* key) {
  return settings.boolean(kApplication, kSessionSection, key, false);
}

void readRates(SessionState& state, const Settings& settings) {
  state.numTasas = 0;
  while (state.numTasas < kMostRates) {
    const std::wstring text =
        settings.text(kApplication, kRatesSection, std::to_wstring(state.numTasas), kNoRate);
    if (text == kNoRate) return;
    state.tasas.at(static_cast<std::size_t>(state.numTasas)) = leadingNumber(text).value_or(0);
    ++state.numTasas;
  }
}

}  // namespace

void readSettings(SessionState& state, ExchangeState& exchange, ProcessState& process) {
  const Settings& settings = process.settings();
  exchange.timeOut = int16Setting(settings, L"TimeOut", exchange.timeOut);
  state.retries = int16Setting(settings, L"Retries", state.retries);
  exchange.skipChecks = flag(settings, L"SkipChecks");
  process.testMode = flag(settings, L"TestMode");
  exchange.testMode = process.testMode;
  process.trace().isDebug = flag(settings, L"IsDebug");
  process.trace().debugInmediato = flag(settings, L"DebugInmediato");
  state.columnasDescripcion =
      int32Setting(settings, L"ColumnasDescripcion", state.columnasDescripcion);
  readRates(state, settings);
}

}  // namespace corvid
