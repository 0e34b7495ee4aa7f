#include "transport/port_dump.h"

#include "basic/format.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::size_t kBytesPerLine = 16;
constexpr std::size_t kHexWidth = 3 * kBytesPerLine;
constexpr const char* kLineEnd = "\r\n";

// For texts that are ASCII by construction.
std::string narrow(const std::wstring& text) {
  std::string bytes;
  for (const wchar_t character : text) bytes += static_cast<char>(character);
  return bytes;
}

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

void PortDump::open(const Settings& settings, MessageDialog& dialog) {
  close();
  if (settings.text(kApplication, kPortSection, L"DEBUG", L"0") == L"0") return;
  const std::wstring name = settings.fileName(kApplication, kPortSection, L"DumpFile", L"");
  if (name.empty()) return;
  std::wstring reason;
  keep(files_.open(name, reason), name);
  if (isOn()) return;
  dialog.show(L"Imposible abrir el archivo " + name + L". Traza inhabilitada\r\nERR: " + reason,
              L"modComm", MessageIcon::Critical);
}

std::wstring PortDump::fileName() {
  const std::lock_guard lock(gate_);
  return isOn_ ? name_ : std::wstring();
}

void PortDump::keep(std::unique_ptr<AppendFile> file, std::wstring name) noexcept {
  const std::lock_guard lock(gate_);
  name_ = std::move(name);
  file_ = std::move(file);
  isOn_ = file_ != nullptr;
}

void PortDump::write(std::string_view label, std::string_view bytes, const std::wstring& address) {
  if (!isOn()) return;
  std::string record(label);
  record += narrow(format(clock_.now(), L"dd-mm-yyyy hh:mm:ss"));
  if (!address.empty()) record += ' ' + narrow(address);
  record += kLineEnd;
  record += hexDump(bytes);
  const std::lock_guard lock(gate_);
  if (!file_ || file_->append(record)) return;
  file_.reset();
  isOn_ = false;
}

}  // namespace corvid
