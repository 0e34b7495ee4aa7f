// Two threads of a host, each with a session and a port of its own.
#include "documents/item_lines.h"
#include "unit/sale/shop.h"

#include <gtest/gtest.h>

#include <thread>

namespace corvid {
namespace {

constexpr int kItems = 100;

// The world of a second thread, but for what the process has once.
struct SecondThread {
  World world;
  SimulatedLine line;
  std::unique_ptr<ThreadState> thread;
  std::unique_ptr<PrinterSession> session;

  explicit SecondThread(Shop& first) {
    world.settings = first.world.settings;
    world.serial.connect(&line);
    Environment environment = world.environment();
    thread = std::make_unique<ThreadState>(
        Environment{first.world.process, first.world.settings, first.world.store,
                    environment.serial, environment.sockets, environment.pump, environment.dialog,
                    first.world.folders, first.world.files, environment.views, environment.clock,
                    environment.sleep, environment.codePage, first.world.locale});
    session = std::make_unique<PrinterSession>(*thread);
    session->state().SerialPrinter = L"KNOWN";
  }
};

void sell(PrinterSession& session, int& sold) {
  for (int i = 0; i < kItems; ++i) sold += PasarItem(session, L"PAN", money(1), 1, 16) == 0 ? 1 : 0;
}

// A trace or a dump that two threads write to at once holds whole lines of both.
TEST(TwoThreads, SellAtOnceAndShareTraceAndDump) {
  Shop first{{kSessionSection, L"IsDebug", L"True"},
             {L"CONFIG\\NimbusPF", L"DEBUGFILE", L"trace.log"},
             {kPortSection, L"DEBUG", L"1"},
             {kPortSection, L"DumpFile", L"dump.log"}};
  openKnown(first);
  SecondThread second(first);
  second.session->Abrir(8);
  int soldHere = 0;
  int soldThere = 0;
  std::thread other([&] { sell(*second.session, soldThere); });
  sell(*first.session, soldHere);
  other.join();
  EXPECT_EQ(kItems, soldHere);
  EXPECT_EQ(kItems, soldThere);
  EXPECT_EQ(kItems, countOf(first.line.paper(), "PAN"));
  EXPECT_EQ(kItems, countOf(second.line.paper(), "PAN"));

  const std::string& trace = first.world.files.contents.at(L"C:\\host\\trace.log");
  EXPECT_EQ(2 * (kItems + 1), countOf(trace, "Execute: ")) << "each asks for its rates too";
  EXPECT_EQ(0, first.world.files.overlaps);
  const std::string& dump = first.world.files.contents.at(L"C:\\host\\dump.log");
  EXPECT_EQ(first.world.files.writes,
            countOf(trace, "\r\n") + countOf(dump, "Send ") + countOf(dump, "Read "));
}

TEST(TwoThreads, CannotOpenTheSamePort) {
  Shop first;
  openKnown(first);
  SecondThread second(first);
  EXPECT_EQ(errorOf([&] {
              second.session->Abrir(7);
              return 0;
            }),
            40001);
  first.session->Cerrar();
  second.session->Abrir(7);
  EXPECT_EQ(second.session->outcome().pfError, pfOk);
}

}  // namespace
}  // namespace corvid
