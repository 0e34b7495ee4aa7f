// Objects belong to the thread that made them.
#include "com/com_object.h"
#include "unit/com/automation_host.h"

#include <thread>

namespace corvid::testing {
namespace {

using Threads = AutomationTest;

template <class Action>
void elsewhere(Action action) {
  std::thread([&] {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    action();
    CoUninitialize();
  }).join();
}

TEST_F(Threads, ACallOnAnotherOneDoesNothing) {
  const auto buffer = newBuffer();
  const auto factory = factoryOf(__uuidof(::CStringBuffer));
  Bstr text(L"text");
  BSTR given = text.get();
  elsewhere([&] {
    DISPPARAMS none{};
    void* object = nullptr;
    EXPECT_EQ(RPC_E_WRONG_THREAD, buffer->Append(&given));
    EXPECT_EQ(RPC_E_WRONG_THREAD, buffer->Invoke(0, IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                                                 nullptr, nullptr, nullptr));
    EXPECT_EQ(RPC_E_WRONG_THREAD, factory->CreateInstance(nullptr, IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
  });
  Bstr value;
  EXPECT_EQ(S_OK, buffer->get_Value(value.put()));
  EXPECT_EQ(L"", value.view());
}

// A window or a port of the object's may only be let go by its own thread.
TEST_F(Threads, ALastReleaseElsewhereLeavesTheObjectToItsOwn) {
  ICStringBuffer* const given = newBuffer().detach();
  elsewhere([&] {
    EXPECT_EQ(0U, given->Release());
    EXPECT_EQ(S_FALSE, DllCanUnloadNow()) << "it still lives";
  });
  EXPECT_EQ(S_OK, DllCanUnloadNow()) << "its thread has deleted it";
}

class Told : public ComObject {
 public:
  explicit Told(int& times) : ComObject(nullptr), times_(times) {}

 private:
  void lastReferenceReleased() noexcept override { ++times_; }

  int& times_;
};

// What it then does, such as to end its wait for the printer, is its own thread's to do.
TEST_F(Threads, OnlyAReleaseInACallOnItsOwnTellsTheObject) {
  int times = 0;
  (new Told(times))->releaseReference();
  EXPECT_EQ(times, 0) << "outside of calls";
  for (const bool isElsewhere : {true, false}) {
    auto* const object = new Told(times);
    const Held<Told> call(*object);
    const auto release = [&] { object->releaseReference(); };
    isElsewhere ? elsewhere(release) : release();
    EXPECT_EQ(times, isElsewhere ? 0 : 1);
  }
}

TEST_F(Threads, AnObjectOfAThreadThatEndedIsDeletedByWhoeverAsks) {
  ICStringBuffer* left = nullptr;
  elsewhere([&] { left = newBuffer().detach(); });
  EXPECT_EQ(0U, left->Release());
  EXPECT_EQ(S_OK, DllCanUnloadNow());
}

// A session of another thread, handed over raw, is not used on this one.
TEST_F(Threads, AForeignSessionIsNotTakenByARecord) {
  const auto session = newSession();
  elsewhere([&] {
    const auto summary = create<IResumenZ>(__uuidof(::ResumenZ));
    EXPECT_EQ(RPC_E_WRONG_THREAD, summary->load(session.get()));
  });
}

// A host that takes back a lock that it never set must not unload a living object's code.
TEST_F(Threads, LocksAreCountedApartFromObjects) {
  const auto factory = factoryOf(__uuidof(::CStringBuffer));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(S_OK, factory->LockServer(FALSE));
  EXPECT_EQ(S_FALSE, DllCanUnloadNow());
}

}  // namespace
}  // namespace corvid::testing
