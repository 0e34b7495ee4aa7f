#include "protocol/status_explanations.h"

#include "basic/format.h"

#include <span>

namespace corvid {
namespace {

struct Explanation {
  std::int32_t code;
  const wchar_t* words;
};

constexpr Explanation kFirstByte[] = {
    {64, L"Modo entrenamiento: IDLE"},
    {65, L"Modo entrenamiento: TF"},
    {66, L"Modo entrenamiento: TNF"},
    {96, L"Modo fiscal: IDLE"},
    {97, L"Modo fiscal: TF"},
    {98, L"Modo fiscal: TNF"},
    {104, L"Memoria fiscal llena: IDLE"},
    {105, L"Memoria fiscal llena: TF"},
    {106, L"Memoria fiscal llena: TNF"},
};

constexpr Explanation kSecondByte[] = {
    {8, L"Error en gaveta"},
    {64, L"STS2 = Ok"},
    {65, L"Sin papel"},
    {66, L"Sin papel/error mecánico"},
    {67, L"Sin papel/error mecánico"},
    {72, L"Memoria fiscal llena"},
    {96, L"Error fiscal"},
    {100, L"Error en la memoria fiscal"},
    {108, L"Error memoria fiscal llena"},
};

std::wstring explain(std::int32_t code, std::span<const Explanation> table, const wchar_t* name) {
  std::wstring words = std::wstring(name) + L" = " + std::to_wstring(code);
  for (const Explanation& entry : table) {
    if (entry.code == code) words = entry.words;
  }
  return words + L" (0x" + toHex(code) + L")";
}

}  // namespace

std::wstring explainSTS1(std::int32_t sts1) { return explain(sts1, kFirstByte, L"STS1"); }

std::wstring explainSTS2(std::int32_t sts2) { return explain(sts2, kSecondByte, L"STS2"); }

}  // namespace corvid
