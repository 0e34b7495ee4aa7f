// A documented member that sends commands: its turn at the line, and what it refuses to send.
#pragma once

#include "session/printer_session.h"

#include <cstdint>
#include <string>
#include <utility>

namespace corvid {

// Lives on the member's stack.
class Member {
 public:
  // The name is the published one.
  Member(PrinterSession& session, const wchar_t* name)
      : session_(session), name_(name), turn_(session.exchange(), name) {}

  // The host called in the middle of another member's wait: the member returns pfClientError, or
  // what stands for it, and leaves everything as it is.
  [[nodiscard]] bool isRefused() const { return turn_.isRefused(); }

  // Execute's result; pfClientError, and nothing sent, for a command that refusesText.
  std::int16_t send(const std::wstring& command);
  // True, with the outcome set, where one of the bytes that would be sent is one by which the line
  // tells blocks and answers apart.
  bool refusesText(const std::wstring& text);
  // Sets pfClientError and "Argumento inválido (" reason ") en " name; returns pfClientError.
  std::int16_t refuse(const wchar_t* reason);

 private:
  PrinterSession& session_;
  const wchar_t* name_;
  Exchange::Turn turn_;
};

// Sends what `command` gives, a text made in the member's turn.
template <class Command>
std::int16_t sendAs(PrinterSession& session, const wchar_t* name, Command&& command) {
  Member member(session, name);
  if (member.isRefused()) return pfClientError;
  return member.send(std::forward<Command>(command)());
}

}  // namespace corvid
