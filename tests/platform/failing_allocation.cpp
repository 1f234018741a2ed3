#include "platform/failing_allocation.h"

#include <cstdlib>
#include <new>

namespace {
thread_local bool t_failing = false;
}

FailingAllocation::FailingAllocation() { t_failing = true; }
FailingAllocation::~FailingAllocation() { t_failing = false; }

// The test program's operator new: the C heap, unless allocation fails on
// this thread. The array forms and the deletes of the runtime go through
// these.
void* operator new(std::size_t size) {
  if (t_failing) throw std::bad_alloc();
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
