// The simulated printer at the end of an in-memory line.
#pragma once

#include "simulator/program/printer.h"
#include "support/line_peer.h"

#include <chrono>
#include <string>
#include <string_view>
#include <utility>

namespace corvid {

class SimulatedLine : public LinePeer {
 public:
  explicit SimulatedLine(simulator::Configuration configuration = {})
      : printer_(std::move(configuration),
                 [] { return simulator::LocalTime{2026, 3, 14, 10, 30, 15}; }) {}

  void received(std::string_view bytes, NearEnd& line) override {
    double delay = 0;
    for (const simulator::Chunk& chunk : printer_.receive(bytes)) {
      delay += std::chrono::duration<double>(chunk.gap).count();
      line.deliver(chunk.bytes, delay);
    }
  }

  [[nodiscard]] simulator::Printer& printer() { return printer_; }
  [[nodiscard]] simulator::Misbehaviour& misbehaviour() { return printer_.misbehaviour(); }
  [[nodiscard]] std::string paper() const { return printer_.machine().paper.text(); }

 private:
  simulator::Printer printer_;
};

inline int countOf(std::string_view text, std::string_view part) {
  int count = 0;
  for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

}  // namespace corvid
