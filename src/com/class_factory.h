// Makes objects of one public class.
#pragma once

#include "com/class_table.h"
#include "com/module.h"
#include "com/platform.h"

#include <atomic>

namespace corvid {

// Automation interfaces have no virtual destructor: their objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// A factory keeps the module loaded while it lives; so does each of its locks. Objects are never
// parts of other objects.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const PublicClass& made) : made_(made) {}
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;
  ClassFactory(ClassFactory&&) = delete;
  ClassFactory& operator=(ClassFactory&&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  STDMETHODIMP LockServer(BOOL lock) override;

 private:
  virtual ~ClassFactory() = default;

  const PublicClass& made_;
  ModuleReference module_;
  std::atomic<ULONG> references_{1};
};

#pragma GCC diagnostic pop

}  // namespace corvid
