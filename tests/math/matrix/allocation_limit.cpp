#include "math/matrix/allocation_limit.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::size_t gLimit = SIZE_MAX;

void * Allocate(std::size_t bytes) noexcept {
  return bytes > gLimit ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
}

}  // namespace

AllocationLimit::AllocationLimit(std::size_t bytes) {
  gLimit = bytes;
}

AllocationLimit::~AllocationLimit() {
  gLimit = SIZE_MAX;
}

void * operator new(std::size_t bytes) {
  if (void * memory = Allocate(bytes)) return memory;
  throw std::bad_alloc();
}

void * operator new(std::size_t bytes, const std::nothrow_t &) noexcept {
  return Allocate(bytes);
}

void * operator new[](std::size_t bytes) {
  return operator new(bytes);
}

void * operator new[](std::size_t bytes, const std::nothrow_t &) noexcept {
  return Allocate(bytes);
}

void operator delete(void * memory) noexcept {
  std::free(memory);
}

void operator delete(void * memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete(void * memory, const std::nothrow_t &) noexcept {
  std::free(memory);
}

void operator delete[](void * memory) noexcept {
  std::free(memory);
}

void operator delete[](void * memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete[](void * memory, const std::nothrow_t &) noexcept {
  std::free(memory);
}
