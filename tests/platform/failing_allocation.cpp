#include "platform/failing_allocation.h"

#include <cstdlib>
#include <new>

namespace {
thread_local bool t_failing = false;
}

FailingAllocation::FailingAllocation() { t_failing = true; }
FailingAllocation::~FailingAllocation() { t_failing = false; }

// The test program's operator new: the C heap, unless allocation fails on
// this thread. Every form a library may call is given here, so that none
// of them comes from elsewhere (a sanitizer's runtime) and meets a delete
// of another heap.
void* operator new(std::size_t size) {
  if (t_failing) throw std::bad_alloc();
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return t_failing ? nullptr : std::malloc(size ? size : 1);
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
