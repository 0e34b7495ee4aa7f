// A host that meets what Wine's serial driver and a script host do not show. It says what came of
// it in lines "name=value".
//
//   driver_host sell PORT COUNT at-once|waits-out   items sold, statuses that were right; the
//       driver's reads give what is there, or wait out their time-out, as Wine's do
//   driver_host together PORT COUNT    the same from two threads, each on a port of its own, and
//   then
//       from a thread that has no apartment of its own: by the system's marshalling
//   driver_host soak PORT COUNT        commands accepted, and by how much the process grew from the
//       first half of them to the last one
//   driver_host nested PORT     another member called from a message handler in the middle of one
//   driver_host release PORT    the last reference let go there, on a silent line
//   driver_host quit PORT       a quit message posted there, on a silent line

#include "automation.h"
#include "corvid_interfaces.h"

#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

namespace {

using host::check;
using host::Value;

using Session = host::Object<IPrinterFiscal>;
using ReadCall = BOOL(WINAPI*)(HANDLE, void*, DWORD, DWORD*, OVERLAPPED*);

ReadCall theSystemsRead = nullptr;

// As Microsoft's serial driver has it, given the port's time-outs: no read waits for more than is
// there.
BOOL WINAPI readAtOnce(HANDLE handle, void* buffer, DWORD size, DWORD* count, OVERLAPPED* state) {
  DWORD errors = 0;
  COMSTAT status{};
  if (ClearCommError(handle, &errors, &status) != FALSE && status.cbInQue < size) {
    size = status.cbInQue;
  }
  return theSystemsRead(handle, buffer, size, count, state);
}

template <class Part>
Part* at(HMODULE image, DWORD offset) {
  return reinterpret_cast<Part*>(reinterpret_cast<char*>(image) + offset);
}

// The place in an image's table of imports that leads to a function.
void** importOf(HMODULE image, std::string_view name) {
  const auto* dos = at<IMAGE_DOS_HEADER>(image, 0);
  const auto* headers = at<IMAGE_NT_HEADERS>(image, static_cast<DWORD>(dos->e_lfanew));
  const DWORD table =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (const auto* one = at<IMAGE_IMPORT_DESCRIPTOR>(image, table); one->Name != 0; ++one) {
    const auto* names = at<IMAGE_THUNK_DATA>(image, one->OriginalFirstThunk);
    auto* places = at<void*>(image, one->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++places) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* import =
          at<IMAGE_IMPORT_BY_NAME>(image, static_cast<DWORD>(names->u1.AddressOfData));
      if (name == reinterpret_cast<const char*>(import->Name)) return places;
    }
  }
  throw std::runtime_error("the library does not import it");
}

void replaceRead() {
  void** place = importOf(GetModuleHandleW(L"CorvidAPI.dll"), "ReadFile");
  theSystemsRead = reinterpret_cast<ReadCall>(*place);
  DWORD before = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
  *place = reinterpret_cast<void*>(&readAtOnce);
  VirtualProtect(place, sizeof *place, before, &before);
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

short sellItem(const Session& printer, int number) {
  const std::wstring name = L"PAN" + std::to_wstring(1000 + number);
  short result = -1;
  check(printer->PasarItem(Value(name.c_str()).get(), Value(1.0).get(), Value(1.0).get(),
                           Value(16.0).get(), &result));
  return result;
}

void sell(int port, int count, bool atOnce) {
  Session printer;
  create(printer);
  if (atOnce) replaceRead();
  open(printer, port);
  int sold = 0;
  int right = 0;
  for (int i = 0; i < count; ++i) {
    LONG first = 0;
    LONG second = 0;
    if (sellItem(printer, i) == 0) ++sold;
    check(printer->get_STS1(&first));
    check(printer->get_STS2(&second));
    // Idle before the first item, in a document after it.
    if (first == (i == 0 ? 0x60 : 0x61) && second == 0x40) ++right;
  }
  check(printer->Cerrar());
  std::printf("sold=%d\nright=%d\n", sold, right);  // at once: other threads print too
}

// A failure in a thread must not end the process.
void sellInThread(int port, int count, DWORD model) {
  CoInitializeEx(nullptr, model);
  try {
    sell(port, count, false);
  } catch (const std::exception& error) {
    std::printf("error=%s\n", error.what());
  }
  CoUninitialize();
}

void sellTogether(int port, int count) {
  std::thread other(sellInThread, port + 1, count, COINIT_APARTMENTTHREADED);
  sell(port, count, false);
  other.join();
  std::thread(sellInThread, port + 2, count, COINIT_MULTITHREADED).join();
}

std::size_t privateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

void soak(int port, int count) {
  Session printer;
  create(printer);
  open(printer, port);
  const host::Text command(L"w");
  std::size_t before = 0;
  int accepted = 0;
  for (int i = 0; i < count; ++i) {
    if (i == count / 2) before = privateBytes();
    short result = -1;
    check(printer->Execute(command.get(), &result));
    if (result == 0) ++accepted;
  }
  const auto grown = static_cast<long>(privateBytes()) - static_cast<long>(before);
  std::printf("accepted=%d\ngrown=%ld\n", accepted, grown);
}

// What a timer does in the middle of a member.
IPrinterFiscal* theBusyOne = nullptr;

void CALLBACK callNested(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  short result = -1;
  VARIANT_BOOL failed = VARIANT_FALSE;
  const host::Text command(L"w");
  check(theBusyOne->Execute(command.get(), &result));
  check(theBusyOne->SubTotal(Value::missing(), &failed));
  std::printf("nested=%d %d\n", result, failed);
}

void CALLBACK releaseLast(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  std::printf("left=%lu\n", theBusyOne->Release());
}

void CALLBACK quit(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  PostQuitMessage(0);
}

// Calls a member with the timer running out in its middle; its answer takes longer or never comes.
void interrupt(int port, TIMERPROC doing, bool releases) {
  Session printer;
  create(printer);
  open(printer, port);
  theBusyOne = printer.operator->();
  if (releases) *printer.put() = nullptr;
  SetTimer(nullptr, 0, 300, doing);
  short result = -1;
  const host::Text command(L"w");
  check(theBusyOne->Execute(command.get(), &result));
  std::printf("outer=%d\n", result);
}

int run(int count, char** arguments) {
  const std::string_view task = count > 2 ? arguments[1] : "";
  const int port = count > 2 ? std::atoi(arguments[2]) : 0;
  const host::Apartment apartment;
  if (task == "sell" && count == 5) {
    sell(port, std::atoi(arguments[3]), std::string_view(arguments[4]) == "at-once");
  } else if (task == "together" && count == 4) {
    sellTogether(port, std::atoi(arguments[3]));
  } else if (task == "soak" && count == 4) {
    soak(port, std::atoi(arguments[3]));
  } else if (task == "nested") {
    interrupt(port, callNested, false);
  } else if (task == "release") {
    interrupt(port, releaseLast, true);
  } else if (task == "quit") {
    interrupt(port, quit, false);
  } else {
    throw std::runtime_error("sell, together, soak, nested, release or quit");
  }
  std::puts("<the host reached its end>");
  return EXIT_SUCCESS;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    return run(count, arguments);
  } catch (const host::Failure& failure) {
    std::printf("error=%lx %ls\n", failure.result, failure.description.c_str());
  } catch (const std::exception& error) {
    std::printf("error=%s\n", error.what());
  }
  return EXIT_FAILURE;
}
