#include "platform/file_names.h"

#include "basic/text.h"

#include <algorithm>
#include <array>

namespace corvid {
namespace {

constexpr std::wstring_view kSlashes = L"\\/";

bool isSlash(wchar_t character) { return kSlashes.find(character) != std::wstring_view::npos; }

// The last part of a path, without what follows its first point or colon, and trailing blanks:
// "nul .txt" is the device as well.
std::wstring stemOf(std::wstring_view path) {
  const std::size_t slash = path.find_last_of(kSlashes);
  if (slash != std::wstring_view::npos) path.remove_prefix(slash + 1);
  return upperCase(trim(path.substr(0, path.find_first_of(L".:"))));
}

bool isReserved(std::wstring_view stem) {
  constexpr std::array<std::wstring_view, 6> kPlain = {L"CON", L"PRN",    L"AUX",
                                                       L"NUL", L"CONIN$", L"CONOUT$"};
  if (std::ranges::find(kPlain, stem) != kPlain.end()) return true;
  // Superscript digits count too.
  constexpr std::wstring_view kNumbers = L"0123456789\u00B9\u00B2\u00B3";
  const bool isNumbered = stem.starts_with(L"COM") || stem.starts_with(L"LPT");
  return isNumbered && stem.size() == 4 && kNumbers.find(stem[3]) != std::wstring_view::npos;
}

bool hasDrive(std::wstring_view name) { return name.size() > 1 && name[1] == L':'; }

bool leadsElsewhere(std::wstring_view name) {
  return name.size() > 1 && isSlash(name[0]) && (isSlash(name[1]) || name[1] == L'?');
}

// "D:name" is relative to the folder where that is on the drive, else to the drive's root: what
// folder is current there is the process's affair.
std::wstring resolvedOnDrive(std::wstring_view folder, std::wstring_view name) {
  const std::wstring drive(name.substr(0, 2));
  const std::wstring_view rest = name.substr(2);
  if (!rest.empty() && isSlash(rest[0])) return std::wstring(name);
  const bool isSameDrive = upperCase(std::wstring(folder.substr(0, 2))) == upperCase(drive);
  return resolvedIn(isSameDrive ? folder : drive + L"\\", rest);
}

}  // namespace

bool namesNetworkOrDevice(std::wstring_view name) {
  if (leadsElsewhere(name)) return true;
  if (hasDrive(name)) name.remove_prefix(2);
  return isReserved(stemOf(name));
}

std::wstring resolvedIn(std::wstring_view folder, std::wstring_view name) {
  if (hasDrive(name)) return resolvedOnDrive(folder, name);
  if (leadsElsewhere(name)) return std::wstring(name);
  const bool isRooted = !name.empty() && isSlash(name[0]);
  if (isRooted) folder = folder.substr(0, hasDrive(folder) ? 2 : 0);
  std::wstring path(folder);
  if (!isRooted && !path.empty() && !isSlash(path.back())) path += L'\\';
  path += name;
  return path;
}

}  // namespace corvid
