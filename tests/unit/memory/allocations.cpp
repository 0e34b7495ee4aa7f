#include "allocations.h"

#include "support/in_seam.h"

#include <malloc.h>

#include <cstdlib>
#include <new>

namespace corvid {
namespace {

Allocations::Live current;
int left = 0;  // allocations up to the one that fails; 0: none does
bool hasFailed = false;

bool failsNow() {
  if (left == 0 || InSeam::depth > 0 || --left != 0) return false;
  return hasFailed = true;
}

void* allocate(std::size_t size) noexcept {
  void* const block = failsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) return nullptr;
  ++current.blocks;
  current.bytes += static_cast<std::ptrdiff_t>(malloc_usable_size(block));
  return block;
}

void* allocateOrThrow(std::size_t size) {
  void* const block = allocate(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void release(void* block) noexcept {
  if (block == nullptr) return;
  --current.blocks;
  current.bytes -= static_cast<std::ptrdiff_t>(malloc_usable_size(block));
  std::free(block);
}

}  // namespace

Allocations::Live Allocations::live() { return current; }

void Allocations::failNth(int nth) {
  left = nth;
  hasFailed = false;
}

bool Allocations::repair() {
  left = 0;
  return hasFailed;
}

}  // namespace corvid

void* operator new(std::size_t size) { return corvid::allocateOrThrow(size); }
void* operator new[](std::size_t size) { return corvid::allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return corvid::allocate(size);
}
void operator delete(void* block) noexcept { corvid::release(block); }
void operator delete[](void* block) noexcept { corvid::release(block); }
void operator delete(void* block, std::size_t) noexcept { corvid::release(block); }
void operator delete[](void* block, std::size_t) noexcept { corvid::release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { corvid::release(block); }
