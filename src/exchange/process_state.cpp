#include "exchange/process_state.h"

namespace corvid {

ProcessState::ProcessState(const Environment& environment)
    : environment_(environment),
      settings_(environment.file, environment.store),
      dump_(settings_, environment.clock, environment.dialog),
      comm_({environment.serial, environment.pump, settings_, environment.clock, dump_,
             environment.codePage}),
      trace_({settings_, environment.clock, environment.folders, environment.views,
              environment.codePage, environment.locale}) {}

}  // namespace corvid
