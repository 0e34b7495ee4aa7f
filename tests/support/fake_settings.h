// Both settings sources as tables.
#pragma once

#include "basic/text.h"
#include "platform/settings.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace corvid {

class FakeSettings : public InitializationFile {
 public:
  // An entry of the library's own initialisation file, in the folder that is current at first.
  void set(const std::wstring& section, const std::wstring& key, const std::wstring& value) {
    setIn(L"C:\\host", section, key, value);
  }
  void setIn(const std::wstring& folder, const std::wstring& section, const std::wstring& key,
             const std::wstring& value) {
    file_[name({folder + L"\\ORV.ini", section, key})] = value;
  }
  void setInStore(const std::wstring& section, const std::wstring& key, const std::wstring& value) {
    store_[name({L"ORV", section, key})] = value;
  }

  std::wstring read(const std::wstring& file, const std::wstring& section,
                    const std::wstring& key) override {
    asked.insert(lowerCase(section + L"\\" + key));
    return file_[name({file, section, key})];
  }

  std::set<std::wstring> asked;  // what was read, in lower case

  // The per-user store over the same object.
  class Store : public UserSettings {
   public:
    explicit Store(FakeSettings& owner) : owner_(owner) {}
    std::optional<std::wstring> read(const std::wstring& application, const std::wstring& section,
                                     const std::wstring& key) override {
      const auto found = owner_.store_.find(name({application, section, key}));
      if (found == owner_.store_.end()) return std::nullopt;
      return found->second;
    }

   private:
    FakeSettings& owner_;
  };

 private:
  static std::wstring name(const Lines& parts) { return lowerCase(join(parts, L"|")); }

  std::map<std::wstring, std::wstring> file_;
  std::map<std::wstring, std::wstring> store_;
};

}  // namespace corvid
