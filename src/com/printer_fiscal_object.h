// PrinterFiscal for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "com/status_record_objects.h"
#include "corvid_interfaces.h"
#include "documents/closing.h"
#include "documents/customer_data.h"
#include "documents/item_lines.h"
#include "documents/non_fiscal.h"
#include "records/status_queries.h"
#include "records/z_report_queries.h"
#include "session/printer_session.h"

#include <memory>
#include <string>

namespace corvid {

// A customer as the host gives it.
struct HostCustomer {
  const VARIANT& name;
  const VARIANT& taxId;
  const VARIANT& address;
};
inline Customer convert(As<Customer>, const HostCustomer& given) {
  return {toText(given.name), toText(given.taxId), toText(given.address)};
}

// A general line as the host gives it.
struct HostItem {
  const VARIANT& description;
  const VARIANT& price;
  const VARIANT& quantity;
  const VARIANT& rate;
  const VARIANT& code;
};
inline GeneralItem convert(As<GeneralItem>, const HostItem& given) {
  return {toText(given.description), toDecimal(given.price), toDouble(given.quantity),
          toDouble(given.rate), toOptionalText(given.code)};
}

// What a host tells of an original invoice; each part may be missing.
struct HostInvoice {
  const VARIANT& number;
  const VARIANT& printerSerial;
  const VARIANT& date;
};
inline OriginalInvoice convert(As<OriginalInvoice>, const HostInvoice& given) {
  OriginalInvoice original{toOptionalText(given.number), toOptionalText(given.printerSerial), {}};
  if (!isMissing(given.date)) original.date = toDateOrBlank(given.date);
  return original;
}

// Converts nothing until the command asks for it.
inline ReprintLimit convert(As<ReprintLimit>, const VARIANT& value) {
  return {[&value] { return toDate(value); }, [&value] { return toDecimal(value); }};
}

template <>
struct Extended<IPrinterFiscal2> {
  using Type = IPrinterFiscal;
};

class PrinterFiscalObject final : public DispatchObject<IPrinterFiscal2, ::PrinterFiscal> {
 public:
  explicit PrinterFiscalObject(std::shared_ptr<PrinterSession> session)
      : session_(std::move(session)) {}

  [[nodiscard]] PrinterSession& session() const noexcept { return *session_; }

  // State.
  CORVID_PROPERTY(outcome(), BSTR, result)
  CORVID_PROPERTY(outcome(), ::controlValues, resultFlag)
  CORVID_PROPERTY(outcome(), ::pfErrors, pfError)
  CORVID_PROPERTY(outcome(), LONG, STS1)
  CORVID_PROPERTY(outcome(), LONG, STS2)
  CORVID_PROPERTY(outcome(), BSTR, DescripcionError)
  CORVID_PROPERTY(state(), BSTR, SerialPrinter)
  CORVID_PROPERTY(state(), short, f21)
  STDMETHODIMP get_s3(IPrinterResponse3** ret) override;
  STDMETHODIMP put_s3(IPrinterResponse3* rhs) override;
  STDMETHODIMP putref_s3(IPrinterResponse3* rhs) override { return put_s3(rhs); }
  STDMETHODIMP get_lError(short* ret) override {
    return answer(ret, &PrinterSession::lError, session());
  }
  STDMETHODIMP get_lStatus(short* ret) override { return give(ret, PrinterSession::lStatus()); }
  STDMETHODIMP tipoPrinter(::VariantesPF* ret) override {
    return answer(ret, &PrinterSession::tipoPrinter, session());
  }

  // Framing.
  STDMETHODIMP BuildCommandBlock(BSTR command, BSTR* ret) override;
  STDMETHODIMP CalcXOr(BSTR s, short* ret) override;
  STDMETHODIMP EscapeString(BSTR s, BSTR* ret) override;

