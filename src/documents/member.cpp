#include "documents/member.h"

#include "protocol/framing.h"

namespace corvid {

std::int16_t Member::send(const std::wstring& command) {
  if (refusesText(command)) return pfClientError;
  return session_.Execute(command);
}

bool Member::refusesText(const std::wstring& text) {
  if (!holdsLineControl(session_.thread().codePage().encode(text))) return false;
  refuse(L"car\u00E1cter de control");
  return true;
}

std::int16_t Member::refuse(const wchar_t* reason) {
  session_.exchange().refuseCommand(
      pfClientError, L"Argumento inv\u00E1lido (" + std::wstring(reason) + L") en " + name_);
  return pfClientError;
}

}  // namespace corvid
