/// Products of whole matrices on packed storage, by register tiles.
///
/// Every product here has the form A B-transpose: element (i, j) is the sum over k, in ascending
/// order from 0.0, of A(i, k) B(j, k). The factors are read where they stand; a right factor is
/// packed a panel of kTileCols rows at a time, so that no product needs more scratch than one
/// panel.
///
/// With `isFused` tiles of sums are taken by the kernels, and each addition is fused; otherwise
/// plain loops go element by element. A zero that is not stored (the other triangle of L, the other
/// blocks of a block-diagonal matrix) takes no part in a sum.
#pragma once

#include <cstddef>
#include <vector>

#include "math/kernels/kernel_table.h"
#include "math/matrix/symmetric/packed_rows.h"

namespace QVMath_940 {

/// The places k = begin .. end - 1 of a row that are stored.
struct Span {
  int begin;
  int end;
};

/// A on the left side of a product by tiles.
class LeftTiles {
 public:
  virtual ~LeftTiles() = default;

  /// Tile c of kTileRows x kTileCols: c(r, j) += sum over k = kBegin .. kEnd - 1 of
  /// A(first + r, k) panel(k - kBegin, j), fused. There are fewer than kTileRows rows only at A's
  /// end; the tile's last rows then hold anything. What PackColumns has written for these rows and
  /// this range of k is read from `packed`, unless that is null.
  virtual void AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
                       const double * packed, kernels::Rows c) const = 0;

  /// True when elements of a row lie far apart, so that it pays to read them once for many panels.
  virtual bool HasColumns() const { return false; }

  /// For `tiles` tiles of rows from `first` on, packed `tileStep` apart, and for the k at which the
  /// elements of a row lie far apart and those of kTileRows rows side by side:
  /// packed[(k - kBegin) * kTileRows + r] = A(first of the tile + r, k).
  virtual void PackColumns(int first, int tiles, int kBegin, int kEnd, double * packed,
                           std::size_t tileStep) const;
};

/// B on the right side of a product by tiles.
class RightPanels {
 public:
  virtual ~RightPanels() = default;

  /// panel[(k - kBegin) * step + j] = B(first + j, k) for j below `rows`, 0.0 for j from there to
  /// kTileCols - 1.
  virtual void PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                        std::ptrdiff_t step) const = 0;
};

/// A on the left side, for the plain loops too.
class LeftFactor : public LeftTiles {
 public:
  virtual Span StoredSpan(int i) const = 0;

  /// Copies the stored elements of row i to row[k].
  virtual void CopyRow(int i, double * row) const = 0;
};

/// B on the right side, for the plain loops too.
class RightFactor : public RightPanels {
 public:
  /// sum + the products B(j, k) v[k] for k = from .. to - 1.
  virtual double Dot(int j, int from, int to, const double * v, bool isFused, double sum) const = 0;
};

/// A symmetric matrix.
class SymmetricFactor : public LeftFactor, public RightFactor {
 public:
  explicit SymmetricFactor(const PackedView & s) : fS(s) {}
  bool HasColumns() const override { return true; }
  void PackColumns(int first, int tiles, int kBegin, int kEnd, double * packed,
                   std::size_t tileStep) const override;
  void AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
               const double * packed, kernels::Rows c) const override;
  Span StoredSpan(int) const override { return {0, fS.n}; }
  void CopyRow(int i, double * row) const override;
  void PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                std::ptrdiff_t step) const override;
  double Dot(int j, int from, int to, const double * v, bool isFused, double sum) const override;

 private:
  PackedView fS;
};

/// A matrix stored row after row: element (i, k) at start[i * stride + k - firstColumn].
class RowsFactor : public LeftFactor, public RightFactor {
 public:
  RowsFactor(const double * start, std::ptrdiff_t stride, int cols, int firstColumn = 0)
      : fStart(start), fStride(stride), fCols(cols), fFirstColumn(firstColumn) {}
  void AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
               const double * packed, kernels::Rows c) const override;
  Span StoredSpan(int) const override { return {fFirstColumn, fFirstColumn + fCols}; }
  void CopyRow(int i, double * row) const override;
  void PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                std::ptrdiff_t step) const override;
  double Dot(int j, int from, int to, const double * v, bool isFused, double sum) const override;

 private:
  const double * Place(int i, int k) const { return fStart + i * fStride + (k - fFirstColumn); }

  const double * fStart;
  std::ptrdiff_t fStride;
  int fCols;
  int fFirstColumn;
};

