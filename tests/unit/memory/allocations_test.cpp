// Each allocation of each published member fails once: nothing leaks, and the session, the records
// and the preview go on.
#include "allocations.h"

#include "documents/non_fiscal.h"
#include "documents/str2lines.h"
#include "preview/quick_view.h"
#include "session/diagnosis.h"
#include "unit/preview/report_bench.h"
#include "unit/preview/window_doubles.h"
#include "unit/sale/shop.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>

namespace corvid {
namespace {

struct OpenShop : Shop {
  OpenShop() {
    world.settings.set(kPlacesSection, L"9", L"tcp:box:4000");
    openKnown(*this);
    EXPECT_EQ(session->Execute(L"I0Z"), 0);
  }
};

std::size_t openLines(const Shop& shop) {
  return shop.world.serial.openHandles() + shop.world.sockets.openSockets();
}

template <class Place>
struct Member {
  const char* name;
  std::function<void(Place& place)> call;
};

template <class Place>
void failEach(const Member<Place>& member, Place& place,
              const std::function<void()>& expectUsable) {
  for (int nth = 1;; ++nth) {
    SCOPED_TRACE(std::string(member.name) + ", allocation " + std::to_string(nth));
    Allocations::failNth(nth);
    try {
      member.call(place);
    } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch): what is tried here
    }
    const bool hasFailed = Allocations::repair();
    expectUsable();
    if (!hasFailed || testing::Test::HasFailure()) return;
  }
}

template <class Value>
void use(const Value&) {}

using S = Shop;
PrinterSession& session(S& s) { return *s.session; }

const std::vector<Member<S>>& members() {
  static const ItemLine kItem = {L"CAFE CON LECHE, GRANDE", 12.5, 1.5, 16};
  static const Customer kCustomer = {L"MARIA PEREZ", L"V-12345678-9", L"Calle 5\r\nCaracas"};
  static const std::vector<Member<S>> kMembers = {
      {"a session", [](S& s) { use(PrinterSession(*s.thread)); }},
      {"Abrir", [](S& s) { s.session->Abrir(7); }},
      {"Abrir, another port", [](S& s) { s.session->Abrir(8), s.session->Abrir(7); }},
      {"Abrir, in the network", [](S& s) { s.session->Abrir(9), s.session->Abrir(7); }},
      {"Cerrar", [](S& s) { s.session->Cerrar(); }},
      {"ExecuteNoCheck", [](S& s) { s.exchange().ExecuteNoCheck(L"w"); }},
      {"SendDirect", [](S& s) { s.exchange().SendDirect(L"w"); }},
      {"Diagnostico",
       [](S& s) {
         use(diagnosis(session(s), {L"1", L"file", L"system", L"region"}));
       }},
      {"GetResponseString", [](S& s) { use(s.exchange().GetResponseString(L"S1", L"|")); }},
      {"GetMultipleResponsesStr",
       [](S& s) { use(s.exchange().GetMultipleResponsesStr(L"U3A000001000001", {}, {})); }},
      {"PasarItem", [](S& s) { PasarItem(session(s), kItem); }},
      {"PasarItem, rates unknown",
       [](S& s) { s.session->state().s3.reset(), PasarItem(session(s), kItem); }},
      {"pasarLineaFacturaG", [](S& s) { pasarLineaFacturaG(session(s), general(kItem, L"C")); }},
      {"PasarDatosCliente", [](S& s) { PasarDatosCliente(session(s), kCustomer, {}); }},
      {"PasarDescuento", [](S& s) { PasarDescuento(session(s), 1); }},
      {"CerrarConMedio", [](S& s) { CerrarConMedio(session(s), number(1), money(1)); }},
      {"PrintNoFiscal", [](S& s) { PrintNoFiscal(session(s), L"TEXT", true); }},
      {"SetDate", [](S& s) { SetDate(session(s), Date{46095}); }},
      {"lmStr2Lines", [](S&) { use(lmStr2Lines(L"one two three four", 7)); }},
      {"Response1", [](S& s) { use(Response1(s.exchange())->toString()); }},
      {"Response2", [](S& s) { use(Response2(s.exchange())->toString()); }},
      {"Response3", [](S& s) { use(Response3(s.exchange())->toString()); }},
      {"Response4", [](S& s) { use(Response4(s.exchange())); }},
      {"getEstadoDocumento", [](S& s) { use(getEstadoDocumento(s.exchange())->toString()); }},
      {"tasa", [](S& s) { use(tasa(s.exchange(), number(1))); }},
      {"ResumenZ", [](S& s) { use(loadResumenZ(s.exchange())->toString()); }},
      {"reportesZMF",
       [](S& s) { use(reportesZMF(s.exchange(), number(1), number(1)).at(0)->toString()); }},
  };
  return kMembers;
}

TEST(Allocations, EachOfASessionMayFail) {
  {
    SCOPED_TRACE("what is allocated once");
    OpenShop shop;
  }
  for (const Member<S>& member : members()) {
    const Allocations::Live before = Allocations::live();
    {
      OpenShop shop;
      failEach<S>(member, shop, [&] {
        if (!shop.exchange().opening()) openKnown(shop);
        EXPECT_EQ(shop.session->Execute(L"w"), 0) << "the session goes on";
        EXPECT_EQ(openLines(shop), 1U);
      });
      shop.session->Cerrar();
      EXPECT_EQ(openLines(shop), 0U) << member.name;
    }
    if (HasFailure()) return;
    EXPECT_EQ(Allocations::live(), before) << member.name;
  }
}

// A window over doubles, with a page of text.
struct Preview : ReportEnvironment {
  Preview() {
    view.report().Add(L"first", 0);
    view.report().LoadText();
  }
  struct Listener : ClickListener {
    bool raiseReportClicked(const std::wstring&, std::int32_t) override { return false; }
  };
  WindowDouble window;
  Listener listener;
  QuickView view{settings, {window, box, printer, dialogs, files, listener, {}}};
};

const std::vector<Member<Preview>>& previewMembers() {
  using P = Preview;
  static const std::vector<Member<P>> kMembers = {
      {"a window", [](P&) { use(Preview()); }},
      {"Add", [](P& p) { p.view.report().Add(L"a line of some length, right", 1); }},
      {"PageBreak", [](P& p) { p.view.report().PageBreak(); }},
      {"SetReportWidth", [](P& p) { p.view.report().SetReportWidth(80); }},
      {"PrintListBox", [](P& p) { p.view.report().PrintListBox(); }},
      {"FindText", [](P& p) { p.view.FindText(L"first"); }},
      {"clickText", [](P& p) { p.view.clickText(); }},
  };
  return kMembers;
}

TEST(Allocations, EachOfAPreviewMayFail) {
  for (const Member<Preview>& member : previewMembers()) {
    Preview preview;
    failEach<Preview>(member, preview, [&] {
      EXPECT_FALSE(preview.view.report().printing());
      preview.printer.pages = {PaperPrinter::Page()};
      preview.view.report().PrintListBox();
      EXPECT_TRUE(std::exchange(preview.printer.ended, false));
      EXPECT_EQ(preview.printer.pages[0][1].find(L"first"), 0U);
    });
  }
}

}  // namespace
}  // namespace corvid
