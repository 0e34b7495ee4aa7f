#include "com/com_object.h"

#include "com/host_thread.h"

#include <mutex>
#include <unordered_map>
#include <utility>

namespace corvid {
namespace {

// Never destroyed: objects that a host forgot to release end with the process.
struct LiveObjects {
  std::mutex gate;
  std::unordered_map<const IUnknown*, ComObject*> byIdentity;
  ComObject* orphans = nullptr;
};

LiveObjects& live() {
  static auto* const objects = new LiveObjects;
  return *objects;
}

std::atomic<bool> theOrphansWait{false};

}  // namespace

ComObject::ComObject(const IUnknown* identity) : identity_(identity) {
  const std::lock_guard lock(live().gate);
  live().byIdentity.emplace(identity, this);
}

ComObject::~ComObject() {
  const std::lock_guard lock(live().gate);
  live().byIdentity.erase(identity_);
}

ULONG ComObject::addReference() noexcept {
  const ULONG references = ++references_;
  // The first one of an object that lives by its calls alone.
  if (references == 1) hold();
  return references;
}

ULONG ComObject::releaseReference() noexcept {
  const ULONG left = --references_;
  if (left != 0) return left;
  if (holds_ > 1 && isOnItsThread()) lastReferenceReleased();
  letGo();
  return 0;
}

void ComObject::letGo() noexcept {
  if (--holds_ == 0) dispose();
}

bool ComObject::mayBeDeletedHere() const noexcept {
  return isOnItsThread() || HostThread(thread_).hasEnded();
}

void ComObject::dispose() noexcept {
  if (isOnItsThread()) {
    delete this;
    return;
  }
  const std::lock_guard lock(live().gate);
  nextOrphan_ = std::exchange(live().orphans, this);
  theOrphansWait = true;
}

ComObject* ComObject::holdLive(const IUnknown* identity) noexcept {
  const std::lock_guard lock(live().gate);
  const auto found = live().byIdentity.find(identity);
  if (found == live().byIdentity.end()) return nullptr;
  ComObject* const object = found->second;
  // An object whose last hold is gone is on its way out.
  ULONG holds = object->holds_;
  while (holds != 0 && !object->holds_.compare_exchange_weak(holds, holds + 1)) {
  }
  return holds == 0 ? nullptr : object;
}

void ComObject::deleteOrphans() noexcept {
  if (!theOrphansWait) return;
  ComObject* mine = nullptr;
  {
    const std::lock_guard lock(live().gate);
    ComObject** place = &live().orphans;
    while (*place != nullptr) {
      ComObject* const one = *place;
      if (one->mayBeDeletedHere()) {
        *place = one->nextOrphan_;
        one->nextOrphan_ = std::exchange(mine, one);
      } else {
        place = &one->nextOrphan_;
      }
    }
    theOrphansWait = live().orphans != nullptr;
  }
  while (mine != nullptr) delete std::exchange(mine, mine->nextOrphan_);
}

}  // namespace corvid
