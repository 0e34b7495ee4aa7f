#include "simulator/device/memory_text.h"
#include "simulator/line/bytes.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <vector>

namespace corvid::simulator {
namespace {

// Takes the lines of a memory one by one, each with what must stand there.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  // Whether a line that begins with this word comes next.
  [[nodiscard]] bool isNext(std::string_view word) const {
    return rest_.starts_with(word) && rest_.substr(word.size(), 1) == " ";
  }

  // What stands after the word, and the blank that follows it.
  std::string_view take(std::string_view word) {
    ++number_;
    const auto end = rest_.find('\n');
    require(isNext(word) && end != std::string_view::npos, word);
    const std::string_view after = rest_.substr(word.size() + 1, end - word.size() - 1);
    rest_.remove_prefix(end + 1);
    return after;
  }

  std::string takeText(std::string_view word) {
    const auto bytes = unescaped(take(word));
    require(bytes.has_value(), "an escaped text");
    return *bytes;
  }

  // The numbers of a line of that word, each from `least` to `most`, and so many.
  std::vector<std::int64_t> takeNumbers(std::string_view word, std::size_t count,
                                        std::int64_t least, std::int64_t most) {
    std::string_view after = take(word);
    std::vector<std::int64_t> numbers;
    while (numbers.size() < count) {
      numbers.push_back(takeNumber(after));
      require(numbers.back() >= least && numbers.back() <= most, "a number in its range");
    }
    require(after.empty(), "the line's end");
    return numbers;
  }

  void takeEnd() {
    ++number_;
    require(rest_.empty(), "the end");
  }

  void require(bool isGood, std::string_view expected) const {
    if (!isGood) {
      throw DamagedMemory("line " + std::to_string(number_) + ": expected " +
                          std::string(expected));
    }
  }

 private:
  // Takes the blank after it too.
  std::int64_t takeNumber(std::string_view& text) const {
    std::int64_t number = 0;
    const auto end = std::min(text.find(' '), text.size());
    const auto read = std::from_chars(text.data(), text.data() + end, number);
    require(read.ec == std::errc() && read.ptr == text.data() + end, "a number");
    text.remove_prefix(std::min(end + 1, text.size()));
    return number;
  }

