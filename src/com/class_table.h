// The public classes: what the class factory makes and what registration writes.
#pragma once

#include "com/platform.h"

#include <span>

namespace corvid {

struct PublicClass {
  GUID id;
  const wchar_t* name;         // the ProgID is "PrinterFiscalCorvid." and this
  const wchar_t* description;  // for whoever looks into the registry
  // A new object with one reference; throws what its construction throws.
  IUnknown* (*create)();
};

[[nodiscard]] std::span<const PublicClass> publicClasses() noexcept;
// Null when the library has no such class.
[[nodiscard]] const PublicClass* findPublicClass(REFCLSID id) noexcept;

}  // namespace corvid
