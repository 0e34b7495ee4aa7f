#include "session/library.h"

namespace corvid {

Library::Library(const Surroundings& surroundings)
    : around_(surroundings),
      settings_(surroundings.file, surroundings.store),
      dump_(settings_, surroundings.clock, surroundings.dialog),
      comm_({surroundings.serial, surroundings.pump, settings_, surroundings.clock, dump_,
             surroundings.codePage}),
      trace_({settings_, surroundings.clock, surroundings.folders, surroundings.views,
              surroundings.codePage, surroundings.locale}) {}

}  // namespace corvid
