// CStringBuffer, beside std::wstring doing the same work.
#include "basic/string_buffer.h"
#include "counted.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {
namespace {

// A line of a report with its line break: 42 characters.
const std::wstring kLine = L"Pan campesino          2,000     29,00 G\r\n";

// The same four operations, under the same names.
class PlainText {
 public:
  void Append(std::wstring_view text) { text_.append(text); }
  void Insert(std::int32_t index, std::wstring_view text) { text_.insert(at(index), text); }
  void Remove(std::int32_t index, std::int32_t& length) {
    text_.erase(at(index), static_cast<std::size_t>(length));
  }
  void Replace(std::wstring_view original, std::wstring_view replacement) {
    for (std::size_t i = text_.find(original); i != std::wstring::npos;
         i = text_.find(original, i + replacement.size())) {
      text_.replace(i, original.size(), replacement);
    }
  }

 private:
  static std::size_t at(std::int32_t index) { return static_cast<std::size_t>(index) - 1; }
  std::wstring text_;
};

template <typename Buffer>
void addLines(Buffer& buffer, std::int64_t lines) {
  for (std::int64_t i = 0; i < lines; ++i) buffer.Append(kLine);
}

// Always the same number of lines, in as many texts as it takes: the memory is the same whatever
// the length of a text, and so is what the processor's caches make of it.
constexpr std::int64_t kAllLines = 100000;

template <typename Buffer>
void append(benchmark::State& state) {
  const std::int64_t lines = state.range(0);
  for (auto _ : state) {
    std::vector<Buffer> buffers(static_cast<std::size_t>(kAllLines / lines));
    for (Buffer& buffer : buffers) addLines(buffer, lines);
    benchmark::DoNotOptimize(buffers.data());
    benchmark::ClobberMemory();
  }
  state.SetComplexityN(lines);
}
BENCHMARK(append<CStringBuffer>)
    ->Name("buffer/append")
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Complexity(benchmark::o1);
BENCHMARK(append<PlainText>)
    ->Name("buffer/append/std")
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Complexity(benchmark::o1);

constexpr std::int32_t kEditedLines = 1000;
constexpr std::int32_t kMiddle = 500 * 42 + 1;

constexpr int kEdits = 100;

// A hundred lines put into the middle of a thousand.
template <typename Buffer>
void insert(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    Buffer buffer;
    addLines(buffer, kEditedLines);
    state.ResumeTiming();
    for (int i = 0; i < kEdits; ++i) buffer.Insert(kMiddle, kLine);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(insert<CStringBuffer>)->Name("buffer/insert");
BENCHMARK(insert<PlainText>)->Name("buffer/insert/std");

// A hundred lines taken out of the middle of a thousand.
template <typename Buffer>
void remove(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    Buffer buffer;
    addLines(buffer, kEditedLines);
    auto length = static_cast<std::int32_t>(kLine.size());
    state.ResumeTiming();
    for (int i = 0; i < kEdits; ++i) buffer.Remove(kMiddle, length);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(remove<CStringBuffer>)->Name("buffer/remove");
BENCHMARK(remove<PlainText>)->Name("buffer/remove/std");

// In each of a thousand lines one word by another, and back, so that the text stays what it is.
template <typename Buffer>
void replace(benchmark::State& state) {
  Buffer buffer;
  addLines(buffer, kEditedLines);
  for (auto _ : state) {
    buffer.Replace(L"campesino", L"de molde ");
    buffer.Replace(L"de molde ", L"campesino");
    benchmark::ClobberMemory();
  }
}
BENCHMARK(replace<CStringBuffer>)->Name("buffer/replace");
BENCHMARK(replace<PlainText>)->Name("buffer/replace/std");

}  // namespace
}  // namespace corvid
