#include "simulator/device/memory_text.h"
#include "simulator/line/bytes.h"

#include <cstdint>
#include <vector>

namespace corvid::simulator {
namespace {

using Numbers = std::vector<std::int64_t>;

void addTo(Numbers& numbers, const LocalTime& time) {
  numbers.insert(numbers.end(),
                 {time.year, time.month, time.day, time.hour, time.minute, time.second});
}

void addTo(Numbers& numbers, const TaxedAmount& sum) {
  numbers.insert(numbers.end(), {sum.base, sum.tax});
}

std::string line(std::string_view word, const Numbers& numbers) {
  std::string text(word);
  for (const std::int64_t number : numbers) {
    text += ' ' + std::to_string(number);
  }
  return text + '\n';
}

std::string texts(std::string_view word, const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& bytes : lines) {
    text.append(word).append(" ").append(escaped(bytes)).append("\n");
  }
  return text;
}

std::string rateLine(std::string_view word, const std::optional<Rate>& rate) {
  return rate ? line(word, {rate->isIncluded ? 1 : 2, rate->hundredths}) : line(word, {0, 0});
}

std::string configurationText(const Machine& machine) {
  const Configuration& configuration = machine.configuration;
  std::string text;
  for (const Rate& rate : configuration.rates) {
    text += rateLine("rate", rate);
  }
  text += rateLine("igtf", configuration.igtf);
  text += line("flags", {configuration.flags.begin(), configuration.flags.end()});
  text += line("cashier", {configuration.cashier});
  text += line("clock", {machine.clockOffset});
  return text + texts("header", configuration.header) + texts("footer", configuration.footer);
}

std::string lastText(const LastNumbers& last) {
  Numbers numbers(last.documents.begin(), last.documents.end());
  numbers.insert(numbers.end(), {last.nonFiscal, last.zReports, last.reports});
  addTo(numbers, last.invoiceTime);
  return line("last", numbers);
}

std::string kindText(const KindOfDay& kind) {
  Numbers numbers = {kind.count, kind.total};
  for (const TaxedAmount& sum : kind.byRate) {
    addTo(numbers, sum);
  }
  addTo(numbers, kind.levy);
  numbers.insert(numbers.end(), kind.payments.begin(), kind.payments.end());
  return line("kind", numbers);
}

std::string dayText(const LastNumbers& last, const Day& day) {
  std::string text = lastText(last) + line("day", {day.nonFiscal});
  for (const KindOfDay& kind : day.kinds) {
    text += kindText(kind);
  }
  return text;
}

std::string zReportText(const ZReport& zReport) {
  Numbers time;
  addTo(time, zReport.time);
  return line("zreport", time) + dayText(zReport.last, zReport.day);
}

std::string copyText(const Copy& copy) {
  Numbers numbers = {copy.number};
  addTo(numbers, copy.time);
  return line(std::string("copy ") + copy.kind, numbers) + texts("|", copy.lines);
}

}  // namespace

std::string memoryText(const Machine& machine) {
  std::string text = "corvid-printer-memory 1\n" + configurationText(machine) +
                     dayText(machine.memory.last(), machine.memory.today());
  for (const ZReport& zReport : machine.memory.zReports()) {
    text += zReportText(zReport);
  }
  for (const Copy& copy : machine.journal.all()) {
    text += copyText(copy);
  }
  return text + "end " + checkOf(text) + '\n';
}

std::string checkOf(std::string_view text) {
  std::uint32_t hash = 2'166'136'261U;
  for (const char byte : text) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 16'777'619U;
  }
  std::string digits;
  for (int shift = 28; shift >= 0; shift -= 4) {
    digits += "0123456789abcdef"[(hash >> static_cast<unsigned>(shift)) & 15U];
  }
  return digits;
}

}  // namespace corvid::simulator
