// The bytes of a printer as the decoder sees them; a bar stands for quiet.
#include "protocol/reply_decoder.h"

#include "input.h"

namespace corvid {
namespace {

using fuzz::require;

std::optional<ReplyEvent> step(ReplyDecoder& decoder, char byte) {
  return byte == '|' ? decoder.quiet() : decoder.take(byte);
}

char exclusiveOr(std::string_view bytes) {
  char check = 0;
  for (const char byte : bytes) check = static_cast<char>(check ^ byte);
  return check;
}

void checkBlock(const ReplyEvent& block, char lastByte) {
  const std::string bytes = (block.isFramed ? "\2" : "") + block.text + block.end;
  require(block.collected.ends_with(bytes), "a block's text and end stand where they were read");
  require(block.text.find_first_of("\2\3\4\x17") == std::string::npos, "no text holds an end");
  if (block.check == CheckByte::Missing) return;
  const bool isRight = exclusiveOr(block.text + block.end) == lastByte;
  require((block.check == CheckByte::Right) == isRight, "the check byte is the last one read");
}

// Takes a block after whatever came before.
void checkRecovery(ReplyDecoder& decoder) {
  static_cast<void>(decoder.quiet());
  for (const char byte : {'\2', 'A', '\3'}) require(!decoder.take(byte), "no event in a block");
  const auto event = decoder.take('B');
  require(event && event->isFramed && event->text == "A" && event->check == CheckByte::Right,
          "after quiet a block is read");
  require(decoder.collected().empty() && !decoder.awaitsCheckByte(), "nothing stays");
}

}  // namespace
}  // namespace corvid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid;
  ReplyDecoder decoder;
  std::size_t told = 0;
  for (std::size_t i = 0; i < size; ++i) {
    const char byte = static_cast<char>(data[i]);
    const auto event = step(decoder, byte);
    if (event && event->kind == ReplyKind::Block) checkBlock(*event, byte);
    if (event) told += event->collected.size();
    fuzz::require(told + decoder.collected().size() <= i + 1, "no byte is told twice");
  }
  checkRecovery(decoder);
  return 0;
}
