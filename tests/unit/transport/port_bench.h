// The port layer over doubles.
#pragma once

#include "platform/settings.h"
#include "support/world.h"
#include "transport/modcomm.h"
#include "transport/transports.h"

#include <string>

namespace corvid {

inline const std::wstring kLineSettings = L"baud=9600 parity=E data=8 stop=1";

struct PortBench {
  World world;
  Settings settings{world.settings, world.store, L"C:\\host"};
  SharedTransports shared{world.files, world.clock};
  PortDump& dump = shared.dump;
  modCOMM comm{{world.serial, dump, shared.inUse}};

  std::int32_t open(std::int16_t port) {
    return comm.CommOpen(port, L"COM" + std::to_wstring(port), kLineSettings);
  }
  [[nodiscard]] std::wstring error() const {
    std::wstring text;
    comm.CommGetError(text);
    return text;
  }
};

// Port 7 is open, and how is forgotten.
struct OpenPort : PortBench {
  OpenPort() {
    open(7);
    world.serial.clearLog();
  }
};

}  // namespace corvid
