#include "transport/modcomm.h"

#include "basic/format.h"
#include "basic/run_time_error.h"
#include "protocol/whole_answer.h"

#include <algorithm>
#include <string>

namespace corvid {
namespace {

constexpr std::int32_t kPortInUse = -1;
constexpr const wchar_t* kPortSection = L"Config\\ModComm";
constexpr double kQuietSeconds = 0.06;  // many byte times even at 1200 baud
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
  environment_.dump.open();
  return error;
}

std::int32_t modCOMM::openRecord(Record& record, const std::wstring& path,
                                 const std::wstring& settings) {
  if (record.open) {
    lastError_ = {kPortInUse, L"CommOpen", L"Port in use."};
    return kPortInUse;
  }
  record.handle = environment_.calls.createFile(path);
  if (record.handle == kInvalidSerialHandle) return fail(L"CommOpen (CreateFile)");
  record.open = true;
  record.readsImmediately =
      environment_.settings.boolean(kApplication, kPortSection, L"LecturaInmediata", false);
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
  if (!environment_.calls.buildCommDcb(settings, record.block))
    return fail(operation + L" (BuildCommDCB)");
  if (!environment_.calls.setCommState(record.handle, record.block)) {
    return fail(operation + L" (SetCommState)");
  }
  return 0;
}

std::int32_t modCOMM::CommClose(std::int16_t port) {
  Record& record = this->record(port);
  std::int32_t error = 0;
  if (record.open) {
    if (environment_.calls.closeHandle(record.handle)) {
      record.open = false;
      record.handle = kInvalidSerialHandle;
    } else {
      error = fail(L"CommClose (CloseHandle)");
    }
  }
  environment_.dump.close();
  return error;
}

std::int32_t modCOMM::CommRead(std::int16_t port, std::wstring& data, std::int32_t size,
                               double patience) {
  const Record& record = this->record(port);
  data.clear();
  environment_.pump.yield();
  std::string bytes;
  const auto wanted = static_cast<std::uint32_t>(std::max(size, 0));
  const bool isRead =
      record.readsImmediately ? gather(record, patience, bytes) : readOnce(record, wanted, bytes);
  if (!isRead) return -1;
  data = environment_.codePage.decode(bytes);
  if (!bytes.empty()) environment_.dump.write("Read ", bytes);
  return static_cast<std::int32_t>(bytes.size());
}

bool modCOMM::countWaiting(const Record& record, std::uint32_t& waiting) {
  SerialQueue queue;
  if (!environment_.calls.clearCommError(record.handle, queue)) {
    fail(L"CommRead (ClearCommError)");
    return false;
  }
  waiting = queue.waiting;
  return true;
}

bool modCOMM::readOnce(const Record& record, std::uint32_t size, std::string& bytes) {
  std::uint32_t waiting = 0;
  if (!countWaiting(record, waiting)) return false;
  return waiting == 0 || readWaiting(record, std::max(waiting, size), bytes);
}

// Appends what one read gives.
bool modCOMM::readWaiting(const Record& record, std::uint32_t size, std::string& bytes) {
  std::array<char, kReadBufferSize> buffer;
  const std::uint32_t asked = std::min(size, kReadBufferSize);
  std::uint32_t count = 0;
  if (!environment_.calls.readFile(record.handle, buffer.data(), asked, count) &&
      !awaitTransfer(record, L"CommRead (ReadFile)", L"CommRead (GetOverlappedResult)",
                     lastErrorNumber(), count)) {
    return false;
  }
  bytes.append(buffer.data(), std::min(count, asked));
  return true;
}

// A failure behind the first bytes ends the gathering; the next read meets it again.
bool modCOMM::gather(const Record& record, double patience, std::string& bytes) {
  const double start = environment_.clock.monotonicSeconds();
  double lastByte = start;
  for (;;) {
    std::uint32_t waiting = 0;
    if (!countWaiting(record, waiting)) return !bytes.empty();
    if (waiting == 0 && bytes.empty()) return true;

    const std::size_t before = bytes.size();
    const auto room = kReadBufferSize - static_cast<std::uint32_t>(before);
    if (waiting != 0 && !readWaiting(record, std::min(waiting, room), bytes)) {
      return !bytes.empty();
    }
    if (isWholeAnswer(bytes) || bytes.size() == kReadBufferSize) return true;

    const double now = environment_.clock.monotonicSeconds();
    if (bytes.size() != before) lastByte = now;
    if (now - lastByte >= kQuietSeconds || now - start >= patience) return true;
    environment_.clock.rest();
  }
}

std::wstring modCOMM::CommDiscard(std::int16_t port) {
  const Record& record = this->record(port);
  std::string bytes;
  if (record.readsImmediately) readOnce(record, 0, bytes);
  if (!bytes.empty()) environment_.dump.write("Read ", bytes);
  return environment_.codePage.decode(bytes);
}

std::int32_t modCOMM::CommWrite(std::int16_t port, std::wstring_view data) {
  const Record& record = this->record(port);
  const std::string bytes = environment_.codePage.encode(data);
  std::uint32_t count = 0;
  const bool written = environment_.calls.writeFile(record.handle, bytes, count);
  const std::uint32_t error = written ? 0 : lastErrorNumber();
  environment_.pump.yield();
  if (!written && !awaitTransfer(record, L"CommWrite (WriteFile)",
                                 L"CommWrite (GetOverlappedResult)", error, count)) {
    return -1;
  }
  environment_.dump.write("Send ", bytes);
  return static_cast<std::int32_t>(count);
}

// Behind a read or write that did not finish at once; false after any error but a pending one.
bool modCOMM::awaitTransfer(const Record& record, const wchar_t* call, const wchar_t* wait,
                            std::uint32_t error, std::uint32_t& count) {
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
  text = L"Error (" + std::to_wstring(lastError_.number) + L"): " + lastError_.source + L" - " +
         lastError_.description;
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
