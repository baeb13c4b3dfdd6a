#include <algorithm>
#include <cstddef>
#include <limits>

#include "MemoryRecordIterator.h"

namespace QVCommon_940 {

namespace {

// Columns of a row of the block; at most as many as leave room for the two others.
int ClampColumns(int nColumns) {
  return std::clamp(nColumns, 0, std::numeric_limits<int>::max() - 2);
}

}  // namespace

RecordIterator::~RecordIterator() = default;
MultiPassRecordIter::~MultiPassRecordIter() = default;
MemoryRecordIterator::~MemoryRecordIterator() = default;

MemoryRecordIterator::MemoryRecordIterator(int nRecords, int nColumns, const double * leading,
                                           const double * block, const double * trailing)
    : fNRecords(nRecords),
      fNColumns(ClampColumns(nColumns)),
      fLeading(leading),
      fBlock(block),
      fTrailing(trailing),
      fRow(fNColumns + (trailing != nullptr ? 2 : 1)),
      fEndState(nRecords < 1 ? 1 : 0) {
}

bool MemoryRecordIterator::HasMore() const {
  return fEndState == 0;
}

const Record * MemoryRecordIterator::Next() {
  if (fEndState != 0) return nullptr;
  if (fRow.Size() == 0) {  // there was no memory for it
    fEndState = 1;
    return nullptr;
  }
  double * cells = fRow.GetAll();
  *cells++ = fLeading[fPosition];
  cells = std::copy_n(fBlock + std::ptrdiff_t{fPosition} * fNColumns, fNColumns, cells);
  if (fTrailing != nullptr) *cells = fTrailing[fPosition];
  ++fPosition;
  if (fPosition >= fNRecords) fEndState = 1;
  return &fRow;
}

int MemoryRecordIterator::GetFailReason() const {
  return fEndState;
}

int MemoryRecordIterator::NewPass() {
  fEndState = 0;
  fPosition = 0;
  return 0;
}

}  // namespace QVCommon_940
