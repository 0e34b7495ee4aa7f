// ResumenZ for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "corvid_interfaces.h"
#include "records/daily_summary.h"

#include <memory>

namespace corvid {

class ResumenZObject final : public DispatchObject<IResumenZ, ::ResumenZ> {
 public:
  explicit ResumenZObject(std::shared_ptr<DailySummary> record) : record_(std::move(record)) {}

  STDMETHODIMP get_numeroUltimoZ(short* ret) override { return give(ret, values().numeroUltimoZ); }
  STDMETHODIMP put_numeroUltimoZ(short rhs) override { return take(rhs, values().numeroUltimoZ); }
  STDMETHODIMP get_fechaUltimoReporte(DATE* ret) override {
    return give(ret, values().fechaUltimoReporte);
  }
  STDMETHODIMP put_fechaUltimoReporte(DATE rhs) override {
    return take(rhs, values().fechaUltimoReporte);
  }
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
  STDMETHODIMP get_ultimaNC(LONG* ret) override { return give(ret, values().ultimaNC); }
  STDMETHODIMP put_ultimaNC(LONG rhs) override { return take(rhs, values().ultimaNC); }
  STDMETHODIMP get_ultimaND(LONG* ret) override { return give(ret, values().ultimaND); }
  STDMETHODIMP put_ultimaND(LONG rhs) override { return take(rhs, values().ultimaND); }
  STDMETHODIMP get_ultimoDNF(LONG* ret) override { return give(ret, values().ultimoDNF); }
  STDMETHODIMP put_ultimoDNF(LONG rhs) override { return take(rhs, values().ultimoDNF); }
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
  STDMETHODIMP get_baseIA(CURRENCY* ret) override { return give(ret, values().baseIA); }
  STDMETHODIMP put_baseIA(CURRENCY rhs) override { return take(rhs, values().baseIA); }
  STDMETHODIMP get_impuestoIA(CURRENCY* ret) override { return give(ret, values().impuestoIA); }
  STDMETHODIMP put_impuestoIA(CURRENCY rhs) override { return take(rhs, values().impuestoIA); }
  STDMETHODIMP get_exentoND(CURRENCY* ret) override { return give(ret, values().exentoND); }
  STDMETHODIMP put_exentoND(CURRENCY rhs) override { return take(rhs, values().exentoND); }
  STDMETHODIMP get_baseVGND(CURRENCY* ret) override { return give(ret, values().baseVGND); }
  STDMETHODIMP put_baseVGND(CURRENCY rhs) override { return take(rhs, values().baseVGND); }
  STDMETHODIMP get_impuestoVGND(CURRENCY* ret) override { return give(ret, values().impuestoVGND); }
  STDMETHODIMP put_impuestoVGND(CURRENCY rhs) override { return take(rhs, values().impuestoVGND); }
  STDMETHODIMP get_baseIRND(CURRENCY* ret) override { return give(ret, values().baseIRND); }
  STDMETHODIMP put_baseIRND(CURRENCY rhs) override { return take(rhs, values().baseIRND); }
  STDMETHODIMP get_impuestoIRND(CURRENCY* ret) override { return give(ret, values().impuestoIRND); }
  STDMETHODIMP put_impuestoIRND(CURRENCY rhs) override { return take(rhs, values().impuestoIRND); }
  STDMETHODIMP get_baseIAND(CURRENCY* ret) override { return give(ret, values().baseIAND); }
  STDMETHODIMP put_baseIAND(CURRENCY rhs) override { return take(rhs, values().baseIAND); }
  STDMETHODIMP get_impuestoIAND(CURRENCY* ret) override { return give(ret, values().impuestoIAND); }
  STDMETHODIMP put_impuestoIAND(CURRENCY rhs) override { return take(rhs, values().impuestoIAND); }
  STDMETHODIMP get_exentoNC(CURRENCY* ret) override { return give(ret, values().exentoNC); }
  STDMETHODIMP put_exentoNC(CURRENCY rhs) override { return take(rhs, values().exentoNC); }
  STDMETHODIMP get_baseVGNC(CURRENCY* ret) override { return give(ret, values().baseVGNC); }
  STDMETHODIMP put_baseVGNC(CURRENCY rhs) override { return take(rhs, values().baseVGNC); }
  STDMETHODIMP get_impuestoVGNC(CURRENCY* ret) override { return give(ret, values().impuestoVGNC); }
  STDMETHODIMP put_impuestoVGNC(CURRENCY rhs) override { return take(rhs, values().impuestoVGNC); }
  STDMETHODIMP get_baseIRNC(CURRENCY* ret) override { return give(ret, values().baseIRNC); }
  STDMETHODIMP put_baseIRNC(CURRENCY rhs) override { return take(rhs, values().baseIRNC); }
  STDMETHODIMP get_impuestoIRNC(CURRENCY* ret) override { return give(ret, values().impuestoIRNC); }
  STDMETHODIMP put_impuestoIRNC(CURRENCY rhs) override { return take(rhs, values().impuestoIRNC); }
  STDMETHODIMP get_baseIANC(CURRENCY* ret) override { return give(ret, values().baseIANC); }
  STDMETHODIMP put_baseIANC(CURRENCY rhs) override { return take(rhs, values().baseIANC); }
  STDMETHODIMP get_impuestoIANC(CURRENCY* ret) override { return give(ret, values().impuestoIANC); }
  STDMETHODIMP put_impuestoIANC(CURRENCY rhs) override { return take(rhs, values().impuestoIANC); }
  STDMETHODIMP get_percibidoVentas(CURRENCY* ret) override {
    return give(ret, values().percibidoVentas);
  }
  STDMETHODIMP put_percibidoVentas(CURRENCY rhs) override {
    return take(rhs, values().percibidoVentas);
  }
  STDMETHODIMP get_percibidoND(CURRENCY* ret) override { return give(ret, values().percibidoND); }
  STDMETHODIMP put_percibidoND(CURRENCY rhs) override { return take(rhs, values().percibidoND); }
  STDMETHODIMP get_percibidoNC(CURRENCY* ret) override { return give(ret, values().percibidoNC); }
  STDMETHODIMP put_percibidoNC(CURRENCY rhs) override { return take(rhs, values().percibidoNC); }
  STDMETHODIMP get_BaseIGTF(CURRENCY* ret) override { return give(ret, values().BaseIGTF); }
  STDMETHODIMP put_BaseIGTF(CURRENCY rhs) override { return take(rhs, values().BaseIGTF); }
  STDMETHODIMP get_ValorIGTF(CURRENCY* ret) override { return give(ret, values().ValorIGTF); }
  STDMETHODIMP put_ValorIGTF(CURRENCY rhs) override { return take(rhs, values().ValorIGTF); }
  STDMETHODIMP get_BaseIGTFND(CURRENCY* ret) override { return give(ret, values().BaseIGTFND); }
  STDMETHODIMP put_BaseIGTFND(CURRENCY rhs) override { return take(rhs, values().BaseIGTFND); }
  STDMETHODIMP get_IGTFND(CURRENCY* ret) override { return give(ret, values().IGTFND); }
  STDMETHODIMP put_IGTFND(CURRENCY rhs) override { return take(rhs, values().IGTFND); }
  STDMETHODIMP get_BaseIGTFNC(CURRENCY* ret) override { return give(ret, values().BaseIGTFNC); }
  STDMETHODIMP put_BaseIGTFNC(CURRENCY rhs) override { return take(rhs, values().BaseIGTFNC); }
  STDMETHODIMP get_IGTFNC(CURRENCY* ret) override { return give(ret, values().IGTFNC); }
  STDMETHODIMP put_IGTFNC(CURRENCY rhs) override { return take(rhs, values().IGTFNC); }
  STDMETHODIMP load(IPrinterFiscal* printer) override;
  STDMETHODIMP Refresh(IPrinterFiscal* printer) override { return load(printer); }
  STDMETHODIMP toString(BSTR* ret) override;

 private:
  [[nodiscard]] DailySummaryValues& values() const noexcept { return record_->values; }

  std::shared_ptr<DailySummary> record_;
};

}  // namespace corvid
