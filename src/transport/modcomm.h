// modCOMM: the serial ports of the process, one record per port number.
#pragma once

#include "basic/code_page.h"
#include "platform/clock.h"
#include "platform/message_pump.h"
#include "platform/settings.h"
#include "transport/port_dump.h"
#include "transport/serial_calls.h"

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

// What the port layer needs of the world around it; all outlive it.
struct PortEnvironment {
  SerialCalls& calls;
  MessagePump& pump;
  const Settings& settings;
  Clock& clock;
  PortDump& dump;
  const CodePage& codePage;
};

// How long a read may go on while bytes keep coming; only immediate reads look at it.
constexpr double kUnlimitedPatience = 1e9;

// Every member raises subscript out of range (9) for a port outside 1 to 99; no other failure is
// raised: it is returned, and kept in the process-wide error record. Texts are characters of the
// system's code page, one byte each.
class modCOMM {
 public:
  explicit modCOMM(const PortEnvironment& environment) : environment_(environment) {}

  // 0, or the error number (-1 with "Port in use." when the record is already open). A failure
  // behind CreateFile leaves the record open, to be closed by CommClose. Opens the port dump.
  std::int32_t CommOpen(std::int16_t port, const std::wstring& name, const std::wstring& settings);
  // 0, or the error number, and then the record stays open. Closes the port dump.
  std::int32_t CommClose(std::int16_t port);
  // The count of bytes read into data, 0 at once when none is waiting, -1 on failure. Asks for at
  // most 4096 bytes, and for at least `size` within that; yields once to the host first.
  //
  // With the setting "LecturaInmediata" (section "Config\ModComm", read by CommOpen) it does not
  // wait out the port's read time-out: it takes exactly what is waiting and gathers until the
  // answer is whole, the line has been quiet for 60 ms, 4096 bytes are there, or `patience`
  // (seconds) is over.
  std::int32_t CommRead(std::int16_t port, std::wstring& data, std::int32_t size,
                        double patience = kUnlimitedPatience);
  // Takes off the line what is waiting, so that a late answer is not read as the next one's, and
  // returns it. Without "LecturaInmediata" it does nothing.
  std::wstring CommDiscard(std::int16_t port);
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
    bool readsImmediately = false;
    DeviceControlBlock block;
  };

  Record& record(std::int16_t port);
  [[nodiscard]] const Record& record(std::int16_t port) const;
  std::int32_t openRecord(Record& record, const std::wstring& path, const std::wstring& settings);
  std::int32_t configure(Record& record, const std::wstring& settings);
  std::int32_t applySettings(Record& record, const std::wstring& settings,
                             const std::wstring& operation);
  bool countWaiting(const Record& record, std::uint32_t& waiting);
  bool readOnce(const Record& record, std::uint32_t size, std::string& bytes);
  bool readWaiting(const Record& record, std::uint32_t size, std::string& bytes);
  bool gather(const Record& record, double patience, std::string& bytes);
  bool awaitTransfer(const Record& record, const wchar_t* call, const wchar_t* wait,
                     std::uint32_t error, std::uint32_t& count);
  std::uint32_t lastErrorNumber();
  std::int32_t fail(const std::wstring& source);
  void failTransfer(const Record& record, const std::wstring& source, std::uint32_t error);

  PortEnvironment environment_;
  std::array<Record, kHighestPort> records_;
  CommError lastError_;
};

}  // namespace corvid