  std::string_view rest_;
  int number_ = 0;
};

constexpr std::int64_t kMostInt = std::numeric_limits<int>::max();
constexpr std::int64_t kMostAmount = std::numeric_limits<std::int64_t>::max();
constexpr std::size_t kTimeNumbers = 6;

using Numbers = std::vector<std::int64_t>;

int intAt(const Numbers& numbers, std::size_t at) { return static_cast<int>(numbers.at(at)); }

LocalTime timeAt(const Lines& lines, const Numbers& numbers, std::size_t at) {
  const LocalTime time{intAt(numbers, at),     intAt(numbers, at + 1), intAt(numbers, at + 2),
                       intAt(numbers, at + 3), intAt(numbers, at + 4), intAt(numbers, at + 5)};
  lines.require(exists(time), "a time that exists");
  return time;
}

std::optional<Rate> takeRate(Lines& lines, std::string_view word, int leastKind) {
  constexpr std::int64_t kMostRate = 9999;
  const Numbers numbers = lines.takeNumbers(word, 2, 0, kMostRate);
  const std::int64_t kind = numbers.front();
  lines.require(kind >= leastKind && kind <= 2, "a rate's kind");
  return kind == 0 ? std::nullopt : std::optional(Rate{kind == 1, intAt(numbers, 1)});
}

std::vector<std::string> takeTexts(Lines& lines, std::string_view word) {
  std::vector<std::string> texts;
  while (lines.isNext(word)) {
    texts.push_back(lines.takeText(word));
  }
  return texts;
}

void takeConfiguration(Lines& lines, Configuration& configuration) {
  constexpr std::int64_t kMostSetting = 99;
  for (Rate& rate : configuration.rates) {
    rate = *takeRate(lines, "rate", 1);
  }
  configuration.igtf = takeRate(lines, "igtf", 0);
  const Numbers flags = lines.takeNumbers("flags", kFlagCount, 0, kMostSetting);
  std::transform(flags.begin(), flags.end(), configuration.flags.begin(),
                 [](std::int64_t flag) { return static_cast<int>(flag); });
  configuration.cashier = intAt(lines.takeNumbers("cashier", 1, 0, kMostSetting), 0);
}

void takeProgrammedLines(Lines& lines, Configuration& configuration) {
  configuration.header = takeTexts(lines, "header");
  configuration.footer = takeTexts(lines, "footer");
  lines.require(configuration.header.size() <= kProgrammedLines &&
                    configuration.footer.size() <= kProgrammedLines,
                "no more programmed lines");
}

LastNumbers takeLast(Lines& lines) {
  constexpr std::size_t kCounters = kDocumentKinds + 3;
  const Numbers numbers = lines.takeNumbers("last", kCounters + kTimeNumbers, 0, kMostInt);
  LastNumbers last;
  for (std::size_t kind = 0; kind < kDocumentKinds; ++kind) {
    last.documents.at(kind) = intAt(numbers, kind);
  }
  last.nonFiscal = intAt(numbers, kDocumentKinds);
  last.zReports = intAt(numbers, kDocumentKinds + 1);
  last.reports = intAt(numbers, kDocumentKinds + 2);
  last.invoiceTime = timeAt(lines, numbers, kCounters);
  return last;
}

KindOfDay takeKind(Lines& lines) {
  constexpr std::size_t kSums = 2 + 2 * kRateCount + 2;
  const Numbers numbers = lines.takeNumbers("kind", kSums + kPaymentMethods, 0, kMostAmount);
  auto next = numbers.begin();
  KindOfDay kind;
  lines.require(numbers.front() <= kMostInt, "a count of documents");
  kind.count = static_cast<int>(*next++);
  kind.total = *next++;
  for (TaxedAmount& sum : kind.byRate) {
    sum.base = *next++;
    sum.tax = *next++;
  }
  kind.levy.base = *next++;
  kind.levy.tax = *next++;
  std::copy(next, numbers.end(), kind.payments.begin());
  return kind;
}

Day takeDay(Lines& lines) {
  Day day;
  day.nonFiscal = intAt(lines.takeNumbers("day", 1, 0, kMostInt), 0);
  for (KindOfDay& kind : day.kinds) {
    kind = takeKind(lines);
  }
  return day;
}

std::vector<ZReport> takeZReports(Lines& lines) {
  std::vector<ZReport> zReports;
  while (lines.isNext("zreport")) {
    ZReport zReport;
    zReport.time = timeAt(lines, lines.takeNumbers("zreport", kTimeNumbers, 0, kMostInt), 0);
    zReport.last = takeLast(lines);
    zReport.day = takeDay(lines);
    zReports.push_back(zReport);
  }
  return zReports;
}

FiscalMemory takeFiscalMemory(Lines& lines) {
  const LastNumbers last = takeLast(lines);
  const Day today = takeDay(lines);
  return {last, today, takeZReports(lines)};
}

Copy takeCopy(Lines& lines, char kind) {
  const Numbers numbers =
      lines.takeNumbers(std::string("copy ") + kind, 1 + kTimeNumbers, 0, kMostInt);
  Copy copy{kind, intAt(numbers, 0), timeAt(lines, numbers, 1), {}};
  copy.lines = takeTexts(lines, "|");
  return copy;
}

Journal takeJournal(Lines& lines) {
  Journal journal;
  bool isMore = true;
  while (isMore) {
    const auto* kind = std::find_if(kCopyKinds.begin(), kCopyKinds.end(), [&](char letter) {
      return lines.isNext(std::string("copy ") + letter);
    });
    isMore = kind != kCopyKinds.end();
    if (isMore) {
      journal.add(takeCopy(lines, *kind));
    }
  }
  return journal;
}

// The text before the last line, whose check it bears.
std::string_view checkedText(std::string_view text) {
  constexpr std::string_view kEnd = "end ";
  const auto at = text.rfind("\nend ");
  const std::string_view front = text.substr(0, at == std::string_view::npos ? 0 : at + 1);
  if (text.substr(front.size()) != std::string(kEnd) + checkOf(front) + '\n') {
    throw DamagedMemory("its last line does not fit the lines before: it was cut or changed");
  }
  return front;
}

}  // namespace

void restoreMemory(std::string_view text, Machine& machine) {
  constexpr std::int64_t kMostOffset = 300'000'000'000;  // between any two years of four digits
  Lines lines(checkedText(text));
  Configuration configuration = machine.configuration;
  lines.takeNumbers("corvid-printer-memory", 1, 1, 1);
  takeConfiguration(lines, configuration);
  const std::int64_t clockOffset = lines.takeNumbers("clock", 1, -kMostOffset, kMostOffset).front();
  takeProgrammedLines(lines, configuration);
  FiscalMemory memory = takeFiscalMemory(lines);
  Journal journal = takeJournal(lines);
  lines.takeEnd();
  Machine restored(std::move(configuration), machine.clock);
  restored.clockOffset = clockOffset;
  restored.memory = std::move(memory);
  restored.journal = std::move(journal);
  // Numbers and bytes have other spellings too.
  if (memoryText(restored) != text) throw DamagedMemory("not in the form that printers write");
  machine.configuration = std::move(restored.configuration);
  machine.clockOffset = restored.clockOffset;
  machine.memory = std::move(restored.memory);
  machine.journal = std::move(restored.journal);
}

}  // namespace corvid::simulator
