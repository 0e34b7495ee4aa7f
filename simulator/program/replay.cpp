#include "simulator/program/replay.h"

#include "simulator/line/bytes.h"

#include <algorithm>
#include <chrono>

namespace corvid::simulator {
namespace {

// Keeps chunks apart for a host that looks each millisecond. Single bytes, of which a dump may hold
// hundreds in a row, need no more on a line of 9600 baud.
constexpr std::chrono::milliseconds kBetweenChunks(1);

}  // namespace

std::vector<Chunk> Replay::receive(std::string_view bytes) {
  std::vector<Chunk> answer;
  while (!bytes.empty() && !isDeparted_) {
    const std::string_view expected =
        next_ < records_.size() ? std::string_view(records_[next_].bytes).substr(matched_) : "";
    const std::size_t size = std::min(bytes.size(), expected.size());
    if (size == 0 || bytes.substr(0, size) != expected.substr(0, size)) {
      depart(bytes);
      break;
    }
    matched_ += size;
    bytes.remove_prefix(size);
    if (size == expected.size()) {
      ++next_;
      matched_ = 0;
      const std::vector<Chunk> reads = takeReads();
      answer.insert(answer.end(), reads.begin(), reads.end());
    }
  }
  return answer;
}

std::vector<Chunk> Replay::takeReads() {
  std::vector<Chunk> chunks;
  for (; next_ < records_.size() && !records_[next_].isFromHost; ++next_) {
    const DumpRecord& record = records_[next_];
    const auto silence =
        next_ == 0 || silences_ == Silences::None
            ? 0
            : std::max<std::int64_t>(0, secondsBetween(records_[next_ - 1].time, record.time));
    const std::chrono::microseconds apart =
        chunks.empty() ? std::chrono::microseconds(0) : std::chrono::microseconds(kBetweenChunks);
    chunks.push_back(
        {std::max<std::chrono::microseconds>(apart, std::chrono::seconds(silence)), record.bytes});
  }
  return chunks;
}

void Replay::depart(std::string_view rest) {
  isDeparted_ = true;
  if (next_ < records_.size()) {
    sent_ = records_[next_].bytes.substr(0, matched_);
  }
  sent_ += rest;
}

std::string Replay::report() const {
  if (isAtEnd()) {
    return "the host followed the dump to its end";
  }
  const bool hasNext = next_ < records_.size();
  const std::string place = hasNext ? "line " + std::to_string(records_[next_].line) : "the end";
  const std::string recorded = hasNext ? readable(records_[next_].bytes) : "nothing more";
  if (!isDeparted_) {
    return "the host has not come past " + place + " of the dump, where it sent " + recorded;
  }
  return "the host departs at " + place + " of the dump: there it sent " + recorded + ", now " +
         readable(sent_);
}

}  // namespace corvid::simulator
