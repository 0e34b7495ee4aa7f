#include "com/class_table.h"

#include "com/automation_library.h"
#include "com/printer_fiscal_object.h"
#include "com/quick_view_object.h"
#include "com/status_record_objects.h"
#include "com/string_buffer_object.h"
#include "com/z_report_objects.h"
#include "corvid_interfaces.h"

#include <algorithm>
#include <memory>

namespace corvid {
namespace {

// Gives the object's one reference away.
template <class Object>
IUnknown* identityOf(ComPtr<Object> object) {
  typename Object::Published* published = object.detach();
  return published;
}

IUnknown* createSession() {
  return identityOf(
      makeObject<PrinterFiscalObject>(std::make_shared<PrinterSession>(AutomationLibrary::here())));
}

template <class Object, class Record>
IUnknown* createRecord() {
  return identityOf(makeObject<Object>(std::make_shared<Record>(AutomationLibrary::here())));
}

// The one record that needs nothing of the library.
IUnknown* createResponse4() {
  return identityOf(makeObject<PrinterResponse4Object>(std::make_shared<PaymentsRecord>()));
}

IUnknown* createQuickView() {
  ThreadState& thread = AutomationLibrary::here();
  return identityOf(QuickViewObject::create(
      thread.currentSettings(), openDefaultPrinter,
      [&thread](const std::wstring& words) { thread.trace().traceWith([&] { return words; }); }));
}

IUnknown* createStringBuffer() { return identityOf(makeObject<CStringBufferObject>()); }

}  // namespace

std::span<const PublicClass> publicClasses() noexcept {
  static const PublicClass classes[] = {
      {__uuidof(::PrinterFiscal), L"PrinterFiscal", L"Corvid fiscal printer session",
       createSession},
      {__uuidof(::PrinterResponse1), L"PrinterResponse1", L"Corvid cashier and counters record",
       createRecord<PrinterResponse1Object, CountersRecord>},
      {__uuidof(::PrinterResponse2), L"PrinterResponse2", L"Corvid open document record",
       createRecord<PrinterResponse2Object, TransactionRecord>},
      {__uuidof(::EstadoDocumento), L"EstadoDocumento", L"Corvid document state record",
       createRecord<EstadoDocumentoObject, DocumentStateRecord>},
      {__uuidof(::PrinterResponse3), L"PrinterResponse3", L"Corvid tax rate record",
       createRecord<PrinterResponse3Object, RatesRecord>},
      {__uuidof(::PrinterResponse4), L"PrinterResponse4", L"Corvid payment record",
       createResponse4},
      {__uuidof(::ResumenZ), L"ResumenZ", L"Corvid daily summary record",
       createRecord<ResumenZObject, DailySummary>},
      {__uuidof(::ReporteZMF), L"ReporteZMF", L"Corvid fiscal memory closure record",
       createRecord<ReporteZMFObject, ZReportRecord>},
      {__uuidof(::CStringBuffer), L"CStringBuffer", L"Corvid text buffer", createStringBuffer},
      {__uuidof(::lfQuickView), L"lfQuickView", L"Corvid report preview", createQuickView},
  };
  return classes;
}

const PublicClass* findPublicClass(REFCLSID id) noexcept {
  const auto classes = publicClasses();
  const auto found =
      std::find_if(classes.begin(), classes.end(), [&](const auto& one) { return one.id == id; });
  return found == classes.end() ? nullptr : &*found;
}

}  // namespace corvid
