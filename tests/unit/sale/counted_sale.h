// The sale of twenty lines over an in-memory line as slow as a real one, counted.
#pragma once

#include "documents/closing.h"
#include "documents/customer_data.h"
#include "documents/item_lines.h"
#include "records/status_queries.h"
#include "simulated_line.h"
#include "support/twenty_lines.h"
#include "support/world.h"

#include <cstddef>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

inline constexpr int kBaud = 9600;
inline constexpr int kBitsPerByte = 11;  // start, eight data bits, parity, stop

// 0, or the first command's failure.
inline int sellTwentyLines(PrinterSession& session) {
  int failure = IniciarFactura(session, {kBuyerName, kBuyerTaxId, kBuyerAddress});
  for (const SaleLine& line : kTwentyLines) {
    if (failure != 0) return failure;
    failure = PasarItem(
        session, {line.description, Currency::fromDouble(line.price), line.quantity, line.rate});
  }
  if (failure == 0 && SubTotal(session, true)) failure = session.lError();
  if (failure != 0) return failure;
  return CerrarConMedio(session, Decimal::fromInteger(kPaymentMeans),
                        Currency::fromDouble(kPayment));
}

// What the sale, without the opening of the port, did on the line.
class CountedSale {
 public:
  explicit CountedSale(bool immediate) {
    if (immediate) world_.settings.set(L"Config\\ModComm", L"LecturaInmediata", L"True");
    world_.clock.restSeconds = 0.001;
    world_.serial.readsWaitOutTheirTimeout = true;
    world_.serial.chunksRunTogether = true;
    world_.serial.connect(&line_);
    line_.misbehaviour().setBaud(kBaud);
    session_.state().SerialPrinter = L"KNOWN";
    session_.Abrir(7);
    world_.serial.clearLog();
    line_.printer().onWire([this](simulator::Printer::Direction direction, std::string_view bytes) {
      if (direction == simulator::Printer::Direction::ToHost) answers_.emplace_back(bytes);
    });
    const double start = world_.clock.total();
    failure_ = sellTwentyLines(session_);
    seconds_ = world_.clock.total() - start;
  }
  CountedSale(const CountedSale&) = delete;
  CountedSale& operator=(const CountedSale&) = delete;

  [[nodiscard]] int failure() const { return failure_; }
  [[nodiscard]] std::string paper() const { return line_.paper(); }
  [[nodiscard]] const std::vector<std::string>& written() const { return world_.serial.written(); }
  [[nodiscard]] const std::vector<std::string>& answers() const { return answers_; }
  [[nodiscard]] std::vector<std::uint32_t> sizesRead() const {
    return world_.serial.numbersOf("readFile");
  }
  // Simulated seconds, and those that the bytes of both directions need.
  [[nodiscard]] double seconds() const { return seconds_; }
  [[nodiscard]] double wireSeconds() const { return secondsOf(written()) + secondsOf(answers_); }
  [[nodiscard]] double requestSeconds() const { return secondsOf(written()); }

 private:
  [[nodiscard]] static double secondsOf(const std::vector<std::string>& messages) {
    const auto bytes = std::accumulate(
        messages.begin(), messages.end(), std::size_t{0},
        [](std::size_t sum, const std::string& message) { return sum + message.size(); });
    return static_cast<double>(bytes) * kBitsPerByte / kBaud;
  }

  World world_;
  SimulatedLine line_;
  ProcessState process_{world_.environment()};
  PrinterSession session_{process_};
  std::vector<std::string> answers_;
  int failure_ = 0;
  double seconds_ = 0;
};

}  // namespace corvid
