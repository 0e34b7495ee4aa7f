// PrinterFiscal for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "com/printer_response3_object.h"
#include "corvid_interfaces.h"
#include "documents/item_lines.h"
#include "session/printer_session.h"

#include <memory>

namespace corvid {

class PrinterFiscalObject final : public DispatchObject<IPrinterFiscal, ::PrinterFiscal> {
 public:
  explicit PrinterFiscalObject(std::shared_ptr<PrinterSession> session)
      : session_(std::move(session)) {}

  [[nodiscard]] PrinterSession& session() const noexcept { return *session_; }

  // State.
  STDMETHODIMP get_result(BSTR* ret) override { return give(ret, outcome().result); }
  STDMETHODIMP put_result(BSTR rhs) override { return take(rhs, outcome().result); }
  STDMETHODIMP get_resultFlag(::controlValues* ret) override {
    return give(ret, outcome().resultFlag);
  }
  STDMETHODIMP put_resultFlag(::controlValues rhs) override {
    return take(rhs, outcome().resultFlag);
  }
  STDMETHODIMP get_pfError(::pfErrors* ret) override { return give(ret, outcome().pfError); }
  STDMETHODIMP put_pfError(::pfErrors rhs) override { return take(rhs, outcome().pfError); }
  STDMETHODIMP get_STS1(LONG* ret) override { return give(ret, outcome().STS1); }
  STDMETHODIMP put_STS1(LONG rhs) override { return take(rhs, outcome().STS1); }
  STDMETHODIMP get_STS2(LONG* ret) override { return give(ret, outcome().STS2); }
  STDMETHODIMP put_STS2(LONG rhs) override { return take(rhs, outcome().STS2); }
  STDMETHODIMP get_DescripcionError(BSTR* ret) override {
    return give(ret, outcome().DescripcionError);
  }
  STDMETHODIMP put_DescripcionError(BSTR rhs) override {
    return take(rhs, outcome().DescripcionError);
  }
  STDMETHODIMP get_SerialPrinter(BSTR* ret) override { return give(ret, state().SerialPrinter); }
  STDMETHODIMP put_SerialPrinter(BSTR rhs) override { return take(rhs, state().SerialPrinter); }
  STDMETHODIMP get_s3(IPrinterResponse3** ret) override;
  STDMETHODIMP put_s3(IPrinterResponse3* rhs) override;
  STDMETHODIMP putref_s3(IPrinterResponse3* rhs) override { return put_s3(rhs); }
  STDMETHODIMP get_f21(short* ret) override { return give(ret, state().f21); }
  STDMETHODIMP put_f21(short rhs) override { return take(rhs, state().f21); }
  STDMETHODIMP get_lError(short* ret) override;
  STDMETHODIMP get_lStatus(short* ret) override;
  STDMETHODIMP tipoPrinter(::VariantesPF* ret) override;

  // Framing.
  STDMETHODIMP BuildCommandBlock(BSTR command, BSTR* ret) override;
  STDMETHODIMP CalcXOr(BSTR s, short* ret) override;
  STDMETHODIMP EscapeString(BSTR s, BSTR* ret) override;

  // The exchange.
  STDMETHODIMP Abrir(VARIANT portNumber) override;
  STDMETHODIMP Cerrar() override;
  STDMETHODIMP AbrirGaveta(VARIANT_BOOL* ret) override;
  STDMETHODIMP SendDirect(BSTR sCommand) override;
  STDMETHODIMP Execute(BSTR sCmd, short* ret) override;
  STDMETHODIMP ExecuteNoCheck(BSTR sCmd) override;
  STDMETHODIMP SendAck() override;
  STDMETHODIMP GetStatus() override;
  STDMETHODIMP explainSTS1(VARIANT* ret) override;
  STDMETHODIMP explainSTS2(VARIANT* ret) override;
  STDMETHODIMP Reset(VARIANT* ret) override;
  STDMETHODIMP NextStatusBlock(VARIANT* ret) override;

  // Replies.
  STDMETHODIMP GetResponse(BSTR cmd, VARIANT* ret) override;
  STDMETHODIMP GetResponseString(BSTR cmd, BSTR sep, BSTR* ret) override;
  STDMETHODIMP GetMultipleResponses(BSTR cmd, VARIANT* ret) override;
  STDMETHODIMP GetMultipleResponsesStr(BSTR cmd, VARIANT itemSep, VARIANT rowSep,
                                       BSTR* ret) override;
  STDMETHODIMP responseItem(short selector, VARIANT s, VARIANT* ret) override;

