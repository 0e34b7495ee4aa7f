// PrinterResponse1 for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "corvid_interfaces.h"
#include "records/counters_record.h"

#include <memory>

namespace corvid {

class PrinterResponse1Object final : public DispatchObject<IPrinterResponse1, ::PrinterResponse1> {
 public:
  explicit PrinterResponse1Object(std::shared_ptr<CountersRecord> record)
      : record_(std::move(record)) {}

  STDMETHODIMP get_numeroCajero(short* ret) override { return give(ret, values().numeroCajero); }
  STDMETHODIMP put_numeroCajero(short rhs) override { return take(rhs, values().numeroCajero); }
  STDMETHODIMP get_totalVentasDiarias(CURRENCY* ret) override {
    return give(ret, values().totalVentasDiarias);
  }
  STDMETHODIMP put_totalVentasDiarias(CURRENCY rhs) override {
    return take(rhs, values().totalVentasDiarias);
  }
  STDMETHODIMP get_numeroUltimaFactura(LONG* ret) override {
    return give(ret, values().numeroUltimaFactura);
  }
  STDMETHODIMP put_numeroUltimaFactura(LONG rhs) override {
    return take(rhs, values().numeroUltimaFactura);
  }
  STDMETHODIMP get_facturasDia(LONG* ret) override { return give(ret, values().facturasDia); }
  STDMETHODIMP put_facturasDia(LONG rhs) override { return take(rhs, values().facturasDia); }
  STDMETHODIMP get_ultimoDNF(LONG* ret) override { return give(ret, values().ultimoDNF); }
  STDMETHODIMP put_ultimoDNF(LONG rhs) override { return take(rhs, values().ultimoDNF); }
  STDMETHODIMP get_ndfDia(LONG* ret) override { return give(ret, values().ndfDia); }
  STDMETHODIMP put_ndfDia(LONG rhs) override { return take(rhs, values().ndfDia); }
  STDMETHODIMP get_nCierres(LONG* ret) override { return give(ret, values().nCierres); }
  STDMETHODIMP put_nCierres(LONG rhs) override { return take(rhs, values().nCierres); }
  STDMETHODIMP get_contadorReportes(LONG* ret) override {
    return give(ret, values().contadorReportes);
  }
  STDMETHODIMP put_contadorReportes(LONG rhs) override {
    return take(rhs, values().contadorReportes);
  }
  STDMETHODIMP get_RIF(BSTR* ret) override { return give(ret, values().RIF); }
  STDMETHODIMP put_RIF(BSTR rhs) override { return take(rhs, values().RIF); }
  STDMETHODIMP get_Serial(BSTR* ret) override { return give(ret, values().Serial); }
  STDMETHODIMP put_Serial(BSTR rhs) override { return take(rhs, values().Serial); }
  STDMETHODIMP get_Fecha(DATE* ret) override { return give(ret, values().Fecha); }
  STDMETHODIMP put_Fecha(DATE rhs) override { return take(rhs, values().Fecha); }
  STDMETHODIMP get_numeroUltimaND(LONG* ret) override { return give(ret, values().numeroUltimaND); }
  STDMETHODIMP put_numeroUltimaND(LONG rhs) override { return take(rhs, values().numeroUltimaND); }
  STDMETHODIMP get_notasDebitoDia(short* ret) override {
    return give(ret, values().notasDebitoDia);
  }
  STDMETHODIMP put_notasDebitoDia(short rhs) override { return take(rhs, values().notasDebitoDia); }
  STDMETHODIMP get_numeroUltimaNC(LONG* ret) override { return give(ret, values().numeroUltimaNC); }
  STDMETHODIMP put_numeroUltimaNC(LONG rhs) override { return take(rhs, values().numeroUltimaNC); }
  STDMETHODIMP get_notasCreditoDia(short* ret) override {
    return give(ret, values().notasCreditoDia);
  }
  STDMETHODIMP put_notasCreditoDia(short rhs) override {
    return take(rhs, values().notasCreditoDia);
  }
  STDMETHODIMP get_isFake(VARIANT_BOOL* ret) override { return give(ret, values().isFake); }
  STDMETHODIMP put_isFake(VARIANT_BOOL rhs) override { return take(rhs, values().isFake); }
  STDMETHODIMP loadFake() override;
  STDMETHODIMP loadFromResponse(BSTR s) override;
  STDMETHODIMP toString(BSTR* ret) override;

 private:
  [[nodiscard]] CountersValues& values() const noexcept { return record_->values; }

  std::shared_ptr<CountersRecord> record_;
};

}  // namespace corvid
