// A printer on the test bench: commands in, whole answers out, at a time that stands still.
#pragma once

#include "simulator/line/bytes.h"
#include "simulator/program/printer.h"

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

inline const std::string kAckAnswer = "\x06";
inline const std::string kNakAnswer = "\x15";

struct Bench {
  explicit Bench(Configuration configuration = {})
      : printer(std::move(configuration), [] { return LocalTime{2026, 3, 14, 10, 30, 15}; }) {}

  // The answer to raw bytes, its pieces joined.
  std::string raw(std::string_view bytes) {
    std::string answer;
    for (const Chunk& chunk : printer.receive(bytes)) answer += chunk.bytes;
    return answer;
  }

  std::string command(std::string_view text) { return raw(framed(text)); }

  // The fields of the one block that answers a query, without its frame; empty for any other
  // answer.
  std::vector<std::string> fields(std::string_view query) {
    const std::string answer = command(query);
    if (answer.size() < 3 || answer != framed(answer.substr(1, answer.size() - 3))) return {};
    std::vector<std::string> all;
    std::istringstream text(answer.substr(1, answer.size() - 3) + '\n');
    for (std::string field; std::getline(text, field);) all.push_back(field);
    return all;
  }

  // Sends commands until one is not acknowledged, and returns that one.
  std::string firstRefused(const std::vector<std::string>& commands) {
    for (const std::string& text : commands) {
      if (command(text) != kAckAnswer) return text;
    }
    return "";
  }

  [[nodiscard]] std::string paper() const { return printer.machine().paper.text(); }

  Printer printer;
};

// A classic item's command in the usual widths, price in hundredths, quantity in thousandths.
inline std::string item(std::string_view prefix, Amount price, Quantity quantity,
                        std::string_view description) {
  return std::string(prefix) + zeroPadded(price, 10) + zeroPadded(quantity, 8) +
         std::string(description);
}

}  // namespace corvid::simulator
