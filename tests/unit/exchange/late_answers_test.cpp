// Answers, rests of answers and noise that come when nobody waits for them, or as a wait ends.
#include "support/session_bench.h"

#include <gtest/gtest.h>

#include <functional>

namespace corvid {
namespace {

// A late answer is taken off the line; a status that may still be under way is waited for, or two
// would be, and the second one would pass for a command's answer.
TEST(Exchange, LateAnswersAreNotTheNextOnes) {
  OpenBench bench;
  bench.world().clock.advance(1);
  bench.world().serial.deliver("~");
  bench.world().serial.deliver("\x02\x61\x42\x03\x20", 0.004);
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.outcome().STS1, 0x60);
  EXPECT_EQ(bench.printer().blocks.size(), 1U);

  bench.forget();
  bench.printer().answersToStatus = {Answer{}, Answer{"\x02\x60\x40\x03\x23"}};
  bench.onceAsked(1, [&] {
    // The first request's answer begins at the end of its wait, and ends after it.
    bench.world().serial.deliver("\x02\x61", 9.98);
    bench.world().serial.deliver("\x42\x03\x20", 10.03);
  });
  EXPECT_EQ(bench.session().Execute(L"e"), 0);
  EXPECT_EQ(bench.outcome().STS1, 0x60);
  EXPECT_EQ(bench.printer().statusRequests, 2U);
  EXPECT_EQ(bench.printer().blocks.size(), 1U);

  // After noise at the end of a wait, the answer to a command that is lost when it is sent again.
  OpenBench lost;
  lost.printer().answersToBlock = {Answer{}, Answer{}};
  const double end = lost.world().clock.total() + 10;
  lost.world().pump.whenYielded = [&, bytes = std::string("\6~")]() mutable {
    const double due = bytes.size() == 2 ? end - 0.02 : end + 0.02;
    if (bytes.empty() || lost.world().clock.total() < due) return;
    lost.world().serial.deliver(bytes.substr(bytes.size() - 1));
    bytes.pop_back();
  };
  EXPECT_EQ(lost.session().Execute(L"w"), 0);
  EXPECT_EQ(lost.printer().blocks.size(), 3U);

  OpenBench unchecked;
  unchecked.printer().answersToBlock = {Answer{}};
  unchecked.exchange().ExecuteNoCheck(L"w");
  unchecked.world().serial.deliver("\x15", 0.03);
  EXPECT_EQ(unchecked.session().Execute(L"e"), 0);
  EXPECT_EQ(unchecked.printer().statusRequests, 1U) << "an answer that nobody waited for";
}

// It may still be under way.
TEST(Exchange, AnswerToAProgramBeforeIsNotTheFirstStatus) {
  SessionBench bench;
  const double start = bench.world().clock.total();
  bench.atYield(1, [&] { bench.world().serial.deliver("\2\x61\x42\3\x20", 0.03); });
  bench.open();
  EXPECT_EQ(bench.outcome().STS1, 0x60);
  EXPECT_NEAR(bench.world().clock.total() - start, 0.09, 0.01) << "asked in quiet";
}

TEST(Exchange, NoiseThatOutlastsAWaitTakesOfItsSecondsAlone) {
  const auto makeNoise = [](OpenBench& bench, int hundredths) {
    for (int i = 0; i < hundredths; i += 2) bench.world().serial.deliver("~", i * 0.01);
  };
  OpenBench bench({{L"TimeOut", L"1"}});
  makeNoise(bench, 150);
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().statusRequests, 1U) << "no command without a status";
  EXPECT_EQ(bench.printer().blocks.size(), 1U);
  for (const auto& [timeOut, noise] : {std::pair{L"10", 150}, {L"1", 500}}) {
    OpenBench limited({{L"TimeOut", timeOut}, {L"LimiteEspera", L"2"}});
    limited.printer().answersToStatus.resize(9);
    makeNoise(limited, noise);
    const double start = limited.world().clock.total();
    EXPECT_EQ(limited.session().Execute(L"w"), pfCommError);
    EXPECT_EQ(limited.outcome().DescripcionError, L"pfError de comunicacion");
    EXPECT_NEAR(limited.world().clock.total() - start, 2, 0.1);
  }
}

