// What all threads of the process share.
#pragma once

#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/trace_file.h"
#include "transport/transports.h"

#include <atomic>
#include <mutex>
#include <string>

namespace corvid {

// Any thread; the last writer wins.
class ProcessState {
 public:
  // Both are called from every thread that has a session, and outlive it.
  ProcessState(AppendFiles& files, Clock& clock) : transports_(files, clock) {}

  [[nodiscard]] SharedTransports& transports() noexcept { return transports_; }
  [[nodiscard]] TraceFile& traceFile() noexcept { return traceFile_; }

  // The serial number that Abrir learnt last.
  [[nodiscard]] std::wstring lastSerial() const {
    const std::lock_guard lock(gate_);
    return lastSerial_;
  }
  void setLastSerial(const std::wstring& serial) {
    const std::lock_guard lock(gate_);
    lastSerial_ = serial;
  }

  std::atomic<bool> testMode{false};  // setting "TestMode" as the newest session read it

 private:
  SharedTransports transports_;
  TraceFile traceFile_;
  mutable std::mutex gate_;
  std::wstring lastSerial_;
};

}  // namespace corvid
