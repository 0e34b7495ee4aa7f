// A printer that answers as a dump recorded it.
#pragma once

#include "simulator/line/misbehaviour.h"
#include "simulator/program/dump.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

// Takes the host's bytes for the ones that the dump has next. What was read after each write of the
// host comes after the same write, in the same chunks. At the first byte that differs the host has
// departed, and nothing is answered any more.
class Replay {
 public:
  // Silences between a write and what was read after it: whole seconds, as the dump's times tell
  // them, or none. A write without an answer has none in both.
  enum class Silences { AsDumped, None };

  Replay(std::vector<DumpRecord> records, Silences silences)
      : records_(std::move(records)), silences_(silences) {}

  // What was read before the host's first write.
  [[nodiscard]] std::vector<Chunk> begin() { return takeReads(); }
  [[nodiscard]] std::vector<Chunk> receive(std::string_view bytes);

  [[nodiscard]] bool isAtEnd() const { return next_ == records_.size() && !isDeparted_; }
  [[nodiscard]] bool isDeparted() const { return isDeparted_; }
  // What became of it so far, for people: one line.
  [[nodiscard]] std::string report() const;

 private:
  [[nodiscard]] std::vector<Chunk> takeReads();
  void depart(std::string_view rest);

  std::vector<DumpRecord> records_;
  Silences silences_;
  std::size_t next_ = 0;     // the record that comes next
  std::size_t matched_ = 0;  // bytes of it that the host has sent
  bool isDeparted_ = false;
  std::string sent_;  // in place of that record
};

}  // namespace corvid::simulator
