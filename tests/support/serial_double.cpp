#include "support/serial_double.h"

#include "support/in_seam.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace corvid {
namespace {

constexpr std::uint32_t kInvalidHandle = 6;
constexpr std::uint32_t kAccessDenied = 5;

}  // namespace

void SerialDouble::deliver(std::string_view bytes, double delaySeconds) {
  const auto open = open_.find(current_);
  if (open == open_.end()) return;  // nobody hears it
  SerialLine& line = open->second;
  line.free = std::max(line.free, clock_.total() + delaySeconds);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (driver.arrival != DriverModel::Arrival::Whole) line.free += kByteSeconds;
    line.bytes.push_back({bytes[i], arrival(line.free, i, bytes.size())});
  }
}

double SerialDouble::arrival(double passed, std::size_t index, std::size_t count) const {
  const auto next = [&](double period) {
    return std::ceil((passed - driver.phase) / period) * period + driver.phase;
  };
  switch (driver.arrival) {
    case DriverModel::Arrival::UsbFrames:
      return next(0.001);
    case DriverModel::Arrival::Lumps:
      return next(0.016);
    case DriverModel::Arrival::Fifo: {
      constexpr std::size_t kDepth = 8;
      const std::size_t last = std::min((index / kDepth + 1) * kDepth, count) - 1;
      const bool isFull = (last + 1) % kDepth == 0;
      return passed + driver.phase +
             static_cast<double>(last - index + (isFull ? 0 : 4)) * kByteSeconds;
    }
    default:
      return passed + driver.phase;
  }
}

void SerialDouble::silence() {
  for (auto& [handle, line] : open_) {
    std::erase_if(line.bytes,
                  [&](const Incoming::Arriving& one) { return one.due > clock_.total(); });
  }
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
  const InSeam seam;
  for (const std::uint32_t number : numbers) numbers_.push_back({call, number});
}

void SerialDouble::clearLog() {
  calls_.clear();
  numbers_.clear();
  written_.clear();
  opened_.clear();
}

bool SerialDouble::use(const std::string& call) {
  const InSeam seam;
  calls_.push_back(call);
  const std::optional<std::uint32_t> error = faults_.use(call);
  return !error || failWith(*error);
}

bool SerialDouble::useOpen(const std::string& call, SerialHandle handle) {
  if (!use(call)) return false;
  if (open_.contains(handle)) return true;
  return failWith(kInvalidHandle);
}

SerialHandle SerialDouble::createFile(const std::wstring& name) {
  const InSeam seam;
  opened_.push_back(name);
  if (!use("createFile")) return kInvalidSerialHandle;
  for (const auto& [handle, line] : open_) {
    if (line.device == name) {
      lastError_ = kAccessDenied;
      return kInvalidSerialHandle;
    }
  }
  current_ = freeHandle();
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
  open_.at(handle).bytes.clear();
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

// Of the text only the speed; the frame is the usual one.
bool SerialDouble::buildCommDcb(const std::wstring& settings, DeviceControlBlock& block) {
  const std::size_t digits = settings.find_first_of(L"0123456789");
  block.baudRate = static_cast<std::uint32_t>(std::stoul(settings.substr(digits)));
  block.byteSize = 8;
  block.parity = 2;
  return use("buildCommDcb");
}

bool SerialDouble::setCommState(SerialHandle handle, const DeviceControlBlock& block) {
  deviceState = block;
  return useOpen("setCommState", handle);
}

bool SerialDouble::clearCommError(SerialHandle handle, SerialQueue& queue) {
  if (!useOpen("clearCommError", handle)) return false;
  queue.errorFlags = errorFlags;
  queue.waiting = countDue(open_.at(handle));
  return true;
}

std::uint32_t SerialDouble::take(SerialHandle handle, char* buffer, std::uint32_t size) {
  SerialLine& line = open_.at(handle);
  if (driver.reads == DriverModel::Reads::WaitOut && countDue(line) < size) {
    clock_.advance(timeouts_.readTotalConstant / 1000.0);
  }
  return takeDue(line, buffer, size);
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
  const InSeam seam;
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

}  // namespace corvid
