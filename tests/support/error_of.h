// What a call throws, as one value to compare.
#pragma once

#include "basic/run_time_error.h"

namespace corvid {

// The number of the run-time error that a call throws; 0 when it throws none.
template <typename Call>
int errorOf(Call call) {
  try {
    static_cast<void>(call());
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

}  // namespace corvid
