// Serial lines in memory: what is written reaches a peer, what the peer sends is read.
#pragma once

#include "support/line_double.h"
#include "transport/serial_calls.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

// How a driver hands on what the line gives.
struct DriverModel {
  enum class Reads {
    AtOnce,   // a read gives what is there (Microsoft's driver)
    WaitOut,  // one that asks for more waits out its time-out for the rest (Wine, com0com)
  };
  enum class Arrival {
    Whole,      // as delivered, at once
    Bytes,      // byte by byte at 9600 baud, as are the others
    Fifo,       // by eight, or when the line rests for four bytes' time
    UsbFrames,  // each millisecond
    Lumps,      // each 16 ms, a usual latency of USB adapters
  };
  Reads reads = Reads::AtOnce;
  Arrival arrival = Arrival::Whole;
  double phase = 0;  // seconds by which all that arrives is late
};

inline constexpr double kByteSeconds = 11.0 / 9600;  // start, eight data bits, parity, stop

struct SerialLine : Incoming {
  std::wstring device;
};

// Fulfils the serial calls over lines in memory, one per device name; all share one peer. Keeps
// every call. A closed or invalid handle fails with 6, a device that is open already with 5.
class SerialDouble : public LineDouble<SerialCalls, SerialHandle, SerialLine> {
 public:
  using LineDouble::LineDouble;

  DriverModel driver;

  void connect(LinePeer* peer) { peer_ = peer; }
  using LineDouble::deliver;
  void deliver(std::string_view bytes, double delaySeconds) override;
  // Takes back what has not arrived.
  void silence();

  // A read or write that fails with 997 goes on all the same: getOverlappedResult gives its count.
  void failNth(const std::string& call, int nth, std::uint32_t error) {
    faults_.failNth(call, nth, error);
  }
  void failFrom(const std::string& call, int nth, std::uint32_t error) {
    faults_.failFrom(call, nth, error);
  }
  void repair() { faults_.repair(); }
  // The nth write from now on takes that many bytes less than it was given.
  void shortenWrite(int nth, std::uint32_t by);

  [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }
  [[nodiscard]] std::size_t count(const std::string& call) const;
  // The numbers that each use of a call was given: queue sizes, purge flags, bytes asked for, line
  // functions.
  [[nodiscard]] std::vector<std::uint32_t> numbersOf(const std::string& call) const;
  // Every write, whole.
  [[nodiscard]] const std::vector<std::string>& written() const { return written_; }
  [[nodiscard]] const std::vector<std::wstring>& opened() const { return opened_; }
  [[nodiscard]] std::size_t openHandles() const { return open_.size(); }
  [[nodiscard]] const SerialTimeouts& timeouts() const { return timeouts_; }
  void clearLog();

  SerialHandle createFile(const std::wstring& name) override;
  bool closeHandle(SerialHandle handle) override;
  bool setupComm(SerialHandle handle, std::uint32_t input, std::uint32_t output) override;
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
  std::vector<std::int16_t> ports() override { return present; }

  std::vector<std::int16_t> present = {3, 7};  // the ports that exist
  std::uint32_t errorFlags = 0;                // what clearCommError reports
  std::uint32_t modemStatus = 0;
  DeviceControlBlock deviceState;  // getCommState gives it, setCommState changes it

 private:
  struct Use {
    std::string call;
    std::uint32_t number;
  };

  bool use(const std::string& call);
  bool useOpen(const std::string& call, SerialHandle handle);
  void note(const std::string& call, std::initializer_list<std::uint32_t> numbers);
  [[nodiscard]] double arrival(double passed, std::size_t index, std::size_t count) const;
  [[nodiscard]] bool isPending() const { return lastError_ == kErrorIoPending; }
  std::uint32_t take(SerialHandle handle, char* buffer, std::uint32_t size);
  std::uint32_t send(SerialHandle handle, std::string_view bytes);

  std::uint32_t overlappedCount_ = 0;  // what the last transfer moved
  int shortWriteCountdown_ = 0;
  std::uint32_t shortBy_ = 0;
  SerialTimeouts timeouts_;
  std::vector<std::string> calls_;
  std::vector<Use> numbers_;
  std::vector<std::string> written_;
  std::vector<std::wstring> opened_;
};

}  // namespace corvid
