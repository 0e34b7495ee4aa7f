// Customer lines that stand ready for the next document.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace corvid::simulator {

struct Customer {
  std::string name;
  std::string rif;
  // The document that a credit note corrects.
  std::string affectedInvoice;
  std::string affectedSerial;
  std::string affectedDate;
  std::map<int, std::string> lines;  // by number; the same number again replaces the line

  [[nodiscard]] bool isEmpty() const {
    return name.empty() && rif.empty() && affectedInvoice.empty() && affectedSerial.empty() &&
           affectedDate.empty() && lines.empty();
  }
};

}  // namespace corvid::simulator
