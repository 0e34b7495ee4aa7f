// The settings of a session and of its port, for whoever tells of them.
#pragma once

#include "platform/settings.h"

#include <span>

namespace corvid {

enum class SettingKind {
  Truth,
  Int16,
  Int32,
  Number,
  Rate,  // a number whose decimals stand after "." alone
  FileName,
  DumpSwitch,  // off by "0" alone
};

struct SettingName {
  const wchar_t* section;
  const wchar_t* key;
  SettingKind kind;
  const wchar_t* fallback;  // what holds without the setting, in words where it is no value
};

// Every one that has a key of its own; those of kPlacesSection have the port's number.
[[nodiscard]] std::span<const SettingName> sessionSettings();

}  // namespace corvid
