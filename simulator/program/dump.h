// The port dump of a host's library: the bytes that it sent and read, with date and time.
#pragma once

#include "simulator/device/local_time.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

// One write or one read.
struct DumpRecord {
  bool isFromHost = false;  // sent
  LocalTime time;           // in whole seconds
  std::string address;      // of a printer in the network; empty: a serial port
  std::string bytes;        // not empty
  std::size_t line = 0;     // of the file, from 1
};

// A text that is no dump of one line; what() tells the line and what is wrong there.
class UnusableDump : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads a dump:
//
//   Send 14-03-2026 10:30:15                               or Read; perhaps a blank and an address
//   02 77 03 74                                     .w.t   16 bytes a line, in hexadecimal in 48
//                                                          columns, and as they are; "." below 20
//
// Lines end with CR LF or LF. UnusableDump for any other text, an empty one too, for one that ends
// in the middle of a line, and where the lines of several ports are mixed.
[[nodiscard]] std::vector<DumpRecord> parsedDump(std::string_view text);

}  // namespace corvid::simulator