  // Item lines.
  STDMETHODIMP PasarItem(VARIANT istrDescripcion, VARIANT ivmPrecioNeto, VARIANT idblCantidad,
                         VARIANT ivmPorcentajeImpuesto, short* ret) override;
  STDMETHODIMP RefundItem(VARIANT istrDescripcion, VARIANT ivmPrecioNeto, VARIANT idblCantidad,
                          VARIANT ivmPorcentajeImpuesto, short* ret) override;
  STDMETHODIMP AnularItem(VARIANT istrDescripcion, VARIANT ivmPrecioNeto, VARIANT idblCantidad,
                          VARIANT ivmPorcentajeImpuesto, short* ret) override;
  STDMETHODIMP PasarLineaFactura(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                 VARIANT idblCantidad, VARIANT ivmPorcentajeImpuesto,
                                 short* ret) override;
  STDMETHODIMP detalleGeneral(VARIANT tipo, VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                              VARIANT idblCantidad, VARIANT ivmPorcentajeImpuesto, VARIANT codigo,
                              VARIANT* ret) override;
  STDMETHODIMP pasarLineaFacturaG(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                  VARIANT idblCantidad, VARIANT ivmPorcentajeImpuesto,
                                  VARIANT codigo, short* ret) override;
  STDMETHODIMP anularLineaFacturaG(VARIANT istrDescripcion, VARIANT ivmPrecioNeto,
                                   VARIANT idblCantidad, VARIANT ivmPorcentajeImpuesto,
                                   VARIANT codigo, short* ret) override;
  STDMETHODIMP pasarLineaNCG(VARIANT istrDescripcion, VARIANT ivmPrecioNeto, VARIANT idblCantidad,
                             VARIANT ivmPorcentajeImpuesto, VARIANT codigo, short* ret) override;
  STDMETHODIMP anularLineaNCG(VARIANT istrDescripcion, VARIANT ivmPrecioNeto, VARIANT idblCantidad,
                              VARIANT ivmPorcentajeImpuesto, VARIANT codigo, short* ret) override;
  STDMETHODIMP IndiceTasa(double idblTasa, short* ret) override;

  // Customer data.
  STDMETHODIMP PasarDatosCliente(VARIANT Nombre, VARIANT RIF, VARIANT Direccion,
                                 VARIANT datosFactRel, VARIANT SerialPrinter, VARIANT fechaFactura,
                                 VARIANT* ret) override;
  STDMETHODIMP PasarDatosClienteNC(VARIANT Nombre, VARIANT RIF, VARIANT Direccion,
                                   VARIANT datosFactRel, VARIANT SerialPrinter,
                                   VARIANT fechaFactura, VARIANT* ret) override;
  STDMETHODIMP IniciarFactura(VARIANT Nombre, VARIANT RIF, VARIANT Direccion,
                              VARIANT* ret) override;
  STDMETHODIMP PasarDatosClientePA(VARIANT Nombre, VARIANT RIF, VARIANT Direccion,
                                   BSTR datosFactRel, VARIANT* ret) override;
  STDMETHODIMP PasarDatosClienteNCPA(VARIANT Nombre, VARIANT RIF, VARIANT Direccion,
                                     VARIANT datosFactRel, VARIANT* ret) override;

  // Totals and closing.
  STDMETHODIMP SubTotal(VARIANT doPrint, VARIANT_BOOL* ret) override;
  STDMETHODIMP PasarDescuento(VARIANT dblPorcentaje, VARIANT_BOOL* ret) override;
  STDMETHODIMP PasarMontoDescuento(VARIANT dMonto, VARIANT_BOOL* ret) override;
  STDMETHODIMP descuentoGeneral(VARIANT isPorcentaje, VARIANT isDescuento, VARIANT valor,
                                VARIANT* ret) override;
  STDMETHODIMP CerrarComprobante(VARIANT Monto, short* ret) override;
  STDMETHODIMP CerrarConMedio(VARIANT IndiceMedio, VARIANT Monto, short* ret) override;
  STDMETHODIMP CerrarNotaCredito(short* ret) override;
  STDMETHODIMP CerrarNotaCreditoConMedio(VARIANT IndiceMedio, VARIANT Monto, short* ret) override;
  STDMETHODIMP CerrarDevolucion(VARIANT MedioPago, VARIANT MontoDevuelto, short* ret) override;
  STDMETHODIMP CancelarTransaccion(short* ret) override;

