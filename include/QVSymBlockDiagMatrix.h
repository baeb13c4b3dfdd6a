/// The block-diagonal symmetric matrix: square blocks one after another along the diagonal, each
/// dense or itself diagonal, and 0.0 everywhere else.
///
/// It is an `IQVSymMatrix` whose operations work block by block, so that many small blocks cost far
/// less, in memory and in time, than one packed triangle.
///
///     QVMath_940::QVSymBlockDiagMatrix covariance;
///     covariance.AddBlock(subject1);                       // a QVSymMatrix of order 3: rows 0 to
///     2 covariance.AddBlock(std::vector<double>{0.5, 0.5});  // a diagonal block: rows 3 and 4
///     covariance.GetElem(4, 4);                            // 0.5
///     covariance.SetElem(4, 1, 1.0);                       // false: nothing is stored there
///
/// The blocks lie without a gap: block b holds rows GetBlockStartIndex(b) to
/// GetBlockStartIndex(b + 1) - 1, dense ones as packed triangles, diagonal ones as vectors. An
/// element outside the blocks, and one off the diagonal of a diagonal block, is a structural zero:
/// it reads 0.0 and cannot be stored.
///
/// Guarantees.
/// Errors are results, as in `QVSymMatrix`: false, -1, 0.0 or the missing value, and nothing
/// changes. Storage that cannot be obtained makes the matrix invalid: both counts become -1 and
/// there are no blocks. Missing values are numbers like every other.
/// The matrix owns its blocks by value; copies are deep. A target may be this matrix or an operand.
/// Different objects may be used from different threads, one object from one thread at a time.
#pragma once

#include <cstddef>
#include <vector>

#include "IQVSymMatrix.h"
#include "QVBitSet.h"
#include "QVExport.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

class DiagonalBlocks;
class QVDiagMatrix;
class QVRectMatrix;

class QVCOMMON_API QVSymBlockDiagMatrix : public IQVSymMatrix {
 public:
  // === Construction and structure ===============================================================

  /// 0 rows, 0 blocks.
  QVSymBlockDiagMatrix();

  /// A copy of each matrix as a block, in the given order. A block-diagonal matrix gives each of
  /// its blocks, so that it is flattened; null pointers and matrices without rows are passed over.
  /// The pointers are not owned.
  QVSymBlockDiagMatrix(const std::vector<IQVSymMatrix *> & blocks);

  /// `SetStructure`.
  QVSymBlockDiagMatrix(const std::vector<int> & sizes, const QVBitSet & diagonal);

  /// Deep copies; a copy whose storage cannot be obtained is invalid.
  QVSymBlockDiagMatrix(const QVSymBlockDiagMatrix & other);
  QVSymBlockDiagMatrix & operator=(const QVSymBlockDiagMatrix & other);

  ~QVSymBlockDiagMatrix() override;

  /// `SymMatrixBlockDiagonal`.
  SymMatrixType GetType() const override;

  /// The whole order, the sum of the block sizes; -1 for an invalid matrix.
  int GetNRows() const override;

  /// Number of blocks; -1 for an invalid matrix.
  int GetNBlocks() const { return fNBlocks; }

  /// True when the number of rows is not negative.
  bool IsValidMatrix() const override;

  /// Drops all blocks and makes as many zero-filled ones as `diagonal` has bits: block b has
  /// sizes[b] rows (a negative size counts as 0) and is diagonal when bit b is set. False, and an
  /// invalid matrix, when there are fewer sizes than bits or the storage could not be obtained.
  bool SetStructure(const std::vector<int> & sizes, const QVBitSet & diagonal);

  /// target.SetStructure with the sizes and kinds of this matrix.
  bool CopyStructure(QVSymBlockDiagMatrix & target) const;

  /// True when `other` is block-diagonal with the same size and kind at each block.
  bool IsSameStructure(const IQVSymMatrix & other) const;

  /// Drops all blocks and the structure: 0 rows. (`Clear` keeps them and sets the values to 0.0.)
  void ClearAll();

  /// One dense block of order n; 0 or a negative n leaves no blocks. The leading rows keep their
  /// values and the structure is gone. False when the storage could not be obtained.
  bool Resize(int n) override;

  /// As `Resize`; with `zero` true all elements become 0.0.
  bool SetNRows(int n, bool zero) override;

  // === Blocks ===================================================================================

  /// Size of each block, and the number of the block that each row stands in.
  const std::vector<int> & GetBlockSizes() const { return fBlockSizes; }
  const std::vector<int> & GetBlockIndexForRow() const { return fRowBlocks; }

  /// Number of dense and of diagonal blocks.
  int GetNDenseBlocks() const;
  int GetNDiagBlocks() const;

