// A long row of characters that grows in place: what fills a block is never copied to grow.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvid {

// Characters never written are NULs, and take neither time nor memory. Positions count from 0.
class CharacterStore {
 public:
  [[nodiscard]] std::size_t size() const { return size_; }
  // Adds NULs up to that size; never shrinks.
  void grow(std::size_t size);
  // Holds that text alone.
  void assign(std::wstring text);
  // Over what stands there; grows where the text ends after the size.
  void write(std::size_t position, std::wstring_view text);
  // Has the characters of one place at another one too, which may overlap it; as many as stand
  // between the first place and the store's end. Grows as write() does.
  void copy(std::size_t from, std::size_t to, std::size_t count);
  // At most `count` characters, fewer where the store ends.
  [[nodiscard]] std::wstring read(std::size_t position, std::size_t count) const;
  // Where only NULs begin that were never written.
  [[nodiscard]] std::size_t written() const;

 private:
  void writeUpTo(std::size_t end);
  void copyRun(std::size_t from, std::size_t to, std::size_t count);

  std::vector<std::wstring> blocks_;  // full ones, but for the last; what stands after is NUL
  std::size_t size_ = 0;
};

}  // namespace corvid
