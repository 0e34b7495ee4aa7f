// What a printer's bytes come to does not depend on how reads cut them.
#include "support/session_bench.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace corvid {
namespace {

constexpr int kSequences = 300;
constexpr double kLongestGap = 0.055;  // less than what counts as quiet

class Source {
 public:
  explicit Source(unsigned seed) : random_(seed) {}
  // Below `end`.
  int number(int end) { return std::uniform_int_distribution<>(0, end - 1)(random_); }

  // Bytes that matter to the line, among others.
  std::string sequence() {
    constexpr std::string_view kBytes = "\2\2\3\3\4\x17\5\6\x15`@A\n~";
    std::string bytes;
    for (int left = 1 + number(12); left > 0; --left) {
      bytes += kBytes[static_cast<std::size_t>(number(static_cast<int>(kBytes.size())))];
    }
    return bytes;
  }
  // The same bytes in pieces, with gaps before them.
  void deliverCut(const std::string& bytes, SerialDouble& line) {
    double delay = 0;
    for (std::size_t at = 0; at < bytes.size();) {
      const auto length = static_cast<std::size_t>(1 + number(3));
      line.deliver(bytes.substr(at, length), delay);
      delay += kLongestGap * number(1000) / 1000;
      at += length;
    }
  }

 private:
  std::mt19937 random_;
};

// Answers the nth request by the bytes, whole or cut.
class CutPrinter : public LinePeer {
 public:
  CutPrinter(std::string bytes, bool isCut, unsigned seed)
      : bytes_(std::move(bytes)), isCut_(isCut), source_(seed) {}
  void received(std::string_view sent, SerialDouble& line) override {
    if (sent == "\6") ++acknowledged;
    if (isAnswered_ || sent == "\6") return;
    isAnswered_ = true;
    if (isCut_) {
      source_.deliverCut(bytes_, line);
    } else {
      line.deliver(bytes_);
    }
  }
  int acknowledged = 0;

 private:
  std::string bytes_;
  bool isCut_;
  Source source_;
  bool isAnswered_ = false;
};

struct Seen {
  Outcome outcome;
  int acknowledged;
  bool operator==(const Seen&) const = default;
};

Seen ask(bool forStatus, bool immediate, CutPrinter printer) {
  SessionBench bench({{L"TimeOut", L"1"}});
  bench.world().settings.set(kPortSection, L"LecturaInmediata", immediate ? L"True" : L"False");
  bench.open();
  bench.outcome().DescripcionError.clear();
  bench.world().serial.connect(&printer);
  if (forStatus) {
    bench.exchange().GetStatus();
  } else {
    bench.exchange().SendAck();
  }
  return {bench.outcome(), printer.acknowledged};
}

TEST(ReplyCut, AnySequenceInAnyCutWithoutQuietIsTheSame) {
  for (unsigned seed = 0; seed < kSequences; ++seed) {
    const std::string bytes = Source(seed).sequence();
    for (const bool forStatus : {true, false}) {
      const Seen whole = ask(forStatus, true, {bytes, false, 0});
      for (const bool immediate : {true, false}) {
        ASSERT_EQ(ask(forStatus, immediate, {bytes, true, seed}), whole)
            << "seed " << seed << ", immediate " << immediate << ", status " << forStatus << ": "
            << testing::PrintToString(bytes);
      }
    }
  }
}

}  // namespace
}  // namespace corvid
