// What one exchange writes, waits for and leaves behind.
#include "support/session_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace corvid {
namespace {

constexpr const char* kNak = "\x15";

// To the very moment: the waits of the other tests never meet it.
TEST(TimeOut, IsOverAtItsSecondsAndAtItsLimit) {
  FakeClock clock;
  const TimeOut plain(clock, 2);
  const TimeOut limited(clock, 8, 2);
  clock.advance(1.875);
  EXPECT_FALSE(plain.isOver() || plain.isOverBySteadyClock() || limited.isOver());
  clock.advance(0.125);
  EXPECT_TRUE(plain.isOver() && plain.isOverBySteadyClock() && limited.isOver());
}

// In a wait for the status everything but a block of two bytes is passed over.
TEST(Exchange, OnlyABlockOfTwoBytesIsAStatus) {
  const char* const kPassedOver[] = {"", "~~", "A\nB\3x", "\2A\3B", "\2ABC\3x", "~\2", "\3"};
  const Outcome kAsTold = {L"", ETX, pfOk, 0x61, 0x42, L"Ok"};
  for (const char* before : kPassedOver) {
    OpenBench bench;
    bench.printer().answersToStatus = {{before, "\x02\x61\x42\x03\x20"}};
    bench.exchange().GetStatus();
    EXPECT_EQ(bench.outcome(), kAsTold) << before;
    EXPECT_EQ(bench.printer().statusRequests, 1U) << before;
  }
}

TEST(Exchange, CollectsAReply) {
  const struct {
    Answer reply;
    std::wstring result;
    std::int32_t flag;
    std::int32_t error;
    std::size_t acknowledged;  // ENQs of the printer answered with ACK
    const char* reason;
  } kCases[] = {
      {{"\2A\nB\3\n"}, L"\2A\nB\3", ETX, pfOk, 0, "the check byte is dropped"},
      {{"\5\2A\3B"}, L"\2A\3", ETX, pfOk, 1, "ENQ in front is not kept"},
      {{"\5\6"}, L"", ACK, pfOk, 1, "what follows a dropped ENQ is looked at again"},
      {{"\2A\4"}, L"\2A\4", ETX, pfOk, 0, "EOT ends like ETX; no check byte"},
      {{"\2A\x17V"}, L"\2A\x17", ETB, pfOk, 0, "more blocks follow"},
      {{"\6noise"}, L"", ACK, pfOk, 0, "what follows an answer is dropped"},
      {{"~\2A\3B"}, L"~\2A\3", ETX, pfOk, 0, "noise in front of a block is kept"},
      {{"\2half"}, L"\2half", ETX, pfCommError, 0, "half a block ends by time-out"},
      {{"\2A\nB\3\n\2C\3@"}, L"\2A\nB\3", ETX, pfOk, 0, "two answers in one burst"},
  };
  for (const auto& item : kCases) {
    OpenBench bench;
    bench.printer().answersToAck.push_back(item.reply);
    bench.exchange().SendAck();
    EXPECT_EQ(bench.outcome().result, item.result) << item.reason;
    EXPECT_EQ(bench.outcome().resultFlag, item.flag) << item.reason;
    EXPECT_EQ(bench.outcome().pfError, item.error) << item.reason;
    EXPECT_EQ(bench.printer().acks, item.acknowledged + 1) << item.reason;
    bench.exchange().SendAck();
    EXPECT_EQ(bench.outcome().result, L"") << "nothing of an earlier answer";
  }
}

using Answers = std::deque<Answer>;
const Answers kRefusals(9, {kNak});
constexpr const wchar_t* kSilent = L"pfError de comunicacion";

struct Course {
  std::deque<Answer> toStatus;
  std::deque<Answer> toBlock;
  std::int32_t result;
  std::int32_t flag;
  std::size_t blocks;
  std::size_t statusRequests;
  std::wstring description;
  EnviosPF outcome;
  const char* reason;
};

void check(OpenBench& bench, const Course& course) {
  bench.printer().answersToStatus = course.toStatus;
  bench.printer().answersToBlock = course.toBlock;
  const double start = bench.world().clock.total();
  EXPECT_EQ(bench.session().Execute(L"w"), course.result) << course.reason;
  EXPECT_EQ(bench.printer().blocks, std::vector<std::string>(course.blocks, "\x02w\x03t"));
  EXPECT_EQ(bench.printer().statusRequests, course.statusRequests) << course.reason;
  EXPECT_EQ(bench.outcome().resultFlag, course.flag) << course.reason;
  EXPECT_EQ(bench.outcome().DescripcionError, course.description) << course.reason;
  const SendRecord& sent = bench.exchange().lastSend();
  EXPECT_EQ(sent.outcome(), course.outcome) << course.reason;
  EXPECT_EQ(sent.blocks(), static_cast<int>(course.blocks)) << course.reason;
  const double took = (bench.world().clock.total() - start) * 1000;
  EXPECT_NEAR(sent.milliseconds(), took, 1) << course.reason;
}

TEST(Exchange, CommandIsTriedSevenTimesAndSilenceCostsAStatusRequest) {
  Answers kSilentLast(6, {kNak});
  kSilentLast.emplace_back();
  const Course kCourses[] = {
      {{}, {}, pfOk, ACK, 1, 1, L"Ok", envAceptado, "accepted"},
      {{}, {{kNak}, {"\x06"}}, pfOk, ACK, 2, 1, L"Ok", envAceptado, "after a refusal"},
      {{}, kRefusals, pfOk, NAK, 7, 1, L"Ok", envRechazado, "refused: the status' own outcome"},
      {{}, {{kNak}, {}, {"\x06"}}, pfOk, ACK, 3, 2, L"Ok", envAceptadoDudoso, "a silence between"},
      {{}, Answers(7), pfCommError, ETX, 7, 7, kSilent, envIncierto, "never answered"},
      {{}, kSilentLast, pfCommError, NAK, 7, 1, kSilent, envIncierto, "the last one in doubt"},
      {Answers(20), {}, pfOk, ACK, 1, 21, L"Ok", envAceptado, "a silent status costs no attempt"},
      {{{kNak}, {"\x06"}}, {}, pfOk, ACK, 1, 3, L"Ok", envAceptado, "an answer is no status"},
  };
  for (const Course& course : kCourses) {
    OpenBench bench;
    check(bench, course);
  }
}

TEST(Exchange, SettingsTellRefusalsAndEndTheAsking) {
  const Course refused = {
      {}, kRefusals, pfPrinterError, NAK, 7, 1, L"Se recibi\u00F3 NAK", envRechazado, "refused"};
  OpenBench refusing({{L"RechazoEsError", L"True"}});
  check(refusing, refused);
  OpenBench limited({{L"LimiteEspera", L"21"}});
  const double start = limited.world().clock.total();
  check(limited, {Answers(99), {}, pfCommError, ETX, 0, 3, kSilent, envNoEnviado, "silent"});
  EXPECT_NEAR(limited.world().clock.total() - start, 21, 0.1);
  limited.exchange().GetStatus();
  EXPECT_EQ(limited.printer().statusRequests, 4U) << "each member has its own seconds";
  OpenBench hasty({{L"LimiteEspera", L"0,5"}});
  check(hasty, {Answers(9), {}, pfCommError, ETX, 0, 1, kSilent, envNoEnviado, "half a second"});
  OpenBench unanswered({{L"LimiteEspera", L"2,5"}});
  check(unanswered, {{}, Answers(9), pfCommError, ETX, 1, 1, kSilent, envIncierto, "block"});
}

// By default the check byte of a reply is traced; by the setting a block without it is none.
TEST(Exchange, CheckBytesOfRepliesCountBySetting) {
  const Answer kStatus = {"\x02\x60\x40\x03\x23"};
  const Answer kGood = blockOf("A\nB");
  const struct {
    Answer status;
    Answer block;
    std::size_t statusRequests;  // with the setting
    std::size_t blocks;
    const char* reason;
  } kCases[] = {
      {kStatus, kGood, 1, 1, "both right"},
      {{"\x02\x60\x40\x03?"}, kGood, 2, 1, "a wrong status is asked for again"},
      {{"\x02\x60\x40\x03"}, kGood, 2, 1, "one without its check byte too"},
      {{"\2A\3?", "\x02\x60\x40\x03\x23"}, kGood, 2, 1, "noise that looks like no status"},
      {kStatus, {"\2A\nB\3?"}, 2, 2, "a wrong reply as well"},
  };
  for (const auto& item : kCases) {
    for (const bool verifies : {false, true}) {
      OpenBench bench({{L"VerificarRespuesta", verifies ? L"True" : L"False"}});
      bench.printer().answersToStatus = {item.status};
      bench.printer().answersToBlock = {item.block, kGood};
      EXPECT_EQ(bench.session().Execute(L"S1"), 0) << item.reason;
      EXPECT_EQ(bench.outcome().result, L"\2A\nB\3") << item.reason;
      EXPECT_EQ(bench.printer().blocks.size(), verifies ? item.blocks : 1) << item.reason;
      EXPECT_EQ(bench.printer().statusRequests, verifies ? item.statusRequests : 1) << item.reason;
    }
  }
  OpenBench rows({{L"VerificarRespuesta", L"True"}});
  rows.printer().answersToBlock = {blockOf("A", kEtb)};
  rows.printer().answersToAck = {{"\2B\3?"}};
  EXPECT_EQ(rows.exchange().GetMultipleResponses(L"U3A"), (std::vector<Lines>{{L"A"}}));
  EXPECT_EQ(rows.outcome().pfError, pfCommError);
}

TEST(Exchange, WaitEndsAfterItsSecondsUnlessItSpansMidnight) {
  const struct {
    std::wstring timeOut;
    double seconds;
  } kCases[] = {{L"3", 3}, {L"1", 1}, {L"0", 1}, {L"-5", 1}};
  for (const auto& item : kCases) {
    OpenBench bench({{L"TimeOut", item.timeOut}});
    bench.world().clock.setSeconds(100);
    const double start = bench.world().clock.total();
    bench.printer().answersToStatus = {Answer{}};
    bench.outcome().STS1 = bench.outcome().STS2 = 99;
    bench.exchange().GetStatus();
    EXPECT_EQ(bench.outcome().pfError, pfCommError);
    EXPECT_EQ(bench.outcome().STS1 + bench.outcome().STS2, 0) << "no status, no bytes";
    EXPECT_NEAR(bench.world().clock.total() - start, item.seconds, 0.01);
  }
  OpenBench late;
  late.world().clock.setSeconds(86399);
  late.printer().delaySeconds = 120;  // far beyond the ten seconds of the time-out
  late.exchange().GetStatus();
  EXPECT_EQ(late.outcome().STS1, 0x60);
}

// With its outcome, and not after the seconds of the wait.
TEST(Exchange, WaitEndsAtOnceWithItsPort) {
  const struct {
    std::function<void(OpenBench&)> end;
    std::wstring description;
  } kCases[] = {
      {[](OpenBench& bench) { bench.session().Cerrar(); }, L"PUERTO CERRADO"},
      {[](OpenBench& bench) { bench.world().serial.failFrom("", 1, 22); }, kSilent},
  };
  for (const auto& item : kCases) {
    OpenBench bench;
    bench.printer().answersToBlock = {Answer{}};
    bench.onceSent([&] { item.end(bench); });
    const double start = bench.world().clock.total();
    EXPECT_EQ(bench.session().Execute(L"w"), pfCommError);
    EXPECT_LT(bench.world().clock.total() - start, 0.5);
    EXPECT_EQ(bench.outcome().DescripcionError, item.description);
    EXPECT_EQ(bench.exchange().lastSend().outcome(), envIncierto);
  }
}

TEST(Exchange, FailuresOfReadsThatPassAreNoLoss) {
  SessionBench bench;
  bench.world().clock.advance(100);
  for (const int nth : {1, 2, 3}) bench.world().serial.failNth("clearCommError", nth, 22);
  bench.open();
  EXPECT_EQ(bench.outcome().STS1, 0x60);
  bench.printer().delaySeconds = 1;
  for (const int nth : {3, 4, 5, 100, 200}) bench.world().serial.failNth("clearCommError", nth, 22);
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().blocks.size(), 1U);
}

