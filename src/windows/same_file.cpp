#include "windows/same_file.h"

#include "windows/kernel_handle.h"

#include <array>
#include <optional>

namespace corvid {
namespace {

// The volume, and the file's number in it.
using FileIdentity = std::array<DWORD, 3>;

std::optional<FileIdentity> identityOf(const std::wstring& path) {
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const FileHandle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShared, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  BY_HANDLE_FILE_INFORMATION found{};
  if (!file || GetFileInformationByHandle(file.get(), &found) == FALSE) return std::nullopt;
  // Some file systems of networks number no files.
  if (found.nFileIndexHigh == 0 && found.nFileIndexLow == 0) return std::nullopt;
  return FileIdentity{found.dwVolumeSerialNumber, found.nFileIndexHigh, found.nFileIndexLow};
}

}  // namespace

bool isSameFile(const std::wstring& a, const std::wstring& b) {
  const auto length = [](const std::wstring& text) { return static_cast<int>(text.size()); };
  if (CompareStringOrdinal(a.data(), length(a), b.data(), length(b), TRUE) == CSTR_EQUAL) {
    return true;
  }
  const auto identity = identityOf(a);
  return identity && identity == identityOf(b);
}

}  // namespace corvid
