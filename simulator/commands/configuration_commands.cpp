#include "simulator/commands/command_families.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace corvid::simulator {
namespace {

// Line `number`, counted from 1; a blank line takes the programmed one away.
Reply programLine(std::vector<std::string>& lines, std::int64_t number, std::string_view text) {
  if (number < 1 || number > static_cast<std::int64_t>(kProgrammedLines)) {
    return refused();
  }
  const auto index = static_cast<std::size_t>(number) - 1;
  lines.resize(std::max(lines.size(), index + 1));
  const bool isBlank = text.find_first_not_of(' ') == std::string_view::npos;
  lines.at(index) = isBlank ? "" : text;
  return done();
}

Reply setClock(Machine& machine, const std::optional<LocalTime>& time) {
  if (!time || !exists(*time) || !machine.isIdle()) {
    return refused();
  }
  machine.clockOffset = secondsBetween(machine.clock(), *time);
  return done();
}

// Three numbers of two digits, and nothing else.
std::optional<std::array<int, 3>> threeNumbers(std::string_view text) {
  std::array<int, 3> numbers{};
  for (int& number : numbers) {
    const auto digits = takeDigits(text, 2);
    if (!digits) {
      return std::nullopt;
    }
    number = static_cast<int>(*digits);
  }
  return text.empty() ? std::optional(numbers) : std::nullopt;
}

}  // namespace

Reply setFlag(Machine& machine, std::string_view arguments, int /*unused*/) {
  const auto flag = takeDigits(arguments, 2);
  const auto value = takeDigits(arguments, 2);
  if (!flag || !value || !arguments.empty() || *flag >= static_cast<int>(kFlagCount) ||
      !machine.isIdle()) {
    return refused();
  }
  machine.configuration.flags.at(static_cast<std::size_t>(*flag)) = static_cast<int>(*value);
  return done();
}

Reply setProgrammedLine(Machine& machine, std::string_view arguments, int /*unused*/) {
  if (arguments.size() <= kColumns || !machine.isIdle()) {
    return refused();
  }
  std::string_view number = arguments.substr(0, arguments.size() - kColumns);
  const std::string_view text = arguments.substr(number.size());
  if (number.size() == 1 && number.front() >= 'A') {
    return programLine(machine.configuration.footer, number.front() - 'A' + 1, text);
  }
  const auto header = takeDigits(number, std::min<std::size_t>(number.size(), 2));
  return header && number.empty() ? programLine(machine.configuration.header, *header, text)
                                  : refused();
}

Reply setDate(Machine& machine, std::string_view arguments, int /*unused*/) {
  constexpr int kCentury = 2000;
  const auto date = threeNumbers(arguments);
  LocalTime time = machine.now();
  if (date) {
    const auto [day, month, year] = *date;
    time.day = day;
    time.month = month;
    time.year = kCentury + year;
  }
  return setClock(machine, date ? std::optional(time) : std::nullopt);
}

Reply setTime(Machine& machine, std::string_view arguments, int /*unused*/) {
  const auto parts = threeNumbers(arguments);
  LocalTime time = machine.now();
  if (parts) {
    const auto [hour, minute, second] = *parts;
    time.hour = hour;
    time.minute = minute;
    time.second = second;
  }
  return setClock(machine, parts ? std::optional(time) : std::nullopt);
}

Reply signOn(Machine& machine, std::string_view arguments, int /*unused*/) {
  constexpr std::int64_t kLastCashier = 99;
  const auto cashier = takeDigits(arguments, 5);
  if (!cashier || *cashier > kLastCashier || !arguments.empty() || !machine.isIdle()) {
    return refused();
  }
  machine.configuration.cashier = static_cast<int>(*cashier);
  return done();
}

Reply signOff(Machine& machine, std::string_view arguments, int /*unused*/) {
  if (!arguments.empty() || !machine.isIdle()) {
    return refused();
  }
  machine.configuration.cashier = 0;
  return done();
}

Reply setTraining(Machine& machine, std::string_view arguments, int isOn) {
  if (!arguments.empty() || !machine.isIdle()) {
    return refused();
  }
  machine.isTraining = isOn != 0;
  return done();
}

}  // namespace corvid::simulator