TEST(Exchange, FailureInAWaitIsShownAndCountsAsSilence) {
  OpenBench bench;
  bench.atYield(2, [] { throw overflow(); });
  bench.world().dialog.whenShown = [&] {
    EXPECT_EQ(bench.session().Execute(L"e"), pfClientError) << "a command is in progress";
  };
  EXPECT_EQ(bench.session().Execute(L"w"), 0) << "asked again";
  EXPECT_EQ(bench.printer().statusRequests, 2U);
  const ShownMessage expected = {
      L"Error 6 (Overflow) in procedure WaitForReply of M\u00F3dulo de clase PrinterFiscal", L"",
      MessageIcon::None};
  EXPECT_EQ(bench.world().dialog.shown, std::vector{expected});

  bench.atYield(2, [] { throw overflow(); });
  bench.world().dialog.whenShown = [&] { bench.session().Cerrar(); };
  EXPECT_EQ(bench.session().Execute(L"w"), pfCommError) << "and at once, not without end";
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
}

TEST(Exchange, BlockOfWhichNothingWasWrittenDoesNotCount) {
  OpenBench bench({{L"TimeOut", L"1"}});
  bench.world().serial.shortenWrite(2, 4);
  bench.printer().answersToBlock = {Answer{}};
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.exchange().lastSend().blocks(), 1);
  EXPECT_EQ(bench.exchange().lastSend().outcome(), envAceptado);
}

