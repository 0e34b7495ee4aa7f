#include "windows/append_files.h"

#include "windows/kernel_handle.h"
#include "windows/system_message.h"

#include <utility>

namespace corvid {
namespace {

class OpenFile : public AppendFile {
 public:
  explicit OpenFile(FileHandle handle) : handle_(std::move(handle)) {}
  bool append(std::string_view bytes) override {
    DWORD written = 0;
    return WriteFile(handle_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                     nullptr) != FALSE &&
           written == bytes.size();
  }

 private:
  FileHandle handle_;
};

}  // namespace

// With the right to append alone each write goes to the end, whoever else writes there.
std::unique_ptr<AppendFile> WindowsAppendFiles::open(const std::wstring& path,
                                                     std::wstring& reason) {
  FileHandle handle(CreateFileW(path.c_str(), FILE_APPEND_DATA | SYNCHRONIZE,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle) {
    reason = systemMessage(GetLastError());
    return nullptr;
  }
  return std::make_unique<OpenFile>(std::move(handle));
}

}  // namespace corvid
