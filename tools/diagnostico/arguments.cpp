#include "tools/diagnostico/arguments.h"

#include "basic/text.h"
#include "transport/transports.h"

#include <cstddef>
#include <string_view>

namespace corvid {
namespace {

constexpr std::size_t kMostDigits = 2;

std::optional<std::int16_t> portNumber(std::wstring_view text) {
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  std::int16_t number = 0;
  for (const wchar_t digit : text) {
    if (!isDigit(digit)) return std::nullopt;
    number = static_cast<std::int16_t>((10 * number) + (digit - L'0'));
  }
  return Transports::isPortNumber(number) ? std::optional(number) : std::nullopt;
}

// Each takes what follows it on the command line.
bool takesValue(std::wstring_view name) {
  return name == L"--puerto" || name == L"--carpeta" || name == L"--informe";
}

std::wstring takeValue(DiagnosticArguments& arguments, const std::wstring& name,
                       const std::wstring& value) {
  if (value.empty()) return name + L": falta su valor";
  if (name == L"--carpeta") {
    arguments.folder = value;
  } else if (name == L"--informe") {
    arguments.report = value;
  } else {
    arguments.port = portNumber(value);
    if (!arguments.port) return L"--puerto: " + value + L" no es un número de 1 a 99";
  }
  return {};
}

std::wstring takeSwitch(DiagnosticArguments& arguments, const std::wstring& name) {
  if (name == L"--ayuda" || name == L"--help") {
    arguments.isHelpWanted = true;
  } else if (name == L"--buscar") {
    arguments.searches = true;
  } else if (name == L"--simulado") {
    arguments.isSimulated = true;
  } else if (name == L"--con-datos") {
    arguments.tellsPrivateData = true;
  } else {
    return name + L": no se conoce";
  }
  return {};
}

}  // namespace

ParsedDiagnosticArguments parsedDiagnosticArguments(const Lines& arguments) {
  ParsedDiagnosticArguments parsed;
  for (std::size_t i = 0; i < arguments.size() && parsed.error.empty(); ++i) {
    const std::wstring& name = arguments[i];
    if (!takesValue(name)) {
      parsed.error = takeSwitch(parsed.arguments, name);
      continue;
    }
    ++i;
    parsed.error =
        takeValue(parsed.arguments, name, i < arguments.size() ? arguments[i] : std::wstring());
  }
  return parsed;
}

std::wstring diagnosticHelp() {
  return LR"(corvid-diagnostico: lo primero que pregunta quien da soporte. No imprime ni cambia nada: a la
impresora solo le pide el estado y los contadores (S1), y no necesita la biblioteca registrada.

Uso: corvid-diagnostico [OPCIÓN] ...

  (sin opciones)     versión, bibliotecas registradas, puertos y ajustes de la carpeta actual
  --carpeta CARPETA  los ajustes que valen para un programa cuya carpeta actual es esa
  --buscar           pide el estado en cada puerto y en cada dirección de Config\Puertos. Cada
                     aparato conectado recibe uno o dos bytes (ENQ), sea o no una impresora
  --puerto N         abre el puerto N (1 a 99; la dirección de Config\Puertos, si la hay), pide el
                     estado y los contadores, y mide cuánto tarda y cómo lee el controlador
  --informe ARCHIVO  escribe además todo en ese archivo (UTF-8), para mandarlo por correo
  --con-datos        no omite los datos del comercio: RIF, serial y ventas del día
  --simulado         usa una impresora simulada dentro del programa en lugar de los puertos
  --ayuda, --help    esto

Ningún otro programa debe tener el puerto abierto. Las rutas pueden llevar el nombre de un usuario de
Windows.

Código de salida:
  0  todo bien
  1  una impresora no responde o dice que tiene un error: la de --puerto, una de Config\Puertos, o
     con --buscar todas (un puerto serie sin impresora no cuenta)
  2  opciones equivocadas
  3  no se pudo escribir el informe
  4  un ajuste tiene un valor que no sirve, o falta el archivo de una biblioteca registrada
Vale el primero de 2, 3, 1, 4.
)";
}

}  // namespace corvid
