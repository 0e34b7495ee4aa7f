#include "tools/diagnostico/printer_facts.h"

#include "basic/format.h"
#include "protocol/status_explanations.h"

#include <algorithm>
#include <cmath>

namespace corvid {
namespace {

constexpr std::int32_t kNoError = 64;
constexpr std::int32_t kFirstOfFullMemory = 104;
constexpr double kLumpSeconds = 0.008;  // many byte times; adapters hold bytes back for up to 16 ms

std::wstring milliseconds(double seconds) {
  return std::to_wstring(std::lround(seconds * 1000)) + L" ms";
}

std::wstring wayOf(const Arrival& arrival) {
  if (arrival.reads == 1) return L"de una vez";
  const std::wstring reads = L"en " + std::to_wstring(arrival.reads) + L" lecturas";
  if (arrival.longestPause < kLumpSeconds) return reads + L" seguidas";
  return reads + L", a golpes, con pausas de hasta " + milliseconds(arrival.longestPause);
}

std::wstring wordsOf(const Arrival& arrival) {
  return L"primer byte a los " + milliseconds(arrival.first) + L", último a los " +
         milliseconds(arrival.last) + L"; " + std::to_wstring(arrival.bytes) + L" bytes " +
         wayOf(arrival);
}

void tellTimes(const std::vector<Arrival>& statuses, DiagnosticReport& report) {
  const auto [fastest, slowest] = std::ranges::minmax(statuses, {}, &Arrival::last);
  report.tell(L"Estado, " + std::to_wstring(statuses.size()) + L" respuestas",
              L"de " + milliseconds(fastest.last) + L" a " + milliseconds(slowest.last));
  report.tell(L"La más lenta", wordsOf(slowest));
}

void tellNumber(DiagnosticReport& report, const wchar_t* name, std::int32_t number) {
  report.tell(name, std::to_wstring(number));
}

void tellCounters(const CountersValues& values, DiagnosticReport& report) {
  report.tellPrivate(L"Serial", values.Serial);
  report.tellPrivate(L"RIF", values.RIF);
  report.tellPrivate(L"Ventas del día", toText(values.totalVentasDiarias, Locale{}));
  report.tell(L"Fecha de la impresora", format(values.Fecha, L"dd-mm-yyyy hh:nn"));
  tellNumber(report, L"Cajero", values.numeroCajero);
  tellNumber(report, L"Última factura", values.numeroUltimaFactura);
  tellNumber(report, L"Facturas del día", values.facturasDia);
  tellNumber(report, L"Última nota de crédito", values.numeroUltimaNC);
  tellNumber(report, L"Último documento no fiscal", values.ultimoDNF);
  tellNumber(report, L"Cierres Z", values.nCierres);
  tellNumber(report, L"Reportes", values.contadorReportes);
}

bool tellsError(const PrinterAnswers& answers) {
  return answers.sts2 != kNoError || answers.sts1 >= kFirstOfFullMemory;
}

}  // namespace

std::wstring statusWords(const PrinterAnswers& answers) {
  if (!answers.openingError.empty()) return L"no se abre: " + answers.openingError;
  if (!answers.hasStatus) return L"no responde";
  const std::wstring words = explainSTS1(answers.sts1) + L"; " + explainSTS2(answers.sts2);
  return answers.isUncertain ? words + L", tras una respuesta perdida o dañada" : words;
}

bool isWell(const PrinterAnswers& answers) {
  return answers.hasStatus && !answers.isUncertain && !tellsError(answers);
}

void tellPrinter(const PrinterAnswers& answers, DiagnosticReport& report) {
  report.tell(L"Estado", statusWords(answers));
  if (!answers.openingError.empty()) {
    report.warn(Trouble::Printer, L"el puerto no se abre");
    return;
  }
  if (!answers.statuses.empty()) tellTimes(answers.statuses, report);
  if (!answers.hasStatus) {
    report.warn(Trouble::Printer, L"la impresora no responde a la petición de estado");
    return;
  }
  if (answers.isUncertain) {
    report.warn(
        Trouble::Printer,
        L"una respuesta no llegó, o llegó sin su byte de control: cable, adaptador, velocidad");
  }
  if (tellsError(answers)) report.warn(Trouble::Printer, L"la impresora dice que tiene un error");
  if (!answers.counters) {
    report.warn(Trouble::Printer,
                L"la consulta de los contadores (S1) no tuvo una respuesta legible");
    return;
  }
  report.tell(L"Contadores (S1)", wordsOf(answers.countersArrival));
  tellCounters(*answers.counters, report);
}

void tellManner(ReadManner manner, DiagnosticReport& report) {
  const wchar_t* words = L"no se ha visto";
  if (manner == ReadManner::AtOnce) words = L"devuelve en seguida lo que hay";
  if (manner == ReadManner::WaitsOut) {
    words = L"espera hasta el final del plazo; con LecturaInmediata=False cada lectura tarda 1 s";
  }
  report.tell(L"Una lectura que pide más de lo que hay", words);
}

}  // namespace corvid
