#include "transport/serial_transport.h"

#include <utility>

namespace corvid {
namespace {

constexpr const wchar_t* kLineSettings = L"baud=9600 parity=E data=8 stop=1";
constexpr std::int32_t kReadSize = 4096;
constexpr double kWaitingSeconds = 0.5;  // half of the port's time-out for a read

}  // namespace

std::int32_t SerialTransport::open() {
  // Before: where the opening throws, what it has opened is closed with the stream.
  ownsRecord_ = !comm_.isOpen(port_);
  const std::int32_t error = comm_.CommOpen(port_, L"COM" + std::to_wstring(port_), kLineSettings);
  ownsRecord_ = isOpen();
  return error;
}

SerialTransport::~SerialTransport() {
  try {
    SerialTransport::close();
  } catch (...) {  // NOLINT(bugprone-empty-catch): the handle is closed by then
  }
}

std::int32_t SerialTransport::close() {
  return std::exchange(ownsRecord_, false) ? comm_.CommClose(port_) : 0;
}

void SerialTransport::setLines() {
  comm_.CommSetLine(port_, CommLine::Rts, 0);
  comm_.CommSetLine(port_, CommLine::Dtr, 1);
}

std::int32_t SerialTransport::read(std::string& bytes) {
  if (readsExactly_) return comm_.CommRead(port_, bytes, kExactly);
  const double start = clock_.monotonicSeconds();
  const std::int32_t count = comm_.CommRead(port_, bytes, kReadSize);
  if (count > 0) {
    const bool waited = clock_.monotonicSeconds() - start > kWaitingSeconds;
    manner_ = waited ? ReadManner::WaitsOut : ReadManner::AtOnce;
  }
  return count;
}

std::wstring SerialTransport::errorText() const {
  std::wstring text;
  comm_.CommGetError(text);
  return text;
}

}  // namespace corvid
