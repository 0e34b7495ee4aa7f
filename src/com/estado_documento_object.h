// EstadoDocumento for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "corvid_interfaces.h"
#include "records/document_state_record.h"

#include <memory>

namespace corvid {

class EstadoDocumentoObject final : public DispatchObject<IEstadoDocumento, ::EstadoDocumento> {
 public:
  explicit EstadoDocumentoObject(std::shared_ptr<DocumentStateRecord> record)
      : record_(std::move(record)) {}

  STDMETHODIMP get_subTotalBasesImponibles(CURRENCY* ret) override {
    return give(ret, values().subTotalBasesImponibles);
  }
  STDMETHODIMP put_subTotalBasesImponibles(CURRENCY rhs) override {
    return take(rhs, values().subTotalBasesImponibles);
  }
  STDMETHODIMP get_subTotalIVA(CURRENCY* ret) override { return give(ret, values().subTotalIVA); }
  STDMETHODIMP put_subTotalIVA(CURRENCY rhs) override { return take(rhs, values().subTotalIVA); }
  STDMETHODIMP get_NotaS2(BSTR* ret) override { return give(ret, values().NotaS2); }
  STDMETHODIMP put_NotaS2(BSTR rhs) override { return take(rhs, values().NotaS2); }
  STDMETHODIMP get_MontoPorPagar(CURRENCY* ret) override {
    return give(ret, values().MontoPorPagar);
  }
  STDMETHODIMP put_MontoPorPagar(CURRENCY rhs) override {
    return take(rhs, values().MontoPorPagar);
  }
  STDMETHODIMP get_numeroPagosRealizados(short* ret) override {
    return give(ret, values().numeroPagosRealizados);
  }
  STDMETHODIMP put_numeroPagosRealizados(short rhs) override {
    return take(rhs, values().numeroPagosRealizados);
  }
  STDMETHODIMP get_estado(short* ret) override { return give(ret, values().estado); }
  STDMETHODIMP put_estado(short rhs) override { return take(rhs, values().estado); }
  STDMETHODIMP loadFromResponse(VARIANT* v) override;
  STDMETHODIMP toString(BSTR* ret) override;

 private:
  [[nodiscard]] DocumentStateValues& values() const noexcept { return record_->values; }

  std::shared_ptr<DocumentStateRecord> record_;
};

}  // namespace corvid
