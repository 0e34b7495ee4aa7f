// What a printer's bytes mean.
#include "protocol/reply_decoder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace corvid {
namespace {

constexpr char kQuiet = '|';

std::string told(const ReplyEvent& event) {
  switch (event.kind) {
    case ReplyKind::Accepted:
      return "ACK ";
    case ReplyKind::Refused:
      return "NAK ";
    case ReplyKind::Request:
      return "ENQ ";
    default:
      break;
  }
  const char* check = event.check == CheckByte::Right   ? ""
                      : event.check == CheckByte::Wrong ? "wrong "
                                                        : "missing ";
  const char* end = event.end == '\3' ? "" : event.end == '\4' ? "EOT " : "ETB ";
  return std::string(event.isFramed ? "" : "bare ") + check + end + "{" + event.text + "} ";
}

// The events of all bytes, a bar standing for quiet.
std::string events(std::string_view bytes) {
  ReplyDecoder decoder;
  std::string all;
  for (const char byte : bytes) {
    if (const auto event = byte == kQuiet ? decoder.quiet() : decoder.take(byte)) {
      all += told(*event);
    }
  }
  return all;
}

TEST(ReplyDecoder, TellsAnswersRequestsAndBlocks) {
  const struct {
    std::string_view bytes;
    std::string events;
    const char* reason;
  } kCases[] = {
      {"\6\x15\5", "ACK NAK ENQ ", "single bytes"},
      {"~\6~~\x15~\5\6", "ACK NAK ENQ ACK ", "also behind noise"},
      {"\2A\3B", "{A} ", "a block and its check byte"},
      {"\2A\4E\2A\x17V", "EOT {A} ETB {A} ", "the other ends"},
      {"\2\3\3", "{} ", "an empty block"},
      {"\2A\3x", "wrong {A} ", "a wrong check byte"},
      {"\2A\3\6\6", "wrong {A} ACK ", "a check byte is no answer, the next byte is"},
      {"\2\x14\x17\3", "ETB {\x14} ", "a check byte equal to ETX"},
      {"\2A\3\2B\3A", "wrong {A} bare {B} ", "STX behind a framed block is its check byte"},
      {"\2\6\x15\5\3", "", "inside a block they are text"},
      {"\2\6\x15\5\3\x15", "{\6\x15\5} ", "and stay it"},
      {"\2half\2A\3B", "{A} ", "STX begins a block anew"},
      {"~~\2A\3B", "{A} ", "noise before a block"},
      {"A\nB\3x", "bare wrong {A\nB} ", "text without STX that ends"},
      {"A\nB\3\n", "bare {A\nB} ", "with its check byte"},
      {"A\3\2B\3A", "bare missing {A} {B} ", "STX is no check byte of such text"},
      {"\3\x17\4", "", "an end byte alone is a late check byte"},
      {"\6\3\2A\3B", "ACK {A} ", "behind an answer too"},
      {"\2A\3|B", "missing {A} ", "quiet in place of the check byte"},
      {"A\3|", "bare missing {A} ", "the same without STX"},
      {"\2ha||lf\3", "", "half a block outlasts quiet"},
      {"\2ha||lf\3\xA", "wrong {half} ", "and its rest joins it"},
      {"\2ha|\6", "ACK ", "an answer behind quiet"},
      {"\2ha\x15|", "NAK ", "an answer before quiet"},
      {"\2ha\6lf|\3", "", "neither before nor behind it"},
      {"\2|\5A\3", "", "ENQ in a block is text, whatever quiet"},
      {"\2ha|\6\2A\3B", "ACK {A} ", "the half is dropped"},
      {"\2ha|\6\5", "ACK ENQ ", "and no block is open any more"},
      {"~|~|\6", "ACK ", "noise and quiet"},
  };
  for (const auto& item : kCases) EXPECT_EQ(events(item.bytes), item.events) << item.reason;
}

TEST(ReplyDecoder, EveryCheckByteEndsItsBlock) {
  for (int check = 0; check < 256; ++check) {
    const char text = static_cast<char>(check ^ 3);
    if (text == '\2' || text == '\3' || text == '\4' || text == '\x17') continue;
    ReplyDecoder decoder;
    for (const char byte : {'\2', text, '\3'}) EXPECT_FALSE(decoder.take(byte)) << check;
    const auto event = decoder.take(static_cast<char>(check));
    ASSERT_TRUE(event) << check;
    EXPECT_EQ(event->check, CheckByte::Right) << check;
  }
}

TEST(ReplyDecoder, KeepsNoiseBeforeABlockAndNothingOfARequest) {
  ReplyDecoder decoder;
  std::optional<ReplyEvent> event;
  for (const char byte : std::string_view("~\5~\2half\2A\3")) event = decoder.take(byte);
  EXPECT_EQ(decoder.collected(), "~~\2A\3");
  event = decoder.take('B');
  ASSERT_TRUE(event);
  EXPECT_EQ(event->collected, "~~\2A\3");
  EXPECT_EQ(decoder.collected(), "");
}

}  // namespace
}  // namespace corvid
