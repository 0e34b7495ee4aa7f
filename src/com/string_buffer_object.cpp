#include "com/string_buffer_object.h"

namespace corvid {
namespace {

// Writes a value back to the host when the scope ends, however it does.
class WriteBack {
 public:
  explicit WriteBack(LONG& place) : value(place), place_(place) {}
  WriteBack(const WriteBack&) = delete;
  WriteBack& operator=(const WriteBack&) = delete;
  WriteBack(WriteBack&&) = delete;
  WriteBack& operator=(WriteBack&&) = delete;
  ~WriteBack() { place_ = value; }

  std::int32_t value;

 private:
  LONG& place_;
};

}  // namespace

STDMETHODIMP CStringBufferObject::Remove(LONG* Index, LONG* Length) {
  return call([&] {
    const LONG index = dereferenced(Index);
    WriteBack length(dereferenced(Length));
    buffer_.Remove(index, length.value);
  });
}

}  // namespace corvid
