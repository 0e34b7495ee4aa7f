// The window's text box, dialogs and margin entry, as plain values.
#pragma once

#include "basic/text.h"
#include "preview/quick_view_window.h"
#include "preview/report_dialogs.h"
#include "preview/report_files.h"
#include "preview/report_text_box.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvid {

class TextBoxDouble : public ReportTextBox {
 public:
  std::wstring content;
  std::int32_t start = 0;
  std::int32_t selected = 0;
  std::wstring font;
  double size = 0;
  double margin = 0;
  bool locked = false;
  std::vector<std::int32_t> searchedFrom;
  int refreshes = 0;

  std::wstring text() override { return content; }
  void setText(const std::wstring& text) override {
    content = text;
    select(0, 0);
  }
  std::int32_t length() override { return static_cast<std::int32_t>(content.size()); }
  void append(std::wstring_view text) override {
    content += text;
    select(length(), 0);
  }
  std::int32_t selectionStart() override { return start; }
  std::int32_t selectionLength() override { return selected; }
  void select(std::int32_t from, std::int32_t count) override {
    start = std::min(from, length());
    selected = std::min(count, length() - start);
  }
  bool find(const std::wstring& text, std::int32_t from) override {
    searchedFrom.push_back(from);
    const auto at = lowerCase(content).find(lowerCase(text), static_cast<std::size_t>(from));
    if (text.empty() || at == std::wstring::npos) return false;
    select(static_cast<std::int32_t>(at), static_cast<std::int32_t>(text.size()));
    return true;
  }
  void setFont(const std::wstring& name, double points) override {
    font = name;
    size = points;
  }
  double rightMargin() override { return margin; }
  void setRightMargin(double twips) override { margin = twips; }
  void setLocked(bool value) override { locked = value; }
  void refresh() override { ++refreshes; }
};

// A disk; a text's bytes are its characters.
class FilesDouble : public ReportFiles {
 public:
  std::map<std::wstring, std::string> contents;  // by path
  int failingCall = 0;                           // counted from 1; 0 for none
  int calls = 0;

  std::string encoded(std::wstring_view text) override { return {text.begin(), text.end()}; }
  std::wstring create(const std::wstring& path) override {
    std::wstring failure = answer(L"CreateFile");
    if (failure.empty()) contents[open_ = path].clear();
    return failure;
  }
  std::wstring write(std::string_view bytes) override {
    std::wstring failure = answer(L"WriteFile");
    contents[open_] = bytes.substr(0, failure.empty() ? bytes.size() : 1);
    return failure;
  }
  std::wstring finish() override { return answer(L"FlushFileBuffers"); }
  std::wstring putInPlace(const std::wstring& beside, const std::wstring& path) override {
    std::wstring failure = answer(L"MoveFileEx");
    if (failure.empty()) {
      contents[path] = contents[beside];
      contents.erase(beside);
    }
    return failure;
  }
  void remove(const std::wstring& path) noexcept override { contents.erase(path); }

 private:
  std::wstring answer(const wchar_t* call) { return ++calls == failingCall ? call : L""; }

  std::wstring open_;
};

// Answers as it was told to, and keeps what was shown as "title: text".
class DialogsDouble : public ReportDialogs {
 public:
  Answer answer = Answer::Yes;
  std::wstring entered;
  std::optional<FontChoice> font;
  std::optional<std::wstring> file;
  std::vector<std::wstring> shown;
  FontChoice fontOffered;
  SaveRequest request;
  std::function<void()> whileShown = [] {};

  void message(const std::wstring& text, const std::wstring& title, MessageIcon icon) override {
    shown.push_back((icon == MessageIcon::Exclamation ? L"! " : L"") + title + L": " + text);
    whileShown();
  }
  Answer ask(const std::wstring& text, const std::wstring& title) override {
    shown.push_back(title + L"? " + text);
    return answer;
  }
  std::wstring input(const std::wstring& prompt, const std::wstring& title,
                     const std::wstring& initial) override {
    shown.push_back(title + L": " + prompt + L" [" + initial + L"]");
    return entered;
  }
  std::optional<FontChoice> chooseFont(const FontChoice& initial) override {
    fontOffered = initial;
    return font;
  }
  std::optional<std::wstring> chooseSaveFile(const SaveRequest& asked) override {
    request = asked;
    return file;
  }
};

class WindowDouble : public QuickViewWindow {
 public:
  std::wstring margin;
  int hides = 0;
  int focuses = 0;
  std::function<void()> onFocus = [] {};

  void hide() override { ++hides; }
  std::wstring marginText() override { return margin; }
  void setMarginText(const std::wstring& text) override { margin = text; }
  void focusMargin() override {
    ++focuses;
    onFocus();
  }
};

}  // namespace corvid
