// The printer's status records for hosts.
#pragma once

#include "com/record_object.h"
#include "corvid_interfaces.h"
#include "records/counters_record.h"
#include "records/document_state_record.h"
#include "records/payments_record.h"
#include "records/rates_record.h"
#include "records/transaction_record.h"

namespace corvid {

class PrinterResponse1Object final
    : public RecordObject<IPrinterResponse1, ::PrinterResponse1, CountersRecord> {
 public:
  using RecordObject::RecordObject;

  CORVID_PROPERTY(values(), short, numeroCajero)
  CORVID_PROPERTY(values(), CURRENCY, totalVentasDiarias)
  CORVID_PROPERTY(values(), LONG, numeroUltimaFactura)
  CORVID_PROPERTY(values(), LONG, facturasDia)
  CORVID_PROPERTY(values(), LONG, ultimoDNF)
  CORVID_PROPERTY(values(), LONG, ndfDia)
  CORVID_PROPERTY(values(), LONG, nCierres)
  CORVID_PROPERTY(values(), LONG, contadorReportes)
  CORVID_PROPERTY(values(), BSTR, RIF)
  CORVID_PROPERTY(values(), BSTR, Serial)
  CORVID_PROPERTY(values(), DATE, Fecha)
  CORVID_PROPERTY(values(), LONG, numeroUltimaND)
  CORVID_PROPERTY(values(), short, notasDebitoDia)
  CORVID_PROPERTY(values(), LONG, numeroUltimaNC)
  CORVID_PROPERTY(values(), short, notasCreditoDia)
  CORVID_PROPERTY(values(), VARIANT_BOOL, isFake)
  STDMETHODIMP loadFake() override { return run(&CountersRecord::loadFake, *record()); }
  STDMETHODIMP loadFromResponse(BSTR s) override {
    return run(&CountersRecord::loadFromResponse, *record(), s);
  }
  STDMETHODIMP toString(BSTR* ret) override {
    return answer(ret, &CountersRecord::toString, *record());
  }
};

class PrinterResponse2Object final
    : public RecordObject<IPrinterResponse2, ::PrinterResponse2, TransactionRecord> {
 public:
  using RecordObject::RecordObject;

  CORVID_PROPERTY(values(), CURRENCY, subTotalVenta)
  CORVID_PROPERTY(values(), CURRENCY, subTotalImpuestos)
  CORVID_PROPERTY(values(), double, cantidadItems)
  CORVID_PROPERTY(values(), CURRENCY, total)
  CORVID_PROPERTY(values(), short, cantidadPagos)
  CORVID_PROPERTY(values(), short, tipoTrans)
  STDMETHODIMP loadFake() override { return run(&TransactionRecord::loadFake, *record()); }
  STDMETHODIMP loadFromResponse(VARIANT* v) override {
    return run(&TransactionRecord::loadFromResponse, *record(), v);
  }
  STDMETHODIMP toString(BSTR* ret) override {
    return answer(ret, &TransactionRecord::toString, *record());
  }
};

class EstadoDocumentoObject final
    : public RecordObject<IEstadoDocumento, ::EstadoDocumento, DocumentStateRecord> {
 public:
  using RecordObject::RecordObject;

  CORVID_PROPERTY(values(), CURRENCY, subTotalBasesImponibles)
  CORVID_PROPERTY(values(), CURRENCY, subTotalIVA)
  CORVID_PROPERTY(values(), BSTR, NotaS2)
  CORVID_PROPERTY(values(), CURRENCY, MontoPorPagar)
  CORVID_PROPERTY(values(), short, numeroPagosRealizados)
  CORVID_PROPERTY(values(), short, estado)
  STDMETHODIMP loadFromResponse(VARIANT* v) override {
    return run(&DocumentStateRecord::loadFromResponse, *record(), v);
  }
  STDMETHODIMP toString(BSTR* ret) override {
    return answer(ret, &DocumentStateRecord::toString, *record());
  }
};

class PrinterResponse3Object final
    : public RecordObject<IPrinterResponse3, ::PrinterResponse3, RatesRecord> {
 public:
  using RecordObject::RecordObject;

  CORVID_PROPERTY(values(), VARIANT_BOOL, TipoTasa1)
  CORVID_PROPERTY(values(), double, ValorTasa1)
  CORVID_PROPERTY(values(), VARIANT_BOOL, TipoTasa2)
  CORVID_PROPERTY(values(), double, ValorTasa2)
  CORVID_PROPERTY(values(), VARIANT_BOOL, TipoTasa3)
  CORVID_PROPERTY(values(), double, ValorTasa3)
  CORVID_PROPERTY(values(), short, nFlags)
  CORVID_PROPERTY(values(), VARIANT_BOOL, isFake)
  CORVID_PROPERTY(values(), double, TasaIGTF)
  STDMETHODIMP loadFake() override { return run(&RatesRecord::loadFake, *record()); }
  STDMETHODIMP loadFromResponse(VARIANT v) override {
    return run(&RatesRecord::loadFromResponse, *record(), v);
  }
  STDMETHODIMP Flag(short n, short* ret) override {
    return answer(ret, &RatesRecord::Flag, *record(), n);
  }
  STDMETHODIMP imagenIncluido(VARIANT t, BSTR* ret) override {
    return giveResult(ret, [&] { return RatesRecord::imagenIncluido(toBoolean(t)); });
  }
  STDMETHODIMP toString(BSTR* ret) override {
    return answer(ret, &RatesRecord::toString, *record());
  }
};

class PrinterResponse4Object final
    : public RecordObject<IPrinterResponse4, ::PrinterResponse4, PaymentsRecord> {
 public:
  using RecordObject::RecordObject;

  CORVID_PROPERTY((*record()), VARIANT_BOOL, isFake)
  STDMETHODIMP get_nMedios(short* ret) override {
    return answer(ret, &PaymentsRecord::nMedios, *record());
  }
  STDMETHODIMP loadFake() override { return run(&PaymentsRecord::loadFake, *record()); }
  STDMETHODIMP loadFromResponse(VARIANT r) override {
    return run(&PaymentsRecord::loadFromResponse, *record(), r);
  }
  STDMETHODIMP valor(VARIANT n, CURRENCY* ret) override {
    return answer(ret, &PaymentsRecord::valor, *record(), n);
  }
};

template <>
struct ObjectFor<CountersRecord> {
  using Type = PrinterResponse1Object;
};
template <>
struct ObjectFor<TransactionRecord> {
  using Type = PrinterResponse2Object;
};
template <>
struct ObjectFor<DocumentStateRecord> {
  using Type = EstadoDocumentoObject;
};
template <>
struct ObjectFor<RatesRecord> {
  using Type = PrinterResponse3Object;
};
template <>
struct ObjectFor<PaymentsRecord> {
  using Type = PrinterResponse4Object;
};

}  // namespace corvid
