#include "transport/port_dump.h"

#include "basic/format.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace corvid {
namespace {

constexpr const wchar_t* kDumpSection = L"Config\\ModComm";
constexpr std::size_t kBytesPerLine = 16;
constexpr std::size_t kHexWidth = 3 * kBytesPerLine;
constexpr const char* kLineEnd = "\r\n";

// For texts that are ASCII by construction.
std::string narrow(const std::wstring& text) {
  std::string bytes;
  for (const wchar_t character : text) bytes += static_cast<char>(character);
  return bytes;
}

std::wstring widen(const std::string& text) { return {text.begin(), text.end()}; }

std::string hexPair(unsigned char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[byte / 16U], kDigits[byte % 16U], ' '};
}

std::string dumpLine(std::string_view bytes) {
  std::string hex;
  std::string text;
  for (const char character : bytes) {
    const auto byte = static_cast<unsigned char>(character);
    hex += hexPair(byte);
    text += byte < ' ' ? '.' : character;
  }
  hex.resize(kHexWidth, ' ');
  return hex + text + kLineEnd;
}

}  // namespace

std::string hexDump(std::string_view bytes) {
  std::string lines;
  while (!bytes.empty()) {
    lines += dumpLine(bytes.substr(0, kBytesPerLine));
    bytes.remove_prefix(std::min(kBytesPerLine, bytes.size()));
  }
  return lines;
}

void PortDump::open() {
  close();
  if (settings_.text(kApplication, kDumpSection, L"DEBUG", L"0") == L"0") return;
  const std::wstring name = settings_.text(kApplication, kDumpSection, L"DumpFile", L"");
  if (name.empty()) return;
  file_.open(std::filesystem::path(name), std::ios::binary | std::ios::app);
  if (file_.is_open()) return;
  const std::wstring reason = widen(std::generic_category().message(errno));
  dialog_.show(L"Imposible abrir el archivo " + name + L". Traza inhabilitada\r\nERR: " + reason,
               L"modComm", MessageIcon::Critical);
}

void PortDump::close() noexcept {
  if (!file_.is_open()) return;
  file_.close();
  file_.clear();
}

void PortDump::write(std::string_view label, std::string_view bytes) {
  if (!isOn()) return;
  file_ << label << narrow(format(clock_.now(), L"dd-mm-yyyy hh:mm:ss")) << kLineEnd
        << hexDump(bytes);
  // The last lines before a crash are the ones that somebody looks for.
  file_.flush();
}

}  // namespace corvid
