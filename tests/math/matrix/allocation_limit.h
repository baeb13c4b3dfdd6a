/// Makes large allocations of the test program fail for a while, the library's own included:
///
///     {
///       const AllocationLimit limit(1000);   // every request above 1000 bytes throws
///       std::bad_alloc matrix.SetNRows(500, true);
///     }                                      // all is as before
///
/// A program that uses it adds allocation_limit.cpp to its sources.
#pragma once

#include <cstddef>

class AllocationLimit {
 public:
  explicit AllocationLimit(std::size_t bytes);
  ~AllocationLimit();
  AllocationLimit(const AllocationLimit &) = delete;
  AllocationLimit & operator=(const AllocationLimit &) = delete;
};