  /// Size and first row of block b; -1 for a bad b.
  int GetBlockSize(int b) const;
  int GetBlockStartIndex(int b) const;

  /// True for a diagonal block; false for a dense one and for a bad b.
  bool GetIsBlockDiagonal(int b) const;

  /// Points `out` to block b inside this matrix; false for a bad b and a block of the other kind.
  /// Change its elements, not its size; the pointer lives until the structure changes.
  bool GetDenseBlock(int b, QVSymMatrix *& out);
  bool GetDenseBlock(int b, const QVSymMatrix *& out) const;
  bool GetDiagonalBlock(int b, std::vector<double> *& out);
  bool GetDiagonalBlock(int b, const std::vector<double> *& out) const;

  /// Append a copy behind the last block: a dense matrix as one dense block, a `QVDiagMatrix` and a
  /// vector as one diagonal block, a block-diagonal matrix block by block. The result is the new
  /// number of blocks; -1, and nothing changed, for a matrix with fewer than 1 row, an empty
  /// vector, and when the storage could not be obtained.
  int AddBlock(const IQVSymMatrix & block);
  int AddBlock(const std::vector<double> & diagonal);

  /// Copy over block b. False for a bad b, for an argument without rows and for one of another kind
  /// or size than block b: a dense matrix for a dense block, a `QVDiagMatrix` or a vector for a
  /// diagonal one.
  bool ReplaceBlock(int b, const IQVSymMatrix & block);
  bool ReplaceBlock(int b, const std::vector<double> & diagonal);

  /// `out` = the full matrix, zeros included. False when its storage could not be obtained or this
  /// matrix is not valid.
  bool FillDenseMatrix(QVSymMatrix & out) const;

  // === Elements and rows ========================================================================

  /// Element (i, j), 0.0 outside the blocks. No bounds test.
  double GetElem(int i, int j) const override;

  /// Stores element (i, j); false, with nothing stored, on a structural zero, whatever the value.
  /// No bounds test.
  bool SetElem(int i, int j, double value) override;

  void GetDiagonal(std::vector<double> & diagonal) const override;

  /// The full row, zeros included.
  bool GetRow(int k, std::vector<double> & row) const override;

  /// Store row and column k as far as they are stored; what `row` holds for the structural zeros is
  /// passed over. False for a bad k and for a row shorter than n.
  bool PutRow(int k, const std::vector<double> & row) override;
  bool SetRowColToConst(int k, double value) override;
  bool ZeroOut(int k) override;

  bool IsZeroRow(int k, const QVBitSet & columns) const override;
  bool IncrVecByRow(int k, std::vector<double> & v, int start, int len, double w,
                    bool check) const override;

  // === The whole matrix =========================================================================

  /// Sets all elements to 0.0; the structure stays.
  void Clear() override;
  void ChangeSign() override;
  void MultiplyByNumber(double value) override;
  void AddToDiagonal(double value) override;
  double Trace() const override;
  void MaxMinDiag(double & max, double & min) const override;

  /// As in the dense class, but the off-diagonal pair looks inside the blocks alone: a diagonal
  /// block of two or more rows counts with its zeros, the zeros between the blocks do not.
  void MaxMinDiagOffDiag(double & maxDiag, double & minDiag, double & maxOff,
                         double & minOff) const override;

  /// By each block's own rule: for a dense block its largest diagonal element, floored at 0.0, in
  /// every place; for a diagonal one its elements with those below `threshold` replaced.
  void GetNCheckDiagonal(std::vector<double> & diagonal, double threshold,
                         double replacement) const override;

  /// As in the dense class, in each block.
  void ZeroOutNonDiag(double fraction) override;

  // === Parts of the matrix ======================================================================
  // The target may be dense or block-diagonal; another one is refused. A block-diagonal one gets a
  // block for each block here that rows are taken from, of the same kind.

  void ExtractFirstNRows(IQVSymMatrix & out) const override;
  bool ExtractSubmatrix(const std::vector<int> & rows, IQVSymMatrix & out) const override;

  // === Cholesky =================================================================================
  // Each block by itself: dense blocks as `QVSymMatrix`, the factor of a diagonal block being the
  // root of each element. Arguments, tolerances and results as in the dense class, with the whole
  // matrix's reference diagonal.

  int LTChol(const std::vector<double> & ref, double tol, bool check) override;
  int LTChol(const std::vector<double> & ref, double tol, QVBitSet & accepted, bool check) override;

  /// The reference is `GetNCheckDiagonal(d, tol, 1.0)` of the whole matrix, block by block.
  int LTChol(double tol, double & minDiag, bool check) override;

  /// The determinant over all blocks; 1 / element in a diagonal block, where a zero stays 0.0.
  int LTDetInverse(double * const det, int job) override;

