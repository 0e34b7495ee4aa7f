// lfQuickView for hosts.
#pragma once

#include "com/dispatch_object.h"
#include "com/event_connections.h"
#include "corvid_interfaces.h"
#include "platform/settings.h"
#include "windows/quick_view_form.h"

#include <memory>
#include <string>

namespace corvid {

// Holds itself while its window is visible.
class QuickViewObject final
    : public DispatchObject<IlfQuickView, ::lfQuickView, IConnectionPointContainer> {
 public:
  [[nodiscard]] static ComPtr<QuickViewObject> create(
      const Settings& settings, const PrinterOpener& openPrinter = openDefaultPrinter);

  // The report.
  STDMETHODIMP put_LeftMargin(short rhs) override;
  STDMETHODIMP get_LeftMargin(short* ret) override;
  // The target is held until it is replaced; its members are looked up when a line is clicked.
  STDMETHODIMP SetNotify(IDispatch* target) override;
  STDMETHODIMP SetNumeroPagina(short page) override;
  STDMETHODIMP SetLinesPerPage(short lines) override;
  STDMETHODIMP SetPrintFontSize(short size) override;
  STDMETHODIMP SetReportWidth(short Width, VARIANT_BOOL* ret) override;
  STDMETHODIMP LoadText() override;
  STDMETHODIMP PageBreak() override;
  STDMETHODIMP Add(BSTR Text, LONG alignment) override;
  STDMETHODIMP get_Linea(short* ret) override;
  STDMETHODIMP get_Pagina(short* ret) override;
  STDMETHODIMP get_LineasPagina(short* ret) override;
  STDMETHODIMP PrintListBox() override;

  // The window. The owner is an object with a property hWnd, a window handle, or Nothing.
  STDMETHODIMP Show(VARIANT Modal, VARIANT OwnerForm) override;
  STDMETHODIMP Hide() override;
  STDMETHODIMP get_Visible(VARIANT_BOOL* ret) override;
  STDMETHODIMP put_Visible(VARIANT_BOOL rhs) override;
  STDMETHODIMP get_Caption(BSTR* ret) override;
  STDMETHODIMP put_Caption(BSTR rhs) override;
  STDMETHODIMP get_Left(float* ret) override;
  STDMETHODIMP put_Left(float rhs) override;
  STDMETHODIMP get_Top(float* ret) override;
  STDMETHODIMP put_Top(float rhs) override;
  STDMETHODIMP get_Width(float* ret) override;
  STDMETHODIMP put_Width(float rhs) override;
  STDMETHODIMP get_Height(float* ret) override;
  STDMETHODIMP put_Height(float rhs) override;
  STDMETHODIMP get_hWnd(LONG* ret) override;

  // Events.
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override;
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** walk) override;
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

 private:
  class Events;

  QuickViewObject();
  ~QuickViewObject() override;

  [[nodiscard]] bool raiseReportClicked(const std::wstring& line, std::int32_t column);
  [[nodiscard]] Report& report() { return form_->view().report(); }

  EventConnections connections_;
  std::shared_ptr<Events> events_;
  std::shared_ptr<QuickViewForm> form_;
};

}  // namespace corvid
