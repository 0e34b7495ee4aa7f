// The printer behind its line: what the commands act upon.
#pragma once

#include "simulator/device/configuration.h"
#include "simulator/device/customer.h"
#include "simulator/device/document.h"
#include "simulator/device/fiscal_memory.h"
#include "simulator/device/journal.h"
#include "simulator/device/local_time.h"
#include "simulator/device/paper.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvid::simulator {

// Values of the second status byte that the printer itself tells apart.
inline constexpr int kNoError = 64;
inline constexpr int kNoPaper = 65;
inline constexpr int kLastPaperError = 67;

// What becomes of an open document when the power comes back.
enum class OpenDocument { Annulled, Resumed };

struct Machine {
  Machine(Configuration chosen, Clock source)
      : configuration(std::move(chosen)),
        clock(std::move(source)),
        memory(configuration.lastInvoice) {}

  Configuration configuration;
  Clock clock;
  std::int64_t clockOffset = 0;  // seconds by which the host set the printer's time off the clock's
  FiscalMemory memory;
  Journal journal;
  Paper paper;
  std::size_t documentStart = 0;     // the paper's line with which the document began
  Customer customer;                 // of the next document, or of the open one
  std::optional<Document> document;  // the open fiscal document
  bool isNonFiscalOpen = false;
  bool isTraining = false;  // documents are printed, but not remembered
  bool isMemoryFull = false;
  int error = kNoError;  // second status byte
  int drawerOpenings = 0;

  [[nodiscard]] bool isIdle() const { return !document && !isNonFiscalOpen; }
  [[nodiscard]] bool canPrint() const { return error < kNoPaper || error > kLastPaperError; }
  [[nodiscard]] LocalTime now() const { return shifted(clock(), clockOffset); }

  // The power goes and comes back: customer data, training and errors that need no hand are gone,
  // and so is a document that is annulled, which the paper tells. All else is kept.
  void cutPower(OpenDocument fate);

  // Marks where on the paper a document begins.
  void beginDocument();
  // Keeps a copy of the paper since that mark.
  void keepCopy(char kind, int number);
};

}  // namespace corvid::simulator