  // The exchange.
  STDMETHODIMP Abrir(VARIANT port) override { return run(&PrinterSession::Abrir, session(), port); }
  STDMETHODIMP Cerrar() override { return run(&PrinterSession::Cerrar, session()); }
  STDMETHODIMP AbrirGaveta(VARIANT_BOOL* ret) override {
    return answer(ret, &PrinterSession::AbrirGaveta, session());
  }
  STDMETHODIMP SendDirect(BSTR command) override {
    return run(&Exchange::SendDirect, exchange(), command);
  }
  STDMETHODIMP Execute(BSTR command, short* ret) override {
    return answer(ret, &Exchange::Execute, exchange(), command);
  }
  STDMETHODIMP ExecuteNoCheck(BSTR command) override {
    return run(&Exchange::ExecuteNoCheck, exchange(), command);
  }
  STDMETHODIMP SendAck() override { return run(&Exchange::SendAck, exchange()); }
  STDMETHODIMP GetStatus() override { return run(&Exchange::GetStatus, exchange()); }
  STDMETHODIMP explainSTS1(VARIANT* ret) override;
  STDMETHODIMP explainSTS2(VARIANT* ret) override;
  STDMETHODIMP Reset(VARIANT* ret) override {
    return answer(ret, &PrinterSession::Reset, session());
  }
  STDMETHODIMP NextStatusBlock(VARIANT* ret) override;

  // Replies.
  STDMETHODIMP GetResponse(BSTR command, VARIANT* ret) override {
    return answer(ret, &Exchange::GetResponse, exchange(), command);
  }
  STDMETHODIMP GetResponseString(BSTR command, BSTR separator, BSTR* ret) override {
    return answer(ret, &Exchange::GetResponseString, exchange(), command, separator);
  }
  STDMETHODIMP GetMultipleResponses(BSTR command, VARIANT* ret) override {
    return answer(ret, &Exchange::GetMultipleResponses, exchange(), command);
  }
  STDMETHODIMP GetMultipleResponsesStr(BSTR command, VARIANT itemSeparator, VARIANT rowSeparator,
                                       BSTR* ret) override {
    return answer(ret, &Exchange::GetMultipleResponsesStr, exchange(), command, itemSeparator,
                  rowSeparator);
  }
  STDMETHODIMP responseItem(short selector, VARIANT array, VARIANT* ret) override;

  // Item lines.
  STDMETHODIMP PasarItem(VARIANT description, VARIANT price, VARIANT quantity, VARIANT rate,
                         short* ret) override {
    return answer(ret, corvid::PasarItem, session(), description, price, quantity, rate);
  }
  STDMETHODIMP RefundItem(VARIANT description, VARIANT price, VARIANT quantity, VARIANT rate,
                          short* ret) override {
    return answer(ret, corvid::RefundItem, session(), description, price, quantity, rate);
  }
  STDMETHODIMP AnularItem(VARIANT description, VARIANT price, VARIANT quantity, VARIANT rate,
                          short* ret) override {
    return answer(ret, corvid::AnularItem, session(), description, price, quantity, rate);
  }
  STDMETHODIMP PasarLineaFactura(VARIANT description, VARIANT price, VARIANT quantity, VARIANT rate,
                                 short* ret) override {
    return PasarItem(description, price, quantity, rate, ret);
  }
  STDMETHODIMP detalleGeneral(VARIANT kind, VARIANT description, VARIANT price, VARIANT quantity,
                              VARIANT rate, VARIANT code, VARIANT* ret) override {
    return answer(ret, corvid::detalleGeneral, session(), kind,
                  HostItem{description, price, quantity, rate, code});
  }
  STDMETHODIMP pasarLineaFacturaG(VARIANT description, VARIANT price, VARIANT quantity,
                                  VARIANT rate, VARIANT code, short* ret) override {
    return answer(ret, corvid::pasarLineaFacturaG, session(),
                  HostItem{description, price, quantity, rate, code});
  }
  STDMETHODIMP anularLineaFacturaG(VARIANT description, VARIANT price, VARIANT quantity,
                                   VARIANT rate, VARIANT code, short* ret) override {
    return answer(ret, corvid::anularLineaFacturaG, session(),
                  HostItem{description, price, quantity, rate, code});
  }
  STDMETHODIMP pasarLineaNCG(VARIANT description, VARIANT price, VARIANT quantity, VARIANT rate,
                             VARIANT code, short* ret) override {
    return answer(ret, corvid::pasarLineaNCG, session(),
                  HostItem{description, price, quantity, rate, code});
  }
  STDMETHODIMP anularLineaNCG(VARIANT description, VARIANT price, VARIANT quantity, VARIANT rate,
                              VARIANT code, short* ret) override {
    return answer(ret, corvid::anularLineaNCG, session(),
                  HostItem{description, price, quantity, rate, code});
  }
  STDMETHODIMP IndiceTasa(double rate, short* ret) override {
    return answer(ret, corvid::IndiceTasa, session(), rate);
  }

