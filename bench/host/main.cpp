// The host that is timed under Wine. It says each figure as a line "name value".
//
//   corvid_bench_host sale PORT    a sale of twenty lines: its seconds
//   corvid_bench_host wait PORT    one status request that nobody answers: its seconds, and the
//                                  seconds of processor time that this process took meanwhile
//   corvid_bench_host calls COUNT  a member called that often: microseconds for each early-bound
//                                  call, and for each Invoke
//   corvid_bench_host lines COUNT  the seconds for that many lines added to a report that is shown,
//                                  and for a fifth of them added to a bare rich edit control

#include "automation.h"
#include "corvid_interfaces.h"
#include "lines.h"
#include "support/twenty_lines.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using bench::now;
using host::check;
using host::Value;

using Session = host::Object<IPrinterFiscal>;

constexpr HRESULT kErrorMask = 0xFFFF;  // a run-time error n arrives as 0x800A0000 + n
constexpr int kRounds = 20;             // both kinds of call take turns

void say(const char* name, double value) { std::printf("%s %.9f\n", name, value); }

double secondsOf(const FILETIME& time) {
  const auto high = static_cast<std::uint64_t>(time.dwHighDateTime) << 32U;
  return static_cast<double>(high | time.dwLowDateTime) * 1e-7;
}

double processorSeconds() {
  FILETIME created;
  FILETIME ended;
  FILETIME kernel;
  FILETIME user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  return secondsOf(kernel) + secondsOf(user);
}

void create(Session& printer) {
  check(CoCreateInstance(__uuidof(PrinterFiscal), nullptr, CLSCTX_INPROC_SERVER,
                         __uuidof(IPrinterFiscal), reinterpret_cast<void**>(printer.put())));
}

// With a serial number it asks for the status alone.
void open(const Session& printer, int port) {
  const host::Text known(L"KNOWN");
  check(printer->put_SerialPrinter(known.get()));
  check(printer->Abrir(Value(port).get()));
}

void mustBeOk(long outcome) {
  if (outcome != pfOk) throw std::runtime_error("a command failed");
}

void sellLine(const Session& printer, const corvid::SaleLine& line) {
  short outcome = 0;
  check(printer->PasarItem(Value(line.description).get(), Value(line.price).get(),
                           Value(line.quantity).get(), Value(line.rate).get(), &outcome));
  mustBeOk(outcome);
}

void sell(const Session& printer) {
  Value outcome;
  check(printer->IniciarFactura(Value(corvid::kBuyerName).get(), Value(corvid::kBuyerTaxId).get(),
                                Value(corvid::kBuyerAddress).get(), outcome.put()));
  mustBeOk(outcome.number());
  for (const corvid::SaleLine& line : corvid::kTwentyLines) sellLine(printer, line);
  VARIANT_BOOL failed = VARIANT_FALSE;
  check(printer->SubTotal(Value::missing(), &failed));
  mustBeOk(failed);
  short closed = 0;
  check(printer->CerrarConMedio(Value(corvid::kPaymentMethod).get(), Value(corvid::kPayment).get(),
                                &closed));
  mustBeOk(closed);
}

void sale(int port) {
  Session printer;
  create(printer);
  open(printer, port);
  const double start = now();
  sell(printer);
  say("seconds", now() - start);
  check(printer->Cerrar());
}

void wait(int port) {
  Session printer;
  create(printer);
  open(printer, port);
  const double start = now();
  const double processor = processorSeconds();
  check(printer->GetStatus());
  say("processor", processorSeconds() - processor);
  say("seconds", now() - start);
  check(printer->Cerrar());
}

void callEarly(const Session& printer, int count) {
  short result = 0;
  const double start = now();
  for (int i = 0; i < count; ++i) check(printer->get_lStatus(&result));
  say("early", (now() - start) / count * 1e6);
}

void callLate(const Session& printer, DISPID member, int count) {
  const double start = now();
  for (int i = 0; i < count; ++i) {
    DISPPARAMS none{};
    Value result;
    check(printer->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                          result.put(), nullptr, nullptr));
  }
  say("late", (now() - start) / count * 1e6);
}

void calls(int count) {
  Session printer;
  create(printer);
  wchar_t name[] = L"lStatus";
  wchar_t* names[] = {name};
  DISPID member = 0;
  check(printer->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member));
  for (int round = 0; round < kRounds; ++round) {
    callEarly(printer, count);
    callLate(printer, member, count);
  }
}

// The bare calls take so long that they get a fifth of the lines.
void lines(int count) {
  say("report", bench::addToShownReport(count));
  say("traced", bench::traceToShownView(count));
  say("bare", bench::addToBareControl(count / 5));
}

int run(std::string_view task, int number) {
  const host::Apartment apartment;
  if (task == "sale") {
    sale(number);
  } else if (task == "wait") {
    wait(number);
  } else if (task == "calls") {
    calls(number);
  } else if (task == "lines") {
    lines(number);
  } else {
    throw std::runtime_error("sale, wait, calls or lines");
  }
  return EXIT_SUCCESS;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return run(count == 3 ? arguments[1] : "", count == 3 ? std::atoi(arguments[2]) : 0);
  } catch (const host::Failure& failure) {
    std::printf("error %ld from %ls: %ls\n", failure.result & kErrorMask, failure.source.c_str(),
                failure.description.c_str());
  } catch (const std::exception& error) {
    std::printf("error %s\n", error.what());
  }
  return EXIT_FAILURE;
}
