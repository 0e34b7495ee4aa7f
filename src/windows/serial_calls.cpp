#include "windows/serial_calls.h"

#include "basic/text.h"
#include "transport/modcomm.h"
#include "windows/system_message.h"

#include <algorithm>
#include <cwchar>
#include <optional>
#include <string_view>

namespace corvid {
namespace {

static_assert(kErrorIoIncomplete == ERROR_IO_INCOMPLETE && kErrorIoPending == ERROR_IO_PENDING &&
              kErrorGenFailure == ERROR_GEN_FAILURE);

HANDLE toHandle(SerialHandle handle) {
  return reinterpret_cast<HANDLE>(handle);  // NOLINT(performance-no-int-to-ptr): the seam's type
}

using LineControl = DeviceControlBlock::LineControl;
static_assert(static_cast<int>(LineControl::Enable) == DTR_CONTROL_ENABLE &&
              static_cast<int>(LineControl::Handshake) == RTS_CONTROL_HANDSHAKE &&
              static_cast<int>(LineControl::Toggle) == RTS_CONTROL_TOGGLE);

DCB toSystem(const DeviceControlBlock& block) {
  DCB dcb{};
  dcb.DCBlength = sizeof dcb;
  dcb.BaudRate = block.baudRate;
  dcb.fBinary = static_cast<DWORD>(block.isBinary) & 1U;
  dcb.fParity = static_cast<DWORD>(block.checksParity) & 1U;
  dcb.fOutxCtsFlow = static_cast<DWORD>(block.ctsFlow) & 1U;
  dcb.fOutxDsrFlow = static_cast<DWORD>(block.dsrFlow) & 1U;
  dcb.fDtrControl = static_cast<DWORD>(block.dtr) & 3U;
  dcb.fDsrSensitivity = static_cast<DWORD>(block.dsrSensitive) & 1U;
  dcb.fTXContinueOnXoff = static_cast<DWORD>(block.continuesOnXoff) & 1U;
  dcb.fOutX = static_cast<DWORD>(block.xonXoffOutput) & 1U;
  dcb.fInX = static_cast<DWORD>(block.xonXoffInput) & 1U;
  dcb.fErrorChar = static_cast<DWORD>(block.replacesErrors) & 1U;
  dcb.fNull = static_cast<DWORD>(block.stripsNulls) & 1U;
  dcb.fRtsControl = static_cast<DWORD>(block.rts) & 3U;
  dcb.fAbortOnError = static_cast<DWORD>(block.abortsOnError) & 1U;
  dcb.XonLim = block.xonLimit;
  dcb.XoffLim = block.xoffLimit;
  dcb.ByteSize = block.byteSize;
  dcb.Parity = block.parity;
  dcb.StopBits = block.stopBits;
  dcb.XonChar = block.xonChar;
  dcb.XoffChar = block.xoffChar;
  dcb.ErrorChar = block.errorChar;
  dcb.EofChar = block.endChar;
  dcb.EvtChar = block.eventChar;
  return dcb;
}

DeviceControlBlock fromSystem(const DCB& dcb) {
  return {.baudRate = dcb.BaudRate,
          .isBinary = dcb.fBinary != 0,
          .checksParity = dcb.fParity != 0,
          .ctsFlow = dcb.fOutxCtsFlow != 0,
          .dsrFlow = dcb.fOutxDsrFlow != 0,
          .dtr = static_cast<LineControl>(dcb.fDtrControl),
          .dsrSensitive = dcb.fDsrSensitivity != 0,
          .continuesOnXoff = dcb.fTXContinueOnXoff != 0,
          .xonXoffOutput = dcb.fOutX != 0,
          .xonXoffInput = dcb.fInX != 0,
          .replacesErrors = dcb.fErrorChar != 0,
          .stripsNulls = dcb.fNull != 0,
          .rts = static_cast<LineControl>(dcb.fRtsControl),
          .abortsOnError = dcb.fAbortOnError != 0,
          .xonLimit = dcb.XonLim,
          .xoffLimit = dcb.XoffLim,
          .byteSize = dcb.ByteSize,
          .parity = dcb.Parity,
          .stopBits = dcb.StopBits,
          .xonChar = dcb.XonChar,
          .xoffChar = dcb.XoffChar,
          .errorChar = dcb.ErrorChar,
          .endChar = dcb.EofChar,
          .eventChar = dcb.EvtChar};
}

// The names of all devices, each with a NUL after it and one more at the end; that one alone where
// the system does not tell them.
std::vector<wchar_t> deviceNames() {
  constexpr std::size_t kFirstSize = 32768;
  constexpr std::size_t kLargestSize = 1U << 22U;
  for (std::size_t size = kFirstSize; size <= kLargestSize; size *= 2) {
    std::vector<wchar_t> names(size);
    if (QueryDosDeviceW(nullptr, names.data(), static_cast<DWORD>(size)) != 0) return names;
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) break;
  }
  return {L'\0'};
}

// Nothing for a device that is no serial port, or has a number that Abrir does not take.
std::optional<std::int16_t> portNumber(std::wstring_view name) {
  constexpr std::wstring_view kPrefix = L"COM";
  if (name.size() <= kPrefix.size() ||
      !equalIgnoringCase(name.substr(0, kPrefix.size()), kPrefix)) {
    return std::nullopt;
  }
  std::int32_t number = 0;
  for (const wchar_t digit : name.substr(kPrefix.size())) {
    if (!isDigit(digit) || number > kHighestPort) return std::nullopt;
    number = (10 * number) + (digit - L'0');
  }
  if (number < 1 || number > kHighestPort) return std::nullopt;
  return static_cast<std::int16_t>(number);
}

}  // namespace

bool WindowsSerialCalls::keepError(BOOL succeeded) {
  lastError_ = succeeded != FALSE ? 0 : GetLastError();
  return succeeded != FALSE;
}

SerialHandle WindowsSerialCalls::createFile(const std::wstring& name) {
  auto* handle = CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
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
  DCB dcb{};
  dcb.DCBlength = sizeof dcb;
  const bool succeeded = keepError(GetCommState(toHandle(handle), &dcb));
  if (succeeded) block = fromSystem(dcb);
  return succeeded;
}

bool WindowsSerialCalls::buildCommDcb(const std::wstring& settings, DeviceControlBlock& block) {
  DCB dcb = toSystem(block);
  const bool succeeded = keepError(BuildCommDCBW(settings.c_str(), &dcb));
  if (succeeded) block = fromSystem(dcb);
  return succeeded;
}

bool WindowsSerialCalls::setCommState(SerialHandle handle, const DeviceControlBlock& block) {
  DCB dcb = toSystem(block);
  return keepError(SetCommState(toHandle(handle), &dcb));
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

std::vector<std::int16_t> WindowsSerialCalls::ports() {
  std::vector<std::int16_t> numbers;
  const std::vector<wchar_t> names = deviceNames();
  for (const wchar_t* name = names.data(); *name != L'\0'; name += std::wcslen(name) + 1) {
    if (const auto number = portNumber(name)) numbers.push_back(*number);
  }
  std::ranges::sort(numbers);
  return numbers;
}

std::uint32_t WindowsSerialCalls::lastError() { return lastError_; }

std::wstring WindowsSerialCalls::errorMessage(std::uint32_t number) {
  return systemMessage(number);
}

}  // namespace corvid
