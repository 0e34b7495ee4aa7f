// The seam to the boxes and dialogs that a report window shows its user.
#pragma once

#include "platform/message_dialog.h"

#include <optional>
#include <string>

namespace corvid {

enum class Answer { Yes, No };

struct FontChoice {
  std::wstring name;
  double size = 0;  // points
  bool bold = false;
  bool italic = false;

  bool operator==(const FontChoice&) const = default;
};

struct SaveRequest {
  std::wstring title;
  std::wstring defaultExtension;  // with its point; added to a name that has none
  std::wstring initialFolder;     // empty: the system's choice
  std::wstring filterName;
  std::wstring filterPattern;
};

// Every dialog is modal to the report's window, or to nothing while there is none to be seen.
// Where the process has no interactive desktop each returns at once, as if closed by its user.
class ReportDialogs {
 public:
  virtual ~ReportDialogs() = default;

  // A box with an OK button; an empty title is replaced by the library's own.
  virtual void message(const std::wstring& text, const std::wstring& title, MessageIcon icon) = 0;
  // A box with Yes and No buttons, titled as above. Yes where nobody could answer.
  [[nodiscard]] virtual Answer ask(const std::wstring& text, const std::wstring& title) = 0;
  // The text that the user entered, empty when cancelled.
  [[nodiscard]] virtual std::wstring input(const std::wstring& prompt, const std::wstring& title,
                                           const std::wstring& initial) = 0;
  // Offers the printer's fonts of fixed pitch (dialog flags 0x4002). Nothing when cancelled.
  [[nodiscard]] virtual std::optional<FontChoice> chooseFont(const FontChoice& initial) = 0;
  // Long names, the path must exist, the current folder stays, an existing file is confirmed
  // (dialog flags 0x20080A). The chosen file's path; nothing when cancelled.
  [[nodiscard]] virtual std::optional<std::wstring> chooseSaveFile(const SaveRequest& request) = 0;
};

}  // namespace corvid
