// One document on its way to a printer.
#pragma once

#include "preview/report_printer.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace corvid {

// Pages open with what is printed on them, so that a new page before the end leaves no empty
// sheet. Failing calls throw PrinterError. The context outlives the job.
class PrintJob {
 public:
  // Begins a document of that title.
  PrintJob(HDC context, const std::wstring& title);
  PrintJob(const PrintJob&) = delete;
  PrintJob& operator=(const PrintJob&) = delete;
  // Discards a document that was not finished.
  ~PrintJob();

  // In the context's font. A carriage return, and LineEnd::Break, go to the beginning of the next
  // line; the carriage return only where something was printed on this one. What does not fit
  // the paper's width is cut, what does not fit its height goes to a new page.
  void print(std::wstring_view text, LineEnd end);
  // A page with nothing on it is ejected too.
  void newPage();
  void finish();

 private:
  void openPage();
  void closePage();
  void makeRoom(int lineHeight);
  void printRun(std::wstring_view text);
  void nextLine(int lineHeight);

  HDC context_;
  bool pageOpen_ = false;
  bool finished_ = false;
  int x_ = 0;  // pixels from the upper left corner of the printable area
  int y_ = 0;
};

}  // namespace corvid
