// Memory of Windows test programs, where no address sanitizer is to be had: each block of operator
// new ends at a page that nobody may touch, and its pages are never used again.
#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kAlignment = 16;
constexpr std::size_t kArena = std::size_t{1} << 34;  // address space alone
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

// Pages that stand before one that is never committed.
char* freshPages(std::size_t size) {
  static char* next = nullptr;
  static char* end = nullptr;
  const Lock lock;
  if (static_cast<std::size_t>(end - next) < size + kPage) {
    next = static_cast<char*>(VirtualAlloc(nullptr, kArena, MEM_RESERVE, PAGE_NOACCESS));
    end = next == nullptr ? nullptr : next + kArena;
    if (next == nullptr) return nullptr;
  }
  char* const pages = next;
  next += size + kPage;
  return pages;
}

struct Header {
  std::size_t pages;
};

void* allocate(std::size_t asked) noexcept {
  const std::size_t size = upTo(kAlignment, asked + (asked == 0));
  const std::size_t pages = upTo(kPage, size + sizeof(Header));
  char* const first = freshPages(pages);
  if (first == nullptr) return nullptr;
  if (VirtualAlloc(first, pages, MEM_COMMIT, PAGE_READWRITE) == nullptr) return nullptr;
  std::memset(first, kUnwritten, pages);
  new (first) Header{pages};
  return first + pages - size;
}

// The header stands at the beginning of the block's first page.
void release(void* block) noexcept {
  if (block == nullptr) return;
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
