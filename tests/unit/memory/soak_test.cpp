// Very many exchanges, good and bad ones: the memory stays what it was.
#include "allocations.h"
#include "documents/item_lines.h"
#include "support/scripted_printer.h"
#include "support/seeds.h"
#include "unit/sale/shop.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

constexpr unsigned kExchangesOfASession = 500;
constexpr unsigned kSessionsOfARound = 4;  // the first one traces and dumps
constexpr unsigned kExchangesOfASeed = 10;

// Keeps nothing. Now and then it refuses, stays silent, asks first or adds noise.
class ForgetfulPrinter : public LinePeer {
 public:
  void received(std::string_view bytes, NearEnd& line) override {
    ++messages;
    if (messages % 97 == 0) return;
    if (bytes == "\x05") return line.deliver("\x02\x60\x40\x03\x23");
    if (bytes == "\x06") return;
    if (messages % 53 == 0) return line.deliver("\x15");
    if (messages % 31 == 0) line.deliver("~\x05");
    line.deliver(bytes.substr(1, 2) == "S3" ? rates_ : "\x06");
  }
  unsigned messages = 0;

 private:
  std::string rates_ = blockOf("21600\n20800\n23100\n" + std::string(60, '0')).front();
};

void sell(Shop& shop, ForgetfulPrinter& printer, bool isTraced) {
  const wchar_t* const flag = isTraced ? L"True" : L"False";
  shop.world.settings.set(kSessionSection, L"IsDebug", flag);
  shop.world.settings.set(kPortSection, L"DEBUG", flag);
  shop.session = std::make_unique<PrinterSession>(*shop.thread);
  openKnown(shop);
  printer.messages = 0;
  for (unsigned i = 0; i < kExchangesOfASession; ++i) {
    EXPECT_EQ(PasarItem(*shop.session, {L"CAFE CON LECHE, GRANDE", 1, 1, 16}), 0);
  }
  shop.session->Cerrar();
  shop.world.serial.clearLog();
  shop.world.files.contents.clear();
}

TEST(Soak, MemoryStaysFlat) {
  Shop shop({{kSessionSection, L"TimeOut", L"1"},
             {kSessionSection, L"DEBUGFILE", L"t.log"},
             {kPortSection, L"DumpFile", L"d.log"}});
  ForgetfulPrinter printer;
  shop.world.serial.connect(&printer);
  shop.world.pump.seconds = 0.01;
  const auto round = [&] {
    for (unsigned i = 0; i < kSessionsOfARound; ++i) sell(shop, printer, i == 0);
  };
  round();
  const Allocations::Live before = Allocations::live();
  const unsigned exchanges = seedCount() * kExchangesOfASeed;
  for (unsigned done = 0; done < exchanges; done += kExchangesOfASession * kSessionsOfARound) {
    round();
  }
  EXPECT_EQ(Allocations::live(), before);
}

}  // namespace
}  // namespace corvid
