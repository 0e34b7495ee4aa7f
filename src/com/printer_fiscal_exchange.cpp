// The exchange, and replies as a host reads them.
#include "com/host_arrays.h"
#include "com/printer_fiscal_object.h"
#include "com/variant_conversions.h"
#include "protocol/status_explanations.h"

namespace corvid {
namespace {

constexpr const wchar_t* kNoItem = L"<nil>";

Variant itemOf(const HostArray& array, std::int32_t index) {
  if (index < 0 || index > array.upperBound()) return Variant(Bstr(kNoItem));
  return array.element(index);
}

}  // namespace

STDMETHODIMP PrinterFiscalObject::Abrir(VARIANT portNumber) {
  return call([&] { session_->Abrir(toInt16(portNumber)); });
}

STDMETHODIMP PrinterFiscalObject::Cerrar() {
  return call([&] { session_->Cerrar(); });
}

STDMETHODIMP PrinterFiscalObject::AbrirGaveta(VARIANT_BOOL* ret) {
  return giveResult(ret, [&] { return session_->AbrirGaveta(); });
}

STDMETHODIMP PrinterFiscalObject::SendDirect(BSTR sCommand) {
  return call([&] { exchange().SendDirect(std::wstring(viewOf(sCommand))); });
}

STDMETHODIMP PrinterFiscalObject::Execute(BSTR sCmd, short* ret) {
  return giveResult(ret, [&] { return exchange().Execute(std::wstring(viewOf(sCmd))); });
}

STDMETHODIMP PrinterFiscalObject::ExecuteNoCheck(BSTR sCmd) {
  return call([&] { exchange().ExecuteNoCheck(std::wstring(viewOf(sCmd))); });
}

STDMETHODIMP PrinterFiscalObject::SendAck() {
  return call([&] { exchange().SendAck(); });
}

STDMETHODIMP PrinterFiscalObject::GetStatus() {
  return call([&] { exchange().GetStatus(); });
}

STDMETHODIMP PrinterFiscalObject::explainSTS1(VARIANT* ret) {
  return giveResult(ret, [&] { return Variant(Bstr(corvid::explainSTS1(outcome().STS1))); });
}

STDMETHODIMP PrinterFiscalObject::explainSTS2(VARIANT* ret) {
  return giveResult(ret, [&] { return Variant(Bstr(corvid::explainSTS2(outcome().STS2))); });
}

STDMETHODIMP PrinterFiscalObject::Reset(VARIANT* ret) {
  return giveResult(ret, [&] { return Variant::ofInt16(session_->Reset()); });
}

STDMETHODIMP PrinterFiscalObject::NextStatusBlock(VARIANT* ret) {
  return giveResult(ret, [&] { return toStringArray(exchange().NextStatusBlock()); });
}

STDMETHODIMP PrinterFiscalObject::GetResponse(BSTR cmd, VARIANT* ret) {
  return giveResult(ret,
                    [&] { return toHostArray(exchange().GetResponse(std::wstring(viewOf(cmd)))); });
}

STDMETHODIMP PrinterFiscalObject::GetResponseString(BSTR cmd, BSTR sep, BSTR* ret) {
  return giveResult(ret, [&] {
    return exchange().GetResponseString(std::wstring(viewOf(cmd)), std::wstring(viewOf(sep)));
  });
}

STDMETHODIMP PrinterFiscalObject::GetMultipleResponses(BSTR cmd, VARIANT* ret) {
  return giveResult(
      ret, [&] { return toHostArray(exchange().GetMultipleResponses(std::wstring(viewOf(cmd)))); });
}

STDMETHODIMP PrinterFiscalObject::GetMultipleResponsesStr(BSTR cmd, VARIANT itemSep, VARIANT rowSep,
                                                          BSTR* ret) {
  return giveResult(ret, [&] {
    const std::optional<std::wstring> betweenItems = toOptionalText(itemSep);
    const std::optional<std::wstring> betweenRows = toOptionalText(rowSep);
    return exchange().GetMultipleResponsesStr(std::wstring(viewOf(cmd)), betweenItems, betweenRows);
  });
}

STDMETHODIMP PrinterFiscalObject::responseItem(short selector, VARIANT s, VARIANT* ret) {
  return giveResult(ret, [&] { return itemOf(HostArray(s), selector); });
}

}  // namespace corvid
