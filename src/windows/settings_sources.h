// The initialisation file and the per-user store of Windows.
#pragma once

#include "platform/settings.h"

namespace corvid {

class WindowsInitializationFile : public InitializationFile {
 public:
  std::wstring read(const std::wstring& file, const std::wstring& section,
                    const std::wstring& key) override;
};

// HKEY_CURRENT_USER\Software\VB and VBA Program Settings\<application>\<section>. Only texts
// count; a value of another kind is as good as missing.
class WindowsUserSettings : public UserSettings {
 public:
  std::optional<std::wstring> read(const std::wstring& application, const std::wstring& section,
                                   const std::wstring& key) override;
};

}  // namespace corvid
