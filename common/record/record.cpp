#include "Record.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

namespace QVCommon_940 {

namespace {

constexpr int kDefaultSize = 2;

// n uninitialised cells, or null without memory.
double * TryAllocate(int n) {
  return new (std::nothrow) double[static_cast<std::size_t>(n)];
}

}  // namespace

Record::Record() : Record(kDefaultSize) {
}

Record::Record(int n) {
  if (n < 0) n = 1;
  fCells = TryAllocate(n);
  if (fCells == nullptr) return;
  std::fill_n(fCells, n, 0.0);
  fSize = n;
}

Record::Record(const Record & other) {
  if (other.fSize < 1) return;
  fCells = TryAllocate(other.fSize);
  if (fCells == nullptr) return;
  std::copy_n(other.fCells, other.fSize, fCells);
  fSize = other.fSize;
}

Record & Record::operator=(const Record & other) {
  if (this == &other) return *this;
  if (!Resize(other.fSize)) throw std::bad_alloc();
  std::copy_n(other.fCells, other.fSize, fCells);
  return *this;
}

Record::~Record() {
  delete[] fCells;
}

bool Record::Resize(int n) {
  if (n == fSize) return true;
  n = std::max(n, 0);
  double * cells = TryAllocate(n);
  if (cells == nullptr) return false;
  delete[] fCells;
  fCells = cells;
  fSize = n;
  return true;
}

}  // namespace QVCommon_940
