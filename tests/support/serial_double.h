// Serial lines in memory: what is written reaches a peer, what the peer queues is read.
#pragma once

#include "support/fake_clock.h"
#include "transport/serial_calls.h"

#include <deque>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

class SerialDouble;

// The far end of a line. Answers by SerialDouble::deliver, at once or later.
class LinePeer {
 public:
  virtual ~LinePeer() = default;
  virtual void received(std::string_view bytes, SerialDouble& line) = 0;
};

// Fulfils the serial calls over lines in memory, one per device name; all share one peer. Keeps
// every call, and fails those that a test asks to fail. A closed or invalid handle fails with 6, a
// device that is open already with 5.
class SerialDouble : public SerialCalls {
 public:
  explicit SerialDouble(FakeClock& clock) : clock_(clock) {}

  void connect(LinePeer* peer) { peer_ = peer; }
  // Queues one chunk on the line written last (opened last, where none was); each chunk is one
  // read's worth. It arrives that many seconds from now.
  void deliver(std::string chunk, double delaySeconds = 0);

  // The nth use of a call from now on fails with that system error; failFrom: all from it on. A
  // read or write that fails with 997 goes on all the same: getOverlappedResult gives its count.
  void failNth(const std::string& call, int nth, std::uint32_t error);
  void failFrom(const std::string& call, int nth, std::uint32_t error);
  void repair() { faults_.clear(); }
  // The nth write from now on takes that many bytes less than it was given.
  void shortenWrite(int nth, std::uint32_t by);
  // A read that asks for more than is waiting takes the whole read time-out of a real port.
  bool readsWaitOutTheirTimeout = false;
  // As on a real line: a read takes all that has arrived, and what arrives while it waits.
  bool chunksRunTogether = false;

  [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }
  [[nodiscard]] std::size_t count(const std::string& call) const;
  // The numbers that each use of a call was given: queue sizes, purge flags, bytes asked for, line
  // functions.
  [[nodiscard]] std::vector<std::uint32_t> numbersOf(const std::string& call) const;
  // Every write, whole.
  [[nodiscard]] const std::vector<std::string>& written() const { return written_; }
  [[nodiscard]] const std::vector<std::wstring>& opened() const { return opened_; }
  [[nodiscard]] const SerialTimeouts& timeouts() const { return timeouts_; }
  [[nodiscard]] const std::wstring& lineSettings() const { return lineSettings_; }
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
  std::uint32_t lastError() override { return lastError_; }
  std::wstring errorMessage(std::uint32_t number) override;

  std::uint32_t errorFlags = 0;  // what clearCommError reports
  std::uint32_t modemStatus = 0;
  DeviceControlBlock deviceState;  // getCommState gives it, setCommState changes it

 private:
  struct Chunk {
    std::string bytes;
    double due;
  };
  struct Line {
    std::wstring device;
    std::deque<Chunk> incoming;
  };
  struct Fault {
    std::string call;
    int countdown;  // uses left before it strikes
    bool lasts;
    std::uint32_t error;
  };
  struct Use {
    std::string call;
    std::uint32_t number;
  };

  bool use(const std::string& call);
  bool useOpen(const std::string& call, SerialHandle handle);
  void note(const std::string& call, std::initializer_list<std::uint32_t> numbers);
  [[nodiscard]] bool isPending() const { return lastError_ == kErrorIoPending; }
  [[nodiscard]] bool isDue(const Chunk& chunk) const { return chunk.due <= clock_.total(); }
  [[nodiscard]] std::size_t countDue(const Line& line) const;
  std::uint32_t takeDue(Line& line, char* buffer, std::uint32_t size);
  std::uint32_t take(SerialHandle handle, char* buffer, std::uint32_t size);
  std::uint32_t send(SerialHandle handle, std::string_view bytes);

  FakeClock& clock_;
  LinePeer* peer_ = nullptr;
  std::vector<Fault> faults_;
  std::map<SerialHandle, Line> open_;
  SerialHandle nextHandle_ = 100;
  SerialHandle current_ = kInvalidSerialHandle;  // where the next chunk is queued
  std::uint32_t overlappedCount_ = 0;            // what the last transfer moved
  std::uint32_t lastError_ = 0;
  int shortWriteCountdown_ = 0;
  std::uint32_t shortBy_ = 0;
  SerialTimeouts timeouts_;
  std::wstring lineSettings_;
  std::vector<std::string> calls_;
  std::vector<Use> numbers_;
  std::vector<std::string> written_;
  std::vector<std::wstring> opened_;
};

}  // namespace corvid
