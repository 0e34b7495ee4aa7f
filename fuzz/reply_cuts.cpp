// One answer whole and in pieces, through a session and its serial port. The input's first line
// says whether a status is asked for, how reads work and how the answer is cut: one character for
// each piece.
#include "input.h"
#include "support/cut_reply.h"

namespace corvid {
namespace {

constexpr double kMostDelay = 0.9;  // seconds in all; less than the time-out

// Pieces of 1 to 4 bytes with one of 64 gaps before each.
std::vector<Piece> cut(std::string_view bytes, std::string_view plan) {
  std::vector<Piece> pieces;
  double left = kMostDelay;
  for (const char character : plan) {
    const auto number = static_cast<std::uint8_t>(character);
    const std::size_t length = std::min<std::size_t>(1 + number % 4, bytes.size());
    const double gap = std::min(kLongestGap * (number / 4) / 64, left);
    left -= gap;
    pieces.push_back({std::string(bytes.substr(0, length)), gap});
    bytes.remove_prefix(length);
  }
  pieces.push_back({std::string(bytes)});
  return pieces;
}

}  // namespace
}  // namespace corvid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid;
  fuzz::Input input(data, size);
  std::string_view plan = input.bytes();
  const bool forStatus = plan.starts_with('s');
  plan.remove_prefix(std::min<std::size_t>(1, plan.size()));
  const std::string bytes(input.rest());
  const SeenReply whole = seenReply(forStatus, true, CutPrinter({{bytes}}));
  for (const bool immediate : {true, false}) {
    fuzz::require(seenReply(forStatus, immediate, CutPrinter(cut(bytes, plan))) == whole,
                  "an answer is the same in every cut");
  }
  return 0;
}
