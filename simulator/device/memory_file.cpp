#include "simulator/device/memory_file.h"

#include "simulator/device/memory_text.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace corvid::simulator {
namespace {

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) {
    throw std::runtime_error("cannot read the memory file " + path.string());
  }
  return text;
}

void write(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  if (!file) {
    throw std::runtime_error("cannot write the memory file " + path.string());
  }
}

}  // namespace

void MemoryFile::load(Machine& machine) {
  if (!std::filesystem::exists(path_)) {
    return;
  }
  std::string text = contentOf(path_);
  try {
    restoreMemory(text, machine);
  } catch (const DamagedMemory& damage) {
    throw std::runtime_error("the memory file " + path_.string() + " is damaged: " + damage.what());
  }
  text_ = std::move(text);
}

void MemoryFile::save(const Machine& machine) {
  std::string text = memoryText(machine);
  if (text == text_) {
    return;
  }
  std::filesystem::path temporary = path_;
  temporary += ".new";
  write(temporary, text);
  std::filesystem::rename(temporary, path_);
  text_ = std::move(text);
}

}  // namespace corvid::simulator
