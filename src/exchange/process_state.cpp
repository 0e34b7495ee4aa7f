#include "exchange/process_state.h"

namespace corvid {

ProcessState::ProcessState(const Environment& environment)
    : environment_(environment),
      transports_(environment.serial, environment.files, environment.clock),
      trace_({environment.clock, environment.folders, environment.views, environment.files,
              environment.codePage, environment.locale}) {}

Settings ProcessState::currentSettings() const {
  return {environment_.file, environment_.store, environment_.folders.current()};
}

}  // namespace corvid
