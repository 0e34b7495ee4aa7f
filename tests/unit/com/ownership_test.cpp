// Owners of what the automation world counts and allocates.
#include "com/bstr.h"
#include "com/com_ptr.h"
#include "com/safe_array.h"
#include "com/variant.h"

#include <gtest/gtest.h>

namespace corvid::testing {
namespace {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Counts its references and lives on the stack.
class Counted : public IUnknown {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown ? this : nullptr;
    if (id != IID_IUnknown) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

  ULONG references = 0;
};

#pragma GCC diagnostic pop

TEST(ComPointer, CountsEveryHolderOnce) {
  Counted object;
  {
    ComPtr<IUnknown> first(&object);
    const ComPtr<IUnknown> second = first;
    EXPECT_EQ(2U, object.references);
    const ComPtr<IUnknown> moved = std::move(first);
    EXPECT_EQ(2U, object.references);
    first = second;
    EXPECT_EQ(3U, object.references);
    const ComPtr<IUnknown>& alias = first;
    first = alias;
    EXPECT_EQ(3U, object.references);
  }
  EXPECT_EQ(0U, object.references);
}

TEST(ComPointer, TakesOverAndGivesAwayReferences) {
  Counted object;
  object.AddRef();
  ComPtr<IUnknown> adopted = ComPtr<IUnknown>::adopt(&object);
  EXPECT_EQ(1U, object.references);
  ComPtr<IUnknown> asked = adopted.as<IUnknown>();
  EXPECT_EQ(2U, object.references);
  *asked.put() = adopted.detach();  // releases what it held first
  EXPECT_EQ(1U, object.references);
  EXPECT_FALSE(adopted.as<IUnknown>());
  EXPECT_FALSE(asked.as<IDispatch>());
}

TEST(AutomationText, KeepsNulsAndEmptiness) {
  const std::wstring_view withNul(L"a\0b", 3);
  EXPECT_EQ(withNul, Bstr(withNul).view());
  EXPECT_EQ(L"", Bstr().view());
  EXPECT_EQ(L"", viewOf(nullptr));
  EXPECT_NE(nullptr, Bstr(L"").get());
}

TEST(AutomationText, HasOneOwner) {
  Bstr first(L"one");
  BSTR characters = first.get();
  Bstr second = std::move(first);
  EXPECT_EQ(characters, second.get());
  // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what a move leaves
  EXPECT_EQ(nullptr, first.get());
  Bstr third(L"three");
  third = std::move(second);
  EXPECT_EQ(characters, third.get());
  EXPECT_EQ(characters, third.detach());
  EXPECT_EQ(nullptr, third.get());
  SysFreeString(characters);
}

TEST(AutomationValue, ReleasesAnObjectOnceWhateverItsWay) {
  Counted object;
  {
    Variant value;
    V_VT(value.get()) = VT_UNKNOWN;
    V_UNKNOWN(value.get()) = &object;
    object.AddRef();
    Variant moved = std::move(value);
    // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move): what a move leaves
    EXPECT_EQ(VT_EMPTY, value.type());
    SafeArray array(2);
    array.set(1, std::move(moved));
    EXPECT_EQ(1U, object.references);
    const Variant whole = std::move(array).toVariant();
    EXPECT_EQ(1U, object.references);
  }
  EXPECT_EQ(0U, object.references);
}

TEST(AutomationArray, ThatIsTooLongIsAnOrdinaryLackOfMemory) {
  EXPECT_THROW(SafeArray(std::size_t{0x80000000}), std::bad_alloc);
}

}  // namespace
}  // namespace corvid::testing
