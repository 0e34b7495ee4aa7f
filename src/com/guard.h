// The boundary: what the library throws becomes an HRESULT with error information.
#pragma once

#include "com/platform.h"

namespace corvid {

// Turns the exception that is being handled into its HRESULT and leaves source and description for
// the host. Run-time error n is 0x800A0000 + n, a negative number stands as it is, lack of memory
// is E_OUTOFMEMORY, every other exception E_FAIL with its text. To be called in a catch clause.
[[nodiscard]] HRESULT reportCurrentException(REFIID interfaceId) noexcept;

// Runs one member of an interface; no exception leaves it.
template <class Body>
[[nodiscard]] HRESULT guarded(REFIID interfaceId, Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return reportCurrentException(interfaceId);
  }
}

}  // namespace corvid
