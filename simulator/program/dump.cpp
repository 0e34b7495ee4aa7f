#include "simulator/program/dump.h"

#include "simulator/program/mixed_ports.h"

#include <algorithm>
#include <optional>

namespace corvid::simulator {
namespace {

constexpr std::size_t kBytesPerLine = 16;
constexpr std::size_t kHexWidth = 3 * kBytesPerLine;
constexpr std::string_view kSend = "Send ";
constexpr std::string_view kRead = "Read ";

std::optional<int> valueOf(char digit) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto value = kDigits.find(digit);
  return value == std::string_view::npos ? std::nullopt : std::optional(static_cast<int>(value));
}

// "14-03-2026 10:30:15", as the printer's time is written.
std::optional<LocalTime> timeOf(std::string_view text) {
  constexpr std::size_t kDay = 2;
  constexpr std::size_t kMonth = 5;
  constexpr std::size_t kDateWidth = 10;
  constexpr std::size_t kWidth = 19;
  if (text.size() != kWidth) {
    return std::nullopt;
  }
  const std::string day(text.substr(0, kDay));
  const std::string month(text.substr(kDay + 1, 2));
  const std::string year(text.substr(kMonth + 1, 4));
  const bool isDashed = text[kDay] == '-' && text[kMonth] == '-';
  return isDashed
             ? parsedTime(year + "-" + month + "-" + day + std::string(text.substr(kDateWidth)))
             : std::nullopt;
}

// The line that heads a record; nothing for any other.
std::optional<DumpRecord> headOf(std::string_view line) {
  constexpr std::size_t kTimeWidth = 19;
  const bool isFromHost = line.starts_with(kSend);
  if (!isFromHost && !line.starts_with(kRead)) {
    return std::nullopt;
  }
  line.remove_prefix(kSend.size());
  const auto time = timeOf(line.substr(0, kTimeWidth));
  line.remove_prefix(std::min(kTimeWidth, line.size()));
  const bool hasAddress = line.size() > 1 && line.front() == ' ';
  if (!time || (!line.empty() && !hasAddress)) {
    return std::nullopt;
  }
  return DumpRecord{isFromHost, *time, std::string(line.substr(hasAddress ? 1 : 0)), "", 0};
}

std::string textOf(std::string_view bytes) {
  std::string text(bytes);
  std::replace_if(
      text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < ' '; },
      '.');
  return text;
}

// The bytes of a line; none for one whose columns are wrong or differ.
std::string bytesOf(std::string_view line) {
  std::string bytes;
  std::string_view hexadecimal = line.substr(0, kHexWidth);
  while (hexadecimal.size() >= 3 && hexadecimal[0] != ' ') {
    const auto high = valueOf(hexadecimal[0]);
    const auto low = valueOf(hexadecimal[1]);
    if (!high || !low || hexadecimal[2] != ' ') {
      return "";
    }
    bytes += static_cast<char>((16 * *high) + *low);
    hexadecimal.remove_prefix(3);
  }
  const std::string expected = std::string(hexadecimal.size(), ' ') + textOf(bytes);
  return line.size() >= kHexWidth && line.substr(kHexWidth - hexadecimal.size()) == expected ? bytes
                                                                                             : "";
}

class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  std::vector<DumpRecord> read() {
    while (!rest_.empty()) {
      add(nextLine());
    }
    finishRecord();
    if (records_.empty()) {
      fail("there is no record");
    }
    return std::move(records_);
  }

 private:
  std::string_view nextLine() {
    ++line_;
    const auto end = rest_.find('\n');
    if (end == std::string_view::npos) {
      fail("the file ends in the middle of a line");
    }
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    if (line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    return line;
  }

  void add(std::string_view line) {
    if (auto head = headOf(line)) {
      finishRecord();
      head->line = line_;
      records_.push_back(std::move(*head));
      isOpen_ = true;
      return;
    }
    const std::string bytes = bytesOf(line);
    if (bytes.empty() || !isOpen_) {
      fail("no line of a port dump");
    }
    records_.back().bytes += bytes;
    isOpen_ = bytes.size() == kBytesPerLine;
  }

  void finishRecord() const {
    if (!records_.empty() && records_.back().bytes.empty()) {
      fail("a record without bytes");
    }
  }

  [[noreturn]] void fail(const char* reason) const {
    throw UnusableDump("line " + std::to_string(line_) + ": " + reason);
  }

  std::string_view rest_;
  std::size_t line_ = 0;
  std::vector<DumpRecord> records_;
  bool isOpen_ = false;  // for more bytes
};

}  // namespace

std::vector<DumpRecord> parsedDump(std::string_view text) {
  std::vector<DumpRecord> records = Reader(text).read();
  if (const auto line = lineOfSecondPort(records)) {
    throw UnusableDump("line " + std::to_string(*line) +
                       ": the lines of several ports are mixed here; dump one port at a time");
  }
  return records;
}

}  // namespace corvid::simulator
