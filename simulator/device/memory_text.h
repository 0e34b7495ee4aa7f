// What the printer keeps while it is off, as a text.
#pragma once

#include "simulator/device/machine.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace corvid::simulator {

// The memory as a text in ASCII. Each line is a word and, after blanks, whole numbers or a text in
// which \\ stands for a backslash and \xHH for any byte below 32 or above 126. In this order:
//
//   corvid-printer-memory 1   the format's number
//   rate KIND HUNDREDTHS      three times; kind 1 included, 2 added; hundredths of a percent
//   igtf KIND HUNDREDTHS      or igtf 0 0 where the printer has no such levy
//   flags N ...               64 values
//   cashier N
//   clock SECONDS             by which the printer's time is off the machine's
//   header TEXT, footer TEXT  any number of times each, in the order of the lines; may be empty
//   last ...                  last invoice, debit note, credit note, non-fiscal document, Z report,
//                             report; year, month, day, hour, minute, second of the last invoice
//   the running day:
//     day N                   non-fiscal documents
//     kind ...                three times (invoices, debit notes, credit notes): count; total; five
//                             pairs of base and tax by rate index; base and amount of the levy on
//                             foreign currency; 24 amounts by payment method; all in hundredths
//   zreport TIME              six numbers; then a line `last` and a day as above; for each Z
//   report copy LETTER NUMBER TIME   a document printed, and after it | TEXT                    its
//   lines; for each copy end CHECK                 eight hexadecimal digits: 32-bit FNV-1a of all
//   bytes before this line
//
// An open document is not part of it: it is lost when the printer goes off.
[[nodiscard]] std::string memoryText(const Machine& machine);

// A text that is no such memory; what() tells the line and what was expected there.
class DamagedMemory : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Puts the memory of a text into a machine, over what it was configured with. DamagedMemory, and
// the machine as it was, for any text that memoryText() did not write.
void restoreMemory(std::string_view text, Machine& machine);

// 32-bit FNV-1a as eight hexadecimal digits.
[[nodiscard]] std::string checkOf(std::string_view text);

}  // namespace corvid::simulator
