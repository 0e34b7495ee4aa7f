// The same bytes give the same outcome under every driver.
#include "shop.h"
#include "simulator/line/bytes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace corvid {
namespace {

using Arrival = DriverModel::Arrival;
using Reads = DriverModel::Reads;

struct Course {
  DriverModel driver;
  double yieldSeconds = 0;
  bool immediate = true;
  int checkByte = 0;
};

std::string told(const Course& course) {
  return "reads " + std::to_string(static_cast<int>(course.driver.reads)) + ", arrival " +
         std::to_string(static_cast<int>(course.driver.arrival)) + ", phase " +
         std::to_string(course.driver.phase) + ", yield " + std::to_string(course.yieldSeconds) +
         ", immediate " + std::to_string(course.immediate) + ", check byte " +
         std::to_string(course.checkByte);
}

// A byte that gives text and end the wanted check byte; not every one can stand in a block.
std::string withCheck(std::string text, char end, int wanted) {
  const char filler = static_cast<char>(simulator::checkByte(text + end) ^ wanted);
  constexpr std::string_view kStructural = "\x02\x03\x04\x17\n";
  if (kStructural.find(filler) != std::string_view::npos) {
    return withCheck(text + '~', end, wanted);
  }
  return text + filler;
}

Lines fieldsOf(const std::string& text) { return split(windows1252().decode(text), L"\n"); }

// Queries are answered with the wanted check byte.
void run(const Course& course) {
  SCOPED_TRACE(told(course));
  Shop shop({{kPortSection, L"LecturaInmediata", course.immediate ? L"True" : L"False"},
             {kSessionSection, L"LimiteEspera", L"60"}});
  shop.world.serial.driver = course.driver;
  shop.world.pump.seconds = course.yieldSeconds;
  PrinterSession& session = *shop.session;
  openKnown(shop);

  const std::string fields = withCheck("S1\nA\nB", '\x03', course.checkByte);
  const std::string rows[] = {withCheck("row\n1", '\x17', course.checkByte),
                              withCheck("row\n2", '\x17', course.checkByte),
                              withCheck("row\n3", '\x03', course.checkByte)};
  simulator::Misbehaviour& answers = shop.line.misbehaviour();
  answers.addAnswer("S1", fields);
  for (const std::string& row : rows) answers.addAnswer("U3A", row);

  for (const wchar_t* name : {L"PAN", L"QUESO"}) {
    EXPECT_EQ(PasarItem(session, {name, 1, 1, 16}), 0);
  }
  EXPECT_EQ(shop.exchange().GetResponse(L"S1"), fieldsOf(fields));
  EXPECT_EQ(shop.outcome().STS1, 0x61);
  EXPECT_EQ(shop.outcome().STS2, 0x40);
  EXPECT_EQ(shop.exchange().GetMultipleResponses(L"U3A"),
            (std::vector<Lines>{fieldsOf(rows[0]), fieldsOf(rows[1]), fieldsOf(rows[2])}));
  EXPECT_EQ(CerrarComprobante(session, Currency{}), 0);
  for (const char* item : {"PAN", "QUESO"}) {
    EXPECT_EQ(countOf(shop.line.paper(), item), 1) << item;
  }
  EXPECT_EQ(shop.world.serial.unread(), 0U) << "nothing is left on the line";
}

const Arrival kArrivals[] = {Arrival::Whole, Arrival::Bytes, Arrival::Fifo, Arrival::UsbFrames,
                             Arrival::Lumps};
constexpr double kYields[] = {0, 0.03, 0.2};

// Each value with each driver; all with all by CORVID_WHOLE_PRODUCT=1.
TEST(DriverModels, SaleQueryAndRowsComeThroughWhole) {
  const bool isWhole = std::getenv("CORVID_WHOLE_PRODUCT") != nullptr;
  int course = 0;
  for (const Reads reads : {Reads::AtOnce, Reads::WaitOut}) {
    for (const Arrival arrival : kArrivals) {
      for (const bool immediate : {true, false}) {
        for (int check = 0; check < 256; ++check) {
          for (int phase = 0; phase < 16; ++phase) {
            for (const double yield : kYields) {
              // Otherwise the values take turns: each meets each driver.
              const int turn = check % 48;
              const bool isTurn = phase == turn % 16 && yield == kYields[turn / 16];
              if (!isWhole && !isTurn) continue;
              run({{reads, arrival, phase / 1000.0}, yield, immediate, check});
              if (HasFailure()) return;
              ++course;
            }
          }
        }
      }
    }
  }
  EXPECT_EQ(course, 2 * 5 * 2 * 256 * (isWhole ? 48 : 1));
}

}  // namespace
}  // namespace corvid
