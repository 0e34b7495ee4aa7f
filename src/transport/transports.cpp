#include "transport/transports.h"

#include "transport/serial_transport.h"

namespace corvid {

bool Transports::isPortNumber(std::int16_t number) { return number >= 1 && number <= kHighestPort; }

std::shared_ptr<Transport> Transports::make(std::int16_t port, const Settings& settings) {
  const bool readsExactly = settings.boolean(kApplication, kPortSection, L"LecturaInmediata", true);
  return std::make_shared<SerialTransport>(comm_, clock_, port, readsExactly);
}

}  // namespace corvid
