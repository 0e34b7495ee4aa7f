// The report of a preview window: its lines and pages, fitted to a printer and printed on it.
#pragma once

#include "basic/string_buffer.h"
#include "platform/settings.h"
#include "preview/report_dialogs.h"
#include "preview/report_printer.h"
#include "preview/report_text_box.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

// The section of the window's settings.
inline constexpr const wchar_t* kPreviewSection = L"FVIEW";
// The number of lines per page that stands for no paging.
inline constexpr std::int16_t kNoPaging = 32767;

// How a printing ended.
enum class PrintEnd {
  Printed,
  Stopped,  // by stopPrinting, or by the user in a dialog of the printer's driver
  Failed,
  Busy,  // another one runs, and nothing was done
};

// Told in words about the call that a printer failed and its error; throws nothing.
using FailureTrace = std::function<void(const std::wstring& words)>;

// Line and page counters are 16-bit: stepping one beyond its end throws overflow (6) after what
// came before it in the member was done. Lines count from 1 on each page. One thread; the seams
// outlive the report.
class Report {
 public:
  // Reads the settings "MaxFontSize", "FontFactor" and "FontOffset"; a value that does not fit
  // leaves its default: 14, 1, 0. No printer is asked: a width of 120 characters is fitted before
  // the first Add, LineasPagina, SetPrintFontSize, PrintListBox or font dialog, unless
  // SetReportWidth came first. That may show its dialogs, and throws nothing: where it ends early
  // there is no paging.
  Report(const Settings& settings, ReportPrinter& printer, ReportTextBox& box,
         ReportDialogs& dialogs, FailureTrace trace = {});

  // Spaces before every printed line. Below 0: error 0x80040005 "Argumento inválido", and the
  // margin stays.
  [[nodiscard]] std::int16_t LeftMargin() const { return leftMargin_; }
  void setLeftMargin(std::int16_t margin);

  void SetNumeroPagina(std::int16_t page) { pageNumber_ = page; }
  void SetLinesPerPage(std::int16_t lines) {
    linesPerPage_ = lines;
    linesAreSet_ = true;
  }
  // Fixes the printer's font for good, in whole points: no width is fitted any more. While a report
  // is printed this and SetReportWidth wait for its end.
  void SetPrintFontSize(std::int16_t size);
  // Keeps the width in characters. Unless the printer font is fixed, fits the printer's font to it
  // in steps of half a point, from "MaxFontSize" down to 4 points, corrects the size by
  // "FontOffset" and "FontFactor", and takes the lines per page from the printer. At 4 points or
  // less it warns and asks: any answer but No leaves the lines per page as they were. True when
  // they were taken; false too when the printer fails, which the trace tells, and while a report is
  // printed. Errors: 6 for a width or lines per
  // page beyond 16 bits, 5 for a width below -6, 11 for a font without height.
  bool SetReportWidth(std::int16_t width);

  // Adds a line, followed by one space, after a page break where the page is full. Alignment 0 is
  // left, 1 right (error 5 for a text longer than the width), 2 centred (a longer text is cut, odd
  // spaces round half to even); any other gives an empty line.
  void Add(std::wstring_view text, std::int32_t alignment);
  // Adds a line of width + 2 underscores and counts one page on.
  void PageBreak();
  // Moves the buffered lines into the text box, if that is empty. After lines were added the caret
  // goes to offset 1. From now on lines go straight to the end of the text box.
  void LoadText();

  [[nodiscard]] std::int16_t Linea() const { return currentLine_; }
  [[nodiscard]] std::int16_t Pagina() const { return pageNumber_; }
  // One less than the lines per page; error 6 at the 16-bit end.
  [[nodiscard]] std::int16_t LineasPagina();

  // Prints the report's text, fitted anew unless the printer font is fixed. A line that begins
  // with "_" starts a new page instead; tabs go to the next multiple of eight columns. The device
  // "VERIFONE" (any case) gets every line as a carriage return and exactly 40 characters. A printer
  // error ends it with the job aborted, and the trace tells; run-time errors do too and reach the
  // caller. While a report is printed, whatever messages a driver's dialogs run, nothing is done.
  PrintEnd print();
  void PrintListBox() { static_cast<void>(print()); }
  // The words of the last printer error; empty before one.
  [[nodiscard]] const std::wstring& failure() const { return failure_; }

  // Whether a report is printed and was not told to stop.
  [[nodiscard]] bool printing() const { return printing_; }
  // What is printed is aborted before the next line.
  void stopPrinting() { printing_ = false; }
  // At once, or when what is printed has ended; what it throws then is passed over.
  void whenNotPrinting(std::function<void()> change);
  // Fits what creation owes.
  void settle();
  // Ends the fitting of the printer's font, as SetPrintFontSize does.
  void fixPrintFont() { printFontFixed_ = true; }
  // All lines, as the text box shows them or will.
  [[nodiscard]] std::wstring text();
  // Whether LoadText has run.
  [[nodiscard]] bool loaded() const { return loaded_; }

 private:
  class Busy;

  void readSettings(const Settings& settings);
  bool fitWidth(std::int16_t width);
  bool fitToPrinter();
  void shrinkFontToWidth(double usable);
  void correctFontSize();
  bool refitsSmallFont();
  std::int16_t fittingLines();
  [[nodiscard]] std::wstring aligned(std::wstring_view text, std::int32_t alignment) const;
  void addLine(const std::wstring& line);
  PrintEnd printDocument();
  void printLines(std::wstring_view text);
  void abandonPrinting();
  void noteFailure(const PrinterError& error);
  void makeWaitingChanges();

  ReportPrinter& printer_;
  ReportTextBox& box_;
  ReportDialogs& dialogs_;
  FailureTrace trace_;

  std::int16_t currentLine_ = 1;
  std::int16_t pageNumber_ = 1;
  std::int16_t reportWidth_ = 120;
  std::int16_t linesPerPage_ = kNoPaging;
  std::int16_t leftMargin_ = 0;
  bool textAdded_ = false;
  bool loaded_ = false;
  bool owesFitting_ = true;
  bool linesAreSet_ = false;
  bool busy_ = false;      // print() runs
  bool printing_ = false;  // and was not told to stop
  bool printFontFixed_ = false;
  std::vector<std::function<void()>> waiting_;  // changes, for the end of print()
  std::wstring failure_;
  std::wstring fontName_ = L"Courier New";
  double maxFontSize_ = 14;  // points
  float fontFactor_ = 1;
  std::int16_t fontOffset_ = 0;  // points
  CStringBuffer buffer_;         // the lines while the text box is not loaded
};

}  // namespace corvid
