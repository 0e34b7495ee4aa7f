#include "com/string_buffer_object.h"

#include "com/variant_conversions.h"

#include <cstdint>

namespace corvid {
STDMETHODIMP CStringBufferObject::Append(BSTR* s) {
  return call([&] { buffer_.Append(viewOf(behind(s))); });
}

STDMETHODIMP CStringBufferObject::AppendV(VARIANT* v) {
  return call([&] { buffer_.Append(toTextNoNull(behind(v))); });
}

STDMETHODIMP CStringBufferObject::Remove(LONG* Index, LONG* Length) {
  return call([&] {
    const LONG index = behind(Index);
    std::int32_t length = behind(Length);
    buffer_.Remove(index, length);
    *Length = length;
  });
}

STDMETHODIMP CStringBufferObject::Insert(LONG* Index, BSTR* Text) {
  return call([&] {
    const LONG index = behind(Index);
    buffer_.Insert(index, viewOf(behind(Text)));
  });
}

STDMETHODIMP CStringBufferObject::Replace(BSTR* orgText, BSTR* NewText) {
  return call([&] {
    const std::wstring_view original = viewOf(behind(orgText));
    buffer_.Replace(original, viewOf(behind(NewText)));
  });
}

STDMETHODIMP CStringBufferObject::get_Value(BSTR* ret) {
  return giveResult(ret, [&] { return buffer_.Value(); });
}

STDMETHODIMP CStringBufferObject::put_Value(BSTR* rhs) {
  return call([&] { buffer_.setValue(viewOf(behind(rhs))); });
}

}  // namespace corvid
