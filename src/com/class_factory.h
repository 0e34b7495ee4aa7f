// Makes objects of one public class.
#pragma once

#include "com/class_table.h"
#include "com/object_of.h"
#include "com/platform.h"

namespace corvid {

// Objects are never parts of other objects. A factory that is called on another thread than its own
// returns RPC_E_WRONG_THREAD; its locks may be set and taken back on any.
class ClassFactory final : public ObjectOf<IClassFactory> {
 public:
  explicit ClassFactory(const PublicClass& made) : made_(made) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  STDMETHODIMP LockServer(BOOL lock) override;

 private:
  const PublicClass& made_;
};

}  // namespace corvid
