// PrinterResponse2 for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "corvid_interfaces.h"
#include "records/transaction_record.h"

#include <memory>

namespace corvid {

class PrinterResponse2Object final : public DispatchObject<IPrinterResponse2, ::PrinterResponse2> {
 public:
  explicit PrinterResponse2Object(std::shared_ptr<TransactionRecord> record)
      : record_(std::move(record)) {}

  STDMETHODIMP get_subTotalVenta(CURRENCY* ret) override {
    return give(ret, values().subTotalVenta);
  }
  STDMETHODIMP put_subTotalVenta(CURRENCY rhs) override {
    return take(rhs, values().subTotalVenta);
  }
  STDMETHODIMP get_subTotalImpuestos(CURRENCY* ret) override {
    return give(ret, values().subTotalImpuestos);
  }
  STDMETHODIMP put_subTotalImpuestos(CURRENCY rhs) override {
    return take(rhs, values().subTotalImpuestos);
  }
  STDMETHODIMP get_cantidadItems(double* ret) override { return give(ret, values().cantidadItems); }
  STDMETHODIMP put_cantidadItems(double rhs) override { return take(rhs, values().cantidadItems); }
  STDMETHODIMP get_total(CURRENCY* ret) override { return give(ret, values().total); }
  STDMETHODIMP put_total(CURRENCY rhs) override { return take(rhs, values().total); }
  STDMETHODIMP get_cantidadPagos(short* ret) override { return give(ret, values().cantidadPagos); }
  STDMETHODIMP put_cantidadPagos(short rhs) override { return take(rhs, values().cantidadPagos); }
  STDMETHODIMP get_tipoTrans(short* ret) override { return give(ret, values().tipoTrans); }
  STDMETHODIMP put_tipoTrans(short rhs) override { return take(rhs, values().tipoTrans); }
  STDMETHODIMP loadFake() override;
  STDMETHODIMP loadFromResponse(VARIANT* v) override;
  STDMETHODIMP toString(BSTR* ret) override;

 private:
  [[nodiscard]] TransactionValues& values() const noexcept { return record_->values; }

  std::shared_ptr<TransactionRecord> record_;
};

}  // namespace corvid
