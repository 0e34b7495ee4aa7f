#include "simulator/status_replies.h"

namespace corvid::simulator {
namespace {

constexpr std::size_t kTotalDigits = 10;
constexpr std::size_t kNumberDigits = 8;
constexpr std::size_t kDayDigits = 5;
constexpr std::size_t kClosureDigits = 4;

using Fields = std::vector<std::string>;

std::string number(int value) { return zeroPadded(value, kNumberDigits); }
std::string ofDay(int count) { return zeroPadded(count, kDayDigits); }
std::string money(Amount amount) { return zeroPadded(amount, kTotalDigits); }

void append(Fields& fields, Fields more) {
  fields.insert(fields.end(), std::make_move_iterator(more.begin()),
                std::make_move_iterator(more.end()));
}

Fields numberAndCount(const Machine& machine, DocumentKind kind) {
  return {number(machine.memory.last().of(kind)), ofDay(machine.memory.today().of(kind).count)};
}

Fields nonFiscalCounters(const Machine& machine) {
  return {number(machine.memory.last().nonFiscal), ofDay(machine.memory.today().nonFiscal)};
}

// The fields with which both layouts begin.
Fields cashierAndSales(const Machine& machine) {
  Fields fields = {"S1" + zeroPadded(machine.configuration.cashier, 2),
                   money(machine.memory.today().of(DocumentKind::Invoice).total)};
  append(fields, numberAndCount(machine, DocumentKind::Invoice));
  return fields;
}

Fields longCounters(const Machine& machine) {
  const LastNumbers& last = machine.memory.last();
  Fields fields = cashierAndSales(machine);
  append(fields, numberAndCount(machine, DocumentKind::DebitNote));
  append(fields, numberAndCount(machine, DocumentKind::CreditNote));
  append(fields, nonFiscalCounters(machine));
  append(fields, {zeroPadded(last.reports, kClosureDigits),
                  zeroPadded(last.closures, kClosureDigits), machine.configuration.rif,
                  machine.configuration.serial, wireTime(machine.now()), wireDate(machine.now())});
  return fields;
}

Fields shortCounters(const Machine& machine) {
  const LastNumbers& last = machine.memory.last();
  Fields fields = cashierAndSales(machine);
  append(fields, nonFiscalCounters(machine));
  append(fields, {zeroPadded(last.closures, kClosureDigits),
                  zeroPadded(last.reports, kClosureDigits), machine.configuration.rif,
                  machine.configuration.serial, wireDate(machine.now()), wireTime(machine.now())});
  append(fields, numberAndCount(machine, DocumentKind::CreditNote));
  return fields;
}

Fields sevenAmounts(const KindOfDay& kind) {
  Fields fields = {money(kind.byRate.front().base)};
  for (std::size_t rate = 1; rate <= kTaxRates; ++rate) {
    append(fields, {money(kind.byRate.at(rate).base), money(kind.byRate.at(rate).tax)});
  }
  return fields;
}

std::string flagRow(const Configuration& configuration) {
  std::string row;
  for (const int flag : configuration.flags) {
    row += zeroPadded(flag, 2);
  }
  return row;
}

}  // namespace

std::string statusBytes(const Machine& machine) {
  constexpr int kTraining = 64;
  constexpr int kFiscal = 96;
  constexpr int kMemoryFull = 104;
  int status = machine.isMemoryFull ? kMemoryFull : kFiscal;
  status = machine.isTraining ? kTraining : status;
  status += machine.document ? 1 : 0;
  status += machine.isNonFiscalOpen ? 2 : 0;
  return {static_cast<char>(status), static_cast<char>(machine.error)};
}

std::string joined(const std::vector<std::string>& fields) {
  std::string text;
  for (const std::string& field : fields) {
    text += (&field == &fields.front() ? "" : "\n") + field;
  }
  return text;
}

std::string countersReply(const Machine& machine) {
  return joined(machine.configuration.model.counters == CountersLayout::Long
                    ? longCounters(machine)
                    : shortCounters(machine));
}

std::string ratesReply(const Machine& machine) {
  Fields fields;
  for (const Rate& rate : machine.configuration.rates) {
    fields.push_back(wireRate(rate));
  }
  if (machine.configuration.igtf) {
    fields.push_back(wireRate(*machine.configuration.igtf));
  }
  fields.push_back(flagRow(machine.configuration));
  return joined(fields);
}

std::string closureReply(const Closure& closure) {
  const LastNumbers& last = closure.last;
  Fields fields = {zeroPadded(last.closures, kClosureDigits),
                   wireDate(closure.time),
                   wireTime(closure.time),
                   number(last.of(DocumentKind::Invoice)),
                   wireDate(last.invoiceTime),
                   wireTime(last.invoiceTime),
                   number(last.of(DocumentKind::DebitNote)),
                   number(last.of(DocumentKind::CreditNote)),
                   number(last.nonFiscal)};
  for (const KindOfDay& kind : closure.day.kinds) {
    append(fields, sevenAmounts(kind));
  }
  return joined(fields);
}

}  // namespace corvid::simulator
