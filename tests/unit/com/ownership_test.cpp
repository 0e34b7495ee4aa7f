// Owners of what the automation world counts and allocates.
#include "com/com_ptr.h"
#include "com/safe_array.h"

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

TEST(AutomationArray, ThatIsTooLongIsAnOrdinaryLackOfMemory) {
  EXPECT_THROW(SafeArray(std::size_t{0x80000000}), std::bad_alloc);
}

}  // namespace
}  // namespace corvid::testing
