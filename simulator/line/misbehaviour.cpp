#include "simulator/line/misbehaviour.h"

#include "simulator/line/bytes.h"

#include <algorithm>

namespace corvid::simulator {
namespace {

constexpr std::int64_t kBitsPerByte = 11;  // start, eight data bits, parity, stop

std::vector<Chunk> singleBytes(std::string_view bytes, std::chrono::microseconds first,
                               std::chrono::microseconds gap) {
  std::vector<Chunk> chunks;
  for (const char byte : bytes) {
    chunks.push_back({chunks.empty() ? first : gap, std::string(1, byte)});
  }
  return chunks;
}

void flipBit(char& byte) { byte = static_cast<char>(static_cast<unsigned char>(byte) ^ 1U); }

}  // namespace

bool Misbehaviour::happens(Fault fault) {
  int& left = left_.at(index(fault));
  const bool isNow = left != 0;
  left -= left > 0 ? 1 : 0;
  return isNow;
}

void Misbehaviour::addAnswer(std::string_view prefix, std::string_view block) {
  answers_[std::string(prefix)].emplace_back(block);
}

std::optional<std::vector<std::string>> Misbehaviour::answerTo(std::string_view command) const {
  // In reverse order a longer prefix comes before a shorter one that it begins with.
  const auto found = std::find_if(answers_.rbegin(), answers_.rend(), [&](const auto& answer) {
    return command.starts_with(answer.first);
  });
  return found == answers_.rend() ? std::nullopt : std::optional(found->second);
}

void Misbehaviour::reset() {
  left_.fill(0);
  answers_.clear();
}

std::vector<Chunk> Misbehaviour::shaped(std::string answer) {
  if (happens(Fault::Lose)) {
    return {};
  }
  if (answer.front() == kStx) {
    corrupt(answer);
  } else if (happens(Fault::LoseAck)) {
    return {};
  }
  if (happens(Fault::EnquiryFirst)) {
    answer.insert(answer.begin(), kEnq);
  }
  if (happens(Fault::Noise)) {
    answer.insert(0, noise_);
  }
  return paced(inPieces(answer));
}

void Misbehaviour::corrupt(std::string& block) {
  if (happens(Fault::EndWithEot)) {
    block.pop_back();
    block.back() = kEot;
    block += checkByte(std::string_view(block).substr(1));
  }
  if (happens(Fault::CorruptData)) {
    flipBit(block.at(std::min(position_, block.size() - 1)));
  }
  if (happens(Fault::CorruptCheck)) {
    flipBit(block.back());
  }
}

std::vector<Chunk> Misbehaviour::inPieces(const std::string& answer) {
  if (happens(Fault::ByteByByte)) {
    return singleBytes(answer, {}, gap_);
  }
  if (answer.size() > 1 && happens(Fault::Split)) {
    const std::size_t cut = std::clamp<std::size_t>(position_, 1, answer.size() - 1);
    return {{{}, answer.substr(0, cut)}, {gap_, answer.substr(cut)}};
  }
  return {{{}, answer}};
}

std::chrono::microseconds Misbehaviour::timeOnLine(std::size_t bytes) const {
  const std::int64_t bits = kBitsPerByte * static_cast<std::int64_t>(bytes);
  return std::chrono::microseconds(baud_ > 0 ? 1'000'000 * bits / baud_ : 0);
}

std::vector<Chunk> Misbehaviour::paced(const std::vector<Chunk>& pieces) const {
  if (baud_ <= 0) {
    return pieces;
  }
  const std::chrono::microseconds byteTime = timeOnLine(1);
  std::vector<Chunk> chunks;
  for (const Chunk& piece : pieces) {
    const auto bytes = singleBytes(piece.bytes, piece.gap + byteTime, byteTime);
    chunks.insert(chunks.end(), bytes.begin(), bytes.end());
  }
  return chunks;
}

}  // namespace corvid::simulator
