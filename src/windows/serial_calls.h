// The system's serial communication calls.
#pragma once

#include "transport/serial_calls.h"

#include <windows.h>

namespace corvid {

class WindowsSerialCalls : public SerialCalls {
 public:
  SerialHandle createFile(const std::wstring& name) override;
  bool closeHandle(SerialHandle handle) override;
  bool setupComm(SerialHandle handle, std::uint32_t inputQueue, std::uint32_t outputQueue) override;
  bool purgeComm(SerialHandle handle, std::uint32_t flags) override;
  bool setCommTimeouts(SerialHandle handle, const SerialTimeouts& timeouts) override;
  bool getCommState(SerialHandle handle, DeviceControlBlock& block) override;
  bool buildCommDcb(const std::wstring& settings, DeviceControlBlock& block) override;
  bool setCommState(SerialHandle handle, const DeviceControlBlock& block) override;
  bool clearCommError(SerialHandle handle, SerialQueue& queue) override;
  bool readFile(SerialHandle handle, char* buffer, std::uint32_t size,
                std::uint32_t& count) override;
  bool writeFile(SerialHandle handle, std::string_view bytes, std::uint32_t& count) override;
  bool getOverlappedResult(SerialHandle handle, std::uint32_t& count) override;
  bool getCommModemStatus(SerialHandle handle, std::uint32_t& status) override;
  bool escapeCommFunction(SerialHandle handle, std::uint32_t function) override;
  std::vector<std::int16_t> ports() override;
  std::uint32_t lastError() override;
  std::wstring errorMessage(std::uint32_t number) override;

 private:
  bool keepError(BOOL succeeded);

  OVERLAPPED overlapped_{};  // one for all reads and writes; they never run side by side
  DWORD lastError_ = 0;      // of the last call here, whatever the process called since
};

}  // namespace corvid
