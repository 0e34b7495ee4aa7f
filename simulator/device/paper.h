// The paper: lines of 40 single-byte columns, as they leave the printer.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

inline constexpr std::size_t kColumns = 40;

class Paper {
 public:
  // Each line, as bytes without a line end, goes to `listener` too when it is printed.
  void onLine(std::function<void(std::string_view)> listener) { listener_ = std::move(listener); }

  // A line longer than the paper goes on in the next.
  void line(std::string_view text);
  void centred(std::string_view text);
  // `left` from the left margin, `right` against the right one, in a further line where both do
  // not fit.
  void columns(std::string_view left, std::string_view right);
  void rule(char mark = '-');

  [[nodiscard]] const std::vector<std::string>& lines() const { return lines_; }
  // All of it as UTF-8, each line ended by a line feed.
  [[nodiscard]] std::string text() const;

 private:
  void print(std::string_view line);

  std::vector<std::string> lines_;
  std::function<void(std::string_view)> listener_;
};

}  // namespace corvid::simulator
