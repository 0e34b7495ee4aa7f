#include "exchange/thread_state.h"

namespace corvid {

ThreadState::ThreadState(const Environment& environment)
    : environment_(environment),
      transports_(environment.serial, environment.sockets, environment.clock,
                  environment.process.transports()),
      trace_({environment.clock, environment.folders, environment.views, environment.files,
              environment.codePage, environment.locale},
             environment.process.traceFile()) {}

Settings ThreadState::currentSettings() const {
  return {environment_.file, environment_.store, environment_.folders.current()};
}

}  // namespace corvid
