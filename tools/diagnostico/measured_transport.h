// A stream that measures what it brings, and carries no command that could change a printer.
#pragma once

#include "platform/clock.h"
#include "transport/transport.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace corvid {

// What came back for the last write; times in seconds.
struct Arrival {
  std::size_t bytes = 0;    // 0: nothing came
  std::size_t reads = 0;    // that brought something
  double first = 0;         // from the write to the end of the first of them
  double last = 0;          // to the end of the last one
  double longestPause = 0;  // between the ends of two
};

// The status request, the query of the counters, and the ACK that a printer asks for.
[[nodiscard]] bool isHarmless(std::string_view bytes);

class MeasuredTransport : public Transport {
 public:
  // The clock outlives it.
  MeasuredTransport(std::shared_ptr<Transport> inner, Clock& clock)
      : inner_(std::move(inner)), clock_(clock) {}

  [[nodiscard]] const Arrival& arrival() const { return arrival_; }

  std::int32_t open() override { return inner_->open(); }
  std::int32_t close() override { return inner_->close(); }
  [[nodiscard]] bool isOpen() const override { return inner_->isOpen(); }
  void setLines() override { inner_->setLines(); }
  std::int32_t read(std::string& bytes) override;
  std::string discard() override { return inner_->discard(); }
  // -1 also for bytes that are not harmless, which are not written.
  std::int32_t write(std::string_view bytes) override;
  [[nodiscard]] std::wstring errorText() const override { return inner_->errorText(); }
  [[nodiscard]] std::wstring address() const override { return inner_->address(); }
  [[nodiscard]] ReadManner readManner() const override { return inner_->readManner(); }

 private:
  std::shared_ptr<Transport> inner_;
  Clock& clock_;
  double written_ = 0;
  Arrival arrival_;
};

}  // namespace corvid
