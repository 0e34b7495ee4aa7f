#include "simulator/commands/command_families.h"
#include "simulator/commands/status_replies.h"
#include "simulator/commands/summary_replies.h"

namespace corvid::simulator {

Reply queryState(Machine& machine, std::string_view arguments, int query) {
  if (!arguments.empty()) {
    return refused();
  }
  switch (query) {
    case kCounters:
      return data({countersReply(machine)});
    case kDocument:
      return data({documentReply(machine)});
    case kRates:
      return data({ratesReply(machine)});
    default:
      return data({paymentsReply(machine)});
  }
}

Reply querySummary(Machine& machine, std::string_view arguments, int ofRunningDay) {
  if (!arguments.empty()) {
    return refused();
  }
  const FiscalMemory& memory = machine.memory;
  return data({summaryReply(ofRunningDay != 0 ? memory.runningDay() : memory.latestDay(),
                            machine.configuration.model.summaryFields)});
}

std::vector<ZReport> zReportsOf(const Machine& machine, std::string_view range, bool isByDate) {
  constexpr std::size_t kDigits = 6;
  const auto first = takeDigits(range, kDigits);
  const auto last = takeDigits(range, kDigits);
  std::vector<ZReport> found;
  if (!first || !last || !range.empty()) {
    return found;
  }
  for (const ZReport& zReport : machine.memory.zReports()) {
    const int key = isByDate ? dateNumber(zReport.time) : zReport.last.zReports;
    if (key >= *first && key <= *last) {
      found.push_back(zReport);
    }
  }
  return found;
}

Reply queryZReports(Machine& machine, std::string_view arguments, int isByDate) {
  std::vector<std::string> blocks;
  for (const ZReport& zReport : zReportsOf(machine, arguments, isByDate != 0)) {
    blocks.push_back(zReportReply(zReport));
  }
  return blocks.empty() ? refused() : data(std::move(blocks));
}

}  // namespace corvid::simulator
