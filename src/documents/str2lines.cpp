#include "documents/str2lines.h"

#include "basic/run_time_error.h"

namespace corvid {
namespace {

constexpr std::wstring_view kBreaks = L",.:;?\u00BF!\u00A1 ";
constexpr std::wstring_view kOpeningMarks = L"\u00BF\u00A1";
constexpr wchar_t kBlank = L' ';

bool isOpeningMark(wchar_t character) {
  return kOpeningMarks.find(character) != std::wstring_view::npos;
}

// The first line of a text: its length, and how much of the text it uses up.
struct FirstLine {
  std::size_t length;
  std::size_t consumed;
};

std::size_t findLineBreak(std::wstring_view chunk) {
  const std::size_t carriageReturn = chunk.find(L'\r');
  return carriageReturn != std::wstring_view::npos ? carriageReturn : chunk.find(L'\n');
}

std::size_t afterBlanks(std::wstring_view text, std::size_t from) {
  while (from < text.size() && text[from] <= kBlank) ++from;
  return from;
}

FirstLine wrapped(std::wstring_view chunk) {
  std::size_t at = chunk.find_last_of(kBreaks);
  // A line that ended before its first character would be empty and use nothing up.
  if (at == 0 && isOpeningMark(chunk[0])) at = std::wstring_view::npos;
  if (at == std::wstring_view::npos) return {chunk.size(), chunk.size()};
  if (chunk[at] == kBlank) return {at, at + 1};
  if (isOpeningMark(chunk[at])) return {at, at};
  return {at + 1, at + 1};
}

FirstLine firstLine(std::wstring_view text, std::size_t width) {
  const std::wstring_view chunk = text.substr(0, width);
  const std::size_t lineBreak = findLineBreak(chunk);
  if (lineBreak != std::wstring_view::npos) return {lineBreak, afterBlanks(text, lineBreak)};
  if (chunk.size() < width) return {chunk.size(), chunk.size()};
  return wrapped(chunk);
}

}  // namespace

Lines lmStr2Lines(std::wstring_view text, std::int32_t width) {
  if (width < 1) throw invalidProcedureCall();
  Lines lines;
  while (!text.empty()) {
    const FirstLine line = firstLine(text, static_cast<std::size_t>(width));
    lines.emplace_back(text.substr(0, line.length));
    text.remove_prefix(line.consumed);
  }
  return lines;
}

}  // namespace corvid
