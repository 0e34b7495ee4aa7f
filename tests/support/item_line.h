// Item lines as tests write them.
#pragma once

#include "documents/item_lines.h"

#include <string>

namespace corvid {

struct ItemLine {
  std::wstring description;
  double price = 0;
  double quantity = 0;
  double rate = 0;
};

inline std::int16_t PasarItem(PrinterSession& session, const ItemLine& line) {
  return PasarItem(session, line.description, Currency::fromDouble(line.price), line.quantity,
                   line.rate);
}
inline std::int16_t RefundItem(PrinterSession& session, const ItemLine& line) {
  return RefundItem(session, line.description, Currency::fromDouble(line.price), line.quantity,
                    line.rate);
}
inline std::int16_t AnularItem(PrinterSession& session, const ItemLine& line) {
  return AnularItem(session, line.description, Currency::fromDouble(line.price), line.quantity,
                    line.rate);
}
inline GeneralItem general(const ItemLine& line, const std::wstring& code = {}) {
  return {line.description, Decimal::fromDouble(line.price), line.quantity, line.rate, code};
}

}  // namespace corvid
