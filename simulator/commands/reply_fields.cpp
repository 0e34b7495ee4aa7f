#include "simulator/commands/reply_fields.h"

#include <iterator>

namespace corvid::simulator {

std::string money(Amount amount) { return zeroPadded(amount, 10); }
std::string documentNumber(int number) { return zeroPadded(number, 8); }
std::string zReportNumber(int number) { return zeroPadded(number, 4); }

void append(Fields& fields, Fields more) {
  fields.insert(fields.end(), std::make_move_iterator(more.begin()),
                std::make_move_iterator(more.end()));
}

std::string joined(const Fields& fields) {
  std::string text;
  for (const std::string& field : fields) {
    text += (&field == &fields.front() ? "" : "\n") + field;
  }
  return text;
}

}  // namespace corvid::simulator
