// A folder of a test's own.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace corvid {

// Made empty, removed with all that is in it.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("corvid-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] std::wstring file(const wchar_t* name) const { return (path_ / name).wstring(); }

 private:
  std::filesystem::path path_;
};

// All bytes of a file; empty when there is none.
[[nodiscard]] inline std::string bytesOf(const std::wstring& file) {
  std::ifstream stream(std::filesystem::path(file), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace corvid
