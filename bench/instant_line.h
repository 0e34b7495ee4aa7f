// A serial line without time or memory: what is written is answered at once by a printer that is
// always idle and acknowledges everything.
#pragma once

#include "transport/serial_calls.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace corvid {

class InstantLine : public SerialCalls {
 public:
  [[nodiscard]] std::size_t bytes() const { return bytes_; }  // of both directions

  SerialHandle createFile(const std::wstring&) override { return 1; }
  bool closeHandle(SerialHandle) override { return true; }
  bool setupComm(SerialHandle, std::uint32_t, std::uint32_t) override { return true; }
  bool purgeComm(SerialHandle, std::uint32_t) override { return true; }
  bool setCommTimeouts(SerialHandle, const SerialTimeouts&) override { return true; }
  bool getCommState(SerialHandle, DeviceControlBlock&) override { return true; }
  bool buildCommDcb(const std::wstring&, DeviceControlBlock&) override { return true; }
  bool setCommState(SerialHandle, const DeviceControlBlock&) override { return true; }
  bool clearCommError(SerialHandle, SerialQueue& queue) override {
    queue = {0, static_cast<std::uint32_t>(waiting_.size())};
    return true;
  }
  bool readFile(SerialHandle, char* buffer, std::uint32_t size, std::uint32_t& count) override {
    count = static_cast<std::uint32_t>(waiting_.copy(buffer, size));
    waiting_.remove_prefix(count);
    return true;
  }
  bool writeFile(SerialHandle, std::string_view sent, std::uint32_t& count) override {
    waiting_ = sent == "\x05" ? "\x02\x60\x40\x03\x23" : "\x06";
    bytes_ += sent.size() + waiting_.size();
    count = static_cast<std::uint32_t>(sent.size());
    return true;
  }
  bool getOverlappedResult(SerialHandle, std::uint32_t&) override { return true; }
  bool getCommModemStatus(SerialHandle, std::uint32_t&) override { return true; }
  bool escapeCommFunction(SerialHandle, std::uint32_t) override { return true; }
  std::vector<std::int16_t> ports() override { return {}; }
  std::uint32_t lastError() override { return 0; }
  std::wstring errorMessage(std::uint32_t) override { return {}; }

 private:
  std::string_view waiting_;
  std::size_t bytes_ = 0;
};

}  // namespace corvid
