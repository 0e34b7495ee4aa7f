#include "preview/quick_view.h"

#include "basic/run_time_error.h"
#include "preview/clicked_line.h"

#include <algorithm>
#include <exception>

namespace corvid {
namespace {

constexpr const wchar_t* kScreenFontName = L"Courier New";
constexpr double kInitialScreenFont = 9;  // points
constexpr double kRightMargin = 48000;    // twips; far enough that no line wraps
constexpr const wchar_t* kHostApplication = L"Halewood";

}  // namespace

QuickView::QuickView(const Settings& settings, const QuickViewSeams& seams)
    : settings_(settings),
      seams_(seams),
      report_(settings, seams.printer, seams.box, seams.dialogs) {}

void QuickView::setLeftMargin(std::int16_t margin) {
  report_.setLeftMargin(margin);
  if (controlsMade_) seams_.window.setMarginText(std::to_wstring(margin));
}

void QuickView::load() {
  seams_.box.setText(L"");
  seams_.box.setFontName(kScreenFontName);
  seams_.box.setFontSize(kInitialScreenFont);
  seams_.box.setRightMargin(kRightMargin);
  seams_.box.setLocked(!settings_.boolean(kApplication, kPreviewSection, L"EditQView", false));
  seams_.window.setMarginText(std::to_wstring(report_.LeftMargin()));
  controlsMade_ = true;
}

void QuickView::showing() { report_.LoadText(); }

void QuickView::activate() {
  if (!report_.loaded()) report_.LoadText();
}

QuickViewLayout QuickView::resize(double width, double height) {
  const QuickViewLayout layout = layoutQuickView(width, height);
  const double textWidth = layout.of(Control::Text1).width;
  if (textWidth > seams_.box.rightMargin()) seams_.box.setRightMargin(textWidth);
  return layout;
}

void QuickView::print() {
  try {
    takeMarginEntry();
    report_.PrintListBox();
  } catch (const RunTimeError&) {
    return;  // a button has no caller to tell
  }
}

void QuickView::close() {
  // It is No that stops the job: users know the question this way round.
  if (report_.printing() &&
      seams_.dialogs.ask(L"Detener la impresión en progreso", kHostApplication) == Answer::Yes) {
    return;
  }
  report_.stopPrinting();
  seams_.window.hide();
}

void QuickView::choosePrinterFont() {
  try {
    const std::optional<FontChoice> chosen = seams_.dialogs.chooseFont(printerFont());
    if (!chosen) return;
    copyToPrinter(*chosen);
    seams_.box.setFontName(chosen->name);
    report_.fixPrintFont();
  } catch (const PrinterError&) {
    return;
  }
}

FontChoice QuickView::printerFont() {
  ReportPrinter& printer = seams_.printer;
  return {printer.fontName(), printer.fontSize(), printer.fontBold(), printer.fontItalic()};
}

void QuickView::copyToPrinter(const FontChoice& font) {
  seams_.printer.setFontName(font.name);
  seams_.printer.setFontSize(font.size);
  seams_.printer.setFontBold(font.bold);
  seams_.printer.setFontItalic(font.italic);
}

void QuickView::growScreenFont() {
  const double size = seams_.box.fontSize();
  if (size < kGreatestScreenFont) {
    seams_.box.setFontSize(std::min(size + 1, kGreatestScreenFont));
  }
  seams_.box.refresh();
}

void QuickView::shrinkScreenFont() {
  const double size = seams_.box.fontSize();
  if (size > kLeastScreenFont) seams_.box.setFontSize(std::max(size - 1, kLeastScreenFont));
  seams_.box.refresh();
}

void QuickView::search() {
  const std::wstring text =
      seams_.dialogs.input(L"Introduzca el texto a localizar:", L"Buscar", lastSearch_);
  if (!text.empty()) FindText(text);
}

void QuickView::FindText(const std::wstring& text) {
  ReportTextBox& box = seams_.box;
  const std::int64_t next = std::int64_t{box.selectionStart()} + box.selectionLength() + 1;
  const bool wraps = next >= box.length();
  if (!box.find(text, wraps ? 0 : static_cast<std::int32_t>(next))) {
    seams_.dialogs.message(L"No se localizó el texto deseado", L"ADVERTENCIA",
                           MessageIcon::Exclamation);
  }
  lastSearch_ = text;
}

void QuickView::save() {
  const std::optional<std::wstring> path =
      seams_.dialogs.chooseSaveFile({L"Nombre del archivo", L".txt",
                                     settings_.text(kHostApplication, L"General", L"DataDir", L""),
                                     L"Archivos de Texto", L"*.txt"});
  if (!path || seams_.box.saveToFile(*path)) return;
  seams_.dialogs.message(L"No se pudo guardar el archivo: " + *path, L"ADVERTENCIA",
                         MessageIcon::Exclamation);
}

bool QuickView::keyDown(int keyCode) {
  switch (keyCode) {
    case kEscapeKey:
      seams_.window.hide();
      return true;
    case kF3Key:
      FindText(std::wstring(lastSearch_));
      return true;
    default:
      return false;
  }
}

void QuickView::clickText() {
  const auto clicked = clickedLine(seams_.box.text(), seams_.box.selectionStart());
  if (!clicked) return;
  tellClicked(clicked->line, clicked->column);
  seams_.box.select(seams_.box.selectionStart(), 0);
}

void QuickView::tellClicked(const std::wstring& line, std::int32_t column) {
  if (seams_.listener.raiseReportClicked(line, column)) return;
  const std::shared_ptr<NotifyTarget> target = notifyTarget_;  // the handler may have replaced it
  if (!target) return;
  try {
    target->ReportClicked(line, column);
  } catch (const std::exception&) {
    return;  // what goes wrong in the host stays there
  }
}

}  // namespace corvid
