// ReporteZMF for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "corvid_interfaces.h"
#include "records/z_report_record.h"

#include <memory>

namespace corvid {

class ReporteZMFObject final : public DispatchObject<IReporteZMF, ::ReporteZMF> {
 public:
  explicit ReporteZMFObject(std::shared_ptr<ZReportRecord> record) : record_(std::move(record)) {}

  STDMETHODIMP get_numeroCierre(short* ret) override { return give(ret, values().numeroCierre); }
  STDMETHODIMP put_numeroCierre(short rhs) override { return take(rhs, values().numeroCierre); }
  STDMETHODIMP get_fechaCierre(DATE* ret) override { return give(ret, values().fechaCierre); }
  STDMETHODIMP put_fechaCierre(DATE rhs) override { return take(rhs, values().fechaCierre); }
  STDMETHODIMP get_horaCierre(DATE* ret) override { return give(ret, values().horaCierre); }
  STDMETHODIMP put_horaCierre(DATE rhs) override { return take(rhs, values().horaCierre); }
  STDMETHODIMP get_numeroUltimaFactura(LONG* ret) override {
    return give(ret, values().numeroUltimaFactura);
  }
  STDMETHODIMP put_numeroUltimaFactura(LONG rhs) override {
    return take(rhs, values().numeroUltimaFactura);
  }
  STDMETHODIMP get_fechaUltimaFactura(DATE* ret) override {
    return give(ret, values().fechaUltimaFactura);
  }
  STDMETHODIMP put_fechaUltimaFactura(DATE rhs) override {
    return take(rhs, values().fechaUltimaFactura);
  }
  STDMETHODIMP get_horaUltimaFactura(DATE* ret) override {
    return give(ret, values().horaUltimaFactura);
  }
  STDMETHODIMP put_horaUltimaFactura(DATE rhs) override {
    return take(rhs, values().horaUltimaFactura);
  }
  STDMETHODIMP get_ventasExentas(CURRENCY* ret) override {
    return give(ret, values().ventasExentas);
  }
  STDMETHODIMP put_ventasExentas(CURRENCY rhs) override {
    return take(rhs, values().ventasExentas);
  }
  STDMETHODIMP get_baseVG(CURRENCY* ret) override { return give(ret, values().baseVG); }
  STDMETHODIMP put_baseVG(CURRENCY rhs) override { return take(rhs, values().baseVG); }
  STDMETHODIMP get_impuestoVG(CURRENCY* ret) override { return give(ret, values().impuestoVG); }
  STDMETHODIMP put_impuestoVG(CURRENCY rhs) override { return take(rhs, values().impuestoVG); }
  STDMETHODIMP get_baseIR(CURRENCY* ret) override { return give(ret, values().baseIR); }
  STDMETHODIMP put_baseIR(CURRENCY rhs) override { return take(rhs, values().baseIR); }
  STDMETHODIMP get_impuestoIR(CURRENCY* ret) override { return give(ret, values().impuestoIR); }
  STDMETHODIMP put_impuestoIR(CURRENCY rhs) override { return take(rhs, values().impuestoIR); }
  STDMETHODIMP get_NCExentas(CURRENCY* ret) override { return give(ret, values().NCExentas); }
  STDMETHODIMP put_NCExentas(CURRENCY rhs) override { return take(rhs, values().NCExentas); }
  STDMETHODIMP get_baseNCVG(CURRENCY* ret) override { return give(ret, values().baseNCVG); }
  STDMETHODIMP put_baseNCVG(CURRENCY rhs) override { return take(rhs, values().baseNCVG); }
  STDMETHODIMP get_impuestoNCVG(CURRENCY* ret) override { return give(ret, values().impuestoNCVG); }
  STDMETHODIMP put_impuestoNCVG(CURRENCY rhs) override { return take(rhs, values().impuestoNCVG); }
  STDMETHODIMP get_baseNCIR(CURRENCY* ret) override { return give(ret, values().baseNCIR); }
  STDMETHODIMP put_baseNCIR(CURRENCY rhs) override { return take(rhs, values().baseNCIR); }
  STDMETHODIMP get_impuestoNCIR(CURRENCY* ret) override { return give(ret, values().impuestoNCIR); }
  STDMETHODIMP put_impuestoNCIR(CURRENCY rhs) override { return take(rhs, values().impuestoNCIR); }
  STDMETHODIMP loadFromResponse(VARIANT response) override;
  STDMETHODIMP toString(VARIANT* ret) override;
  STDMETHODIMP load(IPrinterFiscal* printer, VARIANT* numero, VARIANT_BOOL* ret) override;

 private:
  [[nodiscard]] ZReportValues& values() const noexcept { return record_->values; }

  std::shared_ptr<ZReportRecord> record_;
};

}  // namespace corvid
