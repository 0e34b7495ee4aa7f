// A serial port, for hosts at the other end of a cable or a pair of virtual ports.
#include "simulator/program/host_line.h"

#include <windows.h>

#include <system_error>

namespace corvid::simulator {
namespace {

void check(BOOL result, const char* call) {
  if (result == 0) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), call);
  }
}

class ComLine : public HostLine {
 public:
  explicit ComLine(std::string name)
      : name_(std::move(name)),
        handle_(CreateFileA((R"(\\.\)" + name_).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                            OPEN_EXISTING, 0, nullptr)) {
    check(static_cast<BOOL>(handle_ != INVALID_HANDLE_VALUE), name_.c_str());
    configure();
  }
  ComLine(const ComLine&) = delete;
  ComLine& operator=(const ComLine&) = delete;
  ~ComLine() override { CloseHandle(handle_); }

  [[nodiscard]] std::string name() const override { return name_; }

  [[nodiscard]] std::optional<std::string> receive() override {
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

  // What the line does not take in time is lost.
  [[nodiscard]] std::size_t send(std::string_view bytes) override {
    DWORD count = 0;
    check(WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr),
          "WriteFile");
    return bytes.size();
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

  std::string name_;
  HANDLE handle_;
};

}  // namespace

std::unique_ptr<HostLine> openPort(const std::string& name) {
  return std::make_unique<ComLine>(name);
}

}  // namespace corvid::simulator
