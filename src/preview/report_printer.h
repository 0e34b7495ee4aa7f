// The seam to the printer of reports: the system's default printer and the job it is working on.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace corvid {

// The printer is missing, or refused what it was asked. Never a RunTimeError: members that print
// end on it without an error, while run-time errors reach the host.
class PrinterError : public std::runtime_error {
 public:
  // By the name of the system's call and the error number that it left; 0 for none.
  explicit PrinterError(const std::string& call, std::uint32_t error = 0)
      : std::runtime_error(call + ", error " + std::to_string(error)), error_(error) {}

  // For the user and the trace.
  [[nodiscard]] std::wstring words() const {
    const std::string_view narrow = what();  // names of calls are ASCII
    return {narrow.begin(), narrow.end()};
  }
  // Whether the user said so, in a dialog of the printer's driver.
  [[nodiscard]] bool isCancelled() const {
    constexpr std::uint32_t kPrintCancelled = 63;  // ERROR_PRINT_CANCELLED
    constexpr std::uint32_t kCancelled = 1223;     // ERROR_CANCELLED
    return error_ == kPrintCancelled || error_ == kCancelled;
  }

 private:
  std::uint32_t error_;
};

// The units in which a printer measures. Numbers outside the list measure nothing.
enum class ScaleMode : std::int16_t {
  User = 0,
  Twips = 1,
  Points = 2,
  Pixels = 3,
  Characters = 4,
  Inches = 5,
  Millimetres = 6,
  Centimetres = 7,
};

enum class LineEnd : bool { None, Break };

// Measures and jobs throw PrinterError when no printer is installed or the call fails. A job begins
// with the first printLine or newPage and lasts until endDocument or abortDocument; the font is
// kept from job to job, one for each window, also while there is no printer. One thread.
class ReportPrinter {
 public:
  virtual ~ReportPrinter() = default;

  // Widths, heights and text metrics are in the units of the scale mode; the printable area only.
  [[nodiscard]] virtual ScaleMode scaleMode() = 0;
  [[nodiscard]] virtual double scaleWidth() = 0;
  [[nodiscard]] virtual double scaleHeight() = 0;
  // Of one line of text in the current font.
  [[nodiscard]] virtual double textWidth(std::wstring_view text) = 0;
  [[nodiscard]] virtual double textHeight(std::wstring_view text) = 0;

  // The size is in points and reads back as the device offers it, which may be the size it had
  // before, or as it was set while there is no device; a size that is not above 0 throws
  // PrinterError.
  [[nodiscard]] virtual std::wstring fontName() = 0;
  virtual void setFontName(const std::wstring& name) = 0;
  [[nodiscard]] virtual double fontSize() = 0;
  virtual void setFontSize(double points) = 0;
  [[nodiscard]] virtual bool fontBold() = 0;
  virtual void setFontBold(bool bold) = 0;
  [[nodiscard]] virtual bool fontItalic() = 0;
  virtual void setFontItalic(bool italic) = 0;

  [[nodiscard]] virtual std::wstring deviceName() = 0;

  // Prints at the current place; with LineEnd::Break the next text begins a new line, with
  // LineEnd::None it follows on the same one. A carriage return in the text goes back to the
  // beginning of a line. A full page is followed by a new one.
  virtual void printLine(std::wstring_view text, LineEnd end) = 0;
  virtual void newPage() = 0;
  // Hands the job over to the printer. Nothing happens when no job has begun.
  virtual void endDocument() = 0;
  // Discards the job. Nothing happens when no job has begun.
  virtual void abortDocument() = 0;
  // Gives the device back, unless a job runs; what needs it next opens it again.
  virtual void release() noexcept = 0;
};

}  // namespace corvid
