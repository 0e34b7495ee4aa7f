// PrinterResponse4 for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "corvid_interfaces.h"
#include "records/payments_record.h"

#include <memory>

namespace corvid {

class PrinterResponse4Object final : public DispatchObject<IPrinterResponse4, ::PrinterResponse4> {
 public:
  explicit PrinterResponse4Object(std::shared_ptr<PaymentsRecord> record)
      : record_(std::move(record)) {}

  STDMETHODIMP get_isFake(VARIANT_BOOL* ret) override { return give(ret, record_->isFake); }
  STDMETHODIMP put_isFake(VARIANT_BOOL rhs) override { return take(rhs, record_->isFake); }
  STDMETHODIMP get_nMedios(short* ret) override { return give(ret, record_->nMedios()); }
  STDMETHODIMP loadFake() override;
  STDMETHODIMP loadFromResponse(VARIANT r) override;
  STDMETHODIMP valor(VARIANT n, CURRENCY* ret) override;

 private:
  std::shared_ptr<PaymentsRecord> record_;
};

}  // namespace corvid
