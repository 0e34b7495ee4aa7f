#include "transport/transports.h"

#include "transport/serial_transport.h"

namespace corvid {

bool Transports::isPortNumber(std::int16_t number) { return number >= 1 && number <= kHighestPort; }

std::shared_ptr<Transport> Transports::make(std::int16_t port, const Settings& settings) {
  const std::wstring place =
      settings.text(kApplication, kPlacesSection, std::to_wstring(port), L"");
  if (!place.empty()) return std::make_shared<TcpTransport>(tcp_, port, place);
  const bool readsExactly = settings.boolean(kApplication, kPortSection, L"LecturaInmediata", true);
  return std::make_shared<SerialTransport>(comm_, clock_, port, readsExactly);
}

}  // namespace corvid