/// The transpose of a matrix of `rows` rows stored one after another: element (i, k) at
/// start[k * stride + i].
class ColumnsFactor : public LeftFactor, public RightFactor {
 public:
  ColumnsFactor(const double * start, std::ptrdiff_t stride, int rows)
      : fStart(start), fStride(stride), fRows(rows) {}
  bool HasColumns() const override { return true; }
  void PackColumns(int first, int tiles, int kBegin, int kEnd, double * packed,
                   std::size_t tileStep) const override;
  void AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
               const double * packed, kernels::Rows c) const override;
  Span StoredSpan(int) const override { return {0, fRows}; }
  void CopyRow(int i, double * row) const override;
  void PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                std::ptrdiff_t step) const override;
  double Dot(int j, int from, int to, const double * v, bool isFused, double sum) const override;

 private:
  const double * Place(int i, int k) const { return fStart + k * fStride + i; }

  const double * fStart;
  std::ptrdiff_t fStride;
  int fRows;
};

/// A lower triangular matrix.
class LowerFactor : public LeftFactor {
 public:
  explicit LowerFactor(const PackedView & l) : fL(l) {}
  void AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
               const double * packed, kernels::Rows c) const override;
  Span StoredSpan(int i) const override { return {0, i + 1}; }
  void CopyRow(int i, double * row) const override;

 private:
  PackedView fL;
};

/// The transpose of a block-diagonal matrix whose blocks are copies of one lower triangular matrix.
class BlockLowerTransposedFactor : public LeftFactor {
 public:
  explicit BlockLowerTransposedFactor(const PackedView & l) : fL(l) {}
  bool HasColumns() const override { return true; }
  void PackColumns(int first, int tiles, int kBegin, int kEnd, double * packed,
                   std::size_t tileStep) const override;
  void AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
               const double * packed, kernels::Rows c) const override;
  Span StoredSpan(int i) const override { return {i, BlockOf(i) + fL.n}; }
  void CopyRow(int i, double * row) const override;

 private:
  int BlockOf(int i) const { return i - i % fL.n; }

  PackedView fL;
};

/// The rows of two matrices, element by element in turn: the products A C-transpose and B
/// D-transpose become one, whose sums run over k = 0 .. 2 inner - 1 with A(i, k) C(j, k) and B(i,
/// k) D(j, k) in turn.
class PairedRows : public LeftTiles {
 public:
  PairedRows(const double * a, const double * b, std::ptrdiff_t stride, int firstColumn)
      : fA(a), fB(b), fStride(stride), fFirstColumn(firstColumn) {}
  bool HasColumns() const override { return true; }
  void PackColumns(int first, int tiles, int kBegin, int kEnd, double * packed,
                   std::size_t tileStep) const override;
  void AddRows(int first, int rows, int kBegin, int kEnd, const double * panel,
               const double * packed, kernels::Rows c) const override;

 private:
  const double * fA;
  const double * fB;
  std::ptrdiff_t fStride;
  int fFirstColumn;
};

class PairedSymmetric : public RightPanels {
 public:
  PairedSymmetric(const PackedView & c, const PackedView & d) : fC(c), fD(d) {}
  void PackRows(int first, int rows, int kBegin, int kEnd, double * panel,
                std::ptrdiff_t step) const override;

 private:
  PackedView fC;
  PackedView fD;
};

/// out(i, j) += the sums over k = kBegin .. kEnd - 1, for `rows` rows i from firstRow on and the
/// columns j = firstCol .. firstCol + cols - 1, element (firstRow, firstCol) being out's first and
/// its rows `cols` long. Fused, by tiles.
void AddTilesToRows(const LeftTiles & a, int firstRow, int rows, const RightPanels & b,
                    int firstCol, int cols, int kBegin, int kEnd, double * out);

/// The same for the packed lower triangle of order n.
void AddTilesToTriangle(const LeftTiles & a, const RightPanels & b, int n, int kBegin, int kEnd,
                        double * out);

/// out += A B-transpose of `rows` x `cols` elements, row after row, `inner` products a sum. Each
/// sum goes on from the element as it stands, which is 0.0 unless another product came before.
void MultiplyToRows(const LeftFactor & a, int rows, const RightFactor & b, int cols, int inner,
                    bool isFused, double * out);

/// The same for the packed lower triangle of order n of A B-transpose.
void MultiplyToTriangle(const LeftFactor & a, const RightFactor & b, int n, int inner, bool isFused,
                        double * out);

/// out += the packed lower triangle of A S A-transpose, of order n: with T = A S, element (i, j) is
/// the sum over k of T(i, k) A(j, k), `left` and `right` both being A. S decides about fusing.
void MultiplyBothSides(const LeftFactor & left, const RightFactor & right, int n,
                       const PackedView & s, double * out);

/// The same where A is known as a left factor alone: element (i, j) is the sum over k of A(i, k)
/// T(j, k).
void MultiplyBothSides(const LeftFactor & left, int n, const PackedView & s, double * out);

/// out += the packed lower triangle of M G N + N G M: the sum over k, in turn, of (M G)(i, k) N(k,
/// j) and (N G)(i, k) M(k, j). A factor on the left that is 0.0 takes no part. G decides about
/// fusing.
void MultiplyBetween(const PackedView & m, const PackedView & g, const PackedView & n,
                     double * out);

}  // namespace QVMath_940