  // Housekeeping.
  STDMETHODIMP PrintNoFiscal(VARIANT sText, VARIANT bCerrar, short* ret) override;
  STDMETHODIMP ReporteDiario(VARIANT sRango, VARIANT sTipo, short* ret) override;
  STDMETHODIMP SetHeader(VARIANT nLineNumber, VARIANT sText, short* ret) override;
  STDMETHODIMP SetFooter(VARIANT nLineNumber, VARIANT sText, short* ret) override;
  STDMETHODIMP SetDate(VARIANT dtFecha, short* ret) override;
  STDMETHODIMP SetTime(VARIANT dtFecha, short* ret) override;
  STDMETHODIMP Login(VARIANT nCajero, short* ret) override;
  STDMETHODIMP Logoff(short* ret) override;
  STDMETHODIMP StartTraining(short* ret) override;
  STDMETHODIMP EndTraining(short* ret) override;
  STDMETHODIMP setFlag(VARIANT Flag, VARIANT Value, VARIANT* ret) override;
  STDMETHODIMP reimprimirDocumentos(BSTR cmd, VARIANT arg1, VARIANT arg2) override;
  STDMETHODIMP reimprimirFactura(VARIANT numero) override;

  // Status queries.
  STDMETHODIMP numeroUltimaFactura(LONG* ret) override;
  STDMETHODIMP NumeroUltimoCierre(LONG* ret) override;
  STDMETHODIMP Response1(IPrinterResponse1** ret) override;
  STDMETHODIMP StatusS1(IPrinterResponse1** ret) override { return Response1(ret); }
  STDMETHODIMP Response2(IPrinterResponse2** ret) override;
  STDMETHODIMP StatusS2(IPrinterResponse2** ret) override { return Response2(ret); }
  STDMETHODIMP Response3(IPrinterResponse3** ret) override;
  STDMETHODIMP Response4(IPrinterResponse4** ret) override;
  STDMETHODIMP StatusS3(IPrinterResponse3** ret) override { return Response3(ret); }
  STDMETHODIMP CerrarZ(IResumenZ** ret) override;
  STDMETHODIMP ResumenZ(IResumenZ** ret) override;
  STDMETHODIMP tasa(VARIANT Index, double* ret) override;
  STDMETHODIMP getEstadoDocumento(IEstadoDocumento** ret) override;
  STDMETHODIMP reportesZMF(VARIANT* desde, VARIANT* hasta, IColeccionZMF** ret) override;
  STDMETHODIMP loadReporteZMF(VARIANT* numero, IReporteZMF** ret) override;

 private:
  // The four arguments that all item lines share, as the host gives them.
  struct HostLine {
    const VARIANT& description;
    const VARIANT& price;
    const VARIANT& quantity;
    const VARIANT& rate;
  };
  // Ends the wait that lets the host run.
  void lastReferenceReleased() noexcept override;

  using ItemCommand = std::int16_t (*)(PrinterSession& session, const std::wstring& description,
                                       Currency price, double quantity, double rate);

  HRESULT sendLine(ItemCommand command, const HostLine& line, short* ret) noexcept;
  std::int16_t sendGeneral(const std::wstring& kind, const HostLine& line, const VARIANT& code);
  HRESULT sendGeneralLine(const wchar_t* kind, const HostLine& line, const VARIANT& code,
                          short* ret) noexcept;

  [[nodiscard]] SessionState& state() noexcept { return session_->state(); }
  [[nodiscard]] Exchange& exchange() noexcept { return session_->exchange(); }
  [[nodiscard]] Outcome& outcome() noexcept { return session_->outcome(); }
  [[nodiscard]] ComPtr<PrinterResponse3Object> rates();
  void setRates(IUnknown* record);

  std::shared_ptr<PrinterSession> session_;
  ComPtr<PrinterResponse3Object> rates_;  // the host's view of state().s3, once it asked for it
};

}  // namespace corvid
