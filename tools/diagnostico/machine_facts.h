// What a machine tells of itself without a printer.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace corvid {

// A library that the registry names for hosts of one bitness.
struct RegisteredLibrary {
  int bits = 0;
  bool isOfUser = false;  // else of the machine
  std::wstring file;
  bool exists = false;
  std::wstring version;  // of the file; empty where it tells none
};

struct MachineFacts {
  std::wstring program;        // version and bitness
  std::wstring system;         // version of Windows
  std::wstring region;         // code page and locale
  std::vector<int> bitnesses;  // of the hosts that the system runs
  std::vector<RegisteredLibrary> libraries;
  std::map<std::int16_t, std::wstring> devices;  // of serial ports, by number
};

}  // namespace corvid
