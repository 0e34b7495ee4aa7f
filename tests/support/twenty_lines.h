// The sale that tests count and benchmarks time: one customer, twenty lines, paid in cash. Plain
// data, for hosts of every kind.
#pragma once

#include <array>

namespace corvid {

struct SaleLine {
  const wchar_t* description;
  double price;
  double quantity;
  double rate;
};

inline constexpr const wchar_t* kBuyerName = L"Maria Perez";
inline constexpr const wchar_t* kBuyerTaxId = L"V-12345678-9";
inline constexpr const wchar_t* kBuyerAddress =
    L"Avenida Bolivar, edificio Los Proceres, piso 3, Caracas";  // two lines of the document
inline constexpr int kPaymentMethod = 1;
inline constexpr double kPayment = 1000;

inline constexpr std::array<SaleLine, 20> kTwentyLines = {{
    {L"Pan campesino", 12.5, 2, 16},
    {L"Leche entera 1 l", 3.2, 6, 0},
    {L"Cafe molido 500 g", 8.75, 1, 8},
    {L"Queso blanco duro", 10.4, 1.235, 16},
    {L"Jamon de pierna", 14.9, 0.75, 16},
    {L"Harina de maiz 1 kg", 1.85, 4, 0},
    {L"Arroz de primera 1 kg", 1.6, 3, 0},
    {L"Aceite de girasol 1 l", 4.3, 2, 16},
    {L"Azucar refinada 1 kg", 1.45, 2, 0},
    {L"Sal marina 500 g", 0.6, 1, 0},
    {L"Atun en aceite 170 g", 2.95, 4, 16},
    {L"Mayonesa 445 g", 3.8, 1, 16},
    {L"Mantequilla 250 g", 3.1, 2, 8},
    {L"Huevos, carton de 30", 6.5, 1, 0},
    {L"Tomates por kilo", 2.2, 1.48, 0},
    {L"Cebollas por kilo", 1.9, 0.965, 0},
    {L"Jabon de tocador 3 x 110 g", 2.75, 1, 16},
    {L"Detergente en polvo 2 kg", 7.95, 1, 16},
    {L"Papel absorbente, dos rollos", 2.4, 2, 16},
    {L"Agua mineral 5 l", 1.75, 3, 8},
}};

}  // namespace corvid
