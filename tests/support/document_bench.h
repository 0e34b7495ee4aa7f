// A session with an open port, and a printer that answers each command by its text.
#pragma once

#include "records/status_queries.h"
#include "session/printer_session.h"
#include "support/scripted_printer.h"
#include "support/world.h"

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvid {

using Sent = std::vector<std::string>;  // commands without their frame

// Three rates of 16, 8 and 31 percent on top of the price, the usual levy, all flags 0.
[[nodiscard]] inline Answer usualRates() {
  return blockOf("21600\n20800\n23100\n" + std::string(60, '0'));
}

[[nodiscard]] inline Decimal number(double value) { return Decimal::fromDouble(value); }
[[nodiscard]] inline Currency money(double value) { return Currency::fromDouble(value); }

class DocumentBench {
 public:
  using Entries = std::initializer_list<std::pair<const wchar_t*, const wchar_t*>>;

  // Entries of the session's own section; a wait for the printer lasts one second.
  explicit DocumentBench(Entries entries = {}) {
    world_.settings.set(kSessionSection, L"TimeOut", L"1");
    for (const auto& [key, value] : entries) world_.settings.set(kSessionSection, key, value);
    world_.serial.connect(&printer_);
    printer_.answers["S3"] = usualRates();
  }
  // Rates of the settings, from index 0 on. Before the session is first used.
  void configureRates(const Lines& rates) {
    for (std::size_t i = 0; i < rates.size(); ++i) {
      world_.settings.set(L"Config\\NimbusPF\\Tasas", std::to_wstring(i), rates[i]);
    }
  }

  [[nodiscard]] World& world() { return world_; }
  [[nodiscard]] ScriptedPrinter& printer() { return printer_; }
  [[nodiscard]] ThreadState& thread() {
    if (!thread_) thread_ = std::make_unique<ThreadState>(world_.environment());
    return *thread_;
  }
  // Created and opened on first use.
  [[nodiscard]] PrinterSession& session() {
    if (!session_) {
      session_ = std::make_unique<PrinterSession>(thread());
      session_->state().SerialPrinter = L"KNOWN";  // so that opening it asks for no record
      session_->Abrir(1);
    }
    return *session_;
  }
  [[nodiscard]] Exchange& exchange() { return session().exchange(); }
  [[nodiscard]] const Outcome& outcome() { return session().outcome(); }

  void silence(const std::string& command) { printer_.answers[command] = Answer{}; }
  void refuse(const std::string& command) { printer_.answers[command] = Answer{"\x15"}; }

  // What the printer received, each command once however often it was sent again, and without
  // the questions for its rates.
  [[nodiscard]] Sent commands() const {
    Sent result = printer_.commands();
    std::erase(result, "S3");
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
  }

 private:
  World world_;
  ScriptedPrinter printer_;
  std::unique_ptr<ThreadState> thread_;
  std::unique_ptr<PrinterSession> session_;
};

}  // namespace corvid
