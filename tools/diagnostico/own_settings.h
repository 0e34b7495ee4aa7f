// Settings that the program gives, in place of a host's.
#pragma once

#include "platform/settings.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace corvid {

// Outlives its readers.
class OwnSettings {
 public:
  // Gives the text of a key of a section; empty where there is none.
  using Source = std::function<std::wstring(const std::wstring& section, const std::wstring& key)>;
  explicit OwnSettings(Source source) : file_(std::move(source)) {}

  [[nodiscard]] Settings readers() { return {file_, store_, L""}; }

 private:
  class File : public InitializationFile {
   public:
    explicit File(Source source) : source_(std::move(source)) {}
    std::wstring read(const std::wstring&, const std::wstring& section,
                      const std::wstring& key) override {
      return source_(section, key);
    }

   private:
    Source source_;
  };
  class EmptyStore : public UserSettings {
   public:
    std::optional<std::wstring> read(const std::wstring&, const std::wstring&,
                                     const std::wstring&) override {
      return std::nullopt;
    }
  };

  File file_;
  EmptyStore store_;
};

}  // namespace corvid