  // Customer data.
  STDMETHODIMP PasarDatosCliente(VARIANT name, VARIANT taxId, VARIANT address, VARIANT invoice,
                                 VARIANT serial, VARIANT date, VARIANT* ret) override {
    return answer(ret, corvid::PasarDatosCliente, session(), HostCustomer{name, taxId, address},
                  HostInvoice{invoice, serial, date});
  }
  STDMETHODIMP PasarDatosClienteNC(VARIANT name, VARIANT taxId, VARIANT address, VARIANT invoice,
                                   VARIANT serial, VARIANT date, VARIANT* ret) override {
    return answer(ret, corvid::PasarDatosClienteNC, session(), HostCustomer{name, taxId, address},
                  invoice, serial, date);
  }
  STDMETHODIMP IniciarFactura(VARIANT name, VARIANT taxId, VARIANT address, VARIANT* ret) override {
    return answer(ret, corvid::IniciarFactura, session(), HostCustomer{name, taxId, address});
  }
  STDMETHODIMP PasarDatosClientePA(VARIANT name, VARIANT taxId, VARIANT address, BSTR invoice,
                                   VARIANT* ret) override {
    return answer(ret, corvid::PasarDatosClientePA, session(), HostCustomer{name, taxId, address},
                  invoice);
  }
  STDMETHODIMP PasarDatosClienteNCPA(VARIANT name, VARIANT taxId, VARIANT address, VARIANT invoice,
                                     VARIANT* ret) override {
    return answer(ret, corvid::PasarDatosClienteNCPA, session(), HostCustomer{name, taxId, address},
                  invoice);
  }

  // Totals and closing.
  STDMETHODIMP SubTotal(VARIANT print, VARIANT_BOOL* ret) override;
  STDMETHODIMP PasarDescuento(VARIANT percentage, VARIANT_BOOL* ret) override {
    return answer(ret, corvid::PasarDescuento, session(), percentage);
  }
  STDMETHODIMP PasarMontoDescuento(VARIANT amount, VARIANT_BOOL* ret) override {
    return answer(ret, corvid::PasarMontoDescuento, session(), amount);
  }
  STDMETHODIMP descuentoGeneral(VARIANT isPercentage, VARIANT isDiscount, VARIANT value,
                                VARIANT* ret) override {
    return answer(ret, corvid::descuentoGeneral, session(), isPercentage, isDiscount, value);
  }
  STDMETHODIMP CerrarComprobante(VARIANT amount, short* ret) override {
    return answer(ret, corvid::CerrarComprobante, session(), amount);
  }
  STDMETHODIMP CerrarConMedio(VARIANT method, VARIANT amount, short* ret) override {
    return answer(ret, corvid::CerrarConMedio, session(), method, amount);
  }
  STDMETHODIMP CerrarNotaCredito(short* ret) override {
    return answer(ret, corvid::CerrarNotaCredito, session());
  }
  STDMETHODIMP CerrarNotaCreditoConMedio(VARIANT method, VARIANT amount, short* ret) override {
    return answer(ret, corvid::CerrarNotaCreditoConMedio, session(), method, amount);
  }
  STDMETHODIMP CerrarDevolucion(VARIANT method, VARIANT amount, short* ret) override {
    return CerrarNotaCreditoConMedio(method, amount, ret);
  }
  STDMETHODIMP CancelarTransaccion(short* ret) override {
    return answer(ret, corvid::CancelarTransaccion, session());
  }

  // Housekeeping.
  STDMETHODIMP PrintNoFiscal(VARIANT text, VARIANT close, short* ret) override {
    return answer(ret, corvid::PrintNoFiscal, session(), text, close);
  }
  STDMETHODIMP ReporteDiario(VARIANT range, VARIANT kind, short* ret) override {
    return answer(ret, corvid::ReporteDiario, session(), range, kind);
  }
  STDMETHODIMP SetHeader(VARIANT line, VARIANT text, short* ret) override {
    return answer(ret, corvid::SetHeader, session(), line, text);
  }
  STDMETHODIMP SetFooter(VARIANT line, VARIANT text, short* ret) override {
    return answer(ret, corvid::SetFooter, session(), line, text);
  }
  STDMETHODIMP SetDate(VARIANT date, short* ret) override {
    return answer(ret, corvid::SetDate, session(), date);
  }
  STDMETHODIMP SetTime(VARIANT time, short* ret) override {
    return answer(ret, corvid::SetTime, session(), time);
  }
  STDMETHODIMP Login(VARIANT cashier, short* ret) override {
    return answer(ret, corvid::Login, session(), cashier);
  }
  STDMETHODIMP Logoff(short* ret) override { return answer(ret, corvid::Logoff, session()); }
  STDMETHODIMP StartTraining(short* ret) override {
    return answer(ret, corvid::StartTraining, session());
  }
  STDMETHODIMP EndTraining(short* ret) override {
    return answer(ret, corvid::EndTraining, session());
  }
  STDMETHODIMP setFlag(VARIANT flag, VARIANT value, VARIANT* ret) override {
    return answer(ret, corvid::setFlag, session(), flag, value);
  }
  STDMETHODIMP reimprimirDocumentos(BSTR command, VARIANT first, VARIANT last) override {
    return run(corvid::reimprimirDocumentos, session(), command, first, last);
  }
  STDMETHODIMP reimprimirFactura(VARIANT number) override {
    return run(corvid::reimprimirFactura, session(), number);
  }

