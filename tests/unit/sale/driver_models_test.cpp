// The same bytes give the same outcome under every driver.
#include "shop.h"

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

char checkOf(const std::string& text, char end) {
  char check = end;
  for (const char byte : text) check = static_cast<char>(check ^ byte);
  return check;
}

std::string framed(const std::string& text, char end) {
  return "\x02" + text + end + checkOf(text, end);
}

// A byte that gives text and end the wanted check byte; not every one can stand in a block.
std::string withCheck(std::string text, char end, int wanted) {
  const char filler = static_cast<char>(checkOf(text, end) ^ static_cast<char>(wanted));
  constexpr std::string_view kStructural = "\x02\x03\x04\x17\n";
  if (kStructural.find(filler) != std::string_view::npos) {
    return withCheck(text + '~', end, wanted);
  }
  return text + filler;
}

// Two bytes that can stand in a block.
std::string statusWithCheck(int wanted) {
  constexpr std::string_view kStructural = "\x02\x03\x04\x17";
  const auto status = [&](int first) {
    return std::string{static_cast<char>(first), static_cast<char>(wanted ^ first ^ 3)};
  };
  const std::string usual = status(0x60);
  return kStructural.find(usual[1]) == std::string_view::npos ? usual : status(0x68);
}

// The simulated printer; queries and the status are answered with a wanted check byte.
class CheckedLine : public LinePeer {
 public:
  CheckedLine(SimulatedLine& printer, int checkByte)
      : printer_(printer),
        status_(statusWithCheck(checkByte)),
        fields_(withCheck("S1\nA\nB", '\x03', checkByte)),
        rows_({withCheck("row\n1", '\x17', checkByte), withCheck("row\n2", '\x17', checkByte),
               withCheck("row\n3", '\x03', checkByte)}) {}

  void received(std::string_view bytes, NearEnd& line) override {
    if (bytes == "\x05") {
      line.deliver(framed(status_, '\x03'));
    } else if (bytes == "\x06") {
      sendRow(line);
    } else if (bytes.substr(1, 2) == "S1") {
      line.deliver(framed(fields_, '\x03'));
    } else if (bytes.substr(1, 2) == "U3") {
      next_ = 0;
      sendRow(line);
    } else {
      printer_.received(bytes, line);
    }
  }

  [[nodiscard]] std::int32_t statusByte(std::size_t index) const {
    return static_cast<unsigned char>(status_.at(index));
  }
  [[nodiscard]] static Lines fieldsOfText(const std::string& text) {
    return split(windows1252().decode(text), L"\n");
  }
  [[nodiscard]] Lines fields() const { return fieldsOfText(fields_); }
  [[nodiscard]] std::vector<Lines> rows() const {
    std::vector<Lines> all;
    for (const std::string& row : rows_) all.push_back(fieldsOfText(row));
    return all;
  }

 private:
  void sendRow(NearEnd& line) {
    const bool isLast = next_ + 1 == rows_.size();
    line.deliver(framed(rows_.at(next_++), isLast ? '\x03' : '\x17'));
  }

  SimulatedLine& printer_;
  std::string status_;
  std::string fields_;
  std::vector<std::string> rows_;
  std::size_t next_ = 0;
};

void run(const Course& course) {
  SCOPED_TRACE(told(course));
  Shop shop({{kPortSection, L"LecturaInmediata", course.immediate ? L"True" : L"False"},
             {kSessionSection, L"LimiteEspera", L"60"}});
  CheckedLine line(shop.line, course.checkByte);
  shop.world.serial.connect(&line);
  shop.world.serial.driver = course.driver;
  shop.world.pump.seconds = course.yieldSeconds;
  PrinterSession& session = *shop.session;
  openKnown(shop);
  session.state().s3 = std::make_shared<RatesRecord>(*shop.thread);
  session.state().s3->values.ValorTasa1 = 16;

  const auto expectStatus = [&] {
    EXPECT_EQ(shop.outcome().STS1, line.statusByte(0));
    EXPECT_EQ(shop.outcome().STS2, line.statusByte(1));
  };
  expectStatus();
  for (const wchar_t* name : {L"PAN", L"QUESO"}) {
    EXPECT_EQ(PasarItem(session, {name, 1, 1, 16}), 0);
    expectStatus();
  }
  EXPECT_EQ(shop.exchange().GetResponse(L"S1"), line.fields());
  expectStatus();
  EXPECT_EQ(shop.exchange().GetMultipleResponses(L"U3A"), line.rows());
  EXPECT_EQ(CerrarComprobante(session, Currency{}), 0);
  const std::string paper = shop.line.paper();
  for (const char* item : {"PAN", "QUESO"}) {
    const std::size_t first = paper.find(item);
    EXPECT_NE(first, std::string::npos) << item;
    EXPECT_EQ(paper.find(item, first + 1), std::string::npos) << item << " stands there twice";
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
