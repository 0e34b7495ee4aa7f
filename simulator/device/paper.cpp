#include "simulator/device/paper.h"

#include "simulator/line/bytes.h"

#include <algorithm>

namespace corvid::simulator {

void Paper::line(std::string_view text) {
  while (text.size() > kColumns) {
    print(text.substr(0, kColumns));
    text.remove_prefix(kColumns);
  }
  print(text);
}

void Paper::centred(std::string_view text) {
  const std::string_view cut = text.substr(0, kColumns);
  print(std::string((kColumns - cut.size()) / 2, ' ').append(cut));
}

void Paper::columns(std::string_view left, std::string_view right) {
  while (left.size() > kColumns) {
    print(left.substr(0, kColumns));
    left.remove_prefix(kColumns);
  }
  if (left.size() + 1 + right.size() > kColumns) {
    print(left);
    left = {};
  }
  const std::size_t used = std::min(kColumns, left.size() + right.size());
  print(std::string(left).append(kColumns - used, ' ').append(right));
}

void Paper::rule(char mark) { print(std::string(kColumns, mark)); }

std::string Paper::text() const {
  std::string all;
  for (const std::string& line : lines_) {
    all += utf8(line) + '\n';
  }
  return all;
}

void Paper::print(std::string_view line) {
  lines_.emplace_back(withoutTrailingBlanks(line));
  if (listener_) {
    listener_(lines_.back());
  }
}

}  // namespace corvid::simulator
