#include "preview/string_buffer.h"

#include "basic/conversions.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

#include <algorithm>

namespace corvid {
namespace {

constexpr std::int64_t kChunk = 65536;  // characters of a new store, and of each step it grows by

std::wstring nuls(std::int64_t count) {
  if (count < 0) throw invalidProcedureCall();
  std::wstring text;
  text.resize(static_cast<std::size_t>(count));
  return text;
}

}  // namespace

CStringBuffer::CStringBuffer() { initialize(); }

void CStringBuffer::initialize() {
  if (store_.empty()) store_ = nuls(kChunk);
  capacity_ = kChunk;
  used_ = 0;
}

void CStringBuffer::ensureCapacity(std::int64_t additional) {
  const std::int64_t needed = narrowToInt32(used_ + additional);
  if (needed <= capacity_) return;
  const std::int64_t chunks = (needed - capacity_ + kChunk - 1) / kChunk;
  const std::int32_t grown = narrowToInt32(capacity_ + chunks * kChunk);
  const std::size_t length = store_.size() + static_cast<std::size_t>(chunks * kChunk);
  // Memory doubles while the store grows by chunks, or a long text would be copied ever again.
  if (length > store_.capacity()) store_.reserve(std::max(length, store_.capacity() * 2));
  store_.resize(length);
  capacity_ = grown;
}

void CStringBuffer::write(std::int64_t position, std::wstring_view text) {
  if (position < 1) throw invalidProcedureCall();
  const auto start = static_cast<std::size_t>(position - 1);
  // A Replace that shortened the store, and then a new value, leave it shorter than capacity_.
  if (start + text.size() > store_.size()) store_.resize(static_cast<std::size_t>(capacity_));
  std::copy(text.begin(), text.end(), store_.begin() + static_cast<std::ptrdiff_t>(start));
}

void CStringBuffer::Append(std::wstring_view text) {
  const auto length = static_cast<std::int64_t>(text.size());
  ensureCapacity(length);
  write(std::int64_t{used_} + 1, text);
  used_ += static_cast<std::int32_t>(length);
}

void CStringBuffer::Insert(std::int32_t index, std::wstring_view text) {
  if (index > std::int64_t{used_} + 1) throw invalidProcedureCall();
  if (index > used_) return Append(text);
  const auto length = static_cast<std::int64_t>(text.size());
  ensureCapacity(length);
  const std::wstring tail = mid(store_, index, std::int64_t{used_} - index + 1);
  write(index + length, tail);
  write(index, text);
  used_ += static_cast<std::int32_t>(length);
}

void CStringBuffer::Remove(std::int32_t index, std::int32_t& length) {
  const std::int32_t behind = narrowToInt32(std::int64_t{index} + length);
  if (behind >= used_) {
    length = narrowToInt32(std::int64_t{used_} + 1 - index);
    write(index, nuls(length));
    used_ = index - 1;
    return;
  }
  // Longer than the tail: it moves characters from behind the used part along.
  const std::int32_t blockLength = narrowToInt32(std::int64_t{used_} - index + length);
  write(index, mid(store_, behind, blockLength));
  write(std::int64_t{used_} - length + 1, nuls(length));
  used_ -= length;
}

void CStringBuffer::Replace(std::wstring_view original, std::wstring_view replacement) {
  if (!original.empty()) store_ = replaceAll(store_, original, replacement);
  capacity_ = narrowToInt32(static_cast<std::int64_t>(store_.size()));
  const std::size_t firstNul = store_.find(L'\0');
  // Without any NUL the count is one below 0, and Value fails.
  used_ = firstNul == std::wstring::npos ? -1 : static_cast<std::int32_t>(firstNul);
  if (used_ == 0) used_ = capacity_;
}

std::wstring CStringBuffer::Value() const { return left(store_, used_); }

void CStringBuffer::setValue(std::wstring_view text) {
  initialize();
  Append(text);
}

}  // namespace corvid
