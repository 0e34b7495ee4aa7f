// modCOMM: the serial ports of the process, one record per port number.
#pragma once

#include "basic/code_page.h"
#include "port/host.h"
#include "port/port_dump.h"
#include "port/serial_calls.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

constexpr std::int16_t kHighestPort = 99;

// Line numbers of CommSetLine.
enum class CommLine : std::int16_t { Break = 1, Dtr = 2, Rts = 3 };

// What a failed call leaves behind for CommGetError.
struct CommError {
  std::int32_t number = 0;
  std::wstring source;  // such as "CommOpen (CreateFile)"
  std::wstring description;
};

// Every member raises subscript out of range (9) for a port outside 1 to 99; no other failure is
// raised: it is returned, and kept in the process-wide error record. Texts are characters of the
// system's code page, one byte each.
class modCOMM {
 public:
  modCOMM(SerialCalls& calls, HostYield& host, PortDump& dump, const CodePage& codePage)
      : calls_(calls), host_(host), dump_(dump), codePage_(codePage) {}

  // 0, or the error number (-1 with "Port in use." when the record is already open). A failure
  // behind CreateFile leaves the record open, to be closed by CommClose. Opens the port dump.
  std::int32_t CommOpen(std::int16_t port, const std::wstring& name, const std::wstring& settings);
  // 0, or the error number, and then the record stays open. Closes the port dump.
  std::int32_t CommClose(std::int16_t port);
  // The count of bytes read into data, 0 at once when none is waiting, -1 on failure. Asks for at
  // most 4096 bytes, and for at least `size` within that; yields once to the host first.
  std::int32_t CommRead(std::int16_t port, std::wstring& data, std::int32_t size);
  // The count of bytes written, or -1. Yields once to the host behind the write.
  std::int32_t CommWrite(std::int16_t port, std::wstring_view data);
  // state: whether any of the mask's modem status bits is set.
  std::int32_t CommReadCD(std::int16_t port, std::int16_t mask, bool& state);
  // Any state but 0 sets the line. An unknown line does nothing and returns 0.
  std::int32_t CommSetLine(std::int16_t port, CommLine line, std::int16_t state);
  std::int32_t CommSet(std::int16_t port, const std::wstring& settings);
  std::int32_t CommFlush(std::int16_t port);

  // "Error (" number "): " source " - " description of the last failure; returns its number.
  std::int32_t CommGetError(std::wstring& text) const;
  [[nodiscard]] bool isOpen(std::int16_t port) const;

 private:
  struct Record {
    SerialHandle handle = kInvalidSerialHandle;
    bool open = false;
    DeviceControlBlock block;
  };

  Record& record(std::int16_t port);
  [[nodiscard]] const Record& record(std::int16_t port) const;
  std::int32_t openRecord(Record& record, const std::wstring& path, const std::wstring& settings);
  std::int32_t configure(Record& record, const std::wstring& settings);
  std::int32_t applySettings(Record& record, const std::wstring& settings,
                             const std::wstring& operation);
  bool awaitTransfer(const Record& record, const wchar_t* call, const wchar_t* wait,
                     std::uint32_t& count);
  bool awaitTransfer(const Record& record, const wchar_t* call, const wchar_t* wait,
                     std::uint32_t& count, std::uint32_t error);
  std::uint32_t lastErrorNumber();
  std::int32_t fail(const std::wstring& source);
  void failTransfer(const Record& record, const std::wstring& source, std::uint32_t error);

  SerialCalls& calls_;
  HostYield& host_;
  PortDump& dump_;
  const CodePage& codePage_;
  std::array<Record, kHighestPort> records_;
  CommError lastError_;
};

}  // namespace corvid
