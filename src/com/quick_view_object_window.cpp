// The window's members of the preview.
#include "basic/conversions.h"
#include "com/host_object.h"
#include "com/quick_view_object.h"
#include "com/variant_conversions.h"

namespace corvid {
namespace {

bool isNothing(const Variant& value) {
  return value.type() == VT_EMPTY || value.type() == VT_NULL ||
         (value.type() == VT_DISPATCH && V_DISPATCH(&value.value()) == nullptr);
}

HWND ownerWindow(const VARIANT& owner) {
  if (isMissing(owner)) return nullptr;
  Variant value;
  if (FAILED(copyWithoutReference(owner, value))) throw typeMismatch();
  if (isNothing(value)) return nullptr;
  if (value.type() == VT_DISPATCH) value = propertyOf(*V_DISPATCH(&value.value()), L"hWnd");
  return static_cast<HWND>(LongToHandle(toInt32(toDecimal(value.value()))));
}

bool isModal(const VARIANT& modal) { return !isMissing(modal) && toDouble(modal) != 0; }

}  // namespace

STDMETHODIMP QuickViewObject::Show(VARIANT Modal, VARIANT OwnerForm) {
  return call([&] {
    auto* const owner = ownerWindow(OwnerForm);
    form_->Show(isModal(Modal), owner);
  });
}

STDMETHODIMP QuickViewObject::Hide() {
  return call([&] { form_->Hide(); });
}

STDMETHODIMP QuickViewObject::get_Visible(VARIANT_BOOL* ret) {
  return giveResult(ret, [&] { return form_->Visible(); });
}

STDMETHODIMP QuickViewObject::put_Visible(VARIANT_BOOL rhs) {
  return call([&] { form_->setVisible(rhs != VARIANT_FALSE); });
}

STDMETHODIMP QuickViewObject::get_Caption(BSTR* ret) {
  return giveResult(ret, [&] { return form_->Caption(); });
}

STDMETHODIMP QuickViewObject::put_Caption(BSTR rhs) {
  return call([&] { form_->setCaption(std::wstring(viewOf(rhs))); });
}

STDMETHODIMP QuickViewObject::get_Left(float* ret) {
  return giveResult(ret, [&] { return form_->Left(); });
}

STDMETHODIMP QuickViewObject::put_Left(float rhs) {
  return call([&] { form_->setLeft(rhs); });
}

STDMETHODIMP QuickViewObject::get_Top(float* ret) {
  return giveResult(ret, [&] { return form_->Top(); });
}

STDMETHODIMP QuickViewObject::put_Top(float rhs) {
  return call([&] { form_->setTop(rhs); });
}

STDMETHODIMP QuickViewObject::get_Width(float* ret) {
  return giveResult(ret, [&] { return form_->Width(); });
}

STDMETHODIMP QuickViewObject::put_Width(float rhs) {
  return call([&] { form_->setWidth(rhs); });
}

STDMETHODIMP QuickViewObject::get_Height(float* ret) {
  return giveResult(ret, [&] { return form_->Height(); });
}

STDMETHODIMP QuickViewObject::put_Height(float rhs) {
  return call([&] { form_->setHeight(rhs); });
}

STDMETHODIMP QuickViewObject::get_hWnd(LONG* ret) {
  return giveResult(ret, [&] { return form_->hWnd(); });
}

}  // namespace corvid
