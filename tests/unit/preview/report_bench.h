// A report over doubles of everything around it.
#pragma once

#include "paper_printer.h"
#include "preview/report.h"
#include "support/fake_settings.h"
#include "window_doubles.h"

namespace corvid {

struct ReportEnvironment {
  FakeSettings file;
  FakeSettings::Store store{file};
  Settings settings{file, store, L"C:\\host"};
  PaperPrinter printer;
  TextBoxDouble box;
  DialogsDouble dialogs;
  FilesDouble files;
  std::vector<std::wstring> traced;

  void set(const wchar_t* key, const wchar_t* value) { file.set(L"FVIEW", key, value); }
  [[nodiscard]] Report report() {
    return {settings, printer, box, dialogs,
            [this](const std::wstring& words) { traced.push_back(words); }};
  }
};

}  // namespace corvid
