#include "basic/string_buffer.h"

#include "basic/conversions.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

#include <algorithm>
#include <utility>

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
  if (store_.size() == 0) store_.grow(kChunk);
  capacity_ = kChunk;
  used_ = 0;
}

void CStringBuffer::ensureCapacity(std::int64_t additional) {
  const std::int64_t needed = narrowToInt32(used_ + additional);
  if (needed <= capacity_) return;
  const std::int64_t chunks = (needed - capacity_ + kChunk - 1) / kChunk;
  const std::int32_t grown = narrowToInt32(capacity_ + chunks * kChunk);
  store_.grow(store_.size() + static_cast<std::size_t>(chunks * kChunk));
  capacity_ = grown;
}

void CStringBuffer::write(std::int64_t position, std::wstring_view text) {
  if (position < 1) throw invalidProcedureCall();
  const auto start = static_cast<std::size_t>(position - 1);
  reach(start + text.size());
  store_.write(start, text);
}

// A Replace that shortened the store, and then a new value, leave it shorter than capacity_.
void CStringBuffer::reach(std::size_t end) {
  if (end > store_.size()) store_.grow(static_cast<std::size_t>(capacity_));
}

void CStringBuffer::move(std::int64_t from, std::int64_t to, std::int64_t count) {
  if (from < 1 || to < 1 || count < 0) throw invalidProcedureCall();
  const auto source = static_cast<std::size_t>(from - 1);
  const auto target = static_cast<std::size_t>(to - 1);
  const auto most = store_.size() - std::min(source, store_.size());
  const auto moved = std::min(static_cast<std::size_t>(count), most);
  reach(target + moved);
  store_.copy(source, target, moved);
}

std::wstring CStringBuffer::part(std::int64_t position, std::int64_t count) const {
  if (position < 1 || count < 0) throw invalidProcedureCall();
  return store_.read(static_cast<std::size_t>(position - 1), static_cast<std::size_t>(count));
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
  const std::int32_t tail = narrowToInt32(std::int64_t{used_} - index + 1);
  move(index, index + length, tail);
  write(index, text);
  used_ += static_cast<std::int32_t>(length);
}

void CStringBuffer::Remove(std::int32_t index, std::int32_t& length) {
  const std::int32_t after = narrowToInt32(std::int64_t{index} + length);
  if (after >= used_) {
    length = narrowToInt32(std::int64_t{used_} + 1 - index);
    write(index, nuls(length));
    used_ = index - 1;
    return;
  }
  // Longer than the tail: it moves characters from after the used part along.
  const std::int32_t blockLength = narrowToInt32(std::int64_t{used_} - index + length);
  move(after, index, blockLength);
  write(std::int64_t{used_} - length + 1, nuls(length));
  used_ -= length;
}

void CStringBuffer::Replace(std::wstring_view original, std::wstring_view replacement) {
  // The padding holds nothing but NULs: a text without any is not found there.
  const bool isInPadding = original.find(L'\0') != std::wstring_view::npos;
  const std::size_t padding = isInPadding ? 0 : store_.size() - store_.written();
  std::wstring text = store_.read(0, store_.size() - padding);
  if (!original.empty()) text = replaceAll(text, original, replacement);
  const std::size_t end = text.size() + padding;
  std::size_t firstNul = text.find(L'\0');
  if (firstNul == std::wstring::npos && padding > 0) firstNul = text.size();
  capacity_ = narrowToInt32(static_cast<std::int64_t>(end));
  // Without any NUL the count is one below 0, and Value fails.
  used_ = firstNul == std::wstring::npos ? -1 : static_cast<std::int32_t>(firstNul);
  if (used_ == 0) used_ = capacity_;
  if (original.empty()) return;
  store_.assign(std::move(text));
  store_.grow(end);
}

std::wstring CStringBuffer::Value() const { return part(1, used_); }

void CStringBuffer::setValue(std::wstring_view text) {
  initialize();
  Append(text);
}

}  // namespace corvid
