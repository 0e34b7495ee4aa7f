#include "session/session_state.h"

#include "basic/conversions.h"
#include "session/session_settings.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr const wchar_t* kNoRate = L"nil";
constexpr std::int16_t kShortestTimeOut = 1;

bool flag(const Settings& settings, const wchar_t* key) {
  return settings.boolean(kApplication, kSessionSection, key, false);
}

void readRates(SessionState& state, const Settings& settings) {
  while (state.numTasas < kMostRates) {
    const std::wstring text =
        settings.text(kApplication, kRatesSection, std::to_wstring(state.numTasas), kNoRate);
    if (text == kNoRate) return;
    state.tasas.at(static_cast<std::size_t>(state.numTasas)) = leadingNumber(text).value_or(0);
    ++state.numTasas;
  }
}

}  // namespace

void readSettings(SessionState& state, Exchange& exchange) {
  const Settings& settings = exchange.settings();
  ExchangeState& outer = exchange.state();
  outer.timeOut = std::max(int16Setting(settings, L"TimeOut", outer.timeOut), kShortestTimeOut);
  state.retries = int16Setting(settings, L"Retries", state.retries);
  outer.skipChecks = flag(settings, L"SkipChecks");
  outer.testMode = flag(settings, L"TestMode");
  exchange.thread().process().testMode = outer.testMode;
  exchange.thread().trace().follow(settings);
  state.columnasDescripcion =
      int32Setting(settings, L"ColumnasDescripcion", state.columnasDescripcion);
  readRates(state, settings);
  outer.limiteEspera =
      settings.number(kApplication, kSessionSection, L"LimiteEspera", Currency{}).toDouble();
  outer.rechazoEsError = flag(settings, L"RechazoEsError");
  outer.verificarRespuesta = flag(settings, L"VerificarRespuesta");
  outer.sinMensajes = flag(settings, L"SinMensajes");
}

}  // namespace corvid
