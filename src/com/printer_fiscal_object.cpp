#include "com/printer_fiscal_object.h"

#include "com/own_object.h"
#include "com/z_report_objects.h"
#include "corvid_version.h"
#include "protocol/framing.h"
#include "protocol/status_explanations.h"
#include "session/diagnosis.h"
#include "windows/system_facts.h"

#include <string_view>

namespace corvid {
namespace {

constexpr const wchar_t* kNoItem = L"<nil>";

Variant itemOf(const HostArray& array, std::int32_t index) {
  if (index < 0 || index > array.upperBound()) return Variant(Bstr(kNoItem));
  return array.element(index);
}

// A missing argument asks for the print, Null for none.
bool toPrintFlag(const VARIANT& value) {
  if (isMissing(value)) return true;
  const Variant resolved = resolve(value);
  return resolved.type() != VT_NULL && toBoolean(resolved.value());
}

std::wstring versionText() {
  constexpr std::string_view kVersion = CORVID_VERSION_TEXT;
  return std::wstring(kVersion.begin(), kVersion.end()) +
         (sizeof(void*) == 8 ? L" (64 bits)" : L" (32 bits)");
}

}  // namespace

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
  if (record != nullptr) {
    own = ComPtr<PrinterResponse3Object>(OwnObject<PrinterResponse3Object>(record).get());
  }
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

STDMETHODIMP PrinterFiscalObject::BuildCommandBlock(BSTR command, BSTR* ret) {
  return giveResult(ret, [&] {
    return corvid::BuildCommandBlock(viewOf(command), session().thread().codePage());
  });
}

STDMETHODIMP PrinterFiscalObject::CalcXOr(BSTR s, short* ret) {
  return giveResult(ret, [&] { return corvid::CalcXOr(viewOf(s), session().thread().codePage()); });
}

STDMETHODIMP PrinterFiscalObject::EscapeString(BSTR s, BSTR* ret) {
  return giveResult(ret, [&] { return corvid::EscapeString(viewOf(s)); });
}

STDMETHODIMP PrinterFiscalObject::explainSTS1(VARIANT* ret) {
  return giveResult(ret, [&] { return corvid::explainSTS1(outcome().STS1); });
}

STDMETHODIMP PrinterFiscalObject::explainSTS2(VARIANT* ret) {
  return giveResult(ret, [&] { return corvid::explainSTS2(outcome().STS2); });
}

STDMETHODIMP PrinterFiscalObject::NextStatusBlock(VARIANT* ret) {
  return giveResult(ret, [&] { return toStringArray(exchange().NextStatusBlock()); });
}

STDMETHODIMP PrinterFiscalObject::responseItem(short selector, VARIANT array, VARIANT* ret) {
  return giveResult(ret, [&] { return itemOf(HostArray(array), selector); });
}

STDMETHODIMP PrinterFiscalObject::SubTotal(VARIANT print, VARIANT_BOOL* ret) {
  return giveResult(ret, [&] { return corvid::SubTotal(session(), toPrintFlag(print)); });
}

STDMETHODIMP PrinterFiscalObject::CerrarZ(IResumenZ** ret) {
  return answer(ret, corvid::CerrarZ, exchange());
}

STDMETHODIMP PrinterFiscalObject::ResumenZ(IResumenZ** ret) {
  return answer(ret, loadResumenZ, exchange());
}

STDMETHODIMP PrinterFiscalObject::reportesZMF(VARIANT* first, VARIANT* last, IColeccionZMF** ret) {
  return giveResult(ret, [&] {
    return makeObject<ColeccionZMFObject>(callWith(corvid::reportesZMF, exchange(), first, last));
  });
}

STDMETHODIMP PrinterFiscalObject::get_Version(BSTR* ret) {
  return giveResult(ret, [] { return versionText(); });
}

STDMETHODIMP PrinterFiscalObject::get_Diagnostico(BSTR* ret) {
  return giveResult(ret, [&] {
    return diagnosis(session(), {versionText(), modulePath(), windowsVersion(), regionText()});
  });
}

STDMETHODIMP PrinterFiscalObject::get_Puertos(VARIANT* ret) {
  return giveResult(ret, [&] { return toHostArray(session().thread().transports().present()); });
}

STDMETHODIMP PrinterFiscalObject::loadReporteZMF(VARIANT* number, IReporteZMF** ret) {
  return answer(ret, corvid::loadReporteZMF, exchange(), number);
}

}  // namespace corvid
