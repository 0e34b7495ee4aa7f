// The system's serial calls where no device is needed.
#include "windows/serial_calls.h"

#include <gtest/gtest.h>
#include <windows.h>
// Needs windows.h first.
#include <winternl.h>

#include <bit>

namespace corvid {
namespace {

TEST(SerialCalls, PortThatDoesNotExistTellsWhy) {
  WindowsSerialCalls calls;
  EXPECT_EQ(calls.createFile(L"\\\\.\\COM98"), kInvalidSerialHandle);
  EXPECT_EQ(calls.lastError(), static_cast<std::uint32_t>(ERROR_FILE_NOT_FOUND));
  const std::wstring message = calls.errorMessage(calls.lastError());
  ASSERT_FALSE(message.empty());
  EXPECT_EQ(message.find_first_of(L"\r\n"), std::wstring::npos) << "no line break at its end";
}

TEST(SerialCalls, LastErrorIsThatOfTheCallAndNotOfTheThread) {
  WindowsSerialCalls calls;
  SerialQueue queue;
  EXPECT_FALSE(calls.clearCommError(kInvalidSerialHandle, queue));
  SetLastError(ERROR_ACCESS_DENIED);
  EXPECT_EQ(calls.lastError(), static_cast<std::uint32_t>(ERROR_INVALID_HANDLE));
}

TEST(SerialCalls, SettingsTextChangesSpeedAndFrameAlone) {
  WindowsSerialCalls calls;
  DeviceControlBlock block{.isBinary = true,
                           .dsrSensitive = true,
                           .continuesOnXoff = true,
                           .replacesErrors = true,
                           .stripsNulls = true,
                           .abortsOnError = true,
                           .xonLimit = 77,
                           .xoffLimit = 78,
                           .xonChar = 1,
                           .xoffChar = 2,
                           .errorChar = 3,
                           .endChar = 4,
                           .eventChar = 5};
  DeviceControlBlock expected = block;
  expected.baudRate = 9600;
  expected.byteSize = 8;
  expected.parity = EVENPARITY;
  expected.stopBits = ONESTOPBIT;
  ASSERT_TRUE(calls.buildCommDcb(L"baud=9600 parity=E data=8 stop=1", block));
  // Systems differ in what else they set with these.
  expected.checksParity = block.checksParity;
  expected.dtr = block.dtr;
  expected.rts = block.rts;
  EXPECT_EQ(block, expected);
  ASSERT_TRUE(calls.buildCommDcb(L"baud=600 parity=N data=7 stop=2 xon=on octs=on odsr=on", block));
  EXPECT_TRUE(block.xonXoffInput && block.xonXoffOutput && block.ctsFlow && block.dsrFlow);
  EXPECT_FALSE(calls.buildCommDcb(L"baud=9600 parity=Q", block));
  EXPECT_NE(calls.lastError(), 0U);
}

// A name of a device, while it lives. By the system's own call: Wine's documented one beside it
// makes COM90 of COM99.
class DeviceName {
 public:
  explicit DeviceName(const std::wstring& name) {
    std::wstring path = L"\\??\\" + name;
    std::wstring target = L"\\Device\\Null";
    UNICODE_STRING pathText = textOf(path);
    UNICODE_STRING targetText = textOf(target);
    OBJECT_ATTRIBUTES attributes{};
    InitializeObjectAttributes(&attributes, &pathText, OBJ_CASE_INSENSITIVE, nullptr, nullptr);
    using Create = NTSTATUS(NTAPI*)(HANDLE*, ACCESS_MASK, OBJECT_ATTRIBUTES*, UNICODE_STRING*);
    const auto create = std::bit_cast<Create>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtCreateSymbolicLinkObject"));
    EXPECT_EQ(create(&link_, GENERIC_ALL, &attributes, &targetText), 0);
  }
  DeviceName(const DeviceName&) = delete;
  DeviceName& operator=(const DeviceName&) = delete;
  ~DeviceName() { CloseHandle(link_); }

 private:
  static UNICODE_STRING textOf(std::wstring& text) {
    const auto bytes = static_cast<USHORT>(text.size() * sizeof(wchar_t));
    return {bytes, bytes, text.data()};
  }

  HANDLE link_ = nullptr;
};

TEST(SerialCalls, PortsAreThoseOfANumberThatCanBeOpened) {
  WindowsSerialCalls calls;
  std::vector<std::int16_t> expected = calls.ports();
  const DeviceName taken[] = {DeviceName(L"com42"), DeviceName(L"COM99"), DeviceName(L"COM21")};
  const DeviceName left[] = {DeviceName(L"COM100"), DeviceName(L"COM0"),
                             DeviceName(L"COMA"),   DeviceName(L"COM3X"),
                             DeviceName(L"XCOM5"),  DeviceName(L"COM4294967303")};
  expected.insert(expected.end(), {21, 42, 99});
  EXPECT_EQ(calls.ports(), expected);
}

// A file stands in for the device: reads and writes meet the system for real.
TEST(SerialCalls, ReadAndWriteReportWhatTheyMoved) {
  wchar_t folder[MAX_PATH];
  wchar_t path[MAX_PATH];
  ASSERT_NE(GetTempPathW(MAX_PATH, folder), 0U);
  ASSERT_NE(GetTempFileNameW(folder, L"crv", 0, path), 0U);
  WindowsSerialCalls calls;
  SerialHandle handle = calls.createFile(path);
  ASSERT_NE(handle, kInvalidSerialHandle);
  EXPECT_EQ(calls.createFile(path), kInvalidSerialHandle) << "not shared";
  std::uint32_t count = 0;
  EXPECT_TRUE(calls.writeFile(handle, std::string("a\0b", 3), count));
  EXPECT_EQ(count, 3U);
  EXPECT_EQ(calls.lastError(), 0U);
  char buffer[8] = {};
  EXPECT_TRUE(calls.readFile(handle, buffer, sizeof(buffer), count));
  EXPECT_EQ(std::string(buffer, count), std::string("a\0b", 3));
  EXPECT_TRUE(calls.getOverlappedResult(handle, count));
  EXPECT_EQ(count, 3U);
  EXPECT_TRUE(calls.closeHandle(handle));
  EXPECT_FALSE(calls.closeHandle(handle));
  DeleteFileW(path);
}

}  // namespace
}  // namespace corvid
