// The diagnostic program over a simulated printer on port 7, which remembers what it was sent.
#pragma once

#include "support/world.h"
#include "tools/diagnostico/diagnostic.h"
#include "unit/sale/faulty_line.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

class DiagnosticBench : public DiagnosticSystem, public LinePeer {
 public:
  static constexpr double kTimeOut = 5;  // of the program's own

  DiagnosticBench() {
    machine.bitnesses = {64, 32};
    world.serial.connect(this);
    world.sockets.connect(this);
  }

  int run(const Lines& arguments) { return runDiagnostic(arguments, *this); }

  void received(std::string_view bytes, NearEnd& end) override {
    if (sent.empty()) saidUnanswered = said;
    sent.emplace_back(bytes);
    faulty.received(bytes, end);
  }

  void say(const std::wstring& text) override { said += text; }
  void complain(const std::wstring& text) override { complained += text; }
  bool save(const std::wstring& file, const std::wstring& text) override {
    if (canSave) saved[file] = text;
    return canSave;
  }
  bool enterFolder(const std::wstring& folder) override {
    world.folders.currentFolder = folder;
    return folder != L"C:\\nowhere";
  }
  Environment environment() override { return world.environment(); }
  MachineFacts facts() override { return machine; }

  World world;
  SimulatedLine line;
  FaultyLine faulty{line, kTimeOut};
  MachineFacts machine;
  bool canSave = true;
  std::vector<std::string> sent;
  std::wstring said;
  std::wstring saidUnanswered;  // before the first byte reached the printer
  std::wstring complained;
  std::map<std::wstring, std::wstring> saved;
};

}  // namespace corvid
