#include "RawRecord.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

namespace QVCommon_940 {

namespace {

constexpr int kDefaultSize = 2;

// n default fields, or null without memory.
RawData * TryAllocate(int n) {
  return new (std::nothrow) RawData[static_cast<std::size_t>(n)];
}

}  // namespace

RawRecord::RawRecord() : RawRecord(kDefaultSize) {
}

RawRecord::RawRecord(int n) {
  if (n < 0) n = 1;
  fFields = TryAllocate(n);
  if (fFields != nullptr) fSize = n;
}

RawRecord::RawRecord(const RawRecord & other) {
  if (other.fSize < 1) return;
  std::unique_ptr<RawData[]> fields(TryAllocate(other.fSize));
  if (fields == nullptr) return;
  try {
    std::copy_n(other.fFields, other.fSize, fields.get());
  } catch (const std::bad_alloc &) {  // for a text
    return;
  }
  fFields = fields.release();
  fSize = other.fSize;
}

RawRecord & RawRecord::operator=(const RawRecord & other) {
  if (this == &other) return *this;
  if (other.fSize == fSize) {
    std::copy_n(other.fFields, fSize, fFields);
    return *this;
  }
  std::unique_ptr<RawData[]> fields(TryAllocate(other.fSize));
  if (fields == nullptr) throw std::bad_alloc();
  std::copy_n(other.fFields, other.fSize, fields.get());
  delete[] fFields;
  fFields = fields.release();
  fSize = other.fSize;
  return *this;
}

RawRecord::~RawRecord() {
  delete[] fFields;
}

bool RawRecord::Resize(int n) {
  if (n == fSize) return true;
  n = std::max(n, 0);
  RawData * fields = TryAllocate(n);
  if (fields == nullptr) return false;
  delete[] fFields;
  fFields = fields;
  fSize = n;
  return true;
}

}  // namespace QVCommon_940
