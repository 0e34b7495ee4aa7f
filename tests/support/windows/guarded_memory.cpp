// Memory of Windows test programs, where no address sanitizer is to be had: each block of operator
// new ends at a page that nobody may touch, and its pages are never used again. Where more blocks
// live at once than a system maps one by one, the others are plain ones.
#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>

namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kAlignment = 16;
constexpr std::size_t kArena = std::size_t{1} << 34;  // address space alone
constexpr std::size_t kMostLive = 20000;
constexpr int kUnwritten = 0xCD;

std::size_t upTo(std::size_t multiple, std::size_t size) {
  return (size + multiple - 1) / multiple * multiple;
}

class Lock {
 public:
  Lock() { AcquireSRWLockExclusive(&lock_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;
  ~Lock() { ReleaseSRWLockExclusive(&lock_); }

 private:
  static inline SRWLOCK lock_ = SRWLOCK_INIT;
};

struct Arena {
  char* begin;
  char* next;
};

Arena arenas[100];  // the last one that has begun is in use
std::size_t count = 0;
std::size_t live = 0;

// Pages that stand before one that is never committed.
char* freshPages(std::size_t size) {
  const Lock lock;
  if (live == kMostLive) return nullptr;
  if (count == 0 ||
      kArena - static_cast<std::size_t>(arenas[count - 1].next - arenas[count - 1].begin) <
          size + kPage) {
    if (count == std::size(arenas)) return nullptr;
    auto* begin = static_cast<char*>(VirtualAlloc(nullptr, kArena, MEM_RESERVE, PAGE_NOACCESS));
    if (begin == nullptr) return nullptr;
    arenas[count++] = {begin, begin};
  }
  char* const pages = arenas[count - 1].next;
  arenas[count - 1].next += size + kPage;
  ++live;
  return pages;
}

bool takeBack(const char* block) {
  const Lock lock;
  for (std::size_t i = 0; i < count; ++i) {
    if (block < arenas[i].begin || block >= arenas[i].next) continue;
    --live;
    return true;
  }
  return false;
}

struct Header {
  std::size_t pages;
};

void* allocate(std::size_t asked) noexcept {
  const std::size_t size = upTo(kAlignment, asked + (asked == 0));
  const std::size_t pages = upTo(kPage, size + sizeof(Header));
  char* const first = freshPages(pages);
  if (first == nullptr) return std::malloc(size);
  if (VirtualAlloc(first, pages, MEM_COMMIT, PAGE_READWRITE) == nullptr) return nullptr;
  std::memset(first, kUnwritten, pages);
  new (first) Header{pages};
  return first + pages - size;
}

// The header stands at the beginning of the block's first page.
void release(void* block) noexcept {
  if (!takeBack(static_cast<char*>(block))) return std::free(block);
  auto* first = reinterpret_cast<char*>(reinterpret_cast<std::uintptr_t>(block) / kPage * kPage);
  if (first == block) first -= kPage;
  VirtualFree(first, reinterpret_cast<Header*>(first)->pages, MEM_DECOMMIT);
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* const block = allocate(size)) return block;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { release(block); }
