#include "simulator/commands/command_families.h"
#include "simulator/device/day_reports.h"
#include "simulator/device/receipt.h"

namespace corvid::simulator {
namespace {

bool canReport(const Machine& machine) { return machine.isIdle() && !machine.isTraining; }

std::vector<const Copy*> copiesOf(const Journal& journal, char letter, int first, int last) {
  constexpr char kToUpper = 'a' - 'A';
  const bool isByDate = letter >= 'a' && letter <= 'z';
  return isByDate ? journal.dated(static_cast<char>(letter - kToUpper), first, last)
                  : journal.numbered(letter, first, last);
}

}  // namespace

Reply reportDay(Machine& machine, std::string_view arguments, int doClose) {
  if (!arguments.empty() || !canReport(machine)) {
    return refused();
  }
  machine.beginDocument();
  printDayReport(machine, doClose != 0);
  machine.memory.recordReport();
  if (doClose != 0) {
    const int number = machine.memory.closeDay(machine.now()).last.zReports;
    machine.keepCopy(kZReportCopy, number);
  }
  return done();
}

Reply reportZReports(Machine& machine, std::string_view arguments, int isByDate) {
  const std::vector<ZReport> found = zReportsOf(machine, arguments, isByDate != 0);
  if (found.empty() || !canReport(machine)) {
    return refused();
  }
  printZReports(machine, found);
  return done();
}

Reply reprint(Machine& machine, std::string_view arguments, int /*unused*/) {
  constexpr std::size_t kDigits = 7;
  const char letter = arguments.empty() ? '\0' : arguments.front();
  arguments.remove_prefix(arguments.empty() ? 0 : 1);
  const auto first = takeDigits(arguments, kDigits);
  const auto last = takeDigits(arguments, kDigits);
  if (!first || !last || !arguments.empty() || !machine.isIdle()) {
    return refused();
  }
  const auto copies =
      copiesOf(machine.journal, letter, static_cast<int>(*first), static_cast<int>(*last));
  for (const Copy* copy : copies) {
    printCopy(machine.paper, *copy);
  }
  return copies.empty() ? refused() : done();
}

}  // namespace corvid::simulator
