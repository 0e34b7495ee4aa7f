// A stream to a simulated printer in this process.
#pragma once

#include "platform/clock.h"
#include "simulator/program/printer.h"
#include "transport/transport.h"

#include <chrono>
#include <deque>
#include <string>

namespace corvid {

// Brings bytes as a line of 9600 baud does. Printer and clock outlive it.
class SimulatedTransport : public Transport {
 public:
  SimulatedTransport(simulator::Printer& printer, Clock& clock);

  std::int32_t open() override;
  std::int32_t close() override;
  [[nodiscard]] bool isOpen() const override { return isOpen_; }
  void setLines() override {}
  std::int32_t read(std::string& bytes) override;
  std::string discard() override;
  std::int32_t write(std::string_view bytes) override;
  [[nodiscard]] std::wstring errorText() const override { return {}; }

 private:
  struct Arriving {
    std::string bytes;
    double due;
  };

  simulator::Printer& printer_;
  Clock& clock_;
  bool isOpen_ = false;
  std::deque<Arriving> arriving_;
};

}  // namespace corvid
