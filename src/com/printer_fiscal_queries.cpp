// Status queries, and the closing of the day.
#include "com/coleccion_zmf_object.h"
#include "com/estado_documento_object.h"
#include "com/printer_fiscal_object.h"
#include "com/printer_response1_object.h"
#include "com/printer_response2_object.h"
#include "com/printer_response4_object.h"
#include "com/reporte_zmf_object.h"
#include "com/resumen_z_object.h"
#include "com/variant_conversions.h"
#include "records/status_queries.h"
#include "records/z_report_queries.h"

namespace corvid {
namespace {

// Nothing, where there is no record.
template <class Object, class Record>
ComPtr<Object> objectOf(std::shared_ptr<Record> record) {
  if (!record) return {};
  return makeObject<Object>(std::move(record));
}

ClosureList objectsOf(const std::vector<std::shared_ptr<ZReportRecord>>& records) {
  std::vector<ComPtr<IReporteZMF>> objects;
  objects.reserve(records.size());
  for (const auto& record : records) {
    objects.push_back(ComPtr<IReporteZMF>::adopt(makeObject<ReporteZMFObject>(record).detach()));
  }
  return std::make_shared<const std::vector<ComPtr<IReporteZMF>>>(std::move(objects));
}

}  // namespace

STDMETHODIMP PrinterFiscalObject::numeroUltimaFactura(LONG* ret) {
  return giveResult(ret, [&] { return corvid::numeroUltimaFactura(exchange()); });
}

STDMETHODIMP PrinterFiscalObject::NumeroUltimoCierre(LONG* ret) {
  return giveResult(ret, [&] { return corvid::NumeroUltimoCierre(exchange()); });
}

STDMETHODIMP PrinterFiscalObject::Response1(IPrinterResponse1** ret) {
  return giveResult(
      ret, [&] { return objectOf<PrinterResponse1Object>(corvid::Response1(exchange())); });
}

STDMETHODIMP PrinterFiscalObject::Response2(IPrinterResponse2** ret) {
  return giveResult(
      ret, [&] { return objectOf<PrinterResponse2Object>(corvid::Response2(exchange())); });
}

STDMETHODIMP PrinterFiscalObject::Response3(IPrinterResponse3** ret) {
  return giveResult(
      ret, [&] { return objectOf<PrinterResponse3Object>(corvid::Response3(exchange())); });
}

STDMETHODIMP PrinterFiscalObject::Response4(IPrinterResponse4** ret) {
  return giveResult(
      ret, [&] { return objectOf<PrinterResponse4Object>(corvid::Response4(exchange())); });
}

STDMETHODIMP PrinterFiscalObject::CerrarZ(IResumenZ** ret) {
  return giveResult(ret, [&] { return objectOf<ResumenZObject>(corvid::CerrarZ(exchange())); });
}

STDMETHODIMP PrinterFiscalObject::ResumenZ(IResumenZ** ret) {
  return giveResult(ret, [&] { return objectOf<ResumenZObject>(loadResumenZ(exchange())); });
}

STDMETHODIMP PrinterFiscalObject::tasa(VARIANT Index, double* ret) {
  return giveResult(ret, [&] { return corvid::tasa(exchange(), toDecimal(Index)); });
}

STDMETHODIMP PrinterFiscalObject::getEstadoDocumento(IEstadoDocumento** ret) {
  return giveResult(
      ret, [&] { return objectOf<EstadoDocumentoObject>(corvid::getEstadoDocumento(exchange())); });
}

STDMETHODIMP PrinterFiscalObject::reportesZMF(VARIANT* desde, VARIANT* hasta, IColeccionZMF** ret) {
  return giveResult(ret, [&] {
    const Decimal first = toDecimal(behind(desde));
    const Decimal last = toDecimal(behind(hasta));
    return makeObject<ColeccionZMFObject>(objectsOf(corvid::reportesZMF(exchange(), first, last)));
  });
}

STDMETHODIMP PrinterFiscalObject::loadReporteZMF(VARIANT* numero, IReporteZMF** ret) {
  return giveResult(ret, [&] {
    const Decimal number = toDecimal(behind(numero));
    return objectOf<ReporteZMFObject>(corvid::loadReporteZMF(exchange(), number));
  });
}

}  // namespace corvid
