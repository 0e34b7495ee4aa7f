// modCOMM: serial ports, one record per port number.
#pragma once

#include "transport/comm_error.h"
#include "transport/port_dump.h"
#include "transport/ports_in_use.h"
#include "transport/serial_calls.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

constexpr std::int16_t kHighestPort = 99;

// Line numbers of CommSetLine.
enum class CommLine : std::int16_t { Break = 1, Dtr = 2, Rts = 3 };

// What the port layer needs of the world around it; all outlive it.
struct PortEnvironment {
  SerialCalls& calls;
  PortDump& dump;
  PortsInUse& inUse;
};

// The size by which a read takes exactly what is waiting.
constexpr std::int32_t kExactly = 0;

// Every member throws subscript out of range (9) for a port outside 1 to 99; no other failure is
// thrown: it is returned, and kept in the error record. None runs the host's code. One for each
// thread that opens ports; which ports are taken is the process's.
class modCOMM {
 public:
  explicit modCOMM(const PortEnvironment& environment) : environment_(environment) {}

  // 0, or the error number (-1 with "Port in use." when the port is already open here, on any
  // thread). A failure after CreateFile leaves the record open, to be closed by CommClose. The
  // port's whole state is set, whatever another program left behind: no flow control, parity
  // checked, DTR on, RTS off.
  std::int32_t CommOpen(std::int16_t port, const std::wstring& name, const std::wstring& settings);
  // 0, or the error number; the record is free for the next opening in both cases. Closes the port
  // dump.
  std::int32_t CommClose(std::int16_t port);
  // Appends to data the bytes of one read; their count, 0 at once when none is waiting, -1 on
  // failure. Asks for what is waiting, or for `size` bytes where that is more; at most for 4096.
  // By the port's time-outs a read that asks for more than is there returns at once on some
  // drivers, and after 1000 ms on others.
  std::int32_t CommRead(std::int16_t port, std::string& data, std::int32_t size);
  // Reads exactly what is waiting until nothing is, at most 64 reads; a failure ends it.
  [[nodiscard]] std::string CommDiscard(std::int16_t port);
  // The count of bytes written, or -1.
  std::int32_t CommWrite(std::int16_t port, std::string_view data);
  // state: whether any of the mask's modem status bits is set.
  std::int32_t CommReadCD(std::int16_t port, std::int16_t mask, bool& state);
  // Any state but 0 sets the line. An unknown line does nothing and returns 0.
  std::int32_t CommSetLine(std::int16_t port, CommLine line, std::int16_t state);
  std::int32_t CommSet(std::int16_t port, const std::wstring& settings);
  std::int32_t CommFlush(std::int16_t port);

  // The words of the last failure; returns its number.
  std::int32_t CommGetError(std::wstring& text) const;
  [[nodiscard]] bool isOpen(std::int16_t port) const;

 private:
  struct Record {
    SerialHandle handle = kInvalidSerialHandle;
    bool open = false;
    PortsInUse::Taken number;
    DeviceControlBlock block;
  };

  Record& record(std::int16_t port);
  [[nodiscard]] const Record& record(std::int16_t port) const;
  std::int32_t openRecord(std::int16_t port, const std::wstring& path,
                          const std::wstring& settings);
  std::int32_t configure(Record& record, const std::wstring& settings);
  std::int32_t applySettings(Record& record, const std::wstring& settings,
                             const std::wstring& operation);
  bool readWaiting(const Record& record, std::uint32_t size, std::string& bytes);
  bool awaitTransfer(const Record& record, const wchar_t* call, const wchar_t* wait,
                     std::uint32_t& count);
  std::uint32_t lastErrorNumber();
  std::int32_t fail(const std::wstring& source);
  void failTransfer(const Record& record, const std::wstring& source, std::uint32_t error);

  PortEnvironment environment_;
  std::array<Record, kHighestPort> records_;
  CommError lastError_;
};

}  // namespace corvid
