// The report of a preview window: its lines and pages, fitted to a printer and printed on it.
#pragma once

#include "basic/string_buffer.h"
#include "platform/settings.h"
#include "preview/report_dialogs.h"
#include "preview/report_printer.h"
#include "preview/report_text_box.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// The section of the window's settings.
inline constexpr const wchar_t* kPreviewSection = L"FVIEW";
// The number of lines per page that stands for no paging.
inline constexpr std::int16_t kNoPaging = 32767;

// Line and page counters are 16-bit: stepping one beyond its end throws overflow (6) after what
// came before it in the member was done. Lines count from 1 on each page. One thread; the seams
// outlive the report.
class Report {
 public:
  // Reads the settings "MaxFontSize", "FontFactor" and "FontOffset" (a value that does not fit
  // leaves its default: 14, 1, 0) and fits a width of 120 characters, which may show the dialogs
  // of SetReportWidth. Throws nothing: where the fitting ends early there is no paging.
  Report(const Settings& settings, ReportPrinter& printer, ReportTextBox& box,
         ReportDialogs& dialogs);

  // Spaces before every printed line. Below 0: error 0x80040005 "Argumento inválido", and the
  // margin stays.
  [[nodiscard]] std::int16_t LeftMargin() const { return leftMargin_; }
  void setLeftMargin(std::int16_t margin);

  void SetNumeroPagina(std::int16_t page) { pageNumber_ = page; }
  void SetLinesPerPage(std::int16_t lines) { linesPerPage_ = lines; }
  // Fixes the printer's font for good, in whole points: no width is fitted any more. Without a
  // printer only the fitting ends.
  void SetPrintFontSize(std::int16_t size);
  // Keeps the width in characters. Unless the printer font is fixed, fits the printer's font to it
  // in steps of half a point, from "MaxFontSize" down to 4 points, corrects the size by
  // "FontOffset" and "FontFactor", and takes the lines per page from the printer. At 4 points or
  // less it warns and asks: any answer but No leaves the lines per page as they were. True when
  // they were taken; false too when the printer fails, quietly. Errors: 6 for a width or lines per
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
  [[nodiscard]] std::int16_t LineasPagina() const;

  // Prints the text box's text, fitted anew unless the printer font is fixed. A line that begins
  // with "_" starts a new page instead. The device "VERIFONE" (any case) gets every line as a
  // carriage return and exactly 40 characters. A printer error ends it quietly with the job
  // aborted; so do run-time errors, which reach the caller.
  void PrintListBox();

  // Whether PrintListBox runs and was not told to stop.
  [[nodiscard]] bool printing() const { return printing_; }
  // A running PrintListBox aborts its job before the next line.
  void stopPrinting() { printing_ = false; }
  // Ends the fitting of the printer's font, as SetPrintFontSize does.
  void fixPrintFont() { printFontFixed_ = true; }
  // Whether LoadText has run.
  [[nodiscard]] bool loaded() const { return loaded_; }

 private:
  void readSettings(const Settings& settings);
  void fitInitialWidth();
  bool fitToPrinter();
  void shrinkFontToWidth();
  void correctFontSize();
  bool refitsSmallFont();
  std::int16_t fittingLines();
  [[nodiscard]] std::wstring aligned(std::wstring_view text, std::int32_t alignment) const;
  void addLine(const std::wstring& line);
  void printDocument();
  void printLines(std::wstring_view text);
  void abandonPrinting();

  ReportPrinter& printer_;
  ReportTextBox& box_;
  ReportDialogs& dialogs_;

  std::int16_t currentLine_ = 1;
  std::int16_t pageNumber_ = 1;
  std::int16_t reportWidth_ = 120;
  std::int16_t linesPerPage_ = kNoPaging;
  std::int16_t leftMargin_ = 0;
  bool textAdded_ = false;
  bool loaded_ = false;
  bool printing_ = false;
  bool printFontFixed_ = false;
  std::wstring fontName_ = L"Courier New";
  double maxFontSize_ = 14;  // points
  float fontFactor_ = 1;
  std::int16_t fontOffset_ = 0;  // points
  CStringBuffer buffer_;         // the lines while the text box is not loaded
};

}  // namespace corvid
