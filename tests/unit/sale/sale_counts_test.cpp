// What a sale of twenty lines costs in reads, writes and bytes, with and without immediate reads.
#include "counted_sale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

namespace corvid {
namespace {

constexpr std::size_t kCustomerCommands = 4;  // tax number, name, two lines of address
constexpr std::size_t kCommands =
    kCustomerCommands + 1 + 20 + 2;                // rates; lines; subtotal, payment
constexpr std::size_t kEnquiries = kCommands + 1;  // a query asks once more, before its command

std::size_t bytesOf(const std::vector<std::string>& messages) {
  return std::accumulate(
      messages.begin(), messages.end(), std::size_t{0},
      [](std::size_t sum, const std::string& message) { return sum + message.size(); });
}

// Neither a fine timer nor finer ticks.
void coarseTicks(World& world) { world.clock.tickSeconds = 0.0156; }

TEST(SaleCounts, EachCommandIsOneEnquiryAndOneBlock) {
  for (const bool immediate : {false, true}) {
    const CountedSale sale(immediate);
    ASSERT_EQ(sale.failure(), 0);
    const std::vector<std::string>& written = sale.written();
    EXPECT_EQ(written.size(), kEnquiries + kCommands) << immediate;
    EXPECT_EQ(std::ranges::count(written, "\x05"), std::ptrdiff_t{kEnquiries}) << immediate;
    EXPECT_EQ(sale.answers().size(), written.size()) << "one answer to each";
    const auto twoBlocks = std::ranges::adjacent_find(
        written,
        [](const std::string& a, const std::string& b) { return a != "\x05" && b != "\x05"; });
    EXPECT_EQ(twoBlocks, written.end()) << "no command without asking first: " << immediate;
  }
}

TEST(SaleCounts, ByDefaultEachAnswerIsOneReadThatWaitsASecond) {
  const CountedSale sale(false);
  const std::vector<std::uint32_t> asked = sale.sizesRead();
  EXPECT_EQ(asked, std::vector<std::uint32_t>(kEnquiries + kCommands, 4096));
  const double needed = static_cast<double>(asked.size()) + sale.requestSeconds();
  EXPECT_GE(sale.seconds(), needed);
  EXPECT_LE(sale.seconds(), 1.02 * needed);
}

TEST(SaleCounts, ImmediateReadsAskForWhatIsThereAndKeepUpWithTheWire) {
  for (const bool isCoarse : {false, true}) {
    const CountedSale sale(true, isCoarse ? coarseTicks : nullptr);
    ASSERT_EQ(sale.failure(), 0);
    const std::vector<std::uint32_t> asked = sale.sizesRead();
    EXPECT_EQ(std::accumulate(asked.begin(), asked.end(), std::size_t{0}), bytesOf(sale.answers()))
        << "no read waits for more than is there";
    EXPECT_GE(sale.seconds(), sale.wireSeconds());
    EXPECT_LE(sale.seconds(), (isCoarse ? 1.35 : 1.05) * sale.wireSeconds());
  }
}

}  // namespace
}  // namespace corvid
