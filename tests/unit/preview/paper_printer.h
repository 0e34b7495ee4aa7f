// A printer that keeps its paper: counts pages, fonts and lines, and fails on demand.
#pragma once

#include "preview/report_printer.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
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
  std::function<void()> onLine = [] {};

  ScaleMode scaleMode() override { return answer(mode); }
  double scaleWidth() override { return answer(width); }
  double scaleHeight() override { return answer(height); }
  double textWidth(std::wstring_view text) override {
    return answer(0.6 * size * unitsPerPoint * static_cast<double>(text.size()));
  }
  double textHeight(std::wstring_view) override {
    return answer(size * unitsPerPoint * lineHeight);
  }

  std::wstring fontName() override { return answer(name); }
  void setFontName(const std::wstring& value) override { name = answer(value); }
  double fontSize() override { return answer(size); }
  void setFontSize(double points) override {
    sizesAsked.push_back(answer(points));
    if (points <= 0) throw PrinterError("no such size");
    size = std::max(points, smallestSize);
  }
  bool fontBold() override { return answer(bold); }
  void setFontBold(bool value) override { bold = answer(value); }
  bool fontItalic() override { return answer(italic); }
  void setFontItalic(bool value) override { italic = answer(value); }
  std::wstring deviceName() override { return answer(device); }

  void printLine(std::wstring_view text, LineEnd end) override {
    pages.back().push_back(answer(std::wstring(text)) + (end == LineEnd::Break ? L"|" : L""));
    onLine();
  }
  void newPage() override { pages.resize(answer(pages.size()) + 1); }
  void endDocument() override { ended = answer(true); }
  void abortDocument() override {
    aborted = true;
    answer(0);
  }

 private:
  template <typename Value>
  Value answer(Value value) {
    ++calls;
    if (failingCall != 0 && calls >= failingCall) throw PrinterError("out of paper");
    return value;
  }
};

}  // namespace corvid
