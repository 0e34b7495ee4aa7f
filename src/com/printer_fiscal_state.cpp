// State and framing.
#include "com/printer_fiscal_object.h"
#include "protocol/framing.h"
#include "records/rates_record.h"

namespace corvid {

// The same record gives the same object, so that a host may compare references.
ComPtr<PrinterResponse3Object> PrinterFiscalObject::rates() {
  const auto record = state().s3;
  if (!record) {
    rates_ = {};
  } else if (!rates_ || rates_->record() != record) {
    rates_ = makeObject<PrinterResponse3Object>(record);
  }
  return rates_;
}

void PrinterFiscalObject::setRates(IUnknown* record) {
  ComPtr<PrinterResponse3Object> own;
  if (record != nullptr) own = requireOwn<PrinterResponse3Object>(record);
  rates_ = own;
  state().s3 = own ? own->record() : nullptr;
}

void PrinterFiscalObject::lastReferenceReleased() noexcept {
  static_cast<void>(guarded(__uuidof(IPrinterFiscal), [&] { session_->abandon(); }));
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
  return giveResult(ret, [] { return PrinterSession::lStatus(); });
}

STDMETHODIMP PrinterFiscalObject::tipoPrinter(::VariantesPF* ret) {
  return giveResult(ret, [&] { return session_->tipoPrinter(); });
}

STDMETHODIMP PrinterFiscalObject::BuildCommandBlock(BSTR command, BSTR* ret) {
  return giveResult(ret, [&] {
    return corvid::BuildCommandBlock(viewOf(command), session_->thread().codePage());
  });
}

STDMETHODIMP PrinterFiscalObject::CalcXOr(BSTR s, short* ret) {
  return giveResult(ret, [&] { return corvid::CalcXOr(viewOf(s), session_->thread().codePage()); });
}

STDMETHODIMP PrinterFiscalObject::EscapeString(BSTR s, BSTR* ret) {
  return giveResult(ret, [&] { return corvid::EscapeString(viewOf(s)); });
}

}  // namespace corvid
