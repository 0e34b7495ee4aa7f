// The life of every object that the library hands out.
#pragma once

#include "com/module.h"
#include "com/platform.h"

#include <atomic>

namespace corvid {

// Counts an object's references and the calls into it; the object deletes itself after the last of
// both. It belongs to the thread that made it: a last release elsewhere leaves it, an orphan, to
// that thread, which deletes it with its next call or creation; that of a thread that has ended is
// deleted by whoever asks whether to unload. A new object has one reference, its creator's. While
// it lives the module stays loaded.
class ComObject {
 public:
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;
  ComObject(ComObject&&) = delete;
  ComObject& operator=(ComObject&&) = delete;

  // Any thread; the counts after it.
  ULONG addReference() noexcept;
  ULONG releaseReference() noexcept;
  // Keeps the object alive, but not as a reference of the host's: whoever waits for the host to let
  // go is not kept waiting. Any thread.
  void hold() noexcept { ++holds_; }
  void letGo() noexcept;

  [[nodiscard]] bool isOnItsThread() const noexcept { return thread_ == GetCurrentThreadId(); }

  // The live object of this library with that identity (its IUnknown), held; null for any other
  // pointer, which is not looked into. Any thread.
  [[nodiscard]] static ComObject* holdLive(const IUnknown* identity) noexcept;
  // Deletes the orphans of the calling thread and of threads that have ended.
  static void deleteOrphans() noexcept;

 protected:
  // Throws std::bad_alloc.
  explicit ComObject(const IUnknown* identity);
  virtual ~ComObject();

  // The host has let go of the object in the middle of a call; it is deleted at the call's end.
  virtual void lastReferenceReleased() noexcept {}

 private:
  void dispose() noexcept;
  [[nodiscard]] bool mayBeDeletedHere() const noexcept;

  ModuleReference module_;
  const DWORD thread_ = GetCurrentThreadId();
  const IUnknown* const identity_;
  std::atomic<ULONG> references_{1};
  std::atomic<ULONG> holds_{1};  // one for all references, one for each call
  ComObject* nextOrphan_ = nullptr;
};

// Holds an object from creation to destruction.
template <class Object>
class Held {
 public:
  explicit Held(Object& object) noexcept : object_(object) { object_.hold(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  Held(Held&&) = delete;
  Held& operator=(Held&&) = delete;
  ~Held() { object_.letGo(); }

  Object* operator->() const noexcept { return &object_; }

 private:
  Object& object_;
};

}  // namespace corvid
