// A day of which every sum was worked out by hand, and no two are alike.
#pragma once

#include "bench.h"

#include <string>
#include <vector>

namespace corvid::simulator {

// The commands: three invoices, a debit note, a credit note, a non-fiscal document, and what does
// not count: an invoice in training, and a cancelled one.
inline std::vector<std::string> knownDay() {
  return {// 211.20 = 100.00 + 16.00, 50.00 + 4.00, 20.00 + 6.20, 10.00 exempt, 5.00 collected
          item("!", 10000, 1000, "A"), item("\"", 5000, 1000, "B"), item("#", 2000, 1000, "C"),
          item(" ", 1000, 1000, "D"), item("$", 500, 1000, "E"), "101",
          // 104.40 = 100.00 less 10 percent, + 14.40; levy 1.50 on 50.00
          item("!", 4000, 2500, "F"), "p-01000", "220000000005000", "102",
          // 33.50 exempt; levy 1.005 on it, 1.01; change 6.50
          item(" ", 3350, 1000, "G"), "224000000004000",
          // 40.77 = 1.00, 20.00 + 3.20, 5.00 + 0.40, 7.00 + 2.17, 2.00 collected; levy 1.22
          "D+01,00||1,000||H", "D+120,00||1,000||I", "D+25,00||1,000||J", "D+37,00||1,000||K",
          "D+42,00||1,000||L", "122",
          // 22.73 = 1.50, 10.00 + 1.60, 2.50 + 0.20, 3.00 + 0.93, 3.00 collected; levy 0.68
          item("d0", 150, 1000, "M"), item("d1", 1000, 1000, "N"), item("d2", 250, 1000, "O"),
          item("d3", 300, 1000, "P"), item("d4", 300, 1000, "Q"), "f21000000000000",
          // A second credit note, 1.00 exempt in cash
          item("d0", 100, 1000, "R"), "f01000000000000", "800TEXT", "810TEXT", "T1",
          item("!", 77700, 1000, "S"), "101", "810TEXT", "T2", item("!", 88800, 1000, "T"), "7"};
}

}  // namespace corvid::simulator
