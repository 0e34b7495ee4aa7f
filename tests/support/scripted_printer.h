// A printer that answers by script.
#pragma once

#include "support/line_peer.h"

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

using Answer = std::vector<std::string>;  // chunks; none is silence

inline constexpr char kEtb = '\x17';

// A reply as one chunk; more blocks follow after kEtb.
[[nodiscard]] inline Answer blockOf(const std::string& text, char end = '\x03') {
  char check = end;
  for (const char byte : text) check = static_cast<char>(check ^ byte);
  return {"\x02" + text + end + check};
}

// Keeps what it is sent, and answers each request with the next answer of its kind. Where none is
// left, a status request gets "fiscal, idle, no error", a block the answer to its command or else
// an ACK, and an ACK nothing.
class ScriptedPrinter : public LinePeer {
 public:
  void received(std::string_view bytes, NearEnd& line) override;

  std::deque<Answer> answersToStatus;
  std::deque<Answer> answersToBlock;
  std::deque<Answer> answersToAck;
  std::map<std::string, Answer> answers;  // by command
  Answer answerToEveryAck;
  double delaySeconds = 0;  // before each answer

  std::size_t statusRequests = 0;
  std::size_t acks = 0;
  std::vector<std::string> blocks;
  // The texts of the blocks, without frame.
  [[nodiscard]] std::vector<std::string> commands() const;

 private:
  static Answer next(std::deque<Answer>& answers, const Answer& usual);
  Answer answerTo(std::string_view bytes);
};

}  // namespace corvid