TEST(Exchange, RestOfAnAnswerIsNotTheNextStatus) {
  OpenBench bench;
  bench.printer().answersToBlock = {{"\6~"}};
  bench.onceSent([&] { bench.world().serial.deliver("\2\x61\x42\3\x20", 0.03); });
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  const double start = bench.world().clock.total();
  bench.exchange().GetStatus();
  EXPECT_EQ(bench.outcome().STS1, 0x60);
  EXPECT_LT(bench.world().clock.total() - start, 0.2) << "that rest, and quiet behind it";
}

// A printer that answers late may send two statuses; where the command is lost then, the second one
// passed for its answer.
TEST(Exchange, SecondOfTwoLateStatusesIsNoAnswerToACommand) {
  OpenBench bench({{L"TimeOut", L"1"}});
  bench.printer().answersToStatus = {Answer{}, Answer{}};
  bench.printer().answersToBlock = {Answer{}};
  bench.onceAsked(2, [&] {
    for (const double delay : {0.05, 0.2}) {
      bench.world().serial.deliver("\x02\x60\x40\x03\x23", delay);
    }
  });
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().blocks.size(), 2U);
  EXPECT_EQ(bench.exchange().lastSend().outcome(), envAceptadoDudoso);
}

TEST(Exchange, ReplyOfTwoBytesIsNoLateStatusOnceACommandWasAnswered) {
  OpenBench bench({{L"TimeOut", L"1"}});
  bench.printer().answers["S9"] = blockOf("AB");
  EXPECT_EQ(bench.exchange().GetResponse(L"S9"), Lines{L"AB"});
  EXPECT_EQ(bench.printer().blocks.size(), 1U);
  bench.printer().answersToStatus = {Answer{}};
  bench.exchange().GetStatus();
  bench.session().Execute(L"w");
  EXPECT_EQ(bench.exchange().GetResponse(L"S9"), Lines{L"AB"});
}

// Where a read lasts as long as the wait, its bytes came in time.
TEST(Exchange, AnswerThatCameWithTheLastReadCounts) {
  SessionBench bench({{L"TimeOut", L"1"}});
  bench.world().settings.set(kPortSection, L"LecturaInmediata", L"False");
  bench.world().serial.driver.reads = DriverModel::Reads::WaitOut;
  bench.open();
  bench.printer().answersToBlock = {{"\5\6"}};
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().blocks.size(), 1U);
}

// Lost, garbled or late: without an ACK within the time-out a command is sent again.
TEST(Exchange, CommandWithoutAcknowledgementInTimeIsSentTwice) {
  const struct {
    Answer answer;
    double delay;
    std::size_t blocks;
  } kCases[] = {{{}, 0, 2}, {{"\x86"}, 0, 2}, {{"\x06"}, 1.02, 2}, {{"\x06"}, 0.98, 1}};
  for (const auto& item : kCases) {
    OpenBench bench({{L"TimeOut", L"1"}});
    bench.printer().answersToBlock = {Answer{}};
    bench.onceSent([&] {
      for (const std::string& bytes : item.answer) bench.world().serial.deliver(bytes, item.delay);
    });
    EXPECT_EQ(bench.session().Execute(L"w"), 0);
    EXPECT_EQ(bench.printer().blocks.size(), item.blocks) << item.delay;
  }
}

// As time services and the summer's begin do. The command would be sent again though it is done.
TEST(Exchange, ClockThatIsSetForwardEndsNoWait) {
  OpenBench bench;
  bench.printer().delaySeconds = 0.5;
  bench.world().pump.whenYielded = [&] { bench.world().clock.setSeconds(50000); };
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().statusRequests, 1U);
  EXPECT_EQ(bench.printer().blocks.size(), 1U);
}

// Nobody else takes them off the line, and the driver's queue ends.
TEST(Exchange, AnswersThatNobodyWaitsForAreTakenOffTheLine) {
  const std::function<void(OpenBench&)> kCommands[] = {
      [](OpenBench& bench) { bench.session().Execute(L"w"); },
      [](OpenBench& bench) { bench.exchange().ExecuteNoCheck(L"w"); },
      [](OpenBench& bench) { bench.exchange().SendDirect(L"w"); },
  };
  for (const auto& command : kCommands) {
    OpenBench bench({{L"SkipChecks", L"True"}});
    bench.printer().answersToBlock = {Answer{}};
    bench.world().serial.deliver("late");
    command(bench);
    EXPECT_EQ(bench.world().serial.unread(), 0U);
  }
}

}  // namespace
}  // namespace corvid
