// The program's allocation functions are replaced here, outside any namespace.
#include "tests/cli/failing_allocation.h"

#include <cstdlib>
#include <new>

thread_local long allocations_left = -1;

void *operator new(std::size_t size) {
  if (allocations_left == 0) {
    allocations_left = -1;
    throw std::bad_alloc();
  }
  if (allocations_left > 0) --allocations_left;
  if (void *memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
// Callers that can do without memory (std::stable_sort) ask here; what they get must fit the delete below.
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return std::malloc(size == 0 ? 1 : size); }
void operator delete(void *memory) noexcept { std::free(memory); }
void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }
