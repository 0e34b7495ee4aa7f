// The text that the diagnostic program shows and writes.
#pragma once

#include <cstdint>
#include <set>
#include <string>

namespace corvid {

// What went wrong. The values are exit codes.
enum class Trouble : std::uint8_t { Printer = 1, Setup = 4 };

// Facts under headings, one a line, LF after each.
class DiagnosticReport {
 public:
  explicit DiagnosticReport(bool tellsPrivateData) : tellsPrivateData_(tellsPrivateData) {}

  void begin(const std::wstring& heading) {
    text_ += (text_.empty() ? L"" : L"\n") + heading + L"\n";
  }
  void tell(const std::wstring& name, const std::wstring& value) {
    text_ += L"  " + name + L": " + value + L"\n";
  }
  // A fact that is left out unless private data are wanted.
  void tellPrivate(const std::wstring& name, const std::wstring& value) {
    tell(name, tellsPrivateData_ ? value : L"(omitido; --con-datos lo muestra)");
  }
  void warn(Trouble trouble, const std::wstring& words) {
    troubles_.insert(trouble);
    text_ += L"  AVISO: " + words + L"\n";
  }

  // The exit code of the gravest trouble, 0 without any.
  [[nodiscard]] int exitCode() const {
    return troubles_.empty() ? 0 : static_cast<int>(*troubles_.begin());
  }
  [[nodiscard]] const std::wstring& text() const { return text_; }

 private:
  bool tellsPrivateData_;
  std::set<Trouble> troubles_;
  std::wstring text_;
};

}  // namespace corvid
