// A session with the simulated printer at the end of an in-memory line.
#pragma once

#include "documents/closing.h"
#include "documents/customer_data.h"
#include "records/status_queries.h"
#include "records/z_report_queries.h"
#include "session/printer_session.h"
#include "simulated_line.h"
#include "support/item_line.h"
#include "support/world.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace corvid {

[[nodiscard]] inline Decimal number(double value) { return Decimal::fromDouble(value); }
[[nodiscard]] inline Currency money(double value) { return Currency::fromDouble(value); }

struct ShopSetting {
  const wchar_t* section;
  const wchar_t* key;
  const wchar_t* value;
};

// Not yet open; port 7 is the printer's, at the end of a serial line or of the network.
class Shop {
 public:
  explicit Shop(std::initializer_list<ShopSetting> settings = {}) {
    for (const auto& [section, key, value] : settings) world.settings.set(section, key, value);
    world.serial.connect(&line);
    world.sockets.connect(&line);
    thread = std::make_unique<ThreadState>(world.environment());
    session = std::make_unique<PrinterSession>(*thread);
  }
  Shop(const Shop&) = delete;
  Shop& operator=(const Shop&) = delete;

  [[nodiscard]] Exchange& exchange() const { return session->exchange(); }
  [[nodiscard]] const Outcome& outcome() const { return session->outcome(); }
  [[nodiscard]] simulator::Machine& machine() { return line.printer().machine(); }

  World world;
  SimulatedLine line;
  std::unique_ptr<ThreadState> thread;
  std::unique_ptr<PrinterSession> session;
};

// Opens without asking for a record.
inline void openKnown(Shop& shop) {
  shop.session->state().SerialPrinter = L"KNOWN";
  shop.session->Abrir(7);
}

}  // namespace corvid
