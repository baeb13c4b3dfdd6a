// The blocks of the block-diagonal symmetric matrix: construction, structure, copies.
#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include "QVSymBlockDiagMatrix.h"
#include "math/matrix/structured/class_casts.h"

namespace QVMath_940 {

namespace {

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

// Runs a step that allocates; false when the storage could not be had.
template <class Step>
bool Allocates(Step step) {
  try {
    return step();
  } catch (const std::bad_alloc &) {
  } catch (const std::length_error &) {  // more elements than any vector can hold
  }
  return false;
}

}  // namespace

// --- Construction -------------------------------------------------------------------------------

QVSymBlockDiagMatrix::QVSymBlockDiagMatrix() = default;

QVSymBlockDiagMatrix::QVSymBlockDiagMatrix(const std::vector<IQVSymMatrix *> & blocks) {
  std::size_t dense = 0;
  std::size_t diagonal = 0;
  for (const IQVSymMatrix * block : blocks) {
    if (block == nullptr) continue;
    const QVSymBlockDiagMatrix * const several = AsBlockDiagonal(*block);
    dense += several != nullptr ? several->fDenseBlocks.size() : AsDiagonal(*block) == nullptr;
    diagonal += several != nullptr ? several->fDiagBlocks.size() : AsDiagonal(*block) != nullptr;
  }
  const bool isReserved = Allocates([&] {
    fDenseBlocks.reserve(dense);
    fDiagBlocks.reserve(diagonal);
    return true;
  });
  if (!isReserved) {
    Fail();
    return;
  }
  for (const IQVSymMatrix * block : blocks) {
    if (block == nullptr || block->GetNRows() < 1) continue;
    if (AddBlock(*block) < 0) {
      Fail();
      return;
    }
  }
}

QVSymBlockDiagMatrix::QVSymBlockDiagMatrix(const std::vector<int> & sizes,
                                           const QVBitSet & diagonal) {
  SetStructure(sizes, diagonal);
}

QVSymBlockDiagMatrix::QVSymBlockDiagMatrix(const QVSymBlockDiagMatrix & other)
    : IQVSymMatrix(other) {
  *this = other;
}

QVSymBlockDiagMatrix & QVSymBlockDiagMatrix::operator=(const QVSymBlockDiagMatrix & other) {
  if (this == &other) return *this;
  const bool isCopied = Allocates([&] {
    fDenseBlocks = other.fDenseBlocks;
    fDiagBlocks = other.fDiagBlocks;
    fBlockSizes = other.fBlockSizes;
    fIsDiagonal = other.fIsDiagonal;
    fStartIndices = other.fStartIndices;
    fBlockIndices = other.fBlockIndices;
    fRowBlocks = other.fRowBlocks;
    fNRows = other.fNRows;
    fNBlocks = other.fNBlocks;
    return std::all_of(fDenseBlocks.begin(), fDenseBlocks.end(),
                       [](const QVSymMatrix & block) { return block.IsValidMatrix(); });
  });
  if (!isCopied) Fail();
  return *this;
}

QVSymBlockDiagMatrix::~QVSymBlockDiagMatrix() = default;

void QVSymBlockDiagMatrix::Swap(QVSymBlockDiagMatrix & other) noexcept {
  std::swap(fNRows, other.fNRows);
  std::swap(fNBlocks, other.fNBlocks);
  fDenseBlocks.swap(other.fDenseBlocks);
  fDiagBlocks.swap(other.fDiagBlocks);
  fBlockSizes.swap(other.fBlockSizes);
  std::swap(fIsDiagonal, other.fIsDiagonal);
  fStartIndices.swap(other.fStartIndices);
  fBlockIndices.swap(other.fBlockIndices);
  fRowBlocks.swap(other.fRowBlocks);
}

/// The state of a matrix whose storage could not be obtained.
void QVSymBlockDiagMatrix::Fail() {
  ClearAll();
  fNRows = -1;
  fNBlocks = -1;
}

void QVSymBlockDiagMatrix::ClearAll() {
  KeepBlocks(0);
}

/// Drops the blocks from number `blocks` on.
void QVSymBlockDiagMatrix::KeepBlocks(int blocks) {
  const std::size_t kept = At(blocks);
  std::size_t dense = 0;
  for (std::size_t b = 0; b < kept; ++b)
    dense += !fIsDiagonal.IsIn(static_cast<int>(b));
  fDenseBlocks.resize(dense);
  fDiagBlocks.resize(kept - dense);
  fBlockSizes.resize(kept);
  fBlockIndices.resize(kept);
  if (fIsDiagonal.Size() > blocks) fIsDiagonal = fIsDiagonal.GetSubset(0, blocks - 1);
  fStartIndices.resize(kept + 1);
  fNBlocks = blocks;
  fNRows = fStartIndices.back();
  fRowBlocks.resize(At(fNRows));
}

// --- Kind, order --------------------------------------------------------------------------------

SymMatrixType QVSymBlockDiagMatrix::GetType() const {
  return SymMatrixBlockDiagonal;
}

int QVSymBlockDiagMatrix::GetNRows() const {
  return fNRows;
}

bool QVSymBlockDiagMatrix::IsValidMatrix() const {
  return fNRows >= 0;
}

bool QVSymBlockDiagMatrix::Resize(int n) {
  QVSymMatrix block(n, true);
  const int kept = std::min(std::max(n, 0), fNRows);
  for (int i = 0; i < kept && block.IsValidMatrix(); ++i)
    for (int j = GetIndexFirstInRow(i); j <= i; ++j)
      block.SetElem(i, j, GetElem(i, j));
  ClearAll();
  if (n < 1) return true;
  if (block.IsValidMatrix() && AppendBlock(block)) return true;
  Fail();
  return false;
}

bool QVSymBlockDiagMatrix::SetNRows(int n, bool zero) {
  if (!Resize(n)) return false;
  if (zero) Clear();
  return true;
}

// --- Structure ----------------------------------------------------------------------------------

bool QVSymBlockDiagMatrix::SetStructure(const std::vector<int> & sizes, const QVBitSet & diagonal) {
  // The arguments may be members of this matrix: they are read before it changes.
  QVSymBlockDiagMatrix made;
  const int blocks = diagonal.Size();
  const bool isMade = sizes.size() >= At(blocks) && Allocates([&] {
                        const int diagonals = diagonal.InSet();
                        made.fDenseBlocks.resize(At(blocks - diagonals));
                        made.fDiagBlocks.resize(At(diagonals));
                        made.fBlockSizes.reserve(At(blocks));
                        made.fBlockIndices.reserve(At(blocks));
                        made.fStartIndices.reserve(At(blocks) + 1);
                        made.fIsDiagonal = diagonal;
                        int dense = 0;
                        int diag = 0;
                        for (int b = 0; b < blocks; ++b) {
                          const int size = std::max(sizes[At(b)], 0);
                          if (size > std::numeric_limits<int>::max() - made.fNRows) return false;
                          if (diagonal.IsIn(b)) {
                            made.fDiagBlocks[At(diag)].assign(At(size), 0.0);
                            made.fBlockIndices.push_back(diag++);
                          } else {
                            if (!made.fDenseBlocks[At(dense)].SetNRows(size, true)) return false;
                            made.fBlockIndices.push_back(dense++);
                          }
                          made.fBlockSizes.push_back(size);
                          made.fNRows += size;
                          made.fStartIndices.push_back(made.fNRows);
                        }
                        made.fNBlocks = blocks;
                        made.SetBlockIndicesForRow();
                        return true;
                      });
  if (isMade) {
    Swap(made);
  } else {
    Fail();
  }
  return isMade;
}

/// Brings the block number of each row up to date: rows that have one keep it.
void QVSymBlockDiagMatrix::SetBlockIndicesForRow() {
  int b = fRowBlocks.empty() ? 0 : fRowBlocks.back() + 1;
  for (; b < fNBlocks; ++b)
    fRowBlocks.insert(fRowBlocks.end(), At(fBlockSizes[At(b)]), b);
}

bool QVSymBlockDiagMatrix::CopyStructure(QVSymBlockDiagMatrix & target) const {
  if (!IsValidMatrix()) return false;
  return target.SetStructure(fBlockSizes, fIsDiagonal);
}

bool QVSymBlockDiagMatrix::IsSameStructure(const IQVSymMatrix & other) const {
  const QVSymBlockDiagMatrix * const blocks = AsBlockDiagonal(other);
  return blocks != nullptr && blocks->fNRows == fNRows && blocks->fNBlocks == fNBlocks &&
         blocks->fBlockSizes == fBlockSizes && blocks->fIsDiagonal == fIsDiagonal;
}

// --- Blocks -------------------------------------------------------------------------------------

int QVSymBlockDiagMatrix::GetNDenseBlocks() const {
  return static_cast<int>(fDenseBlocks.size());
}

int QVSymBlockDiagMatrix::GetNDiagBlocks() const {
  return static_cast<int>(fDiagBlocks.size());
}

int QVSymBlockDiagMatrix::GetBlockSize(int b) const {
  return IsBlock(b) ? fBlockSizes[At(b)] : -1;
}

int QVSymBlockDiagMatrix::GetBlockStartIndex(int b) const {
  return IsBlock(b) ? fStartIndices[At(b)] : -1;
}

bool QVSymBlockDiagMatrix::GetIsBlockDiagonal(int b) const {
  return IsBlock(b) && fIsDiagonal.IsIn(b);
}

bool QVSymBlockDiagMatrix::GetDenseBlock(int b, const QVSymMatrix *& out) const {
  if (!IsBlock(b) || fIsDiagonal.IsIn(b)) return false;
  out = &fDenseBlocks[At(fBlockIndices[At(b)])];
  return true;
}

bool QVSymBlockDiagMatrix::GetDenseBlock(int b, QVSymMatrix *& out) {
  if (!IsBlock(b) || fIsDiagonal.IsIn(b)) return false;
  out = &fDenseBlocks[At(fBlockIndices[At(b)])];
  return true;
}

bool QVSymBlockDiagMatrix::GetDiagonalBlock(int b, const std::vector<double> *& out) const {
  if (!GetIsBlockDiagonal(b)) return false;
  out = &fDiagBlocks[At(fBlockIndices[At(b)])];
  return true;
}

bool QVSymBlockDiagMatrix::GetDiagonalBlock(int b, std::vector<double> *& out) {
  if (!GetIsBlockDiagonal(b)) return false;
  out = &fDiagBlocks[At(fBlockIndices[At(b)])];
  return true;
}

/// Enters a block whose elements stand at `place` of their kind. May throw std::bad_alloc.
bool QVSymBlockDiagMatrix::FinishAppend(int size, bool isDiagonal, int place) {
  fBlockSizes.push_back(size);
  fBlockIndices.push_back(place);
  fStartIndices.push_back(fNRows + size);
  ++fNBlocks;
  SetBlockIndicesForRow();
  fIsDiagonal.Append(isDiagonal);
  fNRows += size;
  return true;
}

bool QVSymBlockDiagMatrix::AppendBlock(const QVSymMatrix & block) {
  if (block.GetNRows() > std::numeric_limits<int>::max() - fNRows) return false;
  const int before = fNBlocks;
  const bool isAppended = Allocates([&] {
    fDenseBlocks.push_back(block);
    return fDenseBlocks.back().IsValidMatrix() &&
           FinishAppend(block.GetNRows(), false, GetNDenseBlocks() - 1);
  });
  if (!isAppended) KeepBlocks(before);
  return isAppended;
}

bool QVSymBlockDiagMatrix::AppendBlock(const std::vector<double> & diagonal) {
  if (diagonal.size() > At(std::numeric_limits<int>::max() - fNRows)) return false;
  const int before = fNBlocks;
  const bool isAppended = Allocates([&] {
    fDiagBlocks.push_back(diagonal);
    return FinishAppend(static_cast<int>(diagonal.size()), true, GetNDiagBlocks() - 1);
  });
  if (!isAppended) KeepBlocks(before);
  return isAppended;
}

int QVSymBlockDiagMatrix::AddBlock(const IQVSymMatrix & block) {
  if (!IsValidMatrix() || block.GetNRows() < 1) return -1;
  if (&block == this) {
    const QVSymBlockDiagMatrix copy(*this);
    return copy.IsValidMatrix() ? AddBlock(copy) : -1;
  }
  if (const QVSymBlockDiagMatrix * blocks = AsBlockDiagonal(block)) {
    const int before = fNBlocks;
    for (int b = 0; b < blocks->fNBlocks; ++b) {
      const std::size_t place = At(blocks->fBlockIndices[At(b)]);
      const bool isAppended = blocks->fIsDiagonal.IsIn(b)
                                  ? AppendBlock(blocks->fDiagBlocks[place])
                                  : AppendBlock(blocks->fDenseBlocks[place]);
      if (isAppended) continue;
      KeepBlocks(before);
      return -1;
    }
    return fNBlocks;
  }
  if (const QVDiagMatrix * diagonal = AsDiagonal(block)) return AddBlock(diagonal->AsVector());
  // A dense block of this matrix would move while it is copied.
  const QVSymMatrix copy(static_cast<const QVSymMatrix &>(block));
  return copy.IsValidMatrix() && AppendBlock(copy) ? fNBlocks : -1;
}

int QVSymBlockDiagMatrix::AddBlock(const std::vector<double> & diagonal) {
  if (!IsValidMatrix() || diagonal.empty()) return -1;
  std::vector<double> copy;  // `diagonal` may be a block of this matrix
  if (!QVSymMatrix::ResizeNCopy(copy, diagonal)) return -1;
  return AppendBlock(copy) ? fNBlocks : -1;
}

bool QVSymBlockDiagMatrix::ReplaceBlock(int b, const IQVSymMatrix & block) {
  if (const QVDiagMatrix * diagonal = AsDiagonal(block))
    return ReplaceBlock(b, diagonal->AsVector());
  QVSymMatrix * dense = nullptr;
  if (block.GetType() != SymMatrixDense || block.GetNRows() < 1 || !GetDenseBlock(b, dense) ||
      dense->GetNRows() != block.GetNRows())
    return false;
  const std::vector<double> & from = static_cast<const QVSymMatrix &>(block).AsVector();
  if (dense != &block) std::copy(from.begin(), from.end(), dense->AsVector().begin());
  return true;
}

bool QVSymBlockDiagMatrix::ReplaceBlock(int b, const std::vector<double> & diagonal) {
  std::vector<double> * block = nullptr;
  if (diagonal.empty() || !GetDiagonalBlock(b, block) || block->size() != diagonal.size())
    return false;
  if (block != &diagonal) std::copy(diagonal.begin(), diagonal.end(), block->begin());
  return true;
}

bool QVSymBlockDiagMatrix::FillDenseMatrix(QVSymMatrix & out) const {
  if (!IsValidMatrix()) return false;
  if (!out.SetNRows(fNRows, true)) return false;
  for (int i = 0; i < fNRows; ++i)
    for (int j = GetIndexFirstInRow(i); j <= i; ++j)
      out.SetElem(i, j, GetElem(i, j));
  return true;
}

}  // namespace QVMath_940
