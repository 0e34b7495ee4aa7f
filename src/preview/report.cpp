#include "preview/report.h"

#include "basic/conversions.h"
#include "basic/format.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

#include <cmath>
#include <limits>
#include <utility>

namespace corvid {
namespace {

constexpr std::int16_t kInitialWidth = 120;  // characters
constexpr const wchar_t* kLineBreak = L"\r\n";

double unchanged(double value) { return value; }

float toSingle(double value) {
  if (std::abs(value) > std::numeric_limits<float>::max()) throw overflow();
  return static_cast<float>(value);
}

// Leaves the field's default where the setting's number does not fit.
template <typename Number>
void readNumber(const Settings& settings, const wchar_t* key, Number (*convert)(double),
                Number& field) {
  const std::wstring fallback = toText(static_cast<double>(field), Locale{});
  const std::wstring text = settings.text(kApplication, kPreviewSection, key, fallback);
  try {
    field = convert(leadingNumberOrZero(text));
  } catch (const RunTimeError&) {
    return;
  }
}

std::wstring centred(std::wstring_view text, std::int64_t width) {
  const std::int64_t room = width - static_cast<std::int64_t>(text.size());
  if (room <= 0) return left(text, width);
  const std::int64_t half = room / 2;
  const std::int64_t roundedUp = room & half & 1;  // an odd room goes to the even half
  return spaces(half + roundedUp).append(text);
}

}  // namespace

Report::Report(const Settings& settings, ReportPrinter& printer, ReportTextBox& box,
               ReportDialogs& dialogs, FailureTrace trace)
    : printer_(printer), box_(box), dialogs_(dialogs), trace_(std::move(trace)) {
  readSettings(settings);
}

void Report::readSettings(const Settings& settings) {
  readNumber(settings, L"MaxFontSize", unchanged, maxFontSize_);
  readNumber(settings, L"FontFactor", toSingle, fontFactor_);
  readNumber<std::int16_t>(settings, L"FontOffset", toInt16, fontOffset_);
}

void Report::settle() {
  if (!std::exchange(owesFitting_, false)) return;
  const bool keepsLines = linesAreSet_;
  const std::int16_t lines = linesPerPage_;
  try {
    fitWidth(kInitialWidth);
  } catch (const RunTimeError&) {
    linesPerPage_ = kNoPaging;  // as nobody asked for it, what the measures overflow is not told
  }
  if (keepsLines) linesPerPage_ = lines;
}

void Report::setLeftMargin(std::int16_t margin) {
  if (margin < 0) {
    throw RunTimeError(static_cast<std::int32_t>(0x80040005), L"lfQuickView::SetLeftMargin",
                       L"Argumento inválido");
  }
  leftMargin_ = margin;
}

void Report::Add(std::wstring_view text, std::int32_t alignment) {
  if (currentLine_ >= LineasPagina()) PageBreak();
  addLine(aligned(text, alignment) + L" ");
  if (linesPerPage_ != kNoPaging) currentLine_ = narrowToInt16(currentLine_ + 1);
}

std::wstring Report::aligned(std::wstring_view text, std::int32_t alignment) const {
  switch (alignment) {
    case 0:
      return std::wstring(text);
    case 1:
      return spaces(reportWidth_ - static_cast<std::int64_t>(text.size())).append(text);
    case 2:
      return centred(text, reportWidth_);
    default:
      return {};
  }
}

void Report::PageBreak() {
  currentLine_ = 1;
  const std::int16_t width = narrowToInt16(reportWidth_ + 2);
  if (width < 0) throw invalidProcedureCall();
  addLine(std::wstring(static_cast<std::size_t>(width), L'_'));
  pageNumber_ = narrowToInt16(pageNumber_ + 1);
}

// Lines of the text box are separated by breaks, lines of the buffer each end in one.
void Report::addLine(const std::wstring& line) {
  textAdded_ = true;
  if (loaded_) {
    box_.append(kLineBreak + line);
  } else {
    buffer_.Append(line);
    buffer_.Append(kLineBreak);
  }
}

void Report::LoadText() {
  if (box_.length() == 0) box_.setText(buffer_.Value());
  if (textAdded_) box_.select(1, 0);
  textAdded_ = false;
  loaded_ = true;
}

std::int16_t Report::LineasPagina() {
  settle();
  return narrowToInt16(linesPerPage_ - 1);
}

std::wstring Report::text() { return loaded_ ? box_.text() : buffer_.Value(); }

}  // namespace corvid
