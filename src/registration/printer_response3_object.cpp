#include "registration/printer_response3_object.h"

#include "registration/host_arrays.h"
#include "registration/variant_conversions.h"

namespace corvid {
namespace {

// Known to this module alone: whoever answers to it is an object of this class.
constexpr GUID kOwnObject = {
    0x0d28556a, 0x12e4, 0x4d11, {0xb8, 0x62, 0x6a, 0xda, 0x8c, 0x5b, 0xe7, 0xcc}};

}  // namespace

ComPtr<PrinterResponse3Object> PrinterResponse3Object::behind(IUnknown* reference) noexcept {
  void* found = nullptr;
  if (FAILED(reference->QueryInterface(kOwnObject, &found))) return {};
  auto* own = static_cast<IPrinterResponse3*>(static_cast<IUnknown*>(found));
  return ComPtr<PrinterResponse3Object>::adopt(static_cast<PrinterResponse3Object*>(own));
}

IUnknown* PrinterResponse3Object::findPrivateInterface(REFIID id) noexcept {
  return id == kOwnObject ? static_cast<IPrinterResponse3*>(this) : nullptr;
}

STDMETHODIMP PrinterResponse3Object::loadFake() {
  return call([&] { record_->loadFake(); });
}

STDMETHODIMP PrinterResponse3Object::loadFromResponse(VARIANT v) {
  return call([&] { record_->loadFromResponse(HostArray(v)); });
}

STDMETHODIMP PrinterResponse3Object::Flag(short n, short* ret) {
  return giveResult(ret, [&] { return record_->Flag(n); });
}

STDMETHODIMP PrinterResponse3Object::imagenIncluido(VARIANT t, BSTR* ret) {
  return giveResult(ret, [&] { return PrinterResponse3::imagenIncluido(toBoolean(t)); });
}

STDMETHODIMP PrinterResponse3Object::toString(BSTR* ret) {
  return giveResult(ret, [&] { return record_->toString(); });
}

}  // namespace corvid
