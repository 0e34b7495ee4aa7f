// Which addresses count, how long connecting takes, and what becomes of bytes on their way.
#include "transport/tcp_transport.h"

#include "port_bench.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(TcpAddress, IsReadInOneFormOrRefused) {
  const std::wstring longest(253, L'h');
  const struct {
    std::wstring text;
    std::wstring read;  // empty: refused
  } kCases[] = {
      {L"tcp:box:4000", L"tcp:box:4000"},
      {L"TcP:10.0.0.1:1", L"tcp:10.0.0.1:1"},
      {L"tcp:a-b_c.D:65535", L"tcp:a-b_c.D:65535"},
      {L"tcp:azAZ09:9876", L"tcp:azAZ09:9876"},
      {L"tcp:box:04000", L"tcp:box:4000"},
      {L"tcp:" + longest + L":4000", L"tcp:" + longest + L":4000"},
      {L"tcp:" + longest + L"h:4000", L""},
      {L"tcp:box", L""},
      {L"tcp:box:", L""},
      {L"tcp::4000", L""},
      {L"tcp:box:0", L""},
      {L"tcp:box:65536", L""},
      {L"tcp:box:004000", L""},
      {L"tcp:box:+400", L""},
      {L"tcp:box:4000 ", L""},
      {L"tcp: box:4000", L""},
      {L"tcp:box:4000:1", L""},
      {L"tcp://box:4000", L""},
      {L"tcp:se\u00F1al:4000", L""},
      {L"udp:box:4000", L""},
      {L"COM12", L""},
  };
  for (const auto& [text, read] : kCases) {
    const std::optional<TcpAddress> parsed = parseTcpAddress(text);
    EXPECT_EQ(parsed ? parsed->text() : L"", read) << testing::PrintToString(text);
  }
}

struct TcpBench : PortBench {
  explicit TcpBench(const std::wstring& place = L"tcp:box:4000")
      : stream({world.sockets, world.clock, dump, shared.inUse}, 7, place) {}
  TcpTransport stream;
};

TEST(TcpOpening, WrongPlaceIsToldAndAsksNobody) {
  TcpBench bench(L"COM12");
  EXPECT_EQ(bench.stream.open(), kWrongAddress);
  EXPECT_EQ(bench.stream.errorText(),
            L"Error (-2): Config\\Puertos\\7 - \"COM12\" no es una direcci\u00F3n como "
            L"tcp:192.168.1.50:4000");
  EXPECT_EQ(bench.world.faults.count(), 0);
}

TEST(TcpOpening, TriesEveryWayAndEndsInTime) {
  using Answer = SocketDouble::Answer;
  const struct {
    const char* reason;
    std::vector<Answer> ways;
    std::int32_t result;
    double seconds;
  } kCases[] = {
      {"the first way", {Answer::Accept, Answer::Silence}, 0, 0},
      {"refused", {Answer::Refuse}, 10061, 0},
      {"silent", {Answer::Silence}, 10060, 5},
      {"the next way", {Answer::Refuse, Answer::Accept}, 0, 0},
      {"the next way after a silent one", {Answer::Silence, Answer::Accept}, 0, 2.5},
      {"all silent", {Answer::Silence, Answer::Silence, Answer::Silence}, 10060, 5},
      {"what the last one says", {Answer::Silence, Answer::Refuse}, 10061, 2.5},
      {"none", {}, 11001, 0},
  };
  for (const auto& item : kCases) {
    TcpBench bench;
    SocketDouble& sockets = bench.world.sockets;
    sockets.ways.clear();
    for (const Answer answer : item.ways) {
      sockets.ways.push_back(std::to_string(sockets.ways.size()));
      sockets.answers[sockets.ways.back()] = answer;
    }
    const double start = bench.world.clock.total();
    EXPECT_EQ(bench.stream.open(), item.result) << item.reason;
    EXPECT_NEAR(bench.world.clock.total() - start, item.seconds, 0.001) << item.reason;
    EXPECT_EQ(sockets.asked(), std::vector<std::string>{"box:4000"}) << item.reason;
    EXPECT_EQ(sockets.openSockets(), item.result == 0 ? 1U : 0U) << item.reason;
    EXPECT_EQ(bench.open(7), item.result == 0 ? -1 : 0) << "its number is taken while it is open";
  }
}

TEST(TcpOpening, FailureWithoutANumberIsNoSuccess) {
  TcpBench bench;
  for (const std::uint32_t number : {0U, 1U}) {
    bench.world.faults.failNth("create", 1, number);
    EXPECT_EQ(bench.stream.open(), number == 0U ? 31 : 1);
    EXPECT_EQ(bench.stream.close(), 0) << "there is nothing to close";
  }
}

