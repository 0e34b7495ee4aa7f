// The seam to the system's serial communication: one member per system call, so that each call
// can be made to fail.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

using SerialHandle = std::intptr_t;
constexpr SerialHandle kInvalidSerialHandle = -1;  // Windows: INVALID_HANDLE_VALUE

// The system's device control block, field by field (Windows: DCB).
struct DeviceControlBlock {
  enum class LineControl : std::uint8_t { Disable, Enable, Handshake, Toggle };

  std::uint32_t baudRate = 0;
  bool isBinary = false;
  bool checksParity = false;
  bool ctsFlow = false;  // output waits for CTS, DSR
  bool dsrFlow = false;
  LineControl dtr = LineControl::Disable;
  bool dsrSensitive = false;     // bytes that come while DSR is low are dropped
  bool continuesOnXoff = false;  // input goes on after XOFF was sent
  bool xonXoffOutput = false;
  bool xonXoffInput = false;
  bool replacesErrors = false;  // by errorChar
  bool stripsNulls = false;
  LineControl rts = LineControl::Disable;
  bool abortsOnError = false;  // until the error is cleared
  std::uint16_t xonLimit = 0;
  std::uint16_t xoffLimit = 0;
  std::uint8_t byteSize = 0;
  std::uint8_t parity = 0;
  std::uint8_t stopBits = 0;
  char xonChar = 0;
  char xoffChar = 0;
  char errorChar = 0;
  char endChar = 0;
  char eventChar = 0;

  bool operator==(const DeviceControlBlock&) const = default;
};

struct SerialTimeouts {
  std::uint32_t readInterval = 0;  // milliseconds, as are the others
  std::uint32_t readTotalMultiplier = 0;
  std::uint32_t readTotalConstant = 0;
  std::uint32_t writeTotalMultiplier = 0;
  std::uint32_t writeTotalConstant = 0;
};

struct SerialQueue {
  std::uint32_t errorFlags = 0;
  std::uint32_t waiting = 0;  // bytes that a read would find
};

// System error numbers that the port layer tells apart (from Windows).
constexpr std::uint32_t kErrorIoIncomplete = 996;
constexpr std::uint32_t kErrorIoPending = 997;

// Each member but the last three returns false (createFile: kInvalidSerialHandle) on failure, and
// lastError then gives the system's number. One overlapped record, the implementation's own,
// serves all reads and writes.
class SerialCalls {
 public:
  virtual ~SerialCalls() = default;

  // Opens for reading and writing, not shared, an existing device, normal attributes. `name` is
  // the device path ("COM7", "\\.\COM10").
  virtual SerialHandle createFile(const std::wstring& name) = 0;
  virtual bool closeHandle(SerialHandle handle) = 0;
  virtual bool setupComm(SerialHandle handle, std::uint32_t inputQueue,
                         std::uint32_t outputQueue) = 0;
  virtual bool purgeComm(SerialHandle handle, std::uint32_t flags) = 0;
  virtual bool setCommTimeouts(SerialHandle handle, const SerialTimeouts& timeouts) = 0;
  virtual bool getCommState(SerialHandle handle, DeviceControlBlock& block) = 0;
  virtual bool buildCommDcb(const std::wstring& settings, DeviceControlBlock& block) = 0;
  virtual bool setCommState(SerialHandle handle, const DeviceControlBlock& block) = 0;
  virtual bool clearCommError(SerialHandle handle, SerialQueue& queue) = 0;
  // Reads at most `size` bytes into `buffer`; `count` is what came.
  virtual bool readFile(SerialHandle handle, char* buffer, std::uint32_t size,
                        std::uint32_t& count) = 0;
  virtual bool writeFile(SerialHandle handle, std::string_view bytes, std::uint32_t& count) = 0;
  virtual bool getOverlappedResult(SerialHandle handle, std::uint32_t& count) = 0;  // waits
  virtual bool getCommModemStatus(SerialHandle handle, std::uint32_t& status) = 0;
  virtual bool escapeCommFunction(SerialHandle handle, std::uint32_t function) = 0;

  // The numbers of the serial ports that exist, ascending; those of other programs too.
  virtual std::vector<std::int16_t> ports() = 0;

  virtual std::uint32_t lastError() = 0;
  // The system's words for an error number, without a trailing line break.
  virtual std::wstring errorMessage(std::uint32_t number) = 0;
};

}  // namespace corvid
