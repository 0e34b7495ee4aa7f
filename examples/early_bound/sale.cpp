// A whole sale from an early-bound host: it calls the library's interfaces directly, by the header
// that is made from the interface definition.
//
//   early_bound_sale [port number]        (without a number: COM7)

#include "automation.h"
#include "corvid_interfaces.h"

#include <cstdio>
#include <cstdlib>

namespace {

using host::check;

constexpr int kDefaultPort = 7;
constexpr HRESULT kErrorMask = 0xFFFF;  // a run-time error n arrives as 0x800A0000 + n

void say(const std::wstring& line) { std::printf("%ls\n", line.c_str()); }

using Session = host::Object<IPrinterFiscal>;

bool isRefused(const Session& printer) {
  controlValues flag{};
  check(printer->get_resultFlag(&flag));
  return flag == NAK;
}

// Every command leaves its outcome in the session; one that the printer refused counts as sent.
bool report(const Session& printer, const wchar_t* member, long outcome) {
  host::Text words;
  check(printer->get_DescripcionError(words.put()));
  const bool refused = isRefused(printer);
  say(std::wstring(member) + L": " + std::to_wstring(outcome) + L" (" +
      (refused ? L"refused" : words.str()) + L")");
  return outcome == pfOk && !refused;
}

bool openInvoice(const Session& printer) {
  const host::Value name(L"Maria Perez");
  const host::Value taxId(L"V-12345678-9");
  const host::Value address(L"Avenida Bolivar, edificio Los Proceres, piso 3, Caracas");
  host::Value outcome;
  check(printer->IniciarFactura(name.get(), taxId.get(), address.get(), outcome.put()));
  return report(printer, L"IniciarFactura", outcome.number());
}

bool sellItem(const Session& printer, const wchar_t* description, double price, double quantity,
              double rate) {
  short outcome = 0;
  check(printer->PasarItem(host::Value(description).get(), host::Value(price).get(),
                           host::Value(quantity).get(), host::Value(rate).get(), &outcome));
  return report(printer, L"PasarItem", outcome);
}

// These two answer True when something went wrong.
bool subtotal(const Session& printer) {
  VARIANT_BOOL failed = VARIANT_FALSE;
  check(printer->SubTotal(host::Value::missing(), &failed));
  return report(printer, L"SubTotal", failed);
}

bool discount(const Session& printer, double percentage) {
  VARIANT_BOOL failed = VARIANT_FALSE;
  check(printer->PasarDescuento(host::Value(percentage).get(), &failed));
  return report(printer, L"PasarDescuento", failed);
}

bool pay(const Session& printer, int method, double amount) {
  short outcome = 0;
  check(printer->CerrarConMedio(host::Value(method).get(), host::Value(amount).get(), &outcome));
  return report(printer, L"CerrarConMedio", outcome);
}

bool sell(const Session& printer) {
  return openInvoice(printer) && sellItem(printer, L"Pan campesino", 12.5, 2, 16) &&
         sellItem(printer, L"Leche entera 1 l", 3.2, 6, 0) &&
         sellItem(printer, L"Cafe molido 500 g", 8.75, 1, 8) && subtotal(printer) &&
         discount(printer, 10) && pay(printer, 1, 100);
}

void cancel(const Session& printer) {
  short outcome = 0;
  check(printer->CancelarTransaccion(&outcome));
  report(printer, L"CancelarTransaccion", outcome);
}

void showPrinter(const Session& printer) {
  host::Text serial;
  check(printer->get_SerialPrinter(serial.put()));
  host::Object<IPrinterResponse1> counters;
  check(printer->StatusS1(counters.put()));
  LONG last = 0;
  check(counters->get_numeroUltimaFactura(&last));
  say(L"Printer " + serial.str() + L", last invoice " + std::to_wstring(last));
}

void showStatus(const Session& printer) {
  check(printer->GetStatus());
  host::Value first;
  host::Value second;
  check(printer->explainSTS1(first.put()));
  check(printer->explainSTS2(second.put()));
  say(first.str());
  say(second.str());
}

void run(int port) {
  Session printer;
  check(CoCreateInstance(__uuidof(PrinterFiscal), nullptr, CLSCTX_INPROC_SERVER,
                         __uuidof(IPrinterFiscal), reinterpret_cast<void**>(printer.put())));
  check(printer->Abrir(host::Value(port).get()));
  say(L"Abrir " + std::to_wstring(port) + L": open");
  showPrinter(printer);
  if (sell(printer)) {
    say(L"The sale is closed.");
  } else {
    // A document that stays open would take up the lines of the next sale.
    cancel(printer);
  }
  showStatus(printer);
  check(printer->Cerrar());
}

int runReportingFailure(int port) {
  try {
    const host::Apartment apartment;
    run(port);
    return EXIT_SUCCESS;
  } catch (const host::Failure& failure) {
    say(L"Error " + std::to_wstring(failure.result & kErrorMask) + L" from " + failure.source);
    say(L"  " + failure.description);
  } catch (const std::exception& error) {
    std::printf("%s\n", error.what());
  }
  return EXIT_FAILURE;
}

}  // namespace

int main(int count, char** arguments) {
  const int port = count > 1 ? std::atoi(arguments[1]) : kDefaultPort;
  const int outcome = runReportingFailure(port);
  say(L"fin");
  return outcome;
}
