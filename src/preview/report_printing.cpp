// How a report's text goes to the printer.
#include "basic/conversions.h"
#include "basic/text.h"
#include "preview/report.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace corvid {
namespace {

constexpr std::wstring_view kLineBreak = L"\r\n";
constexpr const wchar_t* kStripPrinter = L"VERIFONE";
constexpr std::size_t kStripWidth = 40;  // characters
constexpr std::size_t kTabColumns = 8;

std::wstring withoutTabs(std::wstring_view line) {
  std::wstring text;
  for (const wchar_t character : line) {
    const std::size_t next = (text.size() / kTabColumns + 1) * kTabColumns;
    character == L'\t' ? text.resize(next, L' ') : text.push_back(character);
  }
  return text;
}

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
    printer_.printLine(leftMargin_ + withoutTabs(line), LineEnd::Break);
    verticalPosition_ = toInt32(verticalPosition_ + printer_.textHeight(L"N"));
  }

  ReportPrinter& printer_;
  std::wstring leftMargin_;
  bool isStrip_;
  std::int32_t verticalPosition_ = 0;  // from the job's first line on; overflows as a counter does
};

}  // namespace

// From before the job begins until it is over; then come the changes that waited for it.
class Report::Busy {
 public:
  explicit Busy(Report& report) : report_(report) {
    report_.busy_ = true;
    report_.printing_ = true;
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() {
    report_.busy_ = false;
    report_.printing_ = false;
    report_.printer_.release();
    report_.makeWaitingChanges();
  }

 private:
  Report& report_;
};

PrintEnd Report::print() {
  if (busy_) return PrintEnd::Busy;
  const Busy busy(*this);
  settle();
  try {
    return printDocument();
  } catch (const PrinterError& error) {
    abandonPrinting();
    noteFailure(error);
    return error.isCancelled() ? PrintEnd::Stopped : PrintEnd::Failed;
  } catch (...) {
    abandonPrinting();
    throw;
  }
}

PrintEnd Report::printDocument() {
  printer_.printLine(L" ", LineEnd::Break);
  fitWidth(reportWidth_);
  printLines(text());
  if (printing_) {
    printer_.endDocument();
    return PrintEnd::Printed;
  }
  printer_.abortDocument();
  return PrintEnd::Stopped;
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
  try {
    printer_.abortDocument();
  } catch (const PrinterError&) {
    return;  // the job is gone with its printer
  }
}

void Report::noteFailure(const PrinterError& error) {
  failure_ = error.words();
  if (trace_) trace_(L"Printer: " + failure_);
}

void Report::whenNotPrinting(std::function<void()> change) {
  if (busy_) {
    waiting_.push_back(std::move(change));
  } else {
    change();
  }
}

// Their callers have been answered.
void Report::makeWaitingChanges() {
  for (const auto& change : std::exchange(waiting_, {})) {
    try {
      change();
    } catch (const std::exception&) {
      continue;
    }
  }
}

}  // namespace corvid
