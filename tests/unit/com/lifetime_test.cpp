// Who keeps the module loaded, and for how long.
#include "com/automation_library.h"
#include "com/class_table.h"
#include "exchange/thread_state.h"
#include "unit/com/automation_host.h"

namespace corvid::testing {
namespace {

using Lifetime = AutomationTest;

TEST_F(Lifetime, MakesEveryPublicClassAndForgetsItAfterItsRelease) {
  ASSERT_EQ(S_OK, DllCanUnloadNow());
  for (const PublicClass& one : publicClasses()) {
    {
      const auto object = create<IDispatch>(one.id);
      ASSERT_TRUE(object) << ::testing::PrintToString(std::wstring(one.name));
      EXPECT_EQ(S_FALSE, DllCanUnloadNow());
    }
    EXPECT_EQ(S_OK, DllCanUnloadNow());
  }
}

TEST_F(Lifetime, EndsWithTheLastReferenceToAnything) {
  auto session = newSession();
  ComPtr<IPrinterResponse1> record;
  ASSERT_EQ(S_OK, session->Response1(record.put()));
  ComPtr<ITypeInfo> info;
  session->GetTypeInfo(0, 0, info.put());
  auto errors = session.as<ISupportErrorInfo>();
  session = {};
  EXPECT_EQ(S_FALSE, DllCanUnloadNow());
  errors = {};
  EXPECT_EQ(S_FALSE, DllCanUnloadNow());
  record = {};
  EXPECT_EQ(S_OK, DllCanUnloadNow());
}

// The record that a session keeps is counted with the session.
TEST_F(Lifetime, OfARecordInUseByASession) {
  auto session = newSession();
  auto record = create<IPrinterResponse3>(__uuidof(::PrinterResponse3));
  session->put_s3(record.get());
  record = {};
  ASSERT_EQ(S_OK, session->get_s3(record.put()));
  session = {};
  short flag = 0;
  EXPECT_EQ(S_OK, record->Flag(0, &flag));
  record = {};
  EXPECT_EQ(S_OK, DllCanUnloadNow());
}

TEST_F(Lifetime, IsHeldByFactoriesAndTheirLocks) {
  auto factory = factoryOf(__uuidof(::CStringBuffer));
  EXPECT_EQ(S_FALSE, DllCanUnloadNow());
  factory->LockServer(TRUE);
  factory->LockServer(TRUE);
  factory->LockServer(FALSE);
  factory = {};
  EXPECT_EQ(S_FALSE, DllCanUnloadNow());
  factoryOf(__uuidof(::PrinterFiscal))->LockServer(FALSE);
  EXPECT_EQ(S_OK, DllCanUnloadNow());
}

TEST_F(Lifetime, IsNotTouchedByRefusedRequests) {
  void* object = nullptr;
  EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, DllGetClassObject(IID_IDispatch, IID_IUnknown, &object));
  EXPECT_EQ(E_NOINTERFACE, DllGetClassObject(__uuidof(::CStringBuffer), IID_IDispatch, &object));
  const auto outer = newBuffer();
  const auto factory = factoryOf(__uuidof(::CStringBuffer));
  EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(outer.get(), IID_IUnknown, &object));
  EXPECT_EQ(E_NOINTERFACE, factory->CreateInstance(nullptr, IID_IClassFactory, &object));
  EXPECT_EQ(nullptr, object);
  EXPECT_EQ(E_NOINTERFACE, outer->QueryInterface(IID_IClassFactory, &object));
  EXPECT_EQ(nullptr, object);
}

TEST_F(Lifetime, EndsTheProcessWideStateWithTheLastObject) {
  auto session = newSession();
  AutomationLibrary::here().process().setLastSerial(L"Z1F0000001");
  EXPECT_EQ(S_FALSE, DllCanUnloadNow());
  EXPECT_EQ(L"Z1F0000001", AutomationLibrary::here().process().lastSerial());
  session = {};
  EXPECT_EQ(S_OK, DllCanUnloadNow());
  EXPECT_EQ(L"", AutomationLibrary::here().process().lastSerial());
}

TEST_F(Lifetime, OfWhatAPointerHeldEndsWhenItIsFilledAnew) {
  HostObject host(L"", [](DISPPARAMS&, VARIANT*) { return S_OK; });
  ComPtr<IUnknown> pointer(&host);
  ASSERT_EQ(S_OK, host.QueryInterface(IID_IUnknown, pointer.putVoid()));
  EXPECT_EQ(2U, host.references);
  pointer = {};
  EXPECT_EQ(1U, host.references);
}

// A host that drops its last reference while a member runs, even twice, gets its answer all the
// same.
TEST_F(Lifetime, OfAnObjectSpansTheCallsIntoIt) {
  ICStringBuffer* buffer = newBuffer().detach();
  ULONG left = 1;
  HostObject host(
      L"",
      [&](DISPPARAMS&, VARIANT* result) {
        buffer->Release();
        buffer->AddRef();
        left = buffer->Release();
        EXPECT_EQ(S_FALSE, DllCanUnloadNow()) << "the call goes on";
        *result = text(L"last words").detach();
        return S_OK;
      },
      DISPID_VALUE);
  Variant value = objectValue(&host);
  EXPECT_EQ(S_OK, buffer->AppendV(value.get()));
  EXPECT_EQ(0U, left) << "no reference of the library's own";
  EXPECT_EQ(S_OK, DllCanUnloadNow());
}

}  // namespace
}  // namespace corvid::testing
