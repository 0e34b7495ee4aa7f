#include "basic/character_store.h"

#include <algorithm>
#include <cwchar>
#include <utility>

namespace corvid {
namespace {

constexpr std::size_t kBlockSize = 65536;  // characters
constexpr std::size_t kShortText = 1024;   // most texts are; they do not get a whole block's memory

// Puts text into a block, over what is there, and after it.
void put(std::wstring& block, std::size_t offset, std::wstring_view text) {
  if (offset + text.size() > kShortText) block.reserve(kBlockSize);
  if (offset == block.size()) {
    block.append(text);
  } else {
    block.replace(offset, text.size(), text);
  }
}

}  // namespace

void CharacterStore::grow(std::size_t size) { size_ = std::max(size_, size); }

void CharacterStore::assign(std::wstring text) {
  size_ = text.size();
  blocks_.clear();
  if (size_ > kBlockSize) return write(0, text);
  blocks_.push_back(std::move(text));
}

void CharacterStore::write(std::size_t position, std::wstring_view text) {
  writeUpTo(position);
  grow(position + text.size());
  while (!text.empty()) {
    const std::size_t offset = position % kBlockSize;
    const std::size_t count = std::min(text.size(), kBlockSize - offset);
    if (position / kBlockSize == blocks_.size()) blocks_.emplace_back();
    put(blocks_[position / kBlockSize], offset, text.substr(0, count));
    text.remove_prefix(count);
    position += count;
  }
}

void CharacterStore::writeUpTo(std::size_t end) {
  const std::size_t begin = written();
  if (end > begin) write(begin, std::wstring(end - begin, L'\0'));
}

// In runs that stay within a block at both places, the last one first where the text goes forward.
void CharacterStore::copy(std::size_t from, std::size_t to, std::size_t count) {
  count = std::min(count, size_ - std::min(from, size_));
  writeUpTo(std::max(from, to) + count);
  const bool goesForward = to > from;
  while (count > 0) {
    const std::size_t fromEdge = goesForward ? from + count - 1 : from;
    const std::size_t toEdge = goesForward ? to + count - 1 : to;
    const std::size_t fromOffset = fromEdge % kBlockSize;
    const std::size_t toOffset = toEdge % kBlockSize;
    const std::size_t room = goesForward ? std::min(fromOffset, toOffset) + 1
                                         : kBlockSize - std::max(fromOffset, toOffset);
    const std::size_t run = std::min(count, room);
    const std::size_t start = goesForward ? count - run : 0;
    copyRun(from + start, to + start, run);
    count -= run;
    if (goesForward) continue;
    from += run;
    to += run;
  }
}

void CharacterStore::copyRun(std::size_t from, std::size_t to, std::size_t count) {
  const wchar_t* const source = blocks_.at(from / kBlockSize).data() + from % kBlockSize;
  wchar_t* const target = blocks_.at(to / kBlockSize).data() + to % kBlockSize;
  std::wmemmove(target, source, count);
}

std::wstring CharacterStore::read(std::size_t position, std::size_t count) const {
  const std::size_t end = position + std::min(count, size_ - std::min(position, size_));
  const std::size_t writtenEnd = std::min(end, written());
  std::wstring text;
  text.reserve(end - position);
  while (position < writtenEnd) {
    const std::size_t before = text.size();
    text.append(blocks_.at(position / kBlockSize), position % kBlockSize, writtenEnd - position);
    position += text.size() - before;
  }
  text.append(end - position, L'\0');
  return text;
}

std::size_t CharacterStore::written() const {
  return blocks_.empty() ? 0 : (blocks_.size() - 1) * kBlockSize + blocks_.back().size();
}

}  // namespace corvid
