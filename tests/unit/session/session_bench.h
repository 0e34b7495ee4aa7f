// One session over a scripted printer.
#pragma once

#include "records/status_queries.h"
#include "session/printer_fiscal.h"
#include "support/scripted_printer.h"
#include "support/world.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvid {

inline constexpr const wchar_t* kRates = L"Config\\NimbusPF\\Tasas";
inline const std::string kShortS1 =
    "\x02"
    "S100\n0012345\n7\n2\n3\n1\n4\n5\nJ-1\nZ7A0000042\n260314\n1030\n0\n0\x03#";

struct Setting {
  std::wstring key;
  std::wstring value;
};

class SessionBench {
 public:
  SessionBench() : SessionBench(std::initializer_list<Setting>{}) {}
  explicit SessionBench(std::initializer_list<Setting> settings) {
    for (const auto& [key, value] : settings) world_.settings.set(kSessionSection, key, value);
    world_.serial.connect(&printer_);
    library_ = std::make_unique<Library>(world_.surroundings());
    session_ = std::make_unique<PrinterFiscal>(*library_, status_);
  }

  // Opens port 7 with a known serial number and forgets what opening did.
  void open() {
    session_->state().SerialPrinter = L"KNOWN";
    session_->Abrir(7);
    forget();
  }

  void forget() {
    printer_.statusRequests = 0;
    printer_.acks = 0;
    printer_.blocks.clear();
    world_.serial.clearLog();
    clearTrace();
  }

  // Runs an action once, at the nth yield from now on.
  void atYield(int nth, std::function<void()> action) {
    const int target = world_.host.count + nth;
    world_.host.whenYielded = [this, target, action = std::move(action)] {
      if (world_.host.count != target) return;
      action();
    };
  }

  void clearTrace() {
    for (const auto& view : world_.views.created) view->lines.clear();
  }
  [[nodiscard]] std::vector<std::wstring> trace() const {
    return world_.views.created.empty() ? std::vector<std::wstring>{}
                                        : world_.views.created.front()->lines;
  }
  [[nodiscard]] bool traced(const std::wstring& line) const {
    const std::vector<std::wstring> lines = trace();
    return std::ranges::find(lines, line) != lines.end();
  }

  World& world() { return world_; }
  ScriptedPrinter& printer() { return printer_; }
  Library& library() { return *library_; }
  RecordStatusSource& status() { return status_; }
  PrinterFiscal& session() { return *session_; }
  Outcome& outcome() { return session_->state().outcome; }

 private:
  World world_;
  ScriptedPrinter printer_;
  RecordStatusSource status_;
  std::unique_ptr<Library> library_;
  std::unique_ptr<PrinterFiscal> session_;
};

}  // namespace corvid
