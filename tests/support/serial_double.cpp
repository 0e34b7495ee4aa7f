#include "support/serial_double.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::uint32_t kInvalidHandle = 6;
constexpr std::uint32_t kAccessDenied = 5;

}  // namespace

void SerialDouble::deliver(std::string chunk, double delaySeconds) {
  const auto line = open_.find(current_);
  if (line == open_.end()) return;  // nobody hears it
  line->second.incoming.push_back({std::move(chunk), clock_.total() + delaySeconds});
}

void SerialDouble::failNth(const std::string& call, int nth, std::uint32_t error) {
  faults_.push_back({call, nth, false, error});
}

void SerialDouble::failFrom(const std::string& call, int nth, std::uint32_t error) {
  faults_.push_back({call, nth, true, error});
}

void SerialDouble::shortenWrite(int nth, std::uint32_t by) {
  shortWriteCountdown_ = nth;
  shortBy_ = by;
}

std::size_t SerialDouble::count(const std::string& call) const {
  return static_cast<std::size_t>(std::ranges::count(calls_, call));
}

std::vector<std::uint32_t> SerialDouble::numbersOf(const std::string& call) const {
  std::vector<std::uint32_t> numbers;
  for (const Use& use : numbers_) {
    if (use.call == call) numbers.push_back(use.number);
  }
  return numbers;
}

void SerialDouble::note(const std::string& call, std::initializer_list<std::uint32_t> numbers) {
  for (const std::uint32_t number : numbers) numbers_.push_back({call, number});
}

void SerialDouble::clearLog() {
  calls_.clear();
  numbers_.clear();
  written_.clear();
}

bool SerialDouble::use(const std::string& call) {
  calls_.push_back(call);
  bool succeeds = true;
  for (Fault& fault : faults_) {
    if (fault.call != call) continue;
    --fault.countdown;
    if (fault.countdown > 0 || (fault.countdown < 0 && !fault.lasts)) continue;
    lastError_ = fault.error;
    succeeds = false;
  }
  return succeeds;
}

bool SerialDouble::useOpen(const std::string& call, SerialHandle handle) {
  if (!use(call)) return false;
  if (open_.contains(handle)) return true;
  lastError_ = kInvalidHandle;
  return false;
}

// The bytes that one read finds.
std::size_t SerialDouble::countDue(const Line& line) const {
  std::size_t count = 0;
  for (const Chunk& chunk : line.incoming) {
    if (!isDue(chunk)) break;
    count += chunk.bytes.size();
    if (!chunksRunTogether) break;
  }
  return count;
}

SerialHandle SerialDouble::createFile(const std::wstring& name) {
  opened_.push_back(name);
  if (!use("createFile")) return kInvalidSerialHandle;
  for (const auto& [handle, line] : open_) {
    if (line.device == name) {
      lastError_ = kAccessDenied;
      return kInvalidSerialHandle;
    }
  }
  current_ = ++nextHandle_;
  open_[current_].device = name;
  return current_;
}

bool SerialDouble::closeHandle(SerialHandle handle) {
  if (!useOpen("closeHandle", handle)) return false;
  open_.erase(handle);
  return true;
}

bool SerialDouble::setupComm(SerialHandle handle, std::uint32_t input, std::uint32_t output) {
  note("setupComm", {input, output});
  return useOpen("setupComm", handle);
}

bool SerialDouble::purgeComm(SerialHandle handle, std::uint32_t flags) {
  note("purgeComm", {flags});
  if (!useOpen("purgeComm", handle)) return false;
  open_.at(handle).incoming.clear();
  return true;
}

bool SerialDouble::setCommTimeouts(SerialHandle handle, const SerialTimeouts& timeouts) {
  timeouts_ = timeouts;
  return useOpen("setCommTimeouts", handle);
}

bool SerialDouble::getCommState(SerialHandle handle, DeviceControlBlock& block) {
  block = deviceState;
  return useOpen("getCommState", handle);
}

// What the text says goes into the block's first byte; the others are the device's own.
bool SerialDouble::buildCommDcb(const std::wstring& settings, DeviceControlBlock& block) {
  lineSettings_ = settings;
  block.bytes.front() = static_cast<std::byte>(settings.size());
  return use("buildCommDcb");
}

bool SerialDouble::setCommState(SerialHandle handle, const DeviceControlBlock& block) {
  deviceState = block;
  return useOpen("setCommState", handle);
}

bool SerialDouble::clearCommError(SerialHandle handle, SerialQueue& queue) {
  if (!useOpen("clearCommError", handle)) return false;
  const Line& line = open_.at(handle);
  queue.errorFlags = errorFlags;
  queue.waiting = static_cast<std::uint32_t>(countDue(line));
  return true;
}

std::uint32_t SerialDouble::takeDue(Line& line, char* buffer, std::uint32_t size) {
  std::uint32_t left = std::min(size, static_cast<std::uint32_t>(countDue(line)));
  std::uint32_t count = 0;
  while (left > 0) {
    std::string& bytes = line.incoming.front().bytes;
    const auto taken = static_cast<std::uint32_t>(bytes.copy(buffer + count, left));
    bytes.erase(0, taken);
    if (bytes.empty()) line.incoming.pop_front();
    count += taken;
    left -= taken;
  }
  return count;
}

std::uint32_t SerialDouble::take(SerialHandle handle, char* buffer, std::uint32_t size) {
  Line& line = open_.at(handle);
  std::uint32_t count = takeDue(line, buffer, size);
  if (readsWaitOutTheirTimeout && count < size) {
    clock_.advance(timeouts_.readTotalConstant / 1000.0);
    if (chunksRunTogether) count += takeDue(line, buffer + count, size - count);
  }
  return count;
}

bool SerialDouble::readFile(SerialHandle handle, char* buffer, std::uint32_t size,
                            std::uint32_t& count) {
  count = 0;
  note("readFile", {size});
  const bool succeeds = useOpen("readFile", handle);
  if (!succeeds && !isPending()) return false;
  overlappedCount_ = take(handle, buffer, size);
  if (succeeds) count = overlappedCount_;
  return succeeds;
}

std::uint32_t SerialDouble::send(SerialHandle handle, std::string_view bytes) {
  auto count = static_cast<std::uint32_t>(bytes.size());
  if (shortWriteCountdown_ > 0 && --shortWriteCountdown_ == 0) count -= shortBy_;
  written_.emplace_back(bytes);
  current_ = handle;
  if (peer_ != nullptr) peer_->received(bytes, *this);
  return count;
}

bool SerialDouble::writeFile(SerialHandle handle, std::string_view bytes, std::uint32_t& count) {
  count = 0;
  const bool succeeds = useOpen("writeFile", handle);
  if (!succeeds && !isPending()) return false;
  overlappedCount_ = send(handle, bytes);
  if (succeeds) count = overlappedCount_;
  return succeeds;
}

bool SerialDouble::getOverlappedResult(SerialHandle handle, std::uint32_t& count) {
  if (!useOpen("getOverlappedResult", handle)) return false;
  count = overlappedCount_;
  return true;
}

bool SerialDouble::getCommModemStatus(SerialHandle handle, std::uint32_t& status) {
  status = modemStatus;
  return useOpen("getCommModemStatus", handle);
}

bool SerialDouble::escapeCommFunction(SerialHandle handle, std::uint32_t function) {
  note("escapeCommFunction", {function});
  return useOpen("escapeCommFunction", handle);
}

std::wstring SerialDouble::errorMessage(std::uint32_t number) {
  return L"system message " + std::to_wstring(number);
}

}  // namespace corvid
