// Settings of any text: what the file and the user's store hold for every key, a line each.
#include "platform/settings.h"

#include "basic/conversions.h"
#include "input.h"
#include "platform/file_names.h"
#include "records/counters_record.h"
#include "session/printer_session.h"
#include "session/session_settings.h"
#include "support/error_of.h"
#include "support/world.h"

#include <set>

namespace corvid {
namespace {

using fuzz::require;

constexpr const wchar_t* kKey = L"key";

class TextOfEveryKey : public InitializationFile {
 public:
  explicit TextOfEveryKey(std::wstring text) : text_(std::move(text)) {}
  std::wstring read(const std::wstring&, const std::wstring&, const std::wstring&) override {
    return text_;
  }

 private:
  std::wstring text_;
};

class StoredForEveryKey : public UserSettings {
 public:
  explicit StoredForEveryKey(std::wstring text) : text_(std::move(text)) {}
  std::optional<std::wstring> read(const std::wstring&, const std::wstring&,
                                   const std::wstring&) override {
    return text_;
  }

 private:
  std::wstring text_;
};

void checkReaders(const Settings& settings) {
  const auto boolean = [&](bool fallback) {
    return settings.boolean(kApplication, kSessionSection, kKey, fallback);
  };
  const std::wstring text = settings.text(kApplication, kSessionSection, kKey, L"");
  const bool isBoolean = errorOf([&] { return toBoolean(text); }) == 0;
  require((boolean(true) == boolean(false)) == isBoolean, "what is no truth value falls back");

  const Currency number = settings.number(kApplication, kSessionSection, kKey, Currency());
  const Decimal whole = number.toDecimal().roundedHalfEven(0);
  const std::int32_t fallback = 7;
  const Decimal read = Decimal::fromInteger(int32Setting(settings, kKey, fallback));
  require(read == whole || read == Decimal::fromInteger(fallback), "a whole number is rounded");
}

void checkFileName(const Settings& settings, bool isFromFile) {
  const std::wstring name = settings.fileName(kApplication, kSessionSection, kKey, L"");
  if (name.empty() || !isFromFile) return;
  require(!namesNetworkOrDevice(name), "the file names no network and no device");
  require(name.size() > 2 && name[1] == L':' && (name[2] == L'\\' || name[2] == L'/'),
          "a file's name is a whole path");
}

void checkSession(ThreadState& thread) {
  PrinterSession session(thread);
  require(session.exchange().state().timeOut >= 1, "a wait lasts a second at least");
  require(session.state().numTasas >= 0 && session.state().numTasas <= kMostRates,
          "no more rates than there is room for");
  const std::set<int> errors = {0, 6, 13};
  CountersRecord record(thread, session.settings());
  require(errors.contains(errorOf([&] {
    record.loadFake();
    return 0;
  })),
          "a substitute value that does not convert throws what the header says");
}

}  // namespace
}  // namespace corvid

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvid;
  fuzz::Input input(data, size);
  const std::wstring inFile = input.text();
  TextOfEveryKey file(inFile);
  StoredForEveryKey store(input.text());
  const Settings settings(file, store, L"C:\\host");
  checkReaders(settings);
  // A name from the store may lead anywhere, and counts where the file's does not.
  StoredForEveryKey nothing(L"");
  checkFileName(Settings(file, nothing, L"C:\\host"), !inFile.empty());

  World world;
  Environment environment = world.environment();
  ThreadState thread({environment.process, file, store, environment.serial, environment.sockets,
                      environment.pump, environment.dialog, environment.folders, environment.files,
                      environment.views, environment.clock, environment.sleep, environment.codePage,
                      environment.locale});
  checkSession(thread);
  return 0;
}
