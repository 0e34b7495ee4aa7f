// A report of 100,000 lines: built, and searched from its end.
#include "unit/preview/report_bench.h"

#include "counted.h"
#include "preview/quick_view.h"

#include <cstddef>
#include <string>

namespace corvid {
namespace {

constexpr int kLines = 100000;
const std::wstring kLine = L"Pan campesino          2,000     29,00 G";
const std::wstring kLast = L"Total del dia";

void add(benchmark::State& state) {
  for (auto _ : state) {
    ReportEnvironment around;
    Report report = around.report();
    report.SetLinesPerPage(kNoPaging);
    for (int i = 0; i < kLines; ++i) report.Add(kLine, 0);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(add)->Name("report/add")->Unit(benchmark::kMillisecond);

std::wstring linesAndLast() {
  std::wstring text;
  for (int i = 0; i < kLines; ++i) text.append(kLine).append(L" ").append(L"\r\n");
  return text + kLast + L" \r\n";
}

void addPlain(benchmark::State& state) {
  for (auto _ : state) {
    std::wstring text;
    for (int i = 0; i < kLines; ++i) text.append(kLine).append(L" ").append(L"\r\n");
    benchmark::DoNotOptimize(text.data());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(addPlain)->Name("report/add/std")->Unit(benchmark::kMillisecond);

// Searches its text as it stands: what is timed is the way to the text box, not the box.
class PlainTextBox : public TextBoxDouble {
 public:
  bool find(const std::wstring& text, std::int32_t from) override {
    const std::size_t at = content.find(text, static_cast<std::size_t>(from));
    if (at == std::wstring::npos) return false;
    select(static_cast<std::int32_t>(at), static_cast<std::int32_t>(text.size()));
    return true;
  }
};

class NoListener : public ClickListener {
 public:
  bool raiseReportClicked(const std::wstring&, std::int32_t) override { return false; }
};

void search(benchmark::State& state) {
  ReportEnvironment around;
  PlainTextBox box;
  WindowDouble window;
  NoListener listener;
  QuickView view(around.settings,
                 {window, box, around.printer, around.dialogs, around.files, listener, {}});
  box.content = linesAndLast();
  for (auto _ : state) {
    box.select(0, 0);
    view.FindText(kLast);
    if (box.selected == 0) state.SkipWithError("not found");
  }
}
BENCHMARK(search)->Name("report/search")->Unit(benchmark::kMillisecond);

void searchPlain(benchmark::State& state) {
  const std::wstring text = linesAndLast();
  for (auto _ : state) {
    benchmark::DoNotOptimize(text.find(kLast, 1));
  }
}
BENCHMARK(searchPlain)->Name("report/search/std")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvid
