// File names as Windows reads them.
#pragma once

#include <string>
#include <string_view>

namespace corvid {

// Whether the name leads away from this machine's own files: to a network (two leading slashes of
// either kind, which device paths have too) or to a device, whose reserved names (CON, NUL, COM7,
// ...) count in every folder and with every extension.
[[nodiscard]] bool namesNetworkOrDevice(std::wstring_view name);

// A relative name as one below the folder; a name that begins with one slash is on the folder's
// drive. One that begins with a drive and no slash is below the folder where that is on the drive,
// else in the drive's root. Names with drive and slash, or to a network, stand as they are.
[[nodiscard]] std::wstring resolvedIn(std::wstring_view folder, std::wstring_view name);

}  // namespace corvid
