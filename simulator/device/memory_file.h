// The memory in a file, so that the printer goes on where it was switched off.
#pragma once

#include "simulator/device/machine.h"

#include <filesystem>
#include <string>

namespace corvid::simulator {

class MemoryFile {
 public:
  explicit MemoryFile(std::filesystem::path path) : path_(std::move(path)) {}

  // Restores a machine from the file; when there is none, the machine stays as it is.
  // std::runtime_error, with the file's name, for one that cannot be read or is damaged.
  void load(Machine& machine);

  // Writes the file if the memory is other than what it holds: under a temporary name beside it
  // (".new" added), which then takes the file's place. std::runtime_error when that fails.
  void save(const Machine& machine);

 private:
  std::filesystem::path path_;
  std::string text_;  // what the file holds; empty: there is none
};

}  // namespace corvid::simulator
