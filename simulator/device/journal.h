// Copies of the documents printed, to be printed again.
#pragma once

#include "simulator/device/local_time.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvid::simulator {

// Kinds of documents that are kept, by the letter that asks for them.
inline constexpr std::string_view kCopyKinds = "FDCNZ";
inline constexpr char kInvoiceCopy = 'F';
inline constexpr char kDebitNoteCopy = 'D';
inline constexpr char kCreditNoteCopy = 'C';
inline constexpr char kNonFiscalCopy = 'N';
inline constexpr char kZReportCopy = 'Z';

struct Copy {
  char kind = kInvoiceCopy;
  int number = 0;  // of its kind
  LocalTime time;
  std::vector<std::string> lines;  // as they stood on the paper
};

class Journal {
 public:
  void add(Copy copy) { copies_.push_back(std::move(copy)); }

  // In the order in which they were printed; both ends belong to the range. The pointers hold until
  // the next copy is added.
  [[nodiscard]] std::vector<const Copy*> numbered(char kind, int first, int last) const;
  // Dates as dateNumber() gives them.
  [[nodiscard]] std::vector<const Copy*> dated(char kind, int first, int last) const;

  [[nodiscard]] const std::vector<Copy>& all() const { return copies_; }

 private:
  std::vector<Copy> copies_;
};

}  // namespace corvid::simulator
