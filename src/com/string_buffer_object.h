// CStringBuffer for hosts.
#pragma once

#include "basic/string_buffer.h"
#include "com/dispatch_object.h"
#include "corvid_interfaces.h"

namespace corvid {

// Every argument comes by reference; only Remove writes to one.
class CStringBufferObject final : public DispatchObject<ICStringBuffer, ::CStringBuffer> {
 public:
  STDMETHODIMP Append(BSTR* s) override;
  STDMETHODIMP AppendV(VARIANT* v) override;
  STDMETHODIMP Remove(LONG* Index, LONG* Length) override;
  STDMETHODIMP Insert(LONG* Index, BSTR* Text) override;
  STDMETHODIMP Replace(BSTR* orgText, BSTR* NewText) override;
  STDMETHODIMP get_Value(BSTR* ret) override;
  STDMETHODIMP put_Value(BSTR* rhs) override;

 private:
  CStringBuffer buffer_;
};

}  // namespace corvid
