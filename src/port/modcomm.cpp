#include "port/modcomm.h"

#include "basic/format.h"
#include "basic/run_time_error.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::int32_t kPortInUse = -1;
constexpr std::uint32_t kQueueSize = 1024;
constexpr std::uint32_t kPurgeAll = 15;         // Windows: abort and clear, both directions
constexpr std::uint32_t kErrorGenFailure = 31;  // Windows: a device that does not work
constexpr std::uint32_t kReadBufferSize = 4096;
constexpr SerialTimeouts kTimeouts{.readInterval = 0xFFFFFFFF,
                                   .readTotalMultiplier = 0,
                                   .readTotalConstant = 1000,
                                   .writeTotalMultiplier = 1000,
                                   .writeTotalConstant = 0};

// EscapeCommFunction codes (Windows) that set and clear a line.
struct LineFunctions {
  CommLine line;
  std::uint32_t set;
  std::uint32_t clear;
};
constexpr std::array<LineFunctions, 3> kLineFunctions = {{
    {CommLine::Break, 8, 9},
    {CommLine::Dtr, 5, 6},
    {CommLine::Rts, 3, 4},
}};

// Windows opens ports above 9 only by their device path.
std::wstring devicePath(std::int16_t port, const std::wstring& name) {
  return port > 9 ? L"\\\\.\\" + name : name;
}

}  // namespace

modCOMM::Record& modCOMM::record(std::int16_t port) {
  if (port < 1 || port > kHighestPort) throw subscriptOutOfRange();
  return records_.at(static_cast<std::size_t>(port - 1));
}

const modCOMM::Record& modCOMM::record(std::int16_t port) const {
  if (port < 1 || port > kHighestPort) throw subscriptOutOfRange();
  return records_.at(static_cast<std::size_t>(port - 1));
}

bool modCOMM::isOpen(std::int16_t port) const { return record(port).open; }

std::int32_t modCOMM::CommOpen(std::int16_t port, const std::wstring& name,
                               const std::wstring& settings) {
  const std::int32_t error = openRecord(record(port), devicePath(port, name), settings);
  dump_.open();
  return error;
}

std::int32_t modCOMM::openRecord(Record& record, const std::wstring& path,
                                 const std::wstring& settings) {
  if (record.open) {
    lastError_ = {kPortInUse, L"CommOpen", L"Port in use."};
    return kPortInUse;
  }
  record.handle = calls_.createFile(path);
  if (record.handle == kInvalidSerialHandle) return fail(L"CommOpen (CreateFile)");
  record.open = true;
  return configure(record, settings);
}

std::int32_t modCOMM::configure(Record& record, const std::wstring& settings) {
  if (!calls_.setupComm(record.handle, kQueueSize, kQueueSize)) {
    return fail(L"CommOpen (SetupComm)");
  }
  if (!calls_.purgeComm(record.handle, kPurgeAll)) return fail(L"CommOpen (PurgeComm)");
  if (!calls_.setCommTimeouts(record.handle, kTimeouts)) {
    return fail(L"CommOpen (SetCommTimeouts)");
  }
  return applySettings(record, settings, L"CommOpen");
}

std::int32_t modCOMM::applySettings(Record& record, const std::wstring& settings,
                                    const std::wstring& operation) {
  if (!calls_.getCommState(record.handle, record.block)) {
    return fail(operation + L" (GetCommState)");
  }
  if (!calls_.buildCommDcb(settings, record.block)) return fail(operation + L" (BuildCommDCB)");
  if (!calls_.setCommState(record.handle, record.block)) {
    return fail(operation + L" (SetCommState)");
  }
  return 0;
}

std::int32_t modCOMM::CommClose(std::int16_t port) {
  Record& record = this->record(port);
  std::int32_t error = 0;
  if (record.open) {
    if (calls_.closeHandle(record.handle)) {
      record.open = false;
      record.handle = kInvalidSerialHandle;
    } else {
      error = fail(L"CommClose (CloseHandle)");
    }
  }
  dump_.close();
  return error;
}

