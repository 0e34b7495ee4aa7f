// corvid-diagnostico: what a support desk asks first.
#include "tools/diagnostico/diagnostic.h"
#include "tools/diagnostico/machine_facts_windows.h"
#include "tools/diagnostico/output_windows.h"
#include "windows/clock.h"
#include "windows/folders.h"
#include "windows/locale.h"
#include "windows/serial_calls.h"
#include "windows/settings_sources.h"
#include "windows/socket_calls.h"

#include <windows.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <utility>

namespace corvid {
namespace {

constexpr int kFailed = 1;
constexpr std::size_t kLongestPath = 32768;

// Nobody waits for messages.
class NoHost : public MessagePump {
 public:
  bool yield() override { return false; }
};

// The program asks for no box, trace, dump or preview; an exchange of its own makes none.
class NoDialog : public MessageDialog {
 public:
  void show(const std::wstring&, const std::wstring&, MessageIcon) override {}
};
class NoFiles : public AppendFiles {
 public:
  std::unique_ptr<AppendFile> open(const std::wstring&, std::wstring&) override { return nullptr; }
};
class NoViews : public ReportViews {
 public:
  std::shared_ptr<ReportView> create(const Settings&) override { return nullptr; }
};

// The folder of a host, where one was named.
class HostFolders : public WindowsFolders {
 public:
  std::wstring current() override { return folder_.empty() ? WindowsFolders::current() : folder_; }
  void enter(std::wstring folder) { folder_ = std::move(folder); }

 private:
  std::wstring folder_;
};

class WindowsDiagnosticSystem : public DiagnosticSystem {
 public:
  void say(const std::wstring& text) override { writeToStandard(STD_OUTPUT_HANDLE, text); }
  void complain(const std::wstring& text) override { writeToStandard(STD_ERROR_HANDLE, text); }
  bool save(const std::wstring& file, const std::wstring& text) override {
    return writeFile(file, text);
  }
  bool enterFolder(const std::wstring& folder) override {
    std::wstring whole(kLongestPath, L'\0');
    const DWORD length = GetFullPathNameW(folder.c_str(), kLongestPath, whole.data(), nullptr);
    whole.resize(length < kLongestPath ? length : 0);
    const DWORD attributes = GetFileAttributesW(whole.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      return false;
    }
    folders_.enter(std::move(whole));
    return true;
  }
  Environment environment() override {
    return {process_, file_,  store_, serial_, sockets_, pump_,     dialog_,
            folders_, files_, views_, clock_,  sleep_,   codePage_, locale_};
  }
  MachineFacts facts() override { return windowsFacts(); }

 private:
  WindowsCodePage codePage_;
  WindowsLocale locale_;
  WindowsClock clock_;
  WindowsSleepCalls sleep_;
  WindowsInitializationFile file_;
  WindowsUserSettings store_;
  WindowsSerialCalls serial_;
  WindowsSocketCalls sockets_;
  HostFolders folders_;
  NoHost pump_;
  NoDialog dialog_;
  NoFiles files_;
  NoViews views_;
  ProcessState process_{files_, clock_};
};

}  // namespace
}  // namespace corvid

int wmain(int count, wchar_t** arguments) {
  corvid::WindowsDiagnosticSystem system;
  try {
    return corvid::runDiagnostic(corvid::Lines(arguments + 1, arguments + count), system);
  } catch (const std::exception&) {
    system.complain(L"corvid-diagnostico: no pudo terminar\n");
    return corvid::kFailed;
  }
}