  // Status queries.
  STDMETHODIMP numeroUltimaFactura(LONG* ret) override {
    return answer(ret, corvid::numeroUltimaFactura, exchange());
  }
  STDMETHODIMP NumeroUltimoCierre(LONG* ret) override {
    return answer(ret, corvid::NumeroUltimoCierre, exchange());
  }
  STDMETHODIMP Response1(IPrinterResponse1** ret) override {
    return answer(ret, corvid::Response1, exchange());
  }
  STDMETHODIMP StatusS1(IPrinterResponse1** ret) override { return Response1(ret); }
  STDMETHODIMP Response2(IPrinterResponse2** ret) override {
    return answer(ret, corvid::Response2, exchange());
  }
  STDMETHODIMP StatusS2(IPrinterResponse2** ret) override { return Response2(ret); }
  STDMETHODIMP Response3(IPrinterResponse3** ret) override {
    return answer(ret, corvid::Response3, exchange());
  }
  STDMETHODIMP StatusS3(IPrinterResponse3** ret) override { return Response3(ret); }
  STDMETHODIMP Response4(IPrinterResponse4** ret) override {
    return answer(ret, corvid::Response4, exchange());
  }
  STDMETHODIMP CerrarZ(IResumenZ** ret) override;
  STDMETHODIMP ResumenZ(IResumenZ** ret) override;
  STDMETHODIMP tasa(VARIANT index, double* ret) override {
    return answer(ret, corvid::tasa, exchange(), index);
  }
  STDMETHODIMP getEstadoDocumento(IEstadoDocumento** ret) override {
    return answer(ret, corvid::getEstadoDocumento, exchange());
  }
  STDMETHODIMP reportesZMF(VARIANT* first, VARIANT* last, IColeccionZMF** ret) override;
  STDMETHODIMP loadReporteZMF(VARIANT* number, IReporteZMF** ret) override;

  // What became of the last command.
  STDMETHODIMP get_UltimoEnvio(::EnviosPF* ret) override {
    return answer(ret, &SendRecord::outcome, exchange().lastSend());
  }
  STDMETHODIMP get_BloquesEnviados(LONG* ret) override {
    return answer(ret, &SendRecord::blocks, exchange().lastSend());
  }
  STDMETHODIMP get_Milisegundos(LONG* ret) override {
    return answer(ret, &SendRecord::milliseconds, exchange().lastSend());
  }
  STDMETHODIMP get_Ocupado(VARIANT_BOOL* ret) override {
    return answer(ret, &Exchange::isBusy, exchange());
  }

  // The installation.
  STDMETHODIMP get_Version(BSTR* ret) override;
  STDMETHODIMP get_Diagnostico(BSTR* ret) override;
  STDMETHODIMP get_Puertos(VARIANT* ret) override;

 private:
  // Ends the wait that lets the host run.
  void lastReferenceReleased() noexcept override;

  [[nodiscard]] SessionState& state() const noexcept { return session_->state(); }
  [[nodiscard]] Exchange& exchange() const noexcept { return session_->exchange(); }
  [[nodiscard]] Outcome& outcome() const noexcept { return session_->outcome(); }
  [[nodiscard]] ComPtr<PrinterResponse3Object> rates();
  void setRates(IUnknown* record);

  std::shared_ptr<PrinterSession> session_;
  ComPtr<PrinterResponse3Object> rates_;  // the host's view of state().s3, once it asked for it
};

}  // namespace corvid
