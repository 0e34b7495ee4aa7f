#include "preview/quick_view.h"

#include "basic/run_time_error.h"
#include "preview/clicked_line.h"
#include "preview/text_search.h"

#include <algorithm>
#include <array>
#include <exception>

namespace corvid {
namespace {

constexpr double kRightMargin = 48000;  // twips; far enough that no line wraps
constexpr const wchar_t* kHostApplication = L"Halewood";

// The letters' key codes are their own.
struct KeyAction {
  KeyPress key;
  void (QuickView::*act)();
};
constexpr std::array<KeyAction, 4> kKeyActions = {{
    {{kF3Key, false, true}, &QuickView::findPrevious},
    {{L'F', true, false}, &QuickView::search},
    {{L'P', true, false}, &QuickView::print},
    {{L'S', true, false}, &QuickView::save},
}};

}  // namespace

QuickView::QuickView(const Settings& settings, const QuickViewSeams& seams)
    : settings_(settings),
      seams_(seams),
      report_(settings, seams.printer, seams.box, seams.dialogs, seams.trace) {}

void QuickView::setLeftMargin(std::int16_t margin) {
  report_.setLeftMargin(margin);
  if (controlsMade_) seams_.window.setMarginText(std::to_wstring(margin));
}

void QuickView::load() {
  seams_.box.setText(L"");
  seams_.box.setFont(screenFontName_, screenFontSize_);
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
    if (report_.print() != PrintEnd::Failed) return;
    warn(L"No se pudo imprimir el reporte: " + report_.failure());
  } catch (const RunTimeError& error) {  // a button has no caller to raise it to
    warn(L"No se pudo imprimir el reporte: " + error.description());
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
  report_.settle();
  const std::optional<FontChoice> chosen = seams_.dialogs.chooseFont(printerFont());
  if (!chosen) return;
  screenFontName_ = chosen->name;
  seams_.box.setFont(screenFontName_, screenFontSize_);
  report_.fixPrintFont();
  report_.whenNotPrinting([this, font = *chosen] { copyToPrinter(font); });
}

FontChoice QuickView::printerFont() {
  ReportPrinter& printer = seams_.printer;
  return {printer.fontName(), printer.fontSize(), printer.fontBold(), printer.fontItalic()};
}

void QuickView::copyToPrinter(const FontChoice& font) {
  ReportPrinter& printer = seams_.printer;
  try {
    printer.setFontName(font.name);
    printer.setFontSize(font.size);
    printer.setFontBold(font.bold);
    printer.setFontItalic(font.italic);
  } catch (const PrinterError& error) {
    if (seams_.trace) seams_.trace(L"Printer: " + error.words());
  }
  printer.release();
}

void QuickView::stepScreenFont(int points) {
  const double wanted = screenFontSize_ + points;
  screenFontSize_ = std::clamp(wanted, kLeastScreenFont, kGreatestScreenFont);
  seams_.box.setFont(screenFontName_, screenFontSize_);
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
  if (!box.find(text, wraps ? 0 : static_cast<std::int32_t>(next))) tellNotFound();
  lastSearch_ = text;
}

void QuickView::findPrevious() {
  ReportTextBox& box = seams_.box;
  const auto found = findBackward(box.text(), lastSearch_, box.selectionStart());
  if (!found) return tellNotFound();
  box.select(*found, static_cast<std::int32_t>(lastSearch_.size()));
}

void QuickView::tellNotFound() { warn(L"No se localizó el texto deseado"); }

void QuickView::warn(const std::wstring& text) {
  seams_.dialogs.message(text, L"ADVERTENCIA", MessageIcon::Exclamation);
}

void QuickView::save() {
  const std::optional<std::wstring> path =
      seams_.dialogs.chooseSaveFile({L"Nombre del archivo", L".txt",
                                     settings_.text(kHostApplication, L"General", L"DataDir", L""),
                                     L"Archivos de Texto", L"*.txt"});
  if (!path) return;
  const std::wstring reason = saveWhole(seams_.files, *path, report_.text());
  if (!reason.empty()) warn(L"No se pudo guardar el archivo: " + *path + L"\r\n" + reason);
}

bool QuickView::keyDown(const KeyPress& key) {
  if (key.code == kEscapeKey) return seams_.window.hide(), true;
  if (key.code == kF3Key && !key.shift) return FindText(std::wstring(lastSearch_)), true;
  const auto* const found = std::ranges::find(kKeyActions, key, &KeyAction::key);
  if (found != kKeyActions.end()) return (this->*found->act)(), true;
  if (!key.control) return false;
  const bool grows = std::ranges::count(kPlusKeys, key.code) != 0;
  if (!grows && std::ranges::count(kMinusKeys, key.code) == 0) return false;
  stepScreenFont(grows ? 1 : -1);
  return true;
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
