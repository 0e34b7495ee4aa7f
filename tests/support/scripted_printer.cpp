#include "support/scripted_printer.h"

namespace corvid {

void ScriptedPrinter::received(std::string_view bytes, SerialDouble& line) {
  for (const std::string& chunk : answerTo(bytes)) line.deliver(chunk, delaySeconds);
}

Answer ScriptedPrinter::answerTo(std::string_view bytes) {
  if (bytes == "\x05") {
    ++statusRequests;
    return next(answersToStatus, {"\x02\x60\x40\x03\x23"});
  }
  if (bytes == "\x06") {
    ++acks;
    return next(answersToAck, answerToEveryAck.value_or(Answer{}));
  }
  blocks.emplace_back(bytes);
  return next(answersToBlock, {"\x06"});
}

Answer ScriptedPrinter::next(std::deque<Answer>& answers, Answer usual) {
  if (answers.empty()) return usual;
  Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::vector<std::string> ScriptedPrinter::commands() const {
  std::vector<std::string> texts;
  for (const std::string& block : blocks) texts.push_back(block.substr(1, block.size() - 3));
  return texts;
}

}  // namespace corvid
