// What Windows tells of the machine.
#pragma once

#include "tools/diagnostico/machine_facts.h"

namespace corvid {

// Reads the registry, in the views of both bitnesses, and the files that it names.
[[nodiscard]] MachineFacts windowsFacts();

}  // namespace corvid
