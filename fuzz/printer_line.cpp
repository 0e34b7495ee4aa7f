// The simulated printer: any bytes from the host, whole and one by one.
#include "input.h"
#include "simulator/commands/status_replies.h"
#include "simulator/line/bytes.h"
#include "simulator/program/printer.h"

namespace corvid::simulator {
namespace {

using fuzz::require;

Printer newPrinter() {
  return Printer({}, [] { return LocalTime{2026, 3, 14, 10, 30, 15}; });
}

std::string answer(Printer& printer, std::string_view bytes) {
  std::string joined;
  for (const Chunk& chunk : printer.receive(bytes)) joined += chunk.bytes;
  return joined;
}

}  // namespace
}  // namespace corvid::simulator

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid::simulator;
  corvid::fuzz::Input input(data, size);
  const std::string bytes(input.rest());
  Printer whole = newPrinter();
  Printer bytewise = newPrinter();
  std::string joined;
  for (const char byte : bytes) joined += answer(bytewise, {&byte, 1});
  require(answer(whole, bytes) == joined, "answers do not depend on how the bytes are cut");
  // The two bytes of ENQ: the first may still be the check byte of a block.
  const std::string status = answer(whole, "\5\5");
  require(status.ends_with(framed(statusBytes(whole.machine()))), "a status is always told");
  return 0;
}
