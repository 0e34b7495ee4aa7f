// PrinterResponse3: tax rates with their kinds, IGTF, printer flags (reply to "S3").
#pragma once

#include "records/field_array.h"
#include "session/library.h"
#include "session/status_source.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvid {

// Plain values with their published names, in interface order.
struct Response3Values {
  bool TipoTasa1 = false;  // kinds: True when the tax is included in the price
  double ValorTasa1 = 0;   // rates in percent
  bool TipoTasa2 = false;
  double ValorTasa2 = 0;
  bool TipoTasa3 = false;
  double ValorTasa3 = 0;
  std::int16_t nFlags = -1;  // upper index of the flag table
  bool isFake = false;       // True after loadFake, False after loadFromResponse
  double TasaIGTF = 0;
};

class PrinterResponse3 : public RateRecord {
 public:
  explicit PrinterResponse3(Library& library) : library_(library) {}

  Response3Values values;

  // Clears kinds and rates; the flags stay as they are.
  void loadFake();
  // Never raises: an error goes to the trace, and what was set before it remains.
  void loadFromResponse(const FieldArray& fields);
  [[nodiscard]] std::int16_t Flag(std::int16_t n) const override;
  [[nodiscard]] static std::wstring imagenIncluido(bool included);
  [[nodiscard]] std::wstring toString() const;

  [[nodiscard]] double rate(int n) const override;
  [[nodiscard]] bool isSubstitute() const override { return values.isFake; }

 private:
  void loadRates(const FieldArray& fields);
  void loadFlags(const FieldArray& fields);
  [[nodiscard]] std::wstring flagRow() const;

  Library& library_;
  std::vector<std::int16_t> flags_;
};

}  // namespace corvid
