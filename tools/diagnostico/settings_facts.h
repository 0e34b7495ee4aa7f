// The settings that hold for a host, and where each comes from.
#pragma once

#include "session/setting_names.h"
#include "tools/diagnostico/report.h"

#include <string>

namespace corvid {

// Why a setting does not do what its writer may think, in Spanish; empty where it does, and where
// there is none.
[[nodiscard]] std::wstring faultOf(const Settings& settings, const SettingName& one);

// Tells every setting of a session, its port and the printers' addresses; warns of those with a
// fault.
void tellSettings(const Settings& settings, DiagnosticReport& report);

// What a setting's origin is called.
[[nodiscard]] std::wstring originOf(const Settings& settings, const FoundSetting& found);

}  // namespace corvid
