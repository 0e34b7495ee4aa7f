// Where a setting comes from, and what its text is worth.
#include "platform/settings.h"

#include "platform/file_names.h"
#include "support/world.h"

#include <gtest/gtest.h>

namespace corvid {
namespace {

struct SettingsBench {
  World world;
  Settings settings{world.settings, world.store, L"C:\\host"};
};

TEST(SettingText, FileWinsOverTheStoreAndAnEmptyEntryIsNone) {
  SettingsBench bench;
  const Settings& settings = bench.settings;
  EXPECT_EQ(settings.text(L"ORV", L"S", L"k", L"default"), L"default");
  bench.world.settings.setInStore(L"S", L"k", L"store");
  EXPECT_EQ(settings.text(L"ORV", L"S", L"k", L"default"), L"store");
  bench.world.settings.set(L"S", L"k", L"file");
  EXPECT_EQ(settings.text(L"ORV", L"S", L"k", L"default"), L"file");
  bench.world.settings.set(L"S", L"k", L"");
  EXPECT_EQ(settings.text(L"ORV", L"S", L"k", L"default"), L"store") << "nothing is cached";
  bench.world.settings.setInStore(L"S", L"k", L"");
  EXPECT_EQ(settings.text(L"ORV", L"S", L"k", L"default"), L"") << "an empty text is one there";
}

TEST(SettingText, ComesFromTheFolderOfItsReader) {
  SettingsBench bench;
  bench.world.settings.set(L"S", L"k", L"host's");
  bench.world.settings.setIn(L"D:\\other", L"S", L"k", L"other's");
  const Settings other(bench.world.settings, bench.world.store, L"D:\\other\\");
  EXPECT_EQ(other.text(L"ORV", L"S", L"k", L""), L"other's");
  EXPECT_EQ(bench.settings.find(L"ORV", L"S", L"k", L"").origin, SettingOrigin::File);
  EXPECT_EQ(bench.settings.find(L"ORV", L"S", L"none", L"").origin, SettingOrigin::Default);
}

TEST(FileNames, AreResolvedAndTellNetworksAndDevices) {
  const struct {
    std::wstring name;
    std::wstring resolved;  // in C:\host
    bool isForeign;
  } kCases[] = {
      {L"a.log", L"C:\\host\\a.log", false},
      {L"logs\\a.log", L"C:\\host\\logs\\a.log", false},
      {L"D:\\a.log", L"D:\\a.log", false},
      {L"\\a.log", L"C:\\a.log", false},
      {L"/a.log", L"C:/a.log", false},
      {L"\\\\server\\a.log", L"\\\\server\\a.log", true},
      {L"//server/a.log", L"//server/a.log", true},
      {L"\\/.\\pipe\\a", L"\\/.\\pipe\\a", true},
      {L"\\??\\C:\\a", L"\\??\\C:\\a", true},
      {L"nul", L"C:\\host\\nul", true},
      {L"D:con", L"D:\\con", true},
      {L"c:a.log", L"C:\\host\\a.log", false},
      {L"logs\\Com7.log", L"C:\\host\\logs\\Com7.log", true},
      {L"logs/lpt\u00B2 .x", L"C:\\host\\logs/lpt\u00B2 .x", true},
      {L"CONOUT$", L"C:\\host\\CONOUT$", true},
      {L"COM77.log", L"C:\\host\\COM77.log", false},
      {L"console.log", L"C:\\host\\console.log", false},
  };
  for (const auto& item : kCases) {
    EXPECT_EQ(namesNetworkOrDevice(item.name), item.isForeign) << testing::PrintToString(item.name);
    EXPECT_EQ(resolvedIn(L"C:\\host", item.name), item.resolved);
  }
}

TEST(SettingText, ApplicationNamesTheFileAndThePlaceInTheStore) {
  SettingsBench bench;
  bench.world.settings.set(L"General", L"DataDir", L"library's");
  bench.world.settings.setInStore(L"General", L"DataDir", L"library's");
  EXPECT_EQ(bench.settings.text(L"Halewood", L"General", L"DataDir", L"none"), L"none");
}

TEST(SettingBoolean, IsAWordANumberOrTheDefault) {
  const struct {
    std::wstring text;
    bool ofTrue;   // with default True
    bool ofFalse;  // with default False
  } kCases[] = {
      {L"True", true, true},
      {L"0", false, false},
      {L"abc", true, false},
      {L"", true, false},
  };
  for (const auto& item : kCases) {
    SettingsBench bench;
    bench.world.settings.set(L"S", L"k", item.text);
    const std::string words = testing::PrintToString(item.text);
    EXPECT_EQ(bench.settings.boolean(L"ORV", L"S", L"k", true), item.ofTrue) << words;
    EXPECT_EQ(bench.settings.boolean(L"ORV", L"S", L"k", false), item.ofFalse) << words;
  }
}

TEST(SettingNumber, IsTheLeadingNumberWithEitherSeparator) {
  constexpr std::int64_t kDefault = 12345;  // 1.2345
  const struct {
    std::wstring text;
    std::int64_t units;
    const char* reason;
  } kCases[] = {
      {L"7,5", 75000, "comma"},
      {L"7.5", 75000, "point"},
      {L"1,5,3", 15000, "the second separator ends it"},
      {L"-0,25 s", -2500, "what follows does not matter"},
      {L"2.00005", 20000, "half to even at the fourth decimal"},
      {L"abc", kDefault, "no number leads"},
      {L"", kDefault, "no setting"},
      {L"922337203685478", kDefault, "beyond the type"},
  };
  for (const auto& item : kCases) {
    SettingsBench bench;
    bench.world.settings.set(L"S", L"k", item.text);
    const Currency number =
        bench.settings.number(L"ORV", L"S", L"k", Currency::fromUnits(kDefault));
    EXPECT_EQ(number.units(), item.units) << item.reason;
  }
}

}  // namespace
}  // namespace corvid
