#include "transport/modcomm.h"

#include "basic/format.h"
#include "basic/run_time_error.h"
#include "transport/read_limits.h"

#include <algorithm>
#include <string>
#include <utility>

namespace corvid {
namespace {

constexpr std::uint32_t kQueueSize = 1024;
constexpr std::uint32_t kPurgeAll = 15;  // Windows: abort and clear, both directions
constexpr char kXon = 0x11;
constexpr char kXoff = 0x13;
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
constexpr LineFunctions kLineFunctions[] = {
    {CommLine::Break, 8, 9},
    {CommLine::Dtr, 5, 6},
    {CommLine::Rts, 3, 4},
};

// Windows opens ports above 9 only by their device path.
std::wstring devicePath(std::int16_t port, const std::wstring& name) {
  return port > 9 ? L"\\\\.\\" + name : name;
}

// The line settings say speed and frame alone; a driver keeps the rest from program to program.
void setWholeState(DeviceControlBlock& block) {
  using LineControl = DeviceControlBlock::LineControl;
  block.isBinary = true;
  block.checksParity = true;
  block.ctsFlow = false;
  block.dsrFlow = false;
  block.dtr = LineControl::Enable;
  block.dsrSensitive = false;
  block.continuesOnXoff = false;
  block.xonXoffOutput = false;
  block.xonXoffInput = false;
  block.replacesErrors = false;
  block.stripsNulls = false;
  block.rts = LineControl::Disable;
  block.abortsOnError = false;
  // A driver refuses a block in which these two are equal, whether it uses them or not.
  block.xonChar = kXon;
  block.xoffChar = kXoff;
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
  return openRecord(port, devicePath(port, name), settings);
}

std::int32_t modCOMM::openRecord(std::int16_t port, const std::wstring& path,
                                 const std::wstring& settings) {
  Record& record = this->record(port);
  PortsInUse::Taken number = environment_.inUse.take(port);
  if (!number) {
    lastError_ = {kPortInUse, L"CommOpen", kPortInUseText};
    return kPortInUse;
  }
  record.handle = environment_.calls.createFile(path);
  if (record.handle == kInvalidSerialHandle) return fail(L"CommOpen (CreateFile)");
  record.open = true;
  record.number = std::move(number);
  return configure(record, settings);
}

std::int32_t modCOMM::configure(Record& record, const std::wstring& settings) {
  if (!environment_.calls.setupComm(record.handle, kQueueSize, kQueueSize)) {
    return fail(L"CommOpen (SetupComm)");
  }
  if (!environment_.calls.purgeComm(record.handle, kPurgeAll)) return fail(L"CommOpen (PurgeComm)");
  if (!environment_.calls.setCommTimeouts(record.handle, kTimeouts)) {
    return fail(L"CommOpen (SetCommTimeouts)");
  }
  return applySettings(record, settings, L"CommOpen");
}

std::int32_t modCOMM::applySettings(Record& record, const std::wstring& settings,
                                    const std::wstring& operation) {
  if (!environment_.calls.getCommState(record.handle, record.block)) {
    return fail(operation + L" (GetCommState)");
  }
  if (!environment_.calls.buildCommDcb(settings, record.block)) {
    return fail(operation + L" (BuildCommDCB)");
  }
  setWholeState(record.block);
  if (!environment_.calls.setCommState(record.handle, record.block)) {
    return fail(operation + L" (SetCommState)");
  }
  return 0;
}

std::int32_t modCOMM::CommClose(std::int16_t port) {
  Record& record = this->record(port);
  environment_.dump.close();
  if (!record.open) return 0;
  const bool isClosed = environment_.calls.closeHandle(record.handle);
  // A handle that does not close belongs to a device that is gone; kept, it would keep the port.
  record.open = false;
  record.handle = kInvalidSerialHandle;
  record.number.reset();
  return isClosed ? 0 : fail(L"CommClose (CloseHandle)");
}

std::int32_t modCOMM::CommRead(std::int16_t port, std::string& data, std::int32_t size) {
  const Record& record = this->record(port);
  SerialQueue queue;
  if (!environment_.calls.clearCommError(record.handle, queue)) {
    fail(L"CommRead (ClearCommError)");
    return -1;
  }
  if (queue.waiting == 0) return 0;
  const std::size_t before = data.size();
  const auto wanted = static_cast<std::uint32_t>(std::max(size, 0));
  if (!readWaiting(record, std::max(queue.waiting, wanted), data)) return -1;
  return static_cast<std::int32_t>(data.size() - before);
}

// Appends what one read gives.
bool modCOMM::readWaiting(const Record& record, std::uint32_t size, std::string& bytes) {
  std::array<char, kReadBufferSize> buffer;
  const std::uint32_t asked = std::min(size, kReadBufferSize);
  std::uint32_t count = 0;
  if (!environment_.calls.readFile(record.handle, buffer.data(), asked, count) &&
      !awaitTransfer(record, L"CommRead (ReadFile)", L"CommRead (GetOverlappedResult)", count)) {
    return false;
  }
  const std::string_view read(buffer.data(), std::min(count, asked));
  if (!read.empty()) environment_.dump.write("Read ", read);
  bytes += read;
  return true;
}

std::string modCOMM::CommDiscard(std::int16_t port) {
  std::string bytes;
  for (int i = 0; i < kMostDiscards; ++i) {
    if (CommRead(port, bytes, kExactly) <= 0) break;
  }
  return bytes;
}

std::int32_t modCOMM::CommWrite(std::int16_t port, std::string_view data) {
  const Record& record = this->record(port);
  std::uint32_t count = 0;
  if (!environment_.calls.writeFile(record.handle, data, count) &&
      !awaitTransfer(record, L"CommWrite (WriteFile)", L"CommWrite (GetOverlappedResult)", count)) {
    return -1;
  }
  environment_.dump.write("Send ", data);
  return static_cast<std::int32_t>(count);
}

// After a read or write that did not finish at once; false after any error but a pending one.
bool modCOMM::awaitTransfer(const Record& record, const wchar_t* call, const wchar_t* wait,
                            std::uint32_t& count) {
  const std::uint32_t error = lastErrorNumber();
  if (error != kErrorIoPending) {
    failTransfer(record, call, error);
    return false;
  }
  while (!environment_.calls.getOverlappedResult(record.handle, count)) {
    const std::uint32_t waitError = lastErrorNumber();
    if (waitError == kErrorIoIncomplete) continue;
    failTransfer(record, wait, waitError);
    return false;
  }
  return true;
}

std::int32_t modCOMM::CommReadCD(std::int16_t port, std::int16_t mask, bool& state) {
  std::uint32_t status = 0;
  if (!environment_.calls.getCommModemStatus(record(port).handle, status)) {
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
    if (environment_.calls.escapeCommFunction(record.handle, function)) return 0;
    return fail(L"CommSetLine (EscapeCommFunction)");
  }
  return 0;
}

std::int32_t modCOMM::CommSet(std::int16_t port, const std::wstring& settings) {
  return applySettings(record(port), settings, L"CommSet");
}

std::int32_t modCOMM::CommFlush(std::int16_t port) {
  if (environment_.calls.purgeComm(record(port).handle, kPurgeAll)) return 0;
  return fail(L"CommFlush (PurgeComm)");
}

std::int32_t modCOMM::CommGetError(std::wstring& text) const {
  text = lastError_.text();
  return lastError_.number;
}

std::int32_t modCOMM::fail(const std::wstring& source) {
  const std::uint32_t error = lastErrorNumber();
  lastError_ = {static_cast<std::int32_t>(error), source, environment_.calls.errorMessage(error)};
  return lastError_.number;
}

// A driver may fail without a number, and 0 would pass for success.
std::uint32_t modCOMM::lastErrorNumber() {
  const std::uint32_t error = environment_.calls.lastError();
  return error != 0 ? error : kErrorGenFailure;
}

void modCOMM::failTransfer(const Record& record, const std::wstring& source, std::uint32_t error) {
  SerialQueue queue;
  environment_.calls.clearCommError(record.handle, queue);
  lastError_ = {static_cast<std::int32_t>(error), source,
                environment_.calls.errorMessage(error) + L"  COMM Error Flags = " +
                    toHex(static_cast<std::int32_t>(queue.errorFlags))};
}

}  // namespace corvid
