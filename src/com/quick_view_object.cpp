// The object behind the window: its life, its events and the report.
#include "com/quick_view_object.h"

#include "basic/conversions.h"
#include "com/host_object.h"
#include "com/variant_conversions.h"

#include <array>
#include <utility>
#include <vector>

namespace corvid {
namespace {

constexpr DISPID kReportClicked = 1;

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

// The host's object that is told about clicked lines.
class LateNotifyTarget : public NotifyTarget {
 public:
  explicit LateNotifyTarget(IDispatch* target) : target_(target) {}

  void ReportClicked(const std::wstring& line, std::int32_t column) override {
    std::vector<Variant> arguments;
    arguments.emplace_back(Bstr(line));
    arguments.push_back(Variant::ofInt32(column));
    callMethod(*target_.get(), L"ReportClicked", arguments);
  }

 private:
  ComPtr<IDispatch> target_;
};

}  // namespace

// The form may outlive its object by the rest of the call that ends both.
class QuickViewObject::Events : public FormEvents {
 public:
  explicit Events(QuickViewObject& object) : object_(&object) {}

  bool raiseReportClicked(const std::wstring& line, std::int32_t column) override {
    try {
      const ComPtr<IlfQuickView> alive(object_);  // a handler may let go of it
      return alive && object_->raiseReportClicked(line, column);
    } catch (...) {
      return false;
    }
  }
  void shown() override { whileVisible_ = ComPtr<IlfQuickView>(object_); }
  void hidden() override { static_cast<void>(std::exchange(whileVisible_, {})); }
  void objectGone() { object_ = nullptr; }

 private:
  ModuleReference module_;
  QuickViewObject* object_;
  ComPtr<IlfQuickView> whileVisible_;
};

QuickViewObject::QuickViewObject()
    : connections_(*this, *this, __uuidof(DlfQuickViewEvents)),
      events_(std::make_shared<Events>(*this)) {}

QuickViewObject::~QuickViewObject() { events_->objectGone(); }

ComPtr<QuickViewObject> QuickViewObject::create(const Settings& settings,
                                                const PrinterOpener& openPrinter,
                                                FailureTrace trace) {
  auto object = ComPtr<QuickViewObject>::adopt(new QuickViewObject());
  object->form_ = QuickViewForm::create(settings, object->events_, openPrinter, std::move(trace));
  return object;
}

bool QuickViewObject::raiseReportClicked(const std::wstring& line, std::int32_t column) {
  const Bstr text(line);
  VARIANT_BOOL cancel = VARIANT_FALSE;
  std::array<VARIANT, 3> reversed{};
  V_VT(reversed.data()) = VT_BYREF | VT_BOOL;
  V_BOOLREF(reversed.data()) = &cancel;
  V_VT(&reversed[1]) = VT_I4;
  V_I4(&reversed[1]) = column;
  V_VT(&reversed[2]) = VT_BSTR;
  V_BSTR(&reversed[2]) = text.get();
  DISPPARAMS arguments{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  connections_.raise(kReportClicked, arguments);
  return cancel != VARIANT_FALSE;
}

STDMETHODIMP QuickViewObject::GetGUID(DWORD kind, GUID* id) {
  if (id == nullptr) return E_POINTER;
  *id = GUID_NULL;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *id = __uuidof(DlfQuickViewEvents);
  return S_OK;
}

STDMETHODIMP QuickViewObject::EnumConnectionPoints(IEnumConnectionPoints** walk) {
  return enumerateOne(connections_, walk);
}

STDMETHODIMP QuickViewObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  if (id != __uuidof(DlfQuickViewEvents)) return CONNECT_E_NOCONNECTION;
  *point = ComPtr<IConnectionPoint>(&connections_).detach();
  return S_OK;
}

STDMETHODIMP QuickViewObject::SetNotify(IDispatch* target) {
  return call([&] {
    form_->view().SetNotify(target != nullptr ? std::make_shared<LateNotifyTarget>(target)
                                              : nullptr);
  });
}

STDMETHODIMP QuickViewObject::Show(VARIANT Modal, VARIANT OwnerForm) {
  return call([&] {
    auto* const owner = ownerWindow(OwnerForm);
    form_->Show(isModal(Modal), owner);
  });
}

}  // namespace corvid