TEST(Exchange, UncheckedModeWritesTheBlockAndReadsNothing) {
  OpenBench bench({{L"SkipChecks", L"True"}});
  bench.world().serial.clearLog();
  bench.outcome().pfError = pfCommError;  // of an earlier command
  EXPECT_EQ(bench.session().Execute(L"w"), 0);
  EXPECT_EQ(bench.printer().blocks, (std::vector<std::string>{"\x02w\x03t"}));
  EXPECT_EQ(bench.printer().statusRequests, 0U);
  EXPECT_EQ(bench.world().serial.count("readFile"), 0U);
  EXPECT_EQ(bench.outcome().DescripcionError, L"NO_STATUS_CHECK");
  EXPECT_EQ(bench.outcome().resultFlag, ACK);
}

TEST(Exchange, ClosedSessionWritesNothing) {
  SessionBench bench;
  bench.outcome().STS1 = 99;
  EXPECT_EQ(bench.session().Execute(L"w"), pfCommError);
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
  EXPECT_EQ(bench.outcome().STS1, 99) << "no status was asked for";
  bench.outcome() = {};
  bench.exchange().ExecuteNoCheck(L"w");
  EXPECT_EQ(bench.outcome().pfError, pfCommError);
  bench.outcome() = {};
  bench.outcome().result = L"of an earlier command";
  bench.exchange().GetStatus();
  EXPECT_EQ(bench.outcome().DescripcionError, L"PUERTO CERRADO");
  EXPECT_EQ(bench.outcome().result, L"");
  EXPECT_EQ(errorOf([&] { bench.exchange().SendDirect(L"w"); }), 9);
  EXPECT_EQ(errorOf([&] { bench.exchange().SendAck(); }), 9);
  EXPECT_EQ(errorOf([&] { bench.exchange().NextStatusBlock(); }), 9);
  EXPECT_TRUE(bench.world().serial.written().empty());
}

}  // namespace
}  // namespace corvid