  /// In a dense block from L to the inverse of L L-transpose. Beware: in a diagonal block 1 /
  /// element, as in `QVDiagMatrix`, which is not the inverse of the matrix that was factored.
  bool LTInverse() override;

  void LTLLTrans() override;
  void LTLTransL() override;

  /// Solves S x = b; on exit this matrix holds the factor of S.
  int LTSolve(const std::vector<double> & b, double tol, std::vector<double> & x) override;

  /// The inverse of this matrix, also in its diagonal blocks: 1 over the original element. `out`
  /// may be block-diagonal, which takes the structure, or dense; -1 for another class.
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out) const override;
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                  QVBitSet & accepted) const override;
  int CholInverse(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                  double & minDiag) const override;

  bool ComputeDeterminant(double tol, double * const det) const override;

  // === Products with vectors ====================================================================
  // Meanings, sizes and refusals as in the dense class; each block multiplies its own slice.

  bool ComputeSV(const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeSV(int k, const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeLV(const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeLV(const std::vector<int> & rows, const std::vector<double> & v,
                 std::vector<double> & out) const override;
  bool ComputeLTransV(const std::vector<double> & v, std::vector<double> & out) const override;
  bool ComputeLTransV(const std::vector<int> & rows, const std::vector<double> & v,
                      std::vector<double> & out) const override;
  double ComputeRVD(int i, const double * v, int stride) const override;
  double ComputeRVD(int i, const std::vector<double> & v, int stride) const override;

  // === Quadratic forms ==========================================================================

  double ComputeVSV(const std::vector<double> & v) const override;
  double ComputeVSV(const IQVRectMatrix & r, int k) const override;
  double ComputeVSW(const std::vector<double> & v, const std::vector<double> & w) const override;
  double ComputeVSW(const double * v, int strideV, const double * w, int strideW) const override;
  double ComputeVSW(const std::vector<double> & v, int m, int r, int c) const override;
  double ComputeVSWParts(const double * v, int nv, const double * w, int nw) const override;
  double ComputeVSWParts(const std::vector<double> & v, int nv, const std::vector<double> & w,
                         int nw) const override;

  // === Products with symmetric matrices =========================================================

  /// Dot product of the full rows i and j; 0.0 for a bad index.
  double ComputeDotProduct2Rows(int i, int j) const override;

  /// Row i of this matrix by row j of s, which may be of any class here. 0.0 for a bad index and an
  /// s of another order.
  double ComputeRowDotProductS(int i, const std::vector<double> & s, int j) const override;
  double ComputeRowDotProductS(int i, const IQVSymMatrix & s, int j) const override;

  /// out = S S; `out` may be dense or block-diagonal, which takes the structure; another one stays
  /// as it is.
  void ComputeSTransS(IQVSymMatrix & out) const override;

  /// out = S T; T may be of any class, `out` must be dense.
  bool ComputeSS(const IQVSymMatrix & t, IQVRectMatrix & out) const override;

  /// out = G S G with G packed in g, which has n(n+1)/2 elements.
  bool ComputeGMG(const std::vector<double> & g, QVSymMatrix & out) const override;

  /// out = G S G, L S L-transpose and L-transpose S L, L being the lower triangle of l. The
  /// argument has n rows (copies must be 1). Its class and that of `out` are dense and dense;
  /// diagonal and block-diagonal; or block-diagonal with the structure of this matrix and
  /// block-diagonal. A block-diagonal `out` takes the structure. False for all else.
  bool ComputeGSG(const IQVSymMatrix & g, IQVSymMatrix & out) const override;
  bool ComputeLSLTrans(const IQVSymMatrix & l, IQVSymMatrix & out) const override;
  bool ComputeLTransSL(const IQVSymMatrix & l, IQVSymMatrix & out, int copies) const override;

  /// out = M G N + N G M with this matrix as G. M and N must be both dense with a dense `out`, both
  /// diagonal with a dense or block-diagonal one, or both block-diagonal with the structure of this
  /// matrix and a block-diagonal or dense one. A block-diagonal `out` takes the structure.
  bool ComputeMGN(const IQVSymMatrix & m, const IQVSymMatrix & n,
                  IQVSymMatrix & out) const override;

  /// out = G (M G N + N G M) G, classes as in `ComputeMGN`; `work` receives the packed inner sum,
  /// n(n+1)/2 elements, and grows when it is smaller.
  bool ComputeGMGNG(const IQVSymMatrix & m, const IQVSymMatrix & n, IQVSymMatrix & out,
                    std::vector<double> & work) const override;

  /// This matrix += a X; X must have the structure of this matrix.
  bool ComputeAXpY(double a, const IQVSymMatrix & x) override;

  // === Products with rectangular matrices =======================================================
  // R may be dense or sparse; a sparse one costs in proportion to its cells. Targets must be dense.

  bool ComputeRS(const IQVRectMatrix & r, IQVRectMatrix & out) const override;
  bool ComputeRTransS(const IQVRectMatrix & r, IQVRectMatrix & out) const override;
  bool ComputeRSRTrans(const IQVRectMatrix & r, IQVSymMatrix & out) const override;
  bool ComputeRTransSR(const IQVRectMatrix & r, IQVSymMatrix & out) const override;
  bool ComputeRTransSV(const IQVRectMatrix & r, const std::vector<double> & v,
                       std::vector<double> & out) const override;

  // === Traces of products =======================================================================

  /// Trace of S T and of S A B; 0.0 when orders differ or n is below 1. The arguments may be of any
  /// class.
  double TraceOfProduct(const IQVSymMatrix & t) const override;
  double TraceOfProductOfThree(const IQVSymMatrix & a, const IQVSymMatrix & b) const override;

  // === Display ==================================================================================

  /// Shows the numbers of rows and blocks, and each block with its first row and its kind.
  void Display() const override;

  /// Shows the number of rows and every full row.
  void DisplayF() const override;

 private:
  friend class DiagonalBlocks;
  friend class QVSymMatrix;

  bool IsRow(int k) const { return k >= 0 && k < fNRows; }
  bool IsBlock(int b) const { return b >= 0 && b < fNBlocks; }
  std::size_t Size() const { return fNRows > 0 ? static_cast<std::size_t>(fNRows) : 0; }

  void Swap(QVSymBlockDiagMatrix & other) noexcept;
  void Fail();
  bool AppendBlock(const QVSymMatrix & block);
  bool AppendBlock(const std::vector<double> & diagonal);
  bool FinishAppend(int size, bool isDiagonal, int place);
  void KeepBlocks(int blocks);
  void SetBlockIndicesForRow();

  int FindBlock(int i, int j, bool & diagonal, int & row, int & col) const;
  bool FindAbsBlockRelColIndex(int j, int & block, int & start, int & relCol,
                               bool & diagonal) const;
  int GetIndexFirstInRow(int i) const;
  int GetIndexEndOfRow(int i) const;
  double * FindElement(int i, int j);

  bool AreCholeskyArguments(const std::vector<double> & ref, double tol) const;
  int FactorBlocks(const std::vector<double> & ref, double tol, QVBitSet * accepted);
  double SmallestDiagonal() const;
  int InvertByCholesky(const std::vector<double> & ref, double tol, IQVSymMatrix & out,
                       QVBitSet * accepted, double * minDiag) const;

  // Parts of products with a vector or with L, the lower triangles of the blocks. A vector with a
  // growing stride is a column of a packed triangle: each step is longer by 1 than the last.
  double ComputeRVDParts(int i, const double * v, int stride, int first, int count) const;
  double ComputeVSWParts(const double * v, int strideV, int nv, const double * w, int strideW,
                         int nw) const;
  void UpdateDenseColumnPart(int j, double w, double * column) const;
  void ComputeVecPartByL(const double * v, int count, double * out) const;
  void ComputeVecIIncrPartByL(const double * v, std::ptrdiff_t stride, int first,
                              double * out) const;
  double DotProductLColDenseRowPart(int j, const double * row, int count) const;
  double DotProductLColVecIIncrPart(int j, const double * v, std::ptrdiff_t stride) const;
  double DotProductColVecIIncrPart(int j, const double * v, std::ptrdiff_t stride, int first) const;
  void ComputeSymRowByL(const QVSymMatrix & s, int i, int offset, double * out) const;
  bool ComputeProductLAndSquare(std::size_t place, const QVSymBlockDiagMatrix & l,
                                QVSymMatrix & block) const;
  void ComputeProductLAndSquare(std::size_t place, const QVSymBlockDiagMatrix & l,
                                std::vector<double> & block) const;
  bool ScaleBothSides(const QVDiagMatrix & scale, QVSymBlockDiagMatrix & out) const;
  template <class DenseProduct, class DiagonalProduct>
  bool ComputeBlocks(QVSymBlockDiagMatrix & out, DenseProduct ofDense,
                     DiagonalProduct ofDiagonal) const;

  int fNRows = 0;
  int fNBlocks = 0;
  std::vector<QVSymMatrix> fDenseBlocks;
  std::vector<std::vector<double>> fDiagBlocks;
  std::vector<int> fBlockSizes;
  QVBitSet fIsDiagonal;
  std::vector<int> fStartIndices{0};
  std::vector<int> fBlockIndices;
  std::vector<int> fRowBlocks;
};

}  // namespace QVMath_940
