// Allocation that fails on demand, as when memory runs out: while a
// FailingAllocation lives, every operator new on its thread throws
// std::bad_alloc. The test program's own operator new makes this so.
#pragma once

class FailingAllocation {
 public:
  FailingAllocation();
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
};
