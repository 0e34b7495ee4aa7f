// PrinterResponse3 for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "corvid_interfaces.h"
#include "records/rates_record.h"

#include <memory>

namespace corvid {

class PrinterResponse3Object final : public DispatchObject<IPrinterResponse3, ::PrinterResponse3> {
 public:
  explicit PrinterResponse3Object(std::shared_ptr<RatesRecord> record)
      : record_(std::move(record)) {}

  [[nodiscard]] const std::shared_ptr<RatesRecord>& record() const noexcept { return record_; }

  STDMETHODIMP get_TipoTasa1(VARIANT_BOOL* ret) override { return give(ret, values().TipoTasa1); }
  STDMETHODIMP put_TipoTasa1(VARIANT_BOOL rhs) override { return take(rhs, values().TipoTasa1); }
  STDMETHODIMP get_ValorTasa1(double* ret) override { return give(ret, values().ValorTasa1); }
  STDMETHODIMP put_ValorTasa1(double rhs) override { return take(rhs, values().ValorTasa1); }
  STDMETHODIMP get_TipoTasa2(VARIANT_BOOL* ret) override { return give(ret, values().TipoTasa2); }
  STDMETHODIMP put_TipoTasa2(VARIANT_BOOL rhs) override { return take(rhs, values().TipoTasa2); }
  STDMETHODIMP get_ValorTasa2(double* ret) override { return give(ret, values().ValorTasa2); }
  STDMETHODIMP put_ValorTasa2(double rhs) override { return take(rhs, values().ValorTasa2); }
  STDMETHODIMP get_TipoTasa3(VARIANT_BOOL* ret) override { return give(ret, values().TipoTasa3); }
  STDMETHODIMP put_TipoTasa3(VARIANT_BOOL rhs) override { return take(rhs, values().TipoTasa3); }
  STDMETHODIMP get_ValorTasa3(double* ret) override { return give(ret, values().ValorTasa3); }
  STDMETHODIMP put_ValorTasa3(double rhs) override { return take(rhs, values().ValorTasa3); }
  STDMETHODIMP get_nFlags(short* ret) override { return give(ret, values().nFlags); }
  STDMETHODIMP put_nFlags(short rhs) override { return take(rhs, values().nFlags); }
  STDMETHODIMP get_isFake(VARIANT_BOOL* ret) override { return give(ret, values().isFake); }
  STDMETHODIMP put_isFake(VARIANT_BOOL rhs) override { return take(rhs, values().isFake); }
  STDMETHODIMP get_TasaIGTF(double* ret) override { return give(ret, values().TasaIGTF); }
  STDMETHODIMP put_TasaIGTF(double rhs) override { return take(rhs, values().TasaIGTF); }
  STDMETHODIMP loadFake() override;
  STDMETHODIMP loadFromResponse(VARIANT v) override;
  STDMETHODIMP Flag(short n, short* ret) override;
  STDMETHODIMP imagenIncluido(VARIANT t, BSTR* ret) override;
  STDMETHODIMP toString(BSTR* ret) override;

 private:
  [[nodiscard]] RatesValues& values() const noexcept { return record_->values; }

  std::shared_ptr<RatesRecord> record_;
};

}  // namespace corvid
