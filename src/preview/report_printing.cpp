// How a report's text goes to the printer.
#include "basic/conversions.h"
#include "basic/text.h"
#include "preview/report.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::wstring_view kLineBreak = L"\r\n";
constexpr const wchar_t* kStripPrinter = L"VERIFONE";
constexpr std::size_t kStripWidth = 40;  // characters

// Puts one line after the other on the paper of a job.
class PaperWriter {
 public:
  PaperWriter(ReportPrinter& printer, std::int16_t leftMargin)
      : printer_(printer),
        leftMargin_(spaces(leftMargin)),
        isStrip_(upperCase(printer.deviceName()) == kStripPrinter) {}

  void write(std::wstring_view line) {
    if (isStrip_) {
      writeStripLine(line);
    } else if (line.starts_with(L'_')) {
      printer_.newPage();
    } else {
      writePageLine(line);
    }
  }

 private:
  // The leading carriage return is the only separator that this device understands.
  void writeStripLine(std::wstring_view line) {
    std::wstring cut(line.substr(0, kStripWidth));
    cut.resize(kStripWidth, L' ');
    printer_.printLine(L"\r" + cut, LineEnd::None);
  }

  void writePageLine(std::wstring_view line) {
    printer_.printLine(std::wstring(leftMargin_).append(line), LineEnd::Break);
    verticalPosition_ = toInt32(verticalPosition_ + printer_.textHeight(L"N"));
  }

  ReportPrinter& printer_;
  std::wstring leftMargin_;
  bool isStrip_;
  std::int32_t verticalPosition_ = 0;  // from the job's first line on; overflows as a counter does
};

}  // namespace

void Report::PrintListBox() {
  try {
    printDocument();
  } catch (const PrinterError&) {
    abandonPrinting();
  } catch (...) {
    abandonPrinting();
    throw;
  }
}

void Report::printDocument() {
  printer_.printLine(L" ", LineEnd::Break);
  if (!printFontFixed_) SetReportWidth(reportWidth_);
  printing_ = true;
  printLines(box_.text());
  if (printing_) {
    printer_.endDocument();
  } else {
    printer_.abortDocument();
  }
  printing_ = false;
}

void Report::printLines(std::wstring_view text) {
  PaperWriter paper(printer_, leftMargin_);
  std::size_t position = 0;
  while (position < text.size() && printing_) {
    const std::size_t end = std::min(text.find(kLineBreak, position), text.size());
    paper.write(text.substr(position, end - position));
    position = end + kLineBreak.size();
  }
}

void Report::abandonPrinting() {
  printing_ = false;
  try {
    printer_.abortDocument();
  } catch (const PrinterError&) {
    return;  // the job is gone with its printer
  }
}

}  // namespace corvid
