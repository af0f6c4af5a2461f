// Takes the place of the allocator behind `new` in a process that preloads it, and lets the
// allocations from the n-th on fail.
#include <cstdlib>
#include <new>

namespace {
long left = -1;  // how many more succeed; below zero, all
}  // namespace

extern "C" void fail_new_from(long n) { left = n; }

void* operator new(std::size_t size) {
  if (left == 0) throw std::bad_alloc();
  if (left > 0) --left;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