std::int32_t modCOMM::CommRead(std::int16_t port, std::wstring& data, std::int32_t size) {
  const Record& record = this->record(port);
  data.clear();
  host_.yield();
  SerialQueue queue;
  if (!calls_.clearCommError(record.handle, queue)) {
    fail(L"CommRead (ClearCommError)");
    return -1;
  }
  if (queue.waiting == 0) return 0;

  const auto wanted = static_cast<std::uint32_t>(std::max(size, 0));
  const std::uint32_t asked = std::min(std::max(queue.waiting, wanted), kReadBufferSize);
  std::array<char, kReadBufferSize> buffer;
  std::uint32_t count = 0;
  if (!calls_.readFile(record.handle, buffer.data(), asked, count) &&
      !awaitTransfer(record, L"CommRead (ReadFile)", L"CommRead (GetOverlappedResult)", count)) {
    return -1;
  }
  const std::string_view bytes(buffer.data(), std::min(count, asked));
  data = codePage_.decode(bytes);
  if (!bytes.empty()) dump_.write("Read ", bytes);
  return static_cast<std::int32_t>(bytes.size());
}

std::int32_t modCOMM::CommWrite(std::int16_t port, std::wstring_view data) {
  const Record& record = this->record(port);
  const std::string bytes = codePage_.encode(data);
  std::uint32_t count = 0;
  const bool written = calls_.writeFile(record.handle, bytes, count);
  const std::uint32_t error = written ? 0 : lastErrorNumber();
  host_.yield();
  if (!written && !awaitTransfer(record, L"CommWrite (WriteFile)",
                                 L"CommWrite (GetOverlappedResult)", count, error)) {
    return -1;
  }
  dump_.write("Send ", bytes);
  return static_cast<std::int32_t>(count);
}

bool modCOMM::awaitTransfer(const Record& record, const wchar_t* call, const wchar_t* wait,
                            std::uint32_t& count) {
  return awaitTransfer(record, call, wait, count, lastErrorNumber());
}

// Behind a read or write that did not finish at once; false after any error but a pending one.
bool modCOMM::awaitTransfer(const Record& record, const wchar_t* call, const wchar_t* wait,
                            std::uint32_t& count, std::uint32_t error) {
  if (error != kErrorIoPending) {
    failTransfer(record, call, error);
    return false;
  }
  while (!calls_.getOverlappedResult(record.handle, count)) {
    const std::uint32_t waitError = lastErrorNumber();
    if (waitError == kErrorIoIncomplete) continue;
    failTransfer(record, wait, waitError);
    return false;
  }
  return true;
}

std::int32_t modCOMM::CommReadCD(std::int16_t port, std::int16_t mask, bool& state) {
  std::uint32_t status = 0;
  if (!calls_.getCommModemStatus(record(port).handle, status)) {
    return fail(L"CommReadCD (GetCommModemStatus)");
  }
  state = (status & static_cast<std::uint16_t>(mask)) != 0;
  return 0;
}

std::int32_t modCOMM::CommSetLine(std::int16_t port, CommLine line, std::int16_t state) {
  const Record& record = this->record(port);
  for (const LineFunctions& functions : kLineFunctions) {
    if (functions.line != line) continue;
    const std::uint32_t function = state != 0 ? functions.set : functions.clear;
    if (calls_.escapeCommFunction(record.handle, function)) return 0;
    return fail(L"CommSetLine (EscapeCommFunction)");
  }
  return 0;
}

std::int32_t modCOMM::CommSet(std::int16_t port, const std::wstring& settings) {
  return applySettings(record(port), settings, L"CommSet");
}

std::int32_t modCOMM::CommFlush(std::int16_t port) {
  if (calls_.purgeComm(record(port).handle, kPurgeAll)) return 0;
  return fail(L"CommFlush (PurgeComm)");
}

std::int32_t modCOMM::CommGetError(std::wstring& text) const {
  text = L"Error (" + std::to_wstring(lastError_.number) + L"): " + lastError_.source + L" - " +
         lastError_.description;
  return lastError_.number;
}

std::int32_t modCOMM::fail(const std::wstring& source) {
  const std::uint32_t error = lastErrorNumber();
  lastError_ = {static_cast<std::int32_t>(error), source, calls_.errorMessage(error)};
  return lastError_.number;
}

// A driver may fail without a number, and 0 would pass for success.
std::uint32_t modCOMM::lastErrorNumber() {
  const std::uint32_t error = calls_.lastError();
  return error != 0 ? error : kErrorGenFailure;
}

void modCOMM::failTransfer(const Record& record, const std::wstring& source, std::uint32_t error) {
  SerialQueue queue;
  calls_.clearCommError(record.handle, queue);
  lastError_ = {static_cast<std::int32_t>(error), source,
                calls_.errorMessage(error) + L"  COMM Error Flags = " +
                    toHex(static_cast<std::int32_t>(queue.errorFlags))};
}

}  // namespace corvid
