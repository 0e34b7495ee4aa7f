#include "protocol/framing.h"

#include "support/error_of.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

TEST(Framing, BlockIsStxCommandEtxAndTheXorOfTheBytesSent) {
  const struct {
    std::wstring command;
    std::string bytes;
    const char* reason;
  } kCases[] = {
      {L"w", "\x02w\x03t", "STX is not part of the check byte"},
      {L"S1", "\x02S1\x03\x61", "two bytes"},
      {L"", "\x02\x03\x03", "an empty command still frames"},
      {L"80aÑ", "\00280a\xD1\x03\xBB", "the upper half is one byte in block and check"},
      {L"80€", "\00280\x80\x03\x8B", "the check follows the code page, not the character's code"},
      {L"\u00A1", "\x02\xA1\x03\xA2", "a void line's rate byte"},
  };
  for (const auto& item : kCases) {
    const std::wstring block = BuildCommandBlock(item.command, windows1252());
    EXPECT_EQ(windows1252().encode(block), item.bytes) << item.reason;
    EXPECT_EQ(block.size(), item.bytes.size()) << item.reason;
  }
}

TEST(Framing, CheckOfNothingIsAnError) {
  EXPECT_EQ(errorOf([] { return CalcXOr(L"", windows1252()); }), 5);
}

TEST(Framing, EscapeMakesControlBytesAndBlanksReadable) {
  std::wstring all;
  for (wchar_t code = 0; code < 34; ++code) all += code;
  EXPECT_EQ(EscapeString(all),
            L"[000][001][STX][ETX][EOT][ENQ][ACK][007][008][009][010][011][012][013][014][015]"
            L"[016][017][018][019][020][NAK][022][ETB][024][025][026][027][028][029][030][031]"
            L"[032]!");
  EXPECT_EQ(EscapeString(std::wstring(1, wchar_t{127}) + L"Ñ"),
            std::wstring(1, wchar_t{127}) + L"Ñ");
}

}  // namespace
}  // namespace corvid
