// One session over a scripted printer.
#pragma once

#include "records/status_queries.h"
#include "session/printer_session.h"
#include "support/scripted_printer.h"
#include "support/world.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvid {

inline constexpr const wchar_t* kRates = L"Config\\NimbusPF\\Tasas";

struct Setting {
  std::wstring key;
  std::wstring value;
};
using Entries = std::initializer_list<Setting>;

class SessionBench {
 public:
  explicit SessionBench(Entries settings = {}) {
    for (const auto& [key, value] : settings) world_.settings.set(kSessionSection, key, value);
    world_.serial.connect(&printer_);
    world_.sockets.connect(&printer_);
    thread_ = std::make_unique<ThreadState>(world_.environment());
    session_ = std::make_unique<PrinterSession>(*thread_);
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
    const int target = world_.pump.count + nth;
    once([this, target] { return world_.pump.count == target; }, std::move(action));
  }

  // Runs an action once, at the first yield after a block or so many requests for the status.
  void onceSent(std::function<void()> action) {
    once([this] { return !printer_.blocks.empty(); }, std::move(action));
  }
  void onceAsked(std::size_t requests, std::function<void()> action) {
    once([this, requests] { return printer_.statusRequests >= requests; }, std::move(action));
  }

  void clearTrace() {
    for (const auto& view : world_.views.created) view->lines.clear();
  }
  [[nodiscard]] Lines trace() const {
    return world_.views.created.empty() ? Lines{} : world_.views.created.front()->lines;
  }

  // One more session of the library, with a known serial number.
  [[nodiscard]] std::unique_ptr<PrinterSession> another() {
    auto session = std::make_unique<PrinterSession>(thread());
    session->state().SerialPrinter = L"KNOWN";
    return session;
  }

  World& world() { return world_; }
  ScriptedPrinter& printer() { return printer_; }
  ThreadState& thread() { return *thread_; }
  PrinterSession& session() { return *session_; }
  Exchange& exchange() { return session_->exchange(); }
  Outcome& outcome() { return session_->outcome(); }

 private:
  void once(std::function<bool()> isDue, std::function<void()> action) {
    world_.pump.whenYielded = [isDue = std::move(isDue), action = std::move(action),
                               isDone = false]() mutable {
      if (isDone || !isDue()) return;
      isDone = true;
      action();
    };
  }

  World world_;
  ScriptedPrinter printer_;
  std::unique_ptr<ThreadState> thread_;
  std::unique_ptr<PrinterSession> session_;
};

struct OpenBench : SessionBench {
  explicit OpenBench(Entries settings = {}) : SessionBench(settings) { open(); }
};

}  // namespace corvid
