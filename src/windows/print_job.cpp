#include "windows/print_job.h"

#include "windows/printer_device.h"

#include <algorithm>
#include <cstddef>

namespace corvid {
namespace {

void require(bool succeeded, const char* call) {
  if (!succeeded) throw PrinterError(call, GetLastError());
}

}  // namespace

PrintJob::PrintJob(HDC context, const std::wstring& title) : context_(context) {
  DOCINFOW document{};
  document.cbSize = sizeof document;
  document.lpszDocName = title.c_str();
  require(StartDocW(context_, &document) > 0, "StartDoc");
}

PrintJob::~PrintJob() {
  if (!finished_) AbortDoc(context_);
}

void PrintJob::print(std::wstring_view text, LineEnd end) {
  const int lineHeight = lineHeightOf(context_);
  require(lineHeight > 0, "GetTextMetrics");
  for (bool first = true;; first = false) {
    if (!first && x_ > 0) nextLine(lineHeight);
    makeRoom(lineHeight);
    const std::size_t length = std::min(text.find(L'\r'), text.size());
    printRun(text.substr(0, length));
    if (length == text.size()) break;
    text.remove_prefix(length + 1);
  }
  if (end == LineEnd::Break) nextLine(lineHeight);
}

void PrintJob::newPage() {
  openPage();
  closePage();
}

void PrintJob::finish() {
  if (pageOpen_) closePage();
  require(EndDoc(context_) > 0, "EndDoc");
  finished_ = true;
}

void PrintJob::openPage() {
  if (pageOpen_) return;
  require(StartPage(context_) > 0, "StartPage");
  pageOpen_ = true;
  SetBkMode(context_, TRANSPARENT);
}

void PrintJob::closePage() {
  pageOpen_ = false;
  x_ = 0;
  y_ = 0;
  require(EndPage(context_) > 0, "EndPage");
}

void PrintJob::makeRoom(int lineHeight) {
  if (y_ > 0 && y_ + lineHeight > GetDeviceCaps(context_, VERTRES)) closePage();
  openPage();
}

void PrintJob::printRun(std::wstring_view text) {
  for (; !text.empty(); text.remove_prefix(std::min(text.size(), kMostCharacters))) {
    const std::wstring_view piece = text.substr(0, kMostCharacters);
    const auto length = static_cast<int>(piece.size());
    require(TextOutW(context_, x_, y_, piece.data(), length) != FALSE, "TextOut");
    const std::optional<int> width = pixelWidthOf(context_, piece);
    require(width.has_value(), "GetTextExtentPoint32");
    x_ += *width;
  }
}

void PrintJob::nextLine(int lineHeight) {
  x_ = 0;
  y_ += lineHeight;
}

}  // namespace corvid
