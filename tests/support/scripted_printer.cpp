#include "support/scripted_printer.h"

namespace corvid {
namespace {

std::string commandOf(const std::string& block) { return block.substr(1, block.size() - 3); }

}  // namespace

void ScriptedPrinter::received(std::string_view bytes, NearEnd& line) {
  for (const std::string& chunk : answerTo(bytes)) line.deliver(chunk, delaySeconds);
}

Answer ScriptedPrinter::answerTo(std::string_view bytes) {
  if (bytes == "\x05") {
    ++statusRequests;
    return next(answersToStatus, {"\x02\x60\x40\x03\x23"});
  }
  if (bytes == "\x06") {
    ++acks;
    return next(answersToAck, answerToEveryAck);
  }
  blocks.emplace_back(bytes);
  const auto known = answers.find(commandOf(blocks.back()));
  return next(answersToBlock, known == answers.end() ? Answer{"\x06"} : known->second);
}

Answer ScriptedPrinter::next(std::deque<Answer>& answers, const Answer& usual) {
  if (answers.empty()) return usual;
  Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::vector<std::string> ScriptedPrinter::commands() const {
  std::vector<std::string> texts;
  for (const std::string& block : blocks) texts.push_back(commandOf(block));
  return texts;
}

}  // namespace corvid
