// The command line of the program.
#pragma once

#include "simulator/device/configuration.h"
#include "simulator/device/local_time.h"
#include "simulator/program/replay.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

// Where to wait for hosts: an address with dots, and a port (0: any free one).
struct ListenAddress {
  std::string host;
  std::uint16_t port = 0;
};

// The paper's file that stands for standard output.
inline constexpr std::string_view kConsole = "-";

struct Options {
  std::string pty;   // link to make to the pseudo terminal (Linux)
  std::string port;  // name of the serial port (Windows)
  std::optional<ListenAddress> tcp;
  std::string paper;   // file that every printed line is added to, in UTF-8; empty: none; kConsole
  std::string wire;    // file that every message is added to; empty: none
  std::string memory;  // file that holds the memory; empty: it is forgotten at the end
  std::optional<LocalTime> clock;  // nothing: the machine's own
  Configuration configuration;
  std::string script;  // file of lines to obey, each at its time; empty: none
  std::string replay;  // dump to answer by, in place of the printer; empty: none
  Replay::Silences silences = Replay::Silences::AsDumped;
  std::vector<std::string> steering;  // lines to obey before the line opens
  bool isHelpWanted = false;
};

struct ParsedOptions {
  Options options;
  std::string error;  // empty: none
};

// Reads the arguments after the program's name.
[[nodiscard]] ParsedOptions parsedOptions(const std::vector<std::string_view>& arguments);

// Every option and what it does, under headings.
[[nodiscard]] std::string optionsHelp();

}  // namespace corvid::simulator
