// A dump of the library, replayed, gives the same host output.
#include "simulator/program/replay.h"

#include "shop.h"
#include "simulator/program/steering.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <vector>

namespace corvid {
namespace {

using simulator::Replay;

class ReplayedLine : public LinePeer {
 public:
  ReplayedLine(const std::string& dump, Replay::Silences silences)
      : replay_(simulator::parsedDump(dump), silences) {}

  void received(std::string_view bytes, NearEnd& line) override {
    double delay = 0;
    for (const simulator::Chunk& chunk : replay_.receive(bytes)) {
      delay += std::chrono::duration<double>(chunk.gap).count();
      line.deliver(chunk.bytes, delay);
    }
  }
  [[nodiscard]] const Replay& replay() const { return replay_; }

 private:
  Replay replay_;
};

// What a host is told, member by member.
std::vector<std::wstring> sell(Shop& shop) {
  PrinterSession& session = *shop.session;
  std::vector<std::wstring> told;
  const auto tell = [&](const std::wstring& result) {
    const Outcome& outcome = shop.outcome();
    const SendRecord& sent = shop.exchange().lastSend();
    told.push_back(result + L" " + std::to_wstring(outcome.pfError) + L" " +
                   std::to_wstring(outcome.resultFlag) + L" " + std::to_wstring(outcome.STS1) +
                   L" " + std::to_wstring(outcome.STS2) + L" " + outcome.DescripcionError + L" " +
                   std::to_wstring(sent.outcome()) + L" " + std::to_wstring(sent.blocks()));
  };
  // The dump shows every byte but those below the blank as a character.
  tell(std::to_wstring(PasarItem(session, {L"PAN \u00D1\u20AC\x7F", 1, 1, 16})));
  tell(Response1(session.exchange())->values.Serial);
  tell(session.exchange().GetMultipleResponsesStr(L"U3A000001000002", L"|", L"/"));
  tell(std::to_wstring(PasarItem(session, {L"QUESO", 1, 1, 16})));
  tell(std::to_wstring(CerrarComprobante(session, money(2.32))));
  return told;
}

struct DumpedShop : Shop {
  DumpedShop()
      : Shop({{kSessionSection, L"TimeOut", L"2"},
              {kSessionSection, L"LimiteEspera", L"20"},
              {kPortSection, L"DEBUG", L"1"},
              {kPortSection, L"DumpFile", L"d.log"}}) {
    // The dump's times go on with the clock.
    const double start = world.clock.now().days;
    world.pump.whenYielded = [this, start] {
      world.clock.setNow({start + world.clock.total() / 86400});
    };
  }
  [[nodiscard]] const std::string& dump() { return world.files.contents[L"C:\\host\\d.log"]; }
};

TEST(Replay, OfADumpGivesTheSameHostOutput) {
  for (const char* fault :
       {"reset", "refuse 2", "silent 2", "lose 1", "lose 3", "lose-ack 2", "bytewise 9 2",
        "split 4 3 30", "enq-first 9", "end-eot 2", "corrupt-check 3", "corrupt-data 2 1",
        "noise 3 z\\x03", "baud 9600", "refuse on", "silent on"}) {
    DumpedShop recorded;
    openKnown(recorded);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(recorded.session->Execute(L"I0Z"), 0);
    std::ostringstream answer;
    simulator::Steering(recorded.line.printer(), answer).obey(fault);
    ASSERT_EQ(answer.str(), "ok\n") << fault;
    const std::vector<std::wstring> told = sell(recorded);
    for (const auto silences : {Replay::Silences::AsDumped, Replay::Silences::None}) {
      DumpedShop replayed;
      ReplayedLine line(recorded.dump(), silences);
      replayed.world.serial.connect(&line);
      openKnown(replayed);
      for (int i = 0; i < 2; ++i) EXPECT_EQ(replayed.session->Execute(L"I0Z"), 0);
      EXPECT_EQ(sell(replayed), told) << fault;
      EXPECT_EQ(line.replay().report(), "the host followed the dump to its end") << fault;
    }
  }
}

// The printer printed the second item, and its ACK got lost: the item was sent again and stands
// there twice. The host is told so.
TEST(Replay, OfALostAckTellsThatTheItemMayStandTwice) {
  Shop shop({{kSessionSection, L"TimeOut", L"2"}});
  const std::filesystem::path file(std::filesystem::path(CORVID_DUMPS) / "lost_ack.txt");
  ReplayedLine line(bytesOf(file.wstring()), Replay::Silences::AsDumped);
  shop.world.serial.connect(&line);
  openKnown(shop);
  EXPECT_EQ(PasarItem(*shop.session, {L"PAN", 12.5, 2, 0}), 0);
  EXPECT_EQ(shop.exchange().lastSend().outcome(), envAceptado);
  EXPECT_EQ(PasarItem(*shop.session, {L"QUESO", 10, 1, 0}), 0);
  EXPECT_EQ(shop.exchange().lastSend().outcome(), envAceptadoDudoso);
  EXPECT_EQ(shop.exchange().lastSend().blocks(), 2);
  EXPECT_EQ(CerrarComprobante(*shop.session, Currency{}), 0);
  EXPECT_EQ(line.replay().report(), "the host followed the dump to its end");
}

}  // namespace
}  // namespace corvid
