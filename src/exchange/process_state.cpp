#include "exchange/process_state.h"

#include "transport/serial_transport.h"

namespace corvid {

ProcessState::ProcessState(const Environment& environment)
    : environment_(environment),
      dump_(environment.files, environment.clock),
      comm_({environment.serial, dump_}),
      trace_({environment.clock, environment.folders, environment.views, environment.files,
              environment.codePage, environment.locale}) {}

Settings ProcessState::currentSettings() const {
  return {environment_.file, environment_.store, environment_.folders.current()};
}

std::shared_ptr<Transport> ProcessState::transport(std::int16_t port, const Settings& settings) {
  const bool readsExactly = settings.boolean(kApplication, kPortSection, L"LecturaInmediata", true);
  return std::make_shared<SerialTransport>(comm_, port, readsExactly);
}

}  // namespace corvid
