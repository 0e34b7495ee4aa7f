// A printer that keeps its paper: counts pages, fonts and lines, and fails on demand.
#pragma once

#include "preview/report_printer.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvid {

class PaperPrinter : public ReportPrinter {
 public:
  using Page = std::vector<std::wstring>;

  // The device: a letter is 0.6 of its size wide, a line as high as its size.
  ScaleMode mode = ScaleMode::Twips;
  double unitsPerPoint = 20;
  double width = 11520;
  double height = 15120;
  double smallestSize = 1;
  double lineHeight = 1;  // for each unit of the size; 0 for a font without height
  std::wstring device = L"Laser";

  // The font, and every size that was asked for.
  std::wstring name = L"System";
  double size = 10;
  bool bold = true;
  bool italic = true;
  std::vector<double> sizesAsked;

  // What lies on the paper, and what became of the job.
  std::vector<Page> pages{1};
  bool ended = false;
  bool aborted = false;

  // The call that fails, counted from 1; all the later ones do too. 0 for none.
  int failingCall = 0;
  int calls = 0;
  std::uint32_t failureCode = 5;
  bool jobRuns = false;
  std::function<void()> onLine = [] {};
  std::function<void(int call)> onCall = [](int) {};
  int opened = 0;  // from the first call that needs the device until release or the job's end
  bool isOpen = false;

  ScaleMode scaleMode() override { return answer(mode); }
  double scaleWidth() override { return answer(width); }
  double scaleHeight() override { return answer(height); }
  double textWidth(std::wstring_view text) override {
    return answer(0.6 * size * unitsPerPoint * static_cast<double>(text.size()));
  }
  double textHeight(std::wstring_view) override {
    return answer(size * unitsPerPoint * lineHeight);
  }

  std::wstring fontName() override { return name; }
  void setFontName(const std::wstring& value) override { name = answer(value); }
  double fontSize() override { return size; }
  void setFontSize(double points) override {
    sizesAsked.push_back(answer(points));
    if (points <= 0) throw PrinterError("CreateFont");
    size = std::max(points, smallestSize);
  }
  bool fontBold() override { return bold; }
  void setFontBold(bool value) override { bold = answer(value); }
  bool fontItalic() override { return italic; }
  void setFontItalic(bool value) override { italic = answer(value); }
  std::wstring deviceName() override { return answer(device); }

  void printLine(std::wstring_view text, LineEnd end) override {
    jobRuns = true;
    pages.back().push_back(answer(std::wstring(text)) + (end == LineEnd::Break ? L"|" : L""));
    onLine();
  }
  void newPage() override { pages.resize(answer(pages.size()) + 1); }
  void endDocument() override {
    ended = answer(true);
    endJob();
  }
  void abortDocument() override {
    aborted = true;
    endJob();
    answer(0);
    isOpen = false;
  }
  void release() noexcept override {
    if (!jobRuns) isOpen = false;
  }

 private:
  void endJob() {
    jobRuns = false;
    isOpen = false;
  }

  template <typename Value>
  Value answer(Value value) {
    ++calls;
    onCall(calls);
    if (!std::exchange(isOpen, true)) ++opened;
    if (failingCall != 0 && calls >= failingCall) throw PrinterError("TextOut", failureCode);
    return value;
  }
};

}  // namespace corvid
