#include "protocol/whole_answer.h"

#include "protocol/control_bytes.h"

namespace corvid {
namespace {

constexpr char kSingles[] = {ACK, NAK, ENQ};
constexpr char kEnds[] = {ETX, ETB, EOT};

}  // namespace

bool isWholeAnswer(std::string_view bytes) {
  if (bytes.find_first_of({kSingles, sizeof kSingles}) == 0) return true;
  const std::size_t start = bytes.find(static_cast<char>(STX));
  if (start == std::string_view::npos) return false;
  const std::size_t end = bytes.find_first_of({kEnds, sizeof kEnds}, start + 1);
  return end != std::string_view::npos && end + 1 < bytes.size();
}

}  // namespace corvid
