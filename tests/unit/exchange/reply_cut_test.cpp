// What a printer's bytes come to does not depend on how reads cut them.
#include "support/cut_reply.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace corvid {
namespace {

constexpr int kSequences = 300;

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
  // The same bytes in pieces, with gaps between them.
  std::vector<Piece> cut(const std::string& bytes) {
    std::vector<Piece> pieces;
    for (std::size_t at = 0; at < bytes.size(); at += pieces.back().bytes.size()) {
      const double gap = pieces.empty() ? 0 : kLongestGap * number(1000) / 1000;
      pieces.push_back({bytes.substr(at, static_cast<std::size_t>(1 + number(3))), gap});
    }
    return pieces;
  }

 private:
  std::mt19937 random_;
};

TEST(ReplyCut, AnySequenceInAnyCutWithoutQuietIsTheSame) {
  for (unsigned seed = 0; seed < kSequences; ++seed) {
    const std::string bytes = Source(seed).sequence();
    for (const bool forStatus : {true, false}) {
      const SeenReply whole = seenReply(forStatus, true, CutPrinter({{bytes}}));
      for (const bool immediate : {true, false}) {
        const CutPrinter printer(Source(seed).cut(bytes));
        ASSERT_EQ(seenReply(forStatus, immediate, printer), whole)
            << "seed " << seed << ", immediate " << immediate << ", status " << forStatus << ": "
            << testing::PrintToString(bytes);
      }
    }
  }
}

}  // namespace
}  // namespace corvid
