// CStringBuffer for hosts.
#pragma once

#include "basic/string_buffer.h"
#include "com/dispatch_object.h"
#include "corvid_interfaces.h"

namespace corvid {

// Every argument comes by reference; only Remove writes to one.
class CStringBufferObject final : public DispatchObject<ICStringBuffer, ::CStringBuffer> {
 public:
  STDMETHODIMP Append(BSTR* s) override { return run(&CStringBuffer::Append, buffer_, s); }
  STDMETHODIMP AppendV(VARIANT* v) override {
    return call([&] { buffer_.Append(toTextNoNull(dereferenced(v))); });
  }
  // Length receives what was counted, also where the removal fails.
  STDMETHODIMP Remove(LONG* Index, LONG* Length) override;
  STDMETHODIMP Insert(LONG* index, BSTR* text) override {
    return run(&CStringBuffer::Insert, buffer_, index, text);
  }
  STDMETHODIMP Replace(BSTR* orgText, BSTR* NewText) override {
    return run(&CStringBuffer::Replace, buffer_, orgText, NewText);
  }
  STDMETHODIMP get_Value(BSTR* ret) override { return answer(ret, &CStringBuffer::Value, buffer_); }
  STDMETHODIMP put_Value(BSTR* rhs) override { return run(&CStringBuffer::setValue, buffer_, rhs); }

 private:
  CStringBuffer buffer_;
};

}  // namespace corvid
