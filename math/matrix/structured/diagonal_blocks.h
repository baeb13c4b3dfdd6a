/// Any symmetric matrix as a row of blocks along its diagonal, read in place: a `QVSymMatrix` is
/// one dense block, a `QVDiagMatrix` one diagonal block, a `QVSymBlockDiagMatrix` what it is.
///
/// Products with a structured matrix walk its blocks and never touch the zeros between them.
#pragma once

#include <vector>

#include "QVDiagMatrix.h"
#include "QVSymBlockDiagMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/symmetric/packed_rows.h"

namespace QVMath_940 {

/// Rows start .. start + size - 1. A dense block is a packed triangle, a diagonal one `size`
/// values.
struct DiagonalBlock {
  int start;
  int size;
  bool isDiagonal;
  const double * elements;

  int End() const { return start + size; }

  /// The columns that row i stores: from FirstInRow(i) to EndOfRow(i) - 1.
  int FirstInRow(int i) const { return isDiagonal ? i : start; }
  int EndOfRow(int i) const { return isDiagonal ? i + 1 : start + size; }

  /// Element (i, j), both counted in the whole matrix and inside the block.
  double Elem(int i, int j) const {
    if (isDiagonal) return i == j ? elements[i - start] : 0.0;
    return elements[QVSymMatrix::PackedPosition(i - start, j - start)];
  }

  /// A dense block as a matrix of its own; its order decides about fusing.
  PackedView View() const { return {elements, size, size >= kernels::kFusedOrder}; }
};

class DiagonalBlocks {
 public:
  /// The blocks of s, `copies` times one after another; the whole order must be an int.
  explicit DiagonalBlocks(const IQVSymMatrix & s, int copies = 1);

  /// The order; -1 for an invalid matrix.
  int NRows() const { return fCopies * fOrder; }

  int Count() const { return fCopies * fCount; }

  /// True for one dense block of an order that fuses.
  bool IsFused() const {
    return fBlocks == nullptr && !fSingle.isDiagonal && fOrder >= kernels::kFusedOrder;
  }

  DiagonalBlock operator[](int b) const {
    return fCopies == 1 ? Own(b) : Moved(Own(b % fCount), b / fCount);
  }

  /// The block that row i stands in.
  DiagonalBlock OfRow(int i) const {
    return fCopies == 1 ? OwnOfRow(i) : Moved(OwnOfRow(i % fOrder), i / fOrder);
  }

 private:
  DiagonalBlock Own(int b) const {
    if (fBlocks == nullptr) return fSingle;
    const std::size_t place = static_cast<std::size_t>(b);
    const bool isDiagonal = fBlocks->fIsDiagonal.IsIn(b);
    const std::size_t index = static_cast<std::size_t>(fBlocks->fBlockIndices[place]);
    return {fBlocks->fStartIndices[place], fBlocks->fBlockSizes[place], isDiagonal,
            isDiagonal ? fBlocks->fDiagBlocks[index].data()
                       : fBlocks->fDenseBlocks[index].AsVector().data()};
  }
  DiagonalBlock OwnOfRow(int i) const {
    return fBlocks == nullptr ? fSingle : Own(fBlocks->fRowBlocks[static_cast<std::size_t>(i)]);
  }
  DiagonalBlock Moved(DiagonalBlock block, int copy) const {
    block.start += copy * fOrder;
    return block;
  }

  int fOrder;
  int fCopies;
  int fCount;
  DiagonalBlock fSingle{};
  const QVSymBlockDiagMatrix * fBlocks = nullptr;
};

// --- One block and a vector ---------------------------------------------------------------------
// v and out hold the whole vectors; the block reads and writes its own slice.

/// out = S v, L v, L-transpose v on the block's rows; out is not v.
void MultiplySV(const DiagonalBlock & s, const double * v, double * out);
void MultiplyLV(const DiagonalBlock & l, const double * v, double * out);
void MultiplyLTransV(const DiagonalBlock & l, const double * v, double * out);

/// out[j] += w x element (i, j) for the columns j of the block.
void AddRowOf(const DiagonalBlock & s, int i, double w, double * out);

/// The sum over the columns j = from .. to - 1 of the block's row i of element (i, j) v[j].
double DotRowOf(const DiagonalBlock & s, int i, int from, int to, const double * v);

// --- The whole matrix and a vector --------------------------------------------------------------

inline void MultiplySV(const DiagonalBlocks & s, const double * v, double * out) {
  for (int b = 0; b < s.Count(); ++b)
    MultiplySV(s[b], v, out);
}

}  // namespace QVMath_940
