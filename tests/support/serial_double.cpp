#include "support/serial_double.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::uint32_t kInvalidHandle = 6;
constexpr std::uint32_t kAccessDenied = 5;

}  // namespace

void SerialDouble::deliver(std::string chunk, double delaySeconds) {
  incoming_.push_back({std::move(chunk), clock_.total() + delaySeconds});
}

void SerialDouble::failNth(const std::string& call, int nth, std::uint32_t error) {
  faults_[call] = {nth, false, error};
}

void SerialDouble::failFrom(const std::string& call, int nth, std::uint32_t error) {
  faults_[call] = {nth, true, error};
}

void SerialDouble::shortenWrite(int nth, std::uint32_t by) {
  shortWriteCountdown_ = nth;
  shortBy_ = by;
}

std::size_t SerialDouble::count(const std::string& call) const {
  return static_cast<std::size_t>(std::ranges::count(calls_, call));
}

void SerialDouble::clearLog() {
  calls_.clear();
  written_.clear();
}

bool SerialDouble::use(const std::string& call) {
  calls_.push_back(call);
  const auto found = faults_.find(call);
  if (found == faults_.end()) return true;
  Fault& fault = found->second;
  if (fault.countdown > 0) --fault.countdown;
  if (fault.countdown > 0) return true;
  lastError_ = fault.error;
  if (!fault.lasts) faults_.erase(found);
  return false;
}

bool SerialDouble::useOpen(const std::string& call, SerialHandle handle) {
  if (!use(call)) return false;
  if (open_.contains(handle)) return true;
  lastError_ = kInvalidHandle;
  return false;
}

bool SerialDouble::isDue() const {
  return !incoming_.empty() && incoming_.front().due <= clock_.total();
}

SerialHandle SerialDouble::createFile(const std::wstring& name) {
  opened_.push_back(name);
  if (!use("createFile")) return kInvalidSerialHandle;
  for (const auto& [handle, device] : open_) {
    if (device == name) {
      lastError_ = kAccessDenied;
      return kInvalidSerialHandle;
    }
  }
  open_[++nextHandle_] = name;
  return nextHandle_;
}

bool SerialDouble::closeHandle(SerialHandle handle) {
  if (!useOpen("closeHandle", handle)) return false;
  open_.erase(handle);
  incoming_.clear();
  return true;
}

bool SerialDouble::setupComm(SerialHandle handle, std::uint32_t, std::uint32_t) {
  return useOpen("setupComm", handle);
}

bool SerialDouble::purgeComm(SerialHandle handle, std::uint32_t) {
  if (!useOpen("purgeComm", handle)) return false;
  incoming_.clear();
  return true;
}

bool SerialDouble::setCommTimeouts(SerialHandle handle, const SerialTimeouts& timeouts) {
  timeouts_ = timeouts;
  return useOpen("setCommTimeouts", handle);
}

bool SerialDouble::getCommState(SerialHandle handle, DeviceControlBlock&) {
  return useOpen("getCommState", handle);
}

bool SerialDouble::buildCommDcb(const std::wstring& settings, DeviceControlBlock&) {
  lineSettings_ = settings;
  return use("buildCommDcb");
}

bool SerialDouble::setCommState(SerialHandle handle, const DeviceControlBlock&) {
  return useOpen("setCommState", handle);
}

bool SerialDouble::clearCommError(SerialHandle handle, SerialQueue& queue) {
  if (!useOpen("clearCommError", handle)) return false;
  queue.errorFlags = errorFlags;
  queue.waiting = isDue() ? static_cast<std::uint32_t>(incoming_.front().bytes.size()) : 0;
  return true;
}

bool SerialDouble::readFile(SerialHandle handle, char* buffer, std::uint32_t size,
                            std::uint32_t& count) {
  count = 0;
  if (!useOpen("readFile", handle)) return false;
  const bool waits = readsWaitOutTheirTimeout;
  if (isDue()) {
    std::string& bytes = incoming_.front().bytes;
    count = std::min(size, static_cast<std::uint32_t>(bytes.size()));
    std::copy_n(bytes.begin(), count, buffer);
    bytes.erase(0, count);
    if (bytes.empty()) incoming_.pop_front();
  }
  if (waits && count < size) clock_.advance(timeouts_.readTotalConstant / 1000.0);
  return true;
}

bool SerialDouble::writeFile(SerialHandle handle, std::string_view bytes, std::uint32_t& count) {
  count = 0;
  if (!useOpen("writeFile", handle)) return false;
  count = static_cast<std::uint32_t>(bytes.size());
  if (shortWriteCountdown_ > 0 && --shortWriteCountdown_ == 0) count -= shortBy_;
  written_.emplace_back(bytes);
  if (peer_ != nullptr) peer_->received(bytes, *this);
  return true;
}

bool SerialDouble::getOverlappedResult(SerialHandle handle, std::uint32_t& count) {
  if (!useOpen("getOverlappedResult", handle)) return false;
  count = overlappedCount;
  return true;
}

bool SerialDouble::getCommModemStatus(SerialHandle handle, std::uint32_t& status) {
  status = modemStatus;
  return useOpen("getCommModemStatus", handle);
}

bool SerialDouble::escapeCommFunction(SerialHandle handle, std::uint32_t function) {
  escapes.push_back(function);
  return useOpen("escapeCommFunction", handle);
}

std::wstring SerialDouble::errorMessage(std::uint32_t number) {
  return L"system message " + std::to_wstring(number);
}

}  // namespace corvid
