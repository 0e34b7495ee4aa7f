// lmGetSetting: the three readers through which all configuration is read.
#pragma once

#include "basic/currency.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvid {

// The application name of the library's own settings.
inline constexpr const wchar_t* kApplication = L"ORV";
// The section of the session's settings.
inline constexpr const wchar_t* kSessionSection = L"Config\\NimbusPF";

// An initialisation file of the "[section] key=value" kind.
class InitializationFile {
 public:
  virtual ~InitializationFile() = default;
  // The entry's text, cut to 1023 characters; empty when there is no file, section or key. Section
  // and key compare without case.
  [[nodiscard]] virtual std::wstring read(const std::wstring& file, const std::wstring& section,
                                          const std::wstring& key) = 0;
};

// The platform's per-user store of application settings.
class UserSettings {
 public:
  virtual ~UserSettings() = default;
  // Nothing when there is no such setting. Names compare without case.
  [[nodiscard]] virtual std::optional<std::wstring> read(const std::wstring& application,
                                                         const std::wstring& section,
                                                         const std::wstring& key) = 0;
};

// Reads a setting from ".\<application>.ini" and, where that has no text for it, from the per-user
// store. Nothing is cached. No reader raises.
class Settings {
 public:
  Settings(InitializationFile& file, UserSettings& store) : file_(file), store_(store) {}

  [[nodiscard]] std::wstring text(const std::wstring& application, const std::wstring& section,
                                  const std::wstring& key, const std::wstring& fallback) const;
  // A text that is neither True, False nor a number gives the fallback.
  [[nodiscard]] bool boolean(const std::wstring& application, const std::wstring& section,
                             const std::wstring& key, bool fallback) const;
  // The leading number of the text, "," read as "."; the fallback where no number leads or where
  // it does not fit currency.
  [[nodiscard]] Currency number(const std::wstring& application, const std::wstring& section,
                                const std::wstring& key, Currency fallback) const;

 private:
  InitializationFile& file_;
  UserSettings& store_;
};

}  // namespace corvid