TEST(TcpTransfers, FailedOnesTellTheirWords) {
  TcpBench bench;
  ASSERT_EQ(bench.stream.open(), 0);
  bench.world.faults.failNth("receive", 1, 10054);
  std::string data;
  EXPECT_EQ(bench.stream.read(data), -1);
  EXPECT_EQ(bench.stream.errorText(), L"Error (10054): tcp:box:4000 (recv) - system message 10054");
  bench.world.faults.failNth("send", 1, 10053);
  EXPECT_EQ(bench.stream.write("a"), -1);
  EXPECT_EQ(bench.stream.errorText(), L"Error (10053): tcp:box:4000 (send) - system message 10053");
}

TEST(TcpTransfers, HangUpComesAfterTheBytesBeforeItAndStays) {
  TcpBench bench;
  ASSERT_EQ(bench.stream.open(), 0);
  std::string data = "~";
  EXPECT_EQ(bench.stream.read(data), 0);
  bench.world.sockets.deliver("last");
  bench.world.faults.failNth("receive", 1, SocketDouble::kHangUp);
  EXPECT_EQ(bench.stream.read(data), 4);
  EXPECT_EQ(data, "~last") << "is appended";
  EXPECT_EQ(bench.stream.write("a"), 1) << "nobody knows yet";
  for (int i = 0; i < 3; ++i) EXPECT_EQ(bench.stream.read(data), -1);
  EXPECT_EQ(bench.stream.write("a"), -1);
  EXPECT_EQ(bench.stream.errorText(), L"Error (10101): tcp:box:4000 (recv) - system message 10101");
  EXPECT_EQ(bench.stream.open(), kPortInUse) << "it is still to be closed";
  EXPECT_EQ(bench.stream.close(), 0);
  EXPECT_EQ(bench.stream.open(), 0);
  EXPECT_EQ(bench.stream.write("a"), 1);
}

TEST(TcpTransfers, PeerThatTakesNoMoreGetsLessWithinASecond) {
  TcpBench bench;
  ASSERT_EQ(bench.stream.open(), 0);
  bench.world.sockets.room = 2;
  const double start = bench.world.clock.total();
  EXPECT_EQ(bench.stream.write("abc"), 2);
  EXPECT_EQ(bench.stream.write("c"), 0);
  EXPECT_NEAR(bench.world.clock.total() - start, 2, 0.001);
}

// The system would deliver such a block when the network is back, and the line stood twice.
TEST(TcpTransfers, UnansweredBlockDoesNotOutliveTheClosing) {
  const struct {
    const char* reason;
    std::vector<double> waits;  // each after a block
    bool isAnswered;
    int dropped;
  } kCases[] = {
      {"on its way", {0.9}, false, 0},
      {"lost", {1}, false, 1},
      {"the first of two is lost", {0.6, 0.6}, false, 1},
      {"answered, but for the last one", {2, 0.1}, true, 0},
      {"nothing was sent", {}, false, 0},
  };
  for (const auto& item : kCases) {
    for (const bool isClosed : {true, false}) {
      PortBench bench;
      SocketDouble& sockets = bench.world.sockets;
      {
        TcpTransport stream({sockets, bench.world.clock, bench.dump, bench.shared.inUse}, 7,
                            L"tcp:box:4000");
        ASSERT_EQ(stream.open(), 0);
        for (const double wait : item.waits) {
          std::string answer;
          if (item.isAnswered) sockets.deliver("\x06");
          stream.read(answer);
          stream.write("block");
          bench.world.clock.advance(wait);
        }
        if (isClosed) {
          stream.close();
          ASSERT_EQ(stream.open(), 0);
          bench.world.clock.advance(2);  // a new connection has sent nothing
        }
      }
      EXPECT_EQ(sockets.dropped(), item.dropped) << item.reason;
      EXPECT_EQ(sockets.openSockets(), 0U);
    }
  }
}

TEST(TcpTransfers, DumpNamesTheAddress) {
  TcpBench bench;
  bench.world.settings.set(kPortSection, L"DEBUG", L"1");
  bench.world.settings.set(kPortSection, L"DumpFile", L"line.txt");
  bench.dump.open(bench.settings, bench.world.dialog);
  bench.world.clock.setNow(*parseDate(L"2026-03-04 05:06:07"));
  ASSERT_EQ(bench.stream.open(), 0);
  bench.stream.write("\x05");
  bench.world.sockets.deliver("late");
  EXPECT_EQ(bench.stream.discard(), "late");
  bench.world.sockets.room = 0;
  bench.stream.write("not sent");
  EXPECT_EQ(bench.world.files.contents[L"C:\\host\\line.txt"],
            "Send 04-03-2026 05:06:07 tcp:box:4000\r\n" + hexDump("\x05") +
                "Read 04-03-2026 05:06:07 tcp:box:4000\r\n" + hexDump("late"));
}

}  // namespace
}  // namespace corvid
