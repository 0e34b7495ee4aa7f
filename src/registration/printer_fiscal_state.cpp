// State, framing and status queries.
#include "records/status_queries.h"
#include "registration/printer_fiscal_object.h"
#include "registration/printer_response1_object.h"
#include "session/framing.h"

namespace corvid {

// The same record gives the same object, so that a host may compare references.
ComPtr<PrinterResponse3Object> PrinterFiscalObject::rates() {
  const auto record = std::dynamic_pointer_cast<PrinterResponse3>(state().s3);
  if (!record) {
    rates_ = {};
  } else if (!rates_ || rates_->record() != record) {
    rates_ = makeObject<PrinterResponse3Object>(record);
  }
  return rates_;
}

void PrinterFiscalObject::setRates(IUnknown* record) {
  ComPtr<PrinterResponse3Object> own;
  if (record != nullptr) {
    own = PrinterResponse3Object::behind(record);
    if (!own) throw typeMismatch();
  }
  rates_ = own;
  state().s3 = own ? own->record() : nullptr;
}

STDMETHODIMP PrinterFiscalObject::get_s3(IPrinterResponse3** ret) {
  return giveResult(ret, [&] { return rates(); });
}

STDMETHODIMP PrinterFiscalObject::put_s3(IPrinterResponse3* rhs) {
  return call([&] { setRates(rhs); });
}

STDMETHODIMP PrinterFiscalObject::get_lError(short* ret) {
  return giveResult(ret, [&] { return session_->lError(); });
}

STDMETHODIMP PrinterFiscalObject::get_lStatus(short* ret) {
  return giveResult(ret, [] { return PrinterFiscal::lStatus(); });
}

STDMETHODIMP PrinterFiscalObject::tipoPrinter(::VariantesPF* ret) {
  return giveResult(ret, [&] { return session_->tipoPrinter(); });
}

STDMETHODIMP PrinterFiscalObject::BuildCommandBlock(BSTR command, BSTR* ret) {
  return giveResult(ret, [&] {
    return corvid::BuildCommandBlock(viewOf(command), session_->library().codePage());
  });
}

STDMETHODIMP PrinterFiscalObject::CalcXOr(BSTR s, short* ret) {
  return giveResult(ret,
                    [&] { return corvid::CalcXOr(viewOf(s), session_->library().codePage()); });
}

STDMETHODIMP PrinterFiscalObject::EscapeString(BSTR s, BSTR* ret) {
  return giveResult(ret, [&] { return corvid::EscapeString(viewOf(s)); });
}

STDMETHODIMP PrinterFiscalObject::Response1(IPrinterResponse1** ret) {
  return giveResult(
      ret, [&] { return makeObject<PrinterResponse1Object>(corvid::Response1(*session_)); });
}

STDMETHODIMP PrinterFiscalObject::Response3(IPrinterResponse3** ret) {
  return giveResult(
      ret, [&] { return makeObject<PrinterResponse3Object>(corvid::Response3(*session_)); });
}

}  // namespace corvid
