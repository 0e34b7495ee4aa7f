// lmGetSetting: the readers through which all configuration is read.
#pragma once

#include "basic/currency.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvid {

// The application name of the library's own settings.
inline constexpr const wchar_t* kApplication = L"ORV";
// The sections of the session's and of the serial port's settings.
inline constexpr const wchar_t* kSessionSection = L"Config\\NimbusPF";
inline constexpr const wchar_t* kPortSection = L"Config\\ModComm";
// The tax rates of a session, one to a key "0", "1" and so on.
inline constexpr const wchar_t* kRatesSection = L"Config\\NimbusPF\\Tasas";
// Where a port number's printer is, if not at the serial port of that number.
inline constexpr const wchar_t* kPlacesSection = L"Config\\Puertos";

// An initialisation file of the "[section] key=value" kind.
class InitializationFile {
 public:
  virtual ~InitializationFile() = default;
  // The entry's text, cut to 1023 characters; empty when there is no file, section or key. Section
  // and key compare without case. `file` is a whole path.
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

enum class SettingOrigin { File, UserStore, Default };

struct FoundSetting {
  std::wstring text;
  SettingOrigin origin = SettingOrigin::Default;
};

// Reads a setting from <folder>\<application>.ini and, where that has no text for it, from the
// per-user store. The folder is the one that was current when the reader's owner was made, so that
// a host which changes its folder keeps its settings. Nothing is cached. No reader throws.
class Settings {
 public:
  // The sources outlive the readers, which may be copied.
  Settings(InitializationFile& file, UserSettings& store, std::wstring folder)
      : file_(&file), store_(&store), folder_(std::move(folder)) {}

  [[nodiscard]] FoundSetting find(const std::wstring& application, const std::wstring& section,
                                  const std::wstring& key, const std::wstring& fallback) const;
  [[nodiscard]] std::wstring text(const std::wstring& application, const std::wstring& section,
                                  const std::wstring& key, const std::wstring& fallback) const {
    return find(application, section, key, fallback).text;
  }
  // A text that is neither True, False nor a number gives the fallback.
  [[nodiscard]] bool boolean(const std::wstring& application, const std::wstring& section,
                             const std::wstring& key, bool fallback) const;
  // The leading number of the text, "," read as "."; the fallback where no number leads or where
  // it does not fit currency.
  [[nodiscard]] Currency number(const std::wstring& application, const std::wstring& section,
                                const std::wstring& key, Currency fallback) const;
  // The name of a file to write to, resolved against the folder; empty where there is none. A name
  // from the initialisation file, which others than the user may have put there, counts as absent
  // when it leads to a network or a device.
  [[nodiscard]] std::wstring fileName(const std::wstring& application, const std::wstring& section,
                                      const std::wstring& key, const std::wstring& fallback) const;

  // The path of an application's initialisation file.
  [[nodiscard]] std::wstring filePath(const std::wstring& application) const;

 private:
  [[nodiscard]] FoundSetting findInStore(const std::wstring& application,
                                         const std::wstring& section, const std::wstring& key,
                                         const std::wstring& fallback) const;

  InitializationFile* file_;
  UserSettings* store_;
  std::wstring folder_;
};

}  // namespace corvid
