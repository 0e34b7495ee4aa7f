// The published interface, as a reader of the type library finds it.
#include "unit/com/type_library_reader.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

namespace corvid::testing {
namespace {

class PublishedInterface : public AutomationTest {
 protected:
  PublishedInterface() { EXPECT_EQ(S_OK, openTypeLibrary(library_)); }

  ComPtr<ITypeInfo> typeAt(UINT index) {
    ComPtr<ITypeInfo> info;
    library_->GetTypeInfo(index, info.put());
    return info;
  }
  [[nodiscard]] std::vector<std::string> lines() {
    std::vector<std::string> all = {libraryLine()};
    std::vector<std::vector<std::wstring>> types;
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
      types.push_back(TypeReader(*typeAt(i).get()).lines());
      for (const std::wstring& line : withoutExtended(types)) {
        all.emplace_back(line.begin(), line.end());
      }
    }
    return all;
  }

  // The lines of the last type; a longer one whose members it begins with stands there by its name.
  static std::vector<std::wstring> withoutExtended(
      const std::vector<std::vector<std::wstring>>& types) {
    constexpr std::size_t kLonger = 10;
    std::vector<std::wstring> lines = types.back();
    for (const std::vector<std::wstring>& one : types) {
      if (one.size() >= lines.size() || one.size() <= kLonger) continue;
      if (!std::equal(one.begin() + 1, one.end(), lines.begin() + 1)) continue;
      const std::wstring name = one.front().substr(0, one.front().rfind(L' '));
      lines.erase(lines.begin() + 1, lines.begin() + static_cast<std::ptrdiff_t>(one.size()));
      lines.insert(lines.begin() + 1, L"  all of " + name.substr(name.rfind(L' ') + 1));
    }
    return lines;
  }

  ComPtr<ITypeLib> library_;

 private:
  [[nodiscard]] std::string libraryLine() {
    TLIBATTR* attributes = nullptr;
    library_->GetLibAttr(&attributes);
    Bstr name;
    library_->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
    const std::wstring line = L"library " + std::wstring(name.view()) + L" " +
                              guidText(attributes->guid) + L" " +
                              std::to_wstring(attributes->wMajorVerNum) + L"." +
                              std::to_wstring(attributes->wMinorVerNum);
    library_->ReleaseTLibAttr(attributes);
    return {line.begin(), line.end()};
  }
};

// Compiled hosts rely on names, order, identifiers and types: the list never changes but by lines
// for new types at its end. (A run that fails leaves the list as it is now in the working folder.)
TEST_F(PublishedInterface, IsFrozen) {
  std::ifstream file(CORVID_PUBLISHED_INTERFACE);
  std::vector<std::string> expected;
  for (std::string line; std::getline(file, line);) expected.push_back(line);
  const std::vector<std::string> found = lines();
  EXPECT_THAT(found, ::testing::ElementsAreArray(expected));
  if (!HasFailure()) return;
  std::ofstream now("published_interface.now.txt", std::ios::binary);
  for (const std::string& line : found) now << line << "\n";
}

// What a class browser shows of the library, its classes and each member must have words.
TEST_F(PublishedInterface, ExplainsItselfEverywhere) {
  EXPECT_FALSE(helpOf(*library_.get(), -1).empty());
  for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
    const ComPtr<ITypeInfo> info = typeAt(i);
    const std::wstring name = nameOf(*info.get(), MEMBERID_NIL);
    EXPECT_FALSE(helpOf(*info.get(), MEMBERID_NIL).empty()) << ::testing::PrintToString(name);
    const TypeAttributes attributes = attributesOf(*info.get());
    for (UINT member = 0; member < attributes->cFuncs; ++member) {
      const FunctionDescription function = functionAt(*info.get(), member);
      if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0) continue;
      EXPECT_FALSE(helpOf(*info.get(), function->memid).empty())
          << ::testing::PrintToString(declaration(*info.get(), *function));
    }
  }
}

// Help strings are bytes in the library: those of an IDL in another code page read as other
// letters.
TEST_F(PublishedInterface, KeepsItsAccents) {
  ComPtr<ITypeInfo> text;
  ASSERT_EQ(S_OK, library_->GetTypeInfoOfGuid(__uuidof(ICStringBuffer), text.put()));
  EXPECT_EQ(L"Inserta un texto en una posición, contada desde 1", helpOf(*text.get(), 4));
  EXPECT_EQ(L"Añade un texto al final", helpOf(*text.get(), 1));
}

}  // namespace
}  // namespace corvid::testing
