#include "windows/serial_calls.h"

#include <cstring>

namespace corvid {
namespace {

static_assert(sizeof(DCB) == sizeof(DeviceControlBlock::bytes));

HANDLE toHandle(SerialHandle handle) {
  return reinterpret_cast<HANDLE>(handle);  // NOLINT(performance-no-int-to-ptr): the seam's type
}

DCB* blockOf(DeviceControlBlock& block) { return reinterpret_cast<DCB*>(block.bytes.data()); }

// Device names and line settings are plain ASCII.
std::string narrow(const std::wstring& text) {
  std::string bytes;
  for (const wchar_t character : text) bytes += static_cast<char>(character);
  return bytes;
}

}  // namespace

bool WindowsSerialCalls::keepError(BOOL succeeded) {
  lastError_ = succeeded != FALSE ? 0 : GetLastError();
  return succeeded != FALSE;
}

SerialHandle WindowsSerialCalls::createFile(const std::wstring& name) {
  auto* handle = CreateFileA(narrow(name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  keepError(handle != INVALID_HANDLE_VALUE ? TRUE : FALSE);
  return reinterpret_cast<SerialHandle>(handle);
}

bool WindowsSerialCalls::closeHandle(SerialHandle handle) {
  return keepError(CloseHandle(toHandle(handle)));
}

bool WindowsSerialCalls::setupComm(SerialHandle handle, std::uint32_t inputQueue,
                                   std::uint32_t outputQueue) {
  return keepError(SetupComm(toHandle(handle), inputQueue, outputQueue));
}

bool WindowsSerialCalls::purgeComm(SerialHandle handle, std::uint32_t flags) {
  return keepError(PurgeComm(toHandle(handle), flags));
}

bool WindowsSerialCalls::setCommTimeouts(SerialHandle handle, const SerialTimeouts& timeouts) {
  COMMTIMEOUTS values{timeouts.readInterval, timeouts.readTotalMultiplier,
                      timeouts.readTotalConstant, timeouts.writeTotalMultiplier,
                      timeouts.writeTotalConstant};
  return keepError(SetCommTimeouts(toHandle(handle), &values));
}

bool WindowsSerialCalls::getCommState(SerialHandle handle, DeviceControlBlock& block) {
  blockOf(block)->DCBlength = sizeof(DCB);
  return keepError(GetCommState(toHandle(handle), blockOf(block)));
}

bool WindowsSerialCalls::buildCommDcb(const std::wstring& settings, DeviceControlBlock& block) {
  return keepError(BuildCommDCBA(narrow(settings).c_str(), blockOf(block)));
}

bool WindowsSerialCalls::setCommState(SerialHandle handle, const DeviceControlBlock& block) {
  DeviceControlBlock copy = block;
  return keepError(SetCommState(toHandle(handle), blockOf(copy)));
}

bool WindowsSerialCalls::clearCommError(SerialHandle handle, SerialQueue& queue) {
  DWORD flags = 0;
  COMSTAT status{};
  const bool succeeded = keepError(ClearCommError(toHandle(handle), &flags, &status));
  queue.errorFlags = flags;
  queue.waiting = status.cbInQue;
  return succeeded;
}

bool WindowsSerialCalls::readFile(SerialHandle handle, char* buffer, std::uint32_t size,
                                  std::uint32_t& count) {
  DWORD read = 0;
  overlapped_ = {};
  const bool succeeded = keepError(ReadFile(toHandle(handle), buffer, size, &read, &overlapped_));
  count = read;
  return succeeded;
}

bool WindowsSerialCalls::writeFile(SerialHandle handle, std::string_view bytes,
                                   std::uint32_t& count) {
  DWORD written = 0;
  overlapped_ = {};
  const bool succeeded = keepError(WriteFile(
      toHandle(handle), bytes.data(), static_cast<DWORD>(bytes.size()), &written, &overlapped_));
  count = written;
  return succeeded;
}

bool WindowsSerialCalls::getOverlappedResult(SerialHandle handle, std::uint32_t& count) {
  DWORD transferred = 0;
  const bool succeeded =
      keepError(GetOverlappedResult(toHandle(handle), &overlapped_, &transferred, TRUE));
  count = transferred;
  return succeeded;
}

bool WindowsSerialCalls::getCommModemStatus(SerialHandle handle, std::uint32_t& status) {
  DWORD bits = 0;
  const bool succeeded = keepError(GetCommModemStatus(toHandle(handle), &bits));
  status = bits;
  return succeeded;
}

bool WindowsSerialCalls::escapeCommFunction(SerialHandle handle, std::uint32_t function) {
  return keepError(EscapeCommFunction(toHandle(handle), function));
}

std::uint32_t WindowsSerialCalls::lastError() { return lastError_; }

std::wstring WindowsSerialCalls::errorMessage(std::uint32_t number) {
  wchar_t buffer[512];
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, number, 0, buffer, 512, nullptr);
  std::wstring text(buffer, length);
  while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n' || text.back() == L' ')) {
    text.pop_back();
  }
  return text;
}

}  // namespace corvid
