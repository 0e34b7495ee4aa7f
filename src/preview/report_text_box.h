// The seam to the text box that shows a report.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// All positions and lengths count the characters of text(), in which a line end is CR LF and
// counts two, whatever the control keeps inside. Offsets count from 0: a caret at offset n stands
// after n characters. Offsets and lengths beyond the text are cut to it. The text box may be
// used while its window is hidden, and keeps its contents then. One thread.
class ReportTextBox {
 public:
  virtual ~ReportTextBox() = default;

  [[nodiscard]] virtual std::wstring text() = 0;
  // The caret then stands at offset 0 with nothing selected.
  virtual void setText(const std::wstring& text) = 0;
  [[nodiscard]] virtual std::int32_t length() = 0;
  // Puts the caret after the last character, with nothing selected, and inserts there; also while
  // the box is locked. The time does not grow with the text that is already there. The box may
  // show it a tenth of a second later; every other member already counts it.
  virtual void append(std::wstring_view text) = 0;

  [[nodiscard]] virtual std::int32_t selectionStart() = 0;
  [[nodiscard]] virtual std::int32_t selectionLength() = 0;
  // Scrolls the caret into view. A selection shows while the box has no focus, too.
  virtual void select(std::int32_t start, std::int32_t length) = 0;
  // Looks forward from an offset to the end of the text, without regard to case, not for whole
  // words only. Selects the first match and returns true, or returns false and leaves the
  // selection. An empty text is never found.
  [[nodiscard]] virtual bool find(const std::wstring& text, std::int32_t from) = 0;

  // Of the whole text, in points; tabs go to the next multiple of eight of its columns.
  virtual void setFont(const std::wstring& name, double points) = 0;

  // In twips from the left edge: where lines would wrap.
  [[nodiscard]] virtual double rightMargin() = 0;
  virtual void setRightMargin(double twips) = 0;
  // A locked box is not edited by its user, who may still select and copy.
  virtual void setLocked(bool locked) = 0;

  // Paints the box at once.
  virtual void refresh() = 0;
};

}  // namespace corvid
