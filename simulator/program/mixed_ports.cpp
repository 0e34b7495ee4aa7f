#include "simulator/program/mixed_ports.h"

#include "simulator/line/bytes.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <string>

namespace corvid::simulator {
namespace {

enum class Kind { Status, Command };

// What the printer answers, found in bytes that reads may have cut anywhere.
class Answers {
 public:
  // The kind of request that is answered with this byte.
  std::optional<Kind> take(char byte) {
    if (isAtCheck_) {
      isAtCheck_ = false;
      return block_.size() == 2 ? Kind::Status : Kind::Command;
    }
    if (byte == kStx) {
      isInBlock_ = true;
      block_.clear();
    } else if (isInBlock_ && (byte == kEtx || byte == kEtb || byte == kEot)) {
      isInBlock_ = false;
      isAtCheck_ = true;
    } else if (isInBlock_) {
      block_ += byte;
    } else if (byte == kAck || byte == kNak) {
      return Kind::Command;
    }
    return std::nullopt;
  }

 private:
  bool isInBlock_ = false;
  bool isAtCheck_ = false;
  std::string block_;
};

// The requests of one second. A printer answers in the order in which it was asked, and a host asks
// nothing more while it waits for a status. Of a command it may not wait for the end.
class Watch {
 public:
  // True where this record shows that its port is not the only one.
  bool sees(const DumpRecord& record) {
    if (record.isFromHost) {
      send(record);
      return false;
    }
    bool isSeen = false;
    for (const char byte : record.bytes) {
      const auto kind = answers_.take(byte);
      isSeen = (kind && answer(*kind)) || isSeen;
    }
    return isSeen;
  }

 private:
  struct Request {
    Kind kind;
    LocalTime time;
    const Request* waiting;  // a status request that was unanswered when this was sent
    bool isAnswered = false;
  };

  void send(const DumpRecord& record) {
    const bool isStatus = record.bytes == std::string(1, kEnq);
    if (!isStatus && record.bytes.front() != kStx) {
      return;
    }
    // What is given up may be answered late.
    if (!requests_.empty() && secondsBetween(requests_.back().time, record.time) != 0) {
      requests_.clear();
    }
    const auto waiting = unanswered(Kind::Status);
    requests_.push_back({isStatus ? Kind::Status : Kind::Command, record.time,
                         waiting == requests_.end() ? nullptr : &*waiting});
  }

  bool answer(Kind kind) {
    const auto answered = unanswered(kind);
    if (answered == requests_.end()) {
      return false;
    }
    answered->isAnswered = true;
    const bool isOutOfOrder = std::any_of(std::next(answered), requests_.end(),
                                          [](const Request& one) { return one.isAnswered; });
    return isOutOfOrder || (answered->waiting != nullptr && answered->waiting->isAnswered);
  }

  // Of those after the last answer, if there is one: an answer may be lost.
  std::list<Request>::iterator unanswered(Kind kind) {
    const auto isSought = [&](const Request& one) { return one.kind == kind && !one.isAnswered; };
    const auto answered = std::find_if(requests_.rbegin(), requests_.rend(),
                                       [](const Request& one) { return one.isAnswered; });
    const auto found = std::find_if(answered.base(), requests_.end(), isSought);
    return found != requests_.end() ? found : std::ranges::find_if(requests_, isSought);
  }

  Answers answers_;
  std::list<Request> requests_;
};

}  // namespace

std::optional<std::size_t> lineOfSecondPort(const std::vector<DumpRecord>& records) {
  Watch watch;
  for (const DumpRecord& record : records) {
    if (record.address != records.front().address || watch.sees(record)) {
      return record.line;
    }
  }
  return std::nullopt;
}

}  // namespace corvid::simulator
