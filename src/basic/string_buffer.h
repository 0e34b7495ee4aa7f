// CStringBuffer: a growable text that appends in place.
#pragma once

#include "basic/character_store.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid {

// Keeps one character store with NULs after the used part and grows it by 65536 characters at a
// time. Positions count from 1. Position arithmetic outside 32 bits throws overflow (6).
class CStringBuffer {
 public:
  CStringBuffer();

  void Append(std::wstring_view text);
  // Error 5 when index > used + 1 or below 1, 6 where used - index + 1 leaves 32 bits; at used + 1
  // the same as Append.
  void Insert(std::int32_t index, std::wstring_view text);
  // Removes length characters from position index. From index + length = used on it cuts
  // everything after index, the last character included, and writes the true count back.
  // Error 5 for an index below 1 or a length that reaches before position 1.
  void Remove(std::int32_t index, std::int32_t& length);
  // Replaces in the whole store, its NUL padding included; the text then ends at the first NUL.
  void Replace(std::wstring_view original, std::wstring_view replacement);

  // Error 5 after a Replace that left no NUL in the store.
  [[nodiscard]] std::wstring Value() const;
  // Keeps a grown store, with what lies after the new text.
  void setValue(std::wstring_view text);

 private:
  void initialize();
  void ensureCapacity(std::int64_t additional);
  void reach(std::size_t end);
  void write(std::int64_t position, std::wstring_view text);
  void move(std::int64_t from, std::int64_t to, std::int64_t count);
  [[nodiscard]] std::wstring part(std::int64_t position, std::int64_t count) const;

  CharacterStore store_;
  std::int32_t used_ = 0;
  std::int32_t capacity_ = 0;
};

}  // namespace corvid
