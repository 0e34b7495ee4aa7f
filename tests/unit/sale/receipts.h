// What stands on the receipts of a simulated printer's paper, added up.
#pragma once

#include "simulator/device/paper.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

using Cents = std::int64_t;

inline constexpr const char* kInvoices = "FACTURA";
inline constexpr const char* kDebitNotes = "NOTA DE DEBITO";
inline constexpr const char* kCreditNotes = "NOTA DE CREDITO";
inline constexpr const char* kNonFiscal = "DOCUMENTO NO FISCAL";

struct KindOfReceipt {
  int count = 0;
  Cents total = 0;  // with the levy
  // By the beginning of the line: "EXENTO", "BI G", "IVA G", ..., "PERCIBIDO", "IGTF" and what that
  // is due on, "IGTF SOBRE".
  std::map<std::string, Cents> sums;
};

// Receipts by their title; cancelled ones, training, copies and reports are none.
class Receipts {
 public:
  // From that line of the paper on.
  Receipts(const simulator::Paper& paper, std::size_t first) {
    std::vector<std::string> lines;
    for (; first < paper.lines().size(); ++first) {
      lines.push_back(paper.lines()[first]);
      if (lines.back() != std::string(simulator::kColumns, '=')) continue;
      addDocument(lines);
      lines.clear();
    }
  }

  [[nodiscard]] const KindOfReceipt& of(const std::string& title) const {
    static const KindOfReceipt kNone;
    const auto found = kinds_.find(title);
    return found == kinds_.end() ? kNone : found->second;
  }
  [[nodiscard]] Cents sum(const std::string& title, const std::string& label) const {
    const auto& sums = of(title).sums;
    const auto found = sums.find(label);
    return found == sums.end() ? 0 : found->second;
  }

 private:
  static constexpr std::string_view kTitles[] = {kInvoices, kDebitNotes, kCreditNotes, kNonFiscal};
  static constexpr const char* kLabels[] = {"EXENTO", "BI G", "IVA G", "BI R",
                                            "IVA R",  "BI A", "IVA A", "PERCIBIDO"};

  static std::string trimmed(const std::string& line) {
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return line.substr(first, line.find_last_not_of(' ') + 1 - first);
  }
  // "Bs 1.234,50" at the end of a line.
  static Cents amountOf(const std::string& text) {
    std::string digits;
    for (const char c : text) {
      if (c >= '0' && c <= '9') digits += c;
    }
    return std::stoll(digits);
  }

  void addDocument(const std::vector<std::string>& lines) {
    std::string title;
    for (const std::string& line : lines) {
      const std::string text = trimmed(line);
      if (text == "DOCUMENTO ANULADO" || text.starts_with("***") || text.starts_with("REPORTE")) {
        return;
      }
      if (std::ranges::find(kTitles, text) != std::end(kTitles)) title = text;
    }
    if (title.empty()) return;
    KindOfReceipt& kind = kinds_[title];
    ++kind.count;
    Cents total = 0;
    for (const std::string& line : lines) total += addLine(kind, line);
    kind.total += total;
  }

  // What the line adds to the receipt's total.
  static Cents addLine(KindOfReceipt& kind, const std::string& line) {
    const std::size_t at = line.rfind("Bs ");
    if (at == std::string::npos) return 0;
    const Cents amount = amountOf(line.substr(at));
    if (line.starts_with("TOTAL ") && !line.starts_with("TOTAL CON")) return amount;
    if (line.starts_with("IGTF SOBRE ")) {
      kind.sums["IGTF SOBRE"] += amountOf(line.substr(0, at));
      kind.sums["IGTF"] += amount;
      return amount;
    }
    for (const char* label : kLabels) {
      if (line.starts_with(std::string(label) + " (")) kind.sums[label] += amount;
    }
    return 0;
  }

  std::map<std::string, KindOfReceipt> kinds_;
};

}  // namespace corvid
