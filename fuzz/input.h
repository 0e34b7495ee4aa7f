// What the fuzz targets share: inputs taken apart line by line, and properties.
#pragma once

#include "basic/code_page.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace corvid::fuzz {

// Ends the run, which then keeps the input, where a property does not hold.
inline void require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", property);
  std::abort();
}

// A text, so that the corpus can be read and written by hand.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : bytes_(data, data + size), rest_(bytes_) {}

  [[nodiscard]] bool isEmpty() const { return rest_.empty(); }
  // Takes all bytes up to the next line feed, or the last ones, and the line feed.
  std::string_view bytes() {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return line;
  }
  // Takes a line as a text of the line's code page.
  std::wstring text() { return windows1252().decode(bytes()); }
  // Takes a line that holds a number; one that is out of the range counts as its nearer end.
  int number(int least, int most) {
    return std::clamp(static_cast<int>(std::strtol(std::string(bytes()).c_str(), nullptr, 10)),
                      least, most);
  }
  // Takes all bytes that are left.
  std::string_view rest() { return std::exchange(rest_, {}); }

 private:
  std::string bytes_;
  std::string_view rest_;
};

}  // namespace corvid::fuzz
