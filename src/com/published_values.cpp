// The values that hosts know by the type library's names are those that the sources know by theirs.
#include "corvid_interfaces.h"
#include "exchange/outcome.h"
#include "exchange/send_record.h"
#include "protocol/control_bytes.h"
#include "session/session_state.h"

#include <cstdint>

namespace corvid {
namespace {

template <class Own, class Published>
consteval bool isSame(Own own, Published published) {
  return static_cast<std::int32_t>(own) == static_cast<std::int32_t>(published);
}

static_assert(isSame(STX, ::STX) && isSame(ETX, ::ETX) && isSame(EOT, ::EOT));
static_assert(isSame(ENQ, ::ENQ) && isSame(ACK, ::ACK) && isSame(NAK, ::NAK));
static_assert(isSame(ETB, ::ETB) && isSame(RS, ::RS) && isSame(US, ::US));

static_assert(isSame(pfOk, ::pfOk) && isSame(pfCommError, ::pfCommError));
static_assert(isSame(pfPrinterError, ::pfPrinterError) && isSame(pfClientError, ::pfClientError));

static_assert(isSame(SRP350, ::SRP350) && isSame(DT230, ::DT230));
static_assert(isSame(HKA112, ::HKA112) && isSame(SRP812, ::SRP812));

static_assert(isSame(envNinguno, ::envNinguno) && isSame(envAceptado, ::envAceptado));
static_assert(isSame(envRechazado, ::envRechazado) && isSame(envNoEnviado, ::envNoEnviado));
static_assert(isSame(envIncierto, ::envIncierto));
static_assert(isSame(envAceptadoDudoso, ::envAceptadoDudoso));

}  // namespace
}  // namespace corvid
