#include "basic/character_store.h"

#include <algorithm>

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

void CharacterStore::assign(std::wstring_view text) {
  size_ = 0;
  blocks_.clear();
  write(0, text);
}

void CharacterStore::write(std::size_t position, std::wstring_view text) {
  const std::size_t end = written();
  if (position > end) write(end, std::wstring(position - end, L'\0'));
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
