#include "tools/diagnostico/printer_check.h"

#include "exchange/exchange.h"
#include "protocol/query_commands.h"
#include "protocol/reply.h"
#include "records/query_reply.h"
#include "tools/diagnostico/own_settings.h"

#include <utility>

namespace corvid {
namespace {

// From the opening of a stream to its end.
class Conversation {
 public:
  Conversation(ThreadState& thread, std::shared_ptr<MeasuredTransport> line, std::int16_t seconds)
      : thread_(thread), line_(std::move(line)), exchange_(thread) {
    exchange_.state().timeOut = seconds;
    exchange_.state().limiteEspera = seconds;
    exchange_.state().rechazoEsError = true;
    exchange_.state().sinMensajes = true;
    exchange_.state().verificarRespuesta = true;
    line_->setLines();
    exchange_.attach(line_);
  }
  Conversation(const Conversation&) = delete;
  Conversation& operator=(const Conversation&) = delete;
  ~Conversation() { exchange_.detach(); }

  // From now on a block counts whatever its check byte.
  void verifyNoMore() { exchange_.state().verificarRespuesta = false; }

  void askStatus(PrinterAnswers& answers) {
    exchange_.GetStatus();
    const Outcome& outcome = exchange_.outcome();
    answers.hasStatus = outcome.pfError == pfOk;
    if (!answers.hasStatus) return;
    answers.sts1 = outcome.STS1;
    answers.sts2 = outcome.STS2;
    answers.statuses.push_back(line_->arrival());
    answers.manner = line_->readManner();
  }

  void askCounters(PrinterAnswers& answers) {
    const Lines fields = exchange_.GetResponse(kQueryCounters);
    if (isFailure(fields)) return;
    answers.countersArrival = line_->arrival();
    // No number: a reply that cannot be read leaves the rest of its record empty, rather than
    // filled with the substitutes of somebody's settings.
    OwnSettings noSubstitutes([](const auto&, const auto&) { return L"-"; });
    CountersRecord record(thread_, noSubstitutes.readers());
    record.loadFromResponse(join(fields, std::wstring(1, kLineFeed)));
    // They stand at a reply's end.
    if (!record.values.Serial.empty()) answers.counters = record.values;
  }

 private:
  ThreadState& thread_;
  std::shared_ptr<MeasuredTransport> line_;
  Exchange exchange_;
};

}  // namespace

PrinterAnswers askPrinter(ThreadState& thread, std::shared_ptr<Transport> stream,
                          int statusRequests, std::int16_t seconds, bool wantsCounters) {
  PrinterAnswers answers;
  const auto line = std::make_shared<MeasuredTransport>(std::move(stream), thread.clock());
  if (line->open() != 0) {
    answers.openingError = line->errorText();
    line->close();
    return answers;
  }
  Conversation conversation(thread, line, seconds);
  bool goesOn = true;
  for (int i = 0; i < statusRequests && goesOn; ++i) {
    conversation.askStatus(answers);
    goesOn = answers.hasStatus;
  }
  if (!answers.hasStatus) {
    conversation.verifyNoMore();
    conversation.askStatus(answers);
    answers.isUncertain = answers.hasStatus;
  }
  if (wantsCounters && answers.hasStatus) conversation.askCounters(answers);
  return answers;
}

}  // namespace corvid
