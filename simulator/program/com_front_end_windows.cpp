// Serves a serial port, for hosts at the other end of a cable or a pair of virtual ports.
#include "simulator/line/outbox.h"
#include "simulator/program/program.h"

#include <windows.h>
// Needs windows.h first.
#include <mmsystem.h>

#include <array>
#include <iostream>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace corvid::simulator {
namespace {

void check(BOOL result, const char* call) {
  if (result == 0) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), call);
  }
}

class Port {
 public:
  explicit Port(const std::string& name)
      : handle_(CreateFileA(("\\\\.\\" + name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                            OPEN_EXISTING, 0, nullptr)) {
    check(static_cast<BOOL>(handle_ != INVALID_HANDLE_VALUE), name.c_str());
    configure();
  }
  Port(const Port&) = delete;
  Port& operator=(const Port&) = delete;
  Port(Port&&) = delete;
  Port& operator=(Port&&) = delete;
  ~Port() { CloseHandle(handle_); }

  // What has arrived, without waiting.
  [[nodiscard]] std::string received() {
    DWORD errors = 0;
    COMSTAT state{};
    check(ClearCommError(handle_, &errors, &state), "ClearCommError");
    std::string bytes(state.cbInQue, '\0');
    DWORD count = 0;
    if (!bytes.empty()) {
      check(ReadFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr),
            "ReadFile");
    }
    bytes.resize(count);
    return bytes;
  }

  void send(const std::string& bytes) {
    DWORD count = 0;
    check(WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr),
          "WriteFile");
  }

 private:
  void configure() {
    DCB settings{};
    settings.DCBlength = sizeof settings;
    check(GetCommState(handle_, &settings), "GetCommState");
    check(BuildCommDCBA("baud=9600 parity=E data=8 stop=1", &settings), "BuildCommDCB");
    check(SetCommState(handle_, &settings), "SetCommState");
    COMMTIMEOUTS timeouts{};
    timeouts.ReadIntervalTimeout = MAXDWORD;  // a read returns at once
    timeouts.WriteTotalTimeoutConstant = 1000;
    check(SetCommTimeouts(handle_, &timeouts), "SetCommTimeouts");
  }

  HANDLE handle_;
};

// Standard input, which can only be waited for in a thread of its own.
class Input {
 public:
  // What has come since the last call.
  [[nodiscard]] std::string taken() {
    const std::lock_guard lock(mutex_);
    return std::exchange(bytes_, {});
  }

  void readAll() {
    std::string line;
    while (std::getline(std::cin, line)) {
      const std::lock_guard lock(mutex_);
      bytes_ += line + '\n';
    }
  }

 private:
  std::mutex mutex_;
  std::string bytes_;
};

// Ticks of a millisecond, so that bytes leave one by one and not in lumps of the system's 15.6 ms.
class FineTicks {
 public:
  FineTicks() { timeBeginPeriod(1); }
  FineTicks(const FineTicks&) = delete;
  FineTicks& operator=(const FineTicks&) = delete;
  FineTicks(FineTicks&&) = delete;
  FineTicks& operator=(FineTicks&&) = delete;
  ~FineTicks() { timeEndPeriod(1); }
};

void exchange(Port& port, Program& program, Outbox& outbox) {
  const std::string received = port.received();
  const auto now = std::chrono::steady_clock::now();
  outbox.add(program.receive(received), now);
  const std::string due = outbox.takeDue(now);
  if (!due.empty()) {
    port.send(due);
  }
}

}  // namespace

int serve(const Options& options, Program& program) {
  if (options.port.empty()) {
    throw std::system_error(ERROR_INVALID_PARAMETER, std::system_category(),
                            "--port COMn is needed");
  }
  Port port(options.port);
  // Shared with the thread, which still waits for input when the program ends.
  const auto input = std::make_shared<Input>();
  std::thread([input] { input->readAll(); }).detach();
  program.announce(options.port);
  const FineTicks ticks;
  Outbox outbox;
  while (program.steer(input->taken())) {
    exchange(port, program, outbox);
    Sleep(1);
  }
  return 0;
}

}  // namespace corvid::simulator
