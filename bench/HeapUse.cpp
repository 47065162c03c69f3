#include "HeapUse.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace {

std::size_t inUse = 0;
std::size_t highest = 0;

void* Counted(void* memory) {
  if (memory == nullptr) throw std::bad_alloc();
  inUse += malloc_usable_size(memory);
  highest = std::max(highest, inUse);
  return memory;
}

void Release(void* memory) {
  if (memory != nullptr) inUse -= malloc_usable_size(memory);
  std::free(memory);
}

} // namespace

namespace strutwright {

std::size_t HeapInUse() { return inUse; }
std::size_t HighestHeapUse() { return highest; }
void ForgetHighestHeapUse() { highest = inUse; }

} // namespace strutwright

void* operator new(std::size_t size) { return Counted(std::malloc(size)); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  const auto unit = static_cast<std::size_t>(alignment);
  return Counted(std::aligned_alloc(unit, (size + unit - 1) / unit * unit));
}
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { Release(memory); }
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept { Release(memory); }
