// The text that the diagnostic program shows and writes.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>

namespace corvid {

// What went wrong. The values are exit codes.
enum class Trouble : std::uint8_t { Printer = 1, Setup = 4 };

// Facts under headings, one a line, LF after each.
class DiagnosticReport {
 public:
  // `say` gets each line at once: a printer takes its time, and one that hangs must not keep what
  // is known already.
  DiagnosticReport(bool tellsPrivateData, std::function<void(const std::wstring&)> say)
      : tellsPrivateData_(tellsPrivateData), say_(std::move(say)) {}

  void begin(const std::wstring& heading) { add((text_.empty() ? L"" : L"\n") + heading + L"\n"); }
  void tell(const std::wstring& name, const std::wstring& value) {
    add(L"  " + name + L": " + value + L"\n");
  }
  // A fact that is left out unless private data are wanted.
  void tellPrivate(const std::wstring& name, const std::wstring& value) {
    tell(name, tellsPrivateData_ ? value : L"(omitido; --con-datos lo muestra)");
  }
  void warn(Trouble trouble, const std::wstring& words) {
    troubles_.insert(trouble);
    add(L"  AVISO: " + words + L"\n");
  }

  // The exit code of the gravest trouble, 0 without any.
  [[nodiscard]] int exitCode() const {
    return troubles_.empty() ? 0 : static_cast<int>(*troubles_.begin());
  }
  [[nodiscard]] const std::wstring& text() const { return text_; }

 private:
  void add(const std::wstring& text) {
    text_ += text;
    say_(text);
  }

  bool tellsPrivateData_;
  std::function<void(const std::wstring&)> say_;
  std::set<Trouble> troubles_;
  std::wstring text_;
};

}  // namespace corvid
