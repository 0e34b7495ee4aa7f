#include "protocol/status_explanations.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

TEST(StatusExplanations, EveryKnownByteHasItsWords) {
  const struct {
    std::int32_t code;
    std::wstring first;
    std::wstring second;
  } kCases[] = {
      {8, L"STS1 = 8 (0x8)", L"Error en gaveta (0x8)"},
      {64, L"Modo entrenamiento: IDLE (0x40)", L"STS2 = Ok (0x40)"},
      {65, L"Modo entrenamiento: TF (0x41)", L"Sin papel (0x41)"},
      {66, L"Modo entrenamiento: TNF (0x42)", L"Sin papel/error mecánico (0x42)"},
      {67, L"STS1 = 67 (0x43)", L"Sin papel/error mecánico (0x43)"},
      {72, L"STS1 = 72 (0x48)", L"Memoria fiscal llena (0x48)"},
      {96, L"Modo fiscal: IDLE (0x60)", L"Error fiscal (0x60)"},
      {97, L"Modo fiscal: TF (0x61)", L"STS2 = 97 (0x61)"},
      {98, L"Modo fiscal: TNF (0x62)", L"STS2 = 98 (0x62)"},
      {100, L"STS1 = 100 (0x64)", L"Error en la memoria fiscal (0x64)"},
      {104, L"Memoria fiscal llena: IDLE (0x68)", L"STS2 = 104 (0x68)"},
      {105, L"Memoria fiscal llena: TF (0x69)", L"STS2 = 105 (0x69)"},
      {106, L"Memoria fiscal llena: TNF (0x6A)", L"STS2 = 106 (0x6A)"},
      {108, L"STS1 = 108 (0x6C)", L"Error memoria fiscal llena (0x6C)"},
      {0, L"STS1 = 0 (0x0)", L"STS2 = 0 (0x0)"},
  };
  for (const auto& [code, first, second] : kCases) {
    EXPECT_EQ(explainSTS1(code), first);
    EXPECT_EQ(explainSTS2(code), second);
  }
}

}  // namespace
}  // namespace corvid
