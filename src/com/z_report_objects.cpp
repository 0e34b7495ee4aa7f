#include "com/z_report_objects.h"

#include "com/own_object.h"
#include "com/printer_fiscal_object.h"

namespace corvid {
namespace {

ZReportEnumerator::List objectsOf(const std::vector<std::shared_ptr<ZReportRecord>>& records) {
  std::vector<ComPtr<IReporteZMF>> objects;
  objects.reserve(records.size());
  for (const auto& record : records) {
    objects.push_back(ComPtr<IReporteZMF>::adopt(makeObject<ReporteZMFObject>(record).detach()));
  }
  return std::make_shared<const std::vector<ComPtr<IReporteZMF>>>(std::move(objects));
}

}  // namespace

// The session is held, not referred to: a host that lets go of it while it waits ends the wait.
STDMETHODIMP ResumenZObject::load(IPrinterFiscal* printer) {
  return call([&] {
    const OwnObject<PrinterFiscalObject> session(printer);
    record()->load(session->session().exchange());
  });
}

STDMETHODIMP ReporteZMFObject::load(IPrinterFiscal* printer, VARIANT* numero, VARIANT_BOOL* ret) {
  return giveResult(ret, [&] {
    const OwnObject<PrinterFiscalObject> session(printer);
    return record()->load(session->session().exchange(), toDecimal(dereferenced(numero)));
  });
}

VARIANT zReportValue(const ComPtr<IReporteZMF>& report) {
  VARIANT value;
  VariantInit(&value);
  V_VT(&value) = VT_DISPATCH;
  V_DISPATCH(&value) = ComPtr(report).detach();
  return value;
}

ColeccionZMFObject::ColeccionZMFObject(const std::vector<std::shared_ptr<ZReportRecord>>& records)
    : reports_(objectsOf(records)) {}

STDMETHODIMP ColeccionZMFObject::get_Item(VARIANT Index, IReporteZMF** ret) {
  return giveResult(ret, [&] {
    const std::int32_t place = toInt32(Index);
    if (place < 1 || static_cast<std::size_t>(place) > reports_->size()) {
      throw subscriptOutOfRange();
    }
    return ComPtr<IReporteZMF>((*reports_)[static_cast<std::size_t>(place) - 1]);
  });
}

STDMETHODIMP ColeccionZMFObject::get_Count(LONG* ret) {
  return give(ret, static_cast<std::int32_t>(reports_->size()));
}

STDMETHODIMP ColeccionZMFObject::_NewEnum(IUnknown** ret) {
  return giveResult(ret, [&] { return makeObject<ZReportEnumerator>(reports_); });
}

}  // namespace corvid
