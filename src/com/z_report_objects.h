// Z reports for hosts: the daily summary, and the reports in fiscal memory.
#pragma once

#include "com/list_enumerator.h"
#include "com/record_object.h"
#include "corvid_interfaces.h"
#include "records/daily_summary.h"
#include "records/z_report_record.h"

namespace corvid {

class ResumenZObject final : public RecordObject<IResumenZ, ::ResumenZ, DailySummary> {
 public:
  using RecordObject::RecordObject;

  CORVID_PROPERTY(values(), short, numeroUltimoZ)
  CORVID_PROPERTY(values(), DATE, fechaUltimoReporte)
  CORVID_PROPERTY(values(), LONG, numeroUltimaFactura)
  CORVID_PROPERTY(values(), DATE, fechaUltimaFactura)
  CORVID_PROPERTY(values(), LONG, ultimaNC)
  CORVID_PROPERTY(values(), LONG, ultimaND)
  CORVID_PROPERTY(values(), LONG, ultimoDNF)
  CORVID_PROPERTY(values(), CURRENCY, ventasExentas)
  CORVID_PROPERTY(values(), CURRENCY, baseVG)
  CORVID_PROPERTY(values(), CURRENCY, impuestoVG)
  CORVID_PROPERTY(values(), CURRENCY, baseIR)
  CORVID_PROPERTY(values(), CURRENCY, impuestoIR)
  CORVID_PROPERTY(values(), CURRENCY, baseIA)
  CORVID_PROPERTY(values(), CURRENCY, impuestoIA)
  CORVID_PROPERTY(values(), CURRENCY, exentoND)
  CORVID_PROPERTY(values(), CURRENCY, baseVGND)
  CORVID_PROPERTY(values(), CURRENCY, impuestoVGND)
  CORVID_PROPERTY(values(), CURRENCY, baseIRND)
  CORVID_PROPERTY(values(), CURRENCY, impuestoIRND)
  CORVID_PROPERTY(values(), CURRENCY, baseIAND)
  CORVID_PROPERTY(values(), CURRENCY, impuestoIAND)
  CORVID_PROPERTY(values(), CURRENCY, exentoNC)
  CORVID_PROPERTY(values(), CURRENCY, baseVGNC)
  CORVID_PROPERTY(values(), CURRENCY, impuestoVGNC)
  CORVID_PROPERTY(values(), CURRENCY, baseIRNC)
  CORVID_PROPERTY(values(), CURRENCY, impuestoIRNC)
  CORVID_PROPERTY(values(), CURRENCY, baseIANC)
  CORVID_PROPERTY(values(), CURRENCY, impuestoIANC)
  CORVID_PROPERTY(values(), CURRENCY, percibidoVentas)
  CORVID_PROPERTY(values(), CURRENCY, percibidoND)
  CORVID_PROPERTY(values(), CURRENCY, percibidoNC)
  CORVID_PROPERTY(values(), CURRENCY, BaseIGTF)
  CORVID_PROPERTY(values(), CURRENCY, ValorIGTF)
  CORVID_PROPERTY(values(), CURRENCY, BaseIGTFND)
  CORVID_PROPERTY(values(), CURRENCY, IGTFND)
  CORVID_PROPERTY(values(), CURRENCY, BaseIGTFNC)
  CORVID_PROPERTY(values(), CURRENCY, IGTFNC)
  STDMETHODIMP load(IPrinterFiscal* printer) override;
  STDMETHODIMP Refresh(IPrinterFiscal* printer) override { return load(printer); }
  STDMETHODIMP toString(BSTR* ret) override {
    return answer(ret, &DailySummary::toString, *record());
  }
};

class ReporteZMFObject final : public RecordObject<IReporteZMF, ::ReporteZMF, ZReportRecord> {
 public:
  using RecordObject::RecordObject;

  CORVID_PROPERTY(values(), short, numeroCierre)
  CORVID_PROPERTY(values(), DATE, fechaCierre)
  CORVID_PROPERTY(values(), DATE, horaCierre)
  CORVID_PROPERTY(values(), LONG, numeroUltimaFactura)
  CORVID_PROPERTY(values(), DATE, fechaUltimaFactura)
  CORVID_PROPERTY(values(), DATE, horaUltimaFactura)
  CORVID_PROPERTY(values(), CURRENCY, ventasExentas)
  CORVID_PROPERTY(values(), CURRENCY, baseVG)
  CORVID_PROPERTY(values(), CURRENCY, impuestoVG)
  CORVID_PROPERTY(values(), CURRENCY, baseIR)
  CORVID_PROPERTY(values(), CURRENCY, impuestoIR)
  CORVID_PROPERTY(values(), CURRENCY, NCExentas)
  CORVID_PROPERTY(values(), CURRENCY, baseNCVG)
  CORVID_PROPERTY(values(), CURRENCY, impuestoNCVG)
  CORVID_PROPERTY(values(), CURRENCY, baseNCIR)
  CORVID_PROPERTY(values(), CURRENCY, impuestoNCIR)
  STDMETHODIMP loadFromResponse(VARIANT response) override {
    return run(&ZReportRecord::loadFromResponse, *record(), response);
  }
  STDMETHODIMP toString(VARIANT* ret) override {
    return answer(ret, &ZReportRecord::toString, *record());
  }
  STDMETHODIMP load(IPrinterFiscal* printer, VARIANT* numero, VARIANT_BOOL* ret) override;
};

// A Z report as a value of the host's.
[[nodiscard]] VARIANT zReportValue(const ComPtr<IReporteZMF>& report);

using ZReportEnumerator = ListEnumerator<IEnumVARIANT, VARIANT, ComPtr<IReporteZMF>, zReportValue>;

// The Z reports that a query found. Places count from 1. A place gives the same object every time;
// the list never changes.
class ColeccionZMFObject final : public DispatchObject<IColeccionZMF, ::ColeccionZMF> {
 public:
  explicit ColeccionZMFObject(const std::vector<std::shared_ptr<ZReportRecord>>& records);

  // Index is a number, rounded half to even; throws subscript out of range (9) outside the list.
  STDMETHODIMP get_Item(VARIANT Index, IReporteZMF** ret) override;
  STDMETHODIMP get_Count(LONG* ret) override;
  // A new walk, from the first report on.
  STDMETHODIMP _NewEnum(IUnknown** ret) override;

 private:
  ZReportEnumerator::List reports_;
};

template <>
struct ObjectFor<DailySummary> {
  using Type = ResumenZObject;
};
template <>
struct ObjectFor<ZReportRecord> {
  using Type = ReporteZMFObject;
};

}  // namespace corvid
