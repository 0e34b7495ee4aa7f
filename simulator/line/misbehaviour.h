// What a printer does wrong when told to, and how fast its bytes go.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

// Bytes that leave together, so long after the ones before.
struct Chunk {
  std::chrono::microseconds gap{0};
  std::string bytes;
};

enum class Fault {
  Refuse,        // answers a command with NAK and does nothing
  Silent,        // is deaf and dumb: neither does nor answers anything
  Lose,          // does what it is told, but its answer never arrives
  LoseAck,       // does what it is told or refuses it, but its ACK or NAK never arrives
  HangUp,        // ends the host's connection in place of an answer, where the line has one
  ByteByByte,    // sends each byte of an answer by itself
  Split,         // sends an answer in two pieces
  EnquiryFirst,  // puts ENQ before an answer
  EndWithEot,    // ends a block with EOT in place of ETX
  CorruptCheck,  // sends a wrong check byte
  CorruptData,   // changes a byte of a block
  Noise,         // sends other bytes before an answer
};
inline constexpr std::size_t kFaults = 12;

// Whether and how long a fault lasts: a number of times, or until it is switched off.
inline constexpr int kForEver = -1;

class Misbehaviour {
 public:
  // `times` may be 0 (off) and kForEver. What counts as one time: a command for Refuse, a message
  // from the host for Silent, an answer for Lose, HangUp, ByteByByte, Split, EnquiryFirst and
  // Noise, an ACK or NAK for LoseAck, a block for the others.
  void set(Fault fault, int times) { left_.at(index(fault)) = times; }
  [[nodiscard]] bool isOn(Fault fault) const { return left_.at(index(fault)) != 0; }
  // Whether the fault happens now; counts it.
  [[nodiscard]] bool happens(Fault fault);

  // Pause between the pieces of ByteByByte and Split.
  void setGap(std::chrono::microseconds gap) { gap_ = gap; }
  // Bytes before the cut of Split, and the byte that CorruptData changes, counted from the
  // STX at 0; beyond the end: the last one.
  void setPosition(std::size_t position) { position_ = position; }
  void setNoise(std::string bytes) { noise_ = std::move(bytes); }
  // Bits a second at which bytes of 11 bits arrive and leave one by one; 0: at once.
  void setBaud(int baud) { baud_ = baud; }
  // What so many bytes need on the line.
  [[nodiscard]] std::chrono::microseconds timeOnLine(std::size_t bytes) const;

  // A command that begins with `prefix` is answered by blocks of data told here, in the order in
  // which they were added, and not executed.
  void addAnswer(std::string_view prefix, std::string_view block);
  void forgetAnswer(std::string_view prefix) { answers_.erase(std::string(prefix)); }
  // The blocks told for a command, of the longest prefix.
  [[nodiscard]] std::optional<std::vector<std::string>> answerTo(std::string_view command) const;

  // Ends every fault and forgets answers told; pacing stays.
  void reset();

  // An answer as it leaves the printer; nothing when it is lost.
  [[nodiscard]] std::vector<Chunk> shaped(std::string answer);

 private:
  [[nodiscard]] static constexpr std::size_t index(Fault fault) {
    return static_cast<std::size_t>(fault);
  }
  void corrupt(std::string& block);
  [[nodiscard]] std::vector<Chunk> inPieces(const std::string& answer);
  [[nodiscard]] std::vector<Chunk> paced(const std::vector<Chunk>& pieces) const;

  std::array<int, kFaults> left_{};
  std::chrono::microseconds gap_{20'000};
  std::size_t position_ = 2;
  std::string noise_ = "\x7F\x11?";
  int baud_ = 0;
  std::map<std::string, std::vector<std::string>> answers_;
};

}  // namespace corvid::simulator
