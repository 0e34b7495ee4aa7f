// The port layer over doubles.
#pragma once

#include "platform/settings.h"
#include "support/world.h"
#include "transport/modcomm.h"
#include "transport/port_dump.h"

#include <string>

namespace corvid {

inline const std::wstring kLineSettings = L"baud=9600 parity=E data=8 stop=1";
inline constexpr const wchar_t* kDumpSection = L"Config\\ModComm";

struct PortBench {
  World world;
  Settings settings{world.settings, world.store};
  PortDump dump{settings, world.clock, world.dialog};
  modCOMM comm{{world.serial, world.host, settings, world.clock, dump, windows1252()}};

  std::int32_t open(std::int16_t port) {
    return comm.CommOpen(port, L"COM" + std::to_wstring(port), kLineSettings);
  }
  // Opens port 7 and forgets how.
  void openSeven() {
    open(7);
    world.serial.clearLog();
    world.host.count = 0;
  }
  void dumpTo(const std::wstring& file) {
    world.settings.set(kDumpSection, L"DEBUG", L"1");
    world.settings.set(kDumpSection, L"DumpFile", file);
  }
  [[nodiscard]] std::wstring error() const {
    std::wstring text;
    comm.CommGetError(text);
    return text;
  }
};

struct OpenPort : PortBench {
  OpenPort() { openSeven(); }
};

}  // namespace corvid
