// The sale of twenty lines over an in-memory line as slow as a real one, counted.
#pragma once

#include "shop.h"
#include "support/twenty_lines.h"

#include <cstddef>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

inline constexpr int kBaud = 9600;

// 0, or the first command's failure.
inline int sellTwentyLines(PrinterSession& session) {
  int failure = IniciarFactura(session, {kBuyerName, kBuyerTaxId, kBuyerAddress});
  for (const SaleLine& line : kTwentyLines) {
    if (failure != 0) return failure;
    failure = PasarItem(session, {line.description, line.price, line.quantity, line.rate});
  }
  if (failure == 0 && SubTotal(session, true)) failure = session.lError();
  if (failure != 0) return failure;
  return CerrarConMedio(session, Decimal::fromInteger(kPaymentMethod), money(kPayment));
}

// What the sale, without the opening of the port, did on the line.
class CountedSale {
 public:
  using Preparation = void (*)(World& world);

  // By the setting "LecturaInmediata"; off, over a driver whose reads wait out their time-out.
  explicit CountedSale(bool immediate, Preparation prepare = nullptr) {
    World& world = shop_.world;
    world.settings.set(kPortSection, L"LecturaInmediata", immediate ? L"True" : L"False");
    world.serial.driver.reads = DriverModel::Reads::WaitOut;
    if (prepare != nullptr) prepare(world);
    shop_.line.misbehaviour().setBaud(kBaud);
    openKnown(shop_);
    world.serial.clearLog();
    shop_.line.printer().onWire(
        [this](simulator::Printer::Direction direction, std::string_view bytes) {
          if (direction == simulator::Printer::Direction::ToHost) answers_.emplace_back(bytes);
        });
    const double start = world.clock.total();
    failure_ = sellTwentyLines(*shop_.session);
    seconds_ = world.clock.total() - start;
  }
  CountedSale(const CountedSale&) = delete;
  CountedSale& operator=(const CountedSale&) = delete;

  [[nodiscard]] int failure() const { return failure_; }
  [[nodiscard]] std::string paper() const { return shop_.line.paper(); }
  [[nodiscard]] const std::vector<std::string>& written() const {
    return shop_.world.serial.written();
  }
  [[nodiscard]] const std::vector<std::string>& answers() const { return answers_; }
  [[nodiscard]] std::vector<std::uint32_t> sizesRead() const {
    return shop_.world.serial.numbersOf("readFile");
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
    return static_cast<double>(bytes) * kByteSeconds;
  }

  Shop shop_;
  std::vector<std::string> answers_;
  int failure_ = 0;
  double seconds_ = 0;
};

}  // namespace corvid
