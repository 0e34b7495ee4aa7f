#include "session/framing.h"

#include "basic/run_time_error.h"

#include <gtest/gtest.h>

#include <string>

namespace corvid {
namespace {

struct BlockCase {
  std::wstring command;
  std::string bytes;
  const char* reason;
};

TEST(Framing, BlockIsStxCommandEtxAndTheXorOfTheBytesSent) {
  const BlockCase cases[] = {
      {L"w", "\x02w\x03t", "STX is not part of the check byte"},
      {L"S1", "\x02S1\x03\x61", "two bytes"},
      {L"", std::string("\x02\x03\x03", 3), "an empty command still frames"},
      {L"80aÑ",
       "\x02"
       "80a\xD1\x03\xBB",
       "a letter of the upper half is one byte in block and check"},
      {L"80€",
       "\x02"
       "80\x80\x03\x8B",
       "the check byte follows the code page, not the character's own code"},
      {std::wstring(1, wchar_t{0xA1}), "\x02\xA1\x03\xA2", "a void line's rate byte"},
  };
  for (const BlockCase& item : cases) {
    const std::wstring block = BuildCommandBlock(item.command, windows1252());
    EXPECT_EQ(windows1252().encode(block), item.bytes) << item.reason;
    EXPECT_EQ(block.size(), item.bytes.size()) << item.reason;
  }
}

TEST(Framing, CheckOfNothingIsAnError) {
  try {
    static_cast<void>(CalcXOr(L"", windows1252()));
    FAIL() << "an empty text has no first character";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), 5);
  }
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
