// The byte streams to printers.
#pragma once

#include "platform/message_dialog.h"
#include "platform/settings.h"
#include "transport/modcomm.h"
#include "transport/port_dump.h"
#include "transport/ports_in_use.h"
#include "transport/socket_calls.h"
#include "transport/tcp_transport.h"
#include "transport/transport.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvid {

// What the streams of all threads share.
struct SharedTransports {
  SharedTransports(AppendFiles& files, Clock& clock) : dump(files, clock) {}

  PortDump dump;
  PortsInUse inUse;
};

// The streams that one thread opens.
class Transports {
 public:
  // All outlive it.
  Transports(SerialCalls& calls, SocketCalls& sockets, Clock& clock, SharedTransports& shared)
      : calls_(calls),
        clock_(clock),
        dump_(shared.dump),
        tcp_({sockets, clock, shared.dump, shared.inUse}),
        comm_({calls, shared.dump, shared.inUse}) {}
  Transports(const Transports&) = delete;
  Transports& operator=(const Transports&) = delete;

  // Whether Abrir takes the number: 1 to 99.
  [[nodiscard]] static bool isPortNumber(std::int16_t number);
  // The stream to the printer on a port, closed, and as the settings have it: over the network
  // where section "Config\Puertos" has a text for the number, over the serial port of that number
  // otherwise.
  [[nodiscard]] std::shared_ptr<Transport> make(std::int16_t port, const Settings& settings);

  // The numbers of the ports that exist, ascending.
  [[nodiscard]] std::vector<std::int16_t> present() { return calls_.ports(); }

  // Opens the port dump where the settings ask for it; may show a message box.
  void openDump(const Settings& settings, MessageDialog& dialog) { dump_.open(settings, dialog); }
  void closeDump() { dump_.close(); }
  // Empty while there is none.
  [[nodiscard]] std::wstring dumpName() { return dump_.fileName(); }

 private:
  SerialCalls& calls_;
  Clock& clock_;
  PortDump& dump_;
  TcpEnvironment tcp_;
  modCOMM comm_;
};

}  // namespace corvid
