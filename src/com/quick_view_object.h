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
      const Settings& settings, const PrinterOpener& openPrinter = openDefaultPrinter,
      FailureTrace trace = {});

  // The report.
  STDMETHODIMP put_LeftMargin(short rhs) override {
    return run(&QuickView::setLeftMargin, form_->view(), rhs);
  }
  STDMETHODIMP get_LeftMargin(short* ret) override {
    return answer(ret, &Report::LeftMargin, report());
  }
  // The target is held until it is replaced; its members are looked up when a line is clicked.
  STDMETHODIMP SetNotify(IDispatch* target) override;
  STDMETHODIMP SetNumeroPagina(short page) override {
    return run(&Report::SetNumeroPagina, report(), page);
  }
  STDMETHODIMP SetLinesPerPage(short lines) override {
    return run(&Report::SetLinesPerPage, report(), lines);
  }
  STDMETHODIMP SetPrintFontSize(short size) override {
    return run(&Report::SetPrintFontSize, report(), size);
  }
  STDMETHODIMP SetReportWidth(short Width, VARIANT_BOOL* ret) override {
    return answer(ret, &Report::SetReportWidth, report(), Width);
  }
  STDMETHODIMP LoadText() override { return run(&Report::LoadText, report()); }
  STDMETHODIMP PageBreak() override { return run(&Report::PageBreak, report()); }
  STDMETHODIMP Add(BSTR text, LONG alignment) override {
    return run(&Report::Add, report(), text, alignment);
  }
  STDMETHODIMP get_Linea(short* ret) override { return answer(ret, &Report::Linea, report()); }
  STDMETHODIMP get_Pagina(short* ret) override { return answer(ret, &Report::Pagina, report()); }
  STDMETHODIMP get_LineasPagina(short* ret) override {
    return answer(ret, &Report::LineasPagina, report());
  }
  STDMETHODIMP PrintListBox() override { return run(&Report::PrintListBox, report()); }

  // The window. The owner is an object with a property hWnd, a window handle, or Nothing.
  STDMETHODIMP Show(VARIANT Modal, VARIANT OwnerForm) override;
  STDMETHODIMP Hide() override { return run(&QuickViewForm::Hide, *form_); }
  STDMETHODIMP get_Visible(VARIANT_BOOL* ret) override {
    return answer(ret, &QuickViewForm::Visible, *form_);
  }
  STDMETHODIMP put_Visible(VARIANT_BOOL rhs) override {
    return run(&QuickViewForm::setVisible, *form_, rhs);
  }
  STDMETHODIMP get_Caption(BSTR* ret) override {
    return answer(ret, &QuickViewForm::Caption, *form_);
  }
  STDMETHODIMP put_Caption(BSTR rhs) override {
    return run(&QuickViewForm::setCaption, *form_, rhs);
  }
  STDMETHODIMP get_Left(float* ret) override { return answer(ret, &QuickViewForm::Left, *form_); }
  STDMETHODIMP put_Left(float rhs) override { return run(&QuickViewForm::setLeft, *form_, rhs); }
  STDMETHODIMP get_Top(float* ret) override { return answer(ret, &QuickViewForm::Top, *form_); }
  STDMETHODIMP put_Top(float rhs) override { return run(&QuickViewForm::setTop, *form_, rhs); }
  STDMETHODIMP get_Width(float* ret) override { return answer(ret, &QuickViewForm::Width, *form_); }
  STDMETHODIMP put_Width(float rhs) override { return run(&QuickViewForm::setWidth, *form_, rhs); }
  STDMETHODIMP get_Height(float* ret) override {
    return answer(ret, &QuickViewForm::Height, *form_);
  }
  STDMETHODIMP put_Height(float rhs) override {
    return run(&QuickViewForm::setHeight, *form_, rhs);
  }
  STDMETHODIMP get_hWnd(LONG* ret) override { return answer(ret, &QuickViewForm::hWnd, *form_); }

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
