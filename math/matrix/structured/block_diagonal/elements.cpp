// Elements, rows, the whole matrix and parts of the block-diagonal symmetric matrix, and display.
#include <algorithm>
#include <limits>

#include "QVDiagMatrix.h"
#include "QVDisplay.h"
#include "QVSymBlockDiagMatrix.h"
#include "common/display/display_frame.h"
#include "common/display/display_line.h"
#include "math/matrix/structured/class_casts.h"

namespace QVMath_940 {

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

}  // namespace

// --- Finding elements ---------------------------------------------------------------------------

/// The number of the block that stores element (i, j), with its kind and the place in it, row >=
/// col; -1 for a structural zero.
int QVSymBlockDiagMatrix::FindBlock(int i, int j, bool & diagonal, int & row, int & col) const {
  int b = -1;
  int start = 0;
  FindAbsBlockRelColIndex(std::max(i, j), b, start, row, diagonal);
  col = std::min(i, j) - start;
  return col < 0 || (diagonal && row != col) ? -1 : b;
}

/// The block that column j stands in: its number, first column and kind, and j's place in it. False
/// for a bad j.
bool QVSymBlockDiagMatrix::FindAbsBlockRelColIndex(int j, int & block, int & start, int & relCol,
                                                   bool & diagonal) const {
  if (!IsRow(j)) return false;
  block = fRowBlocks[At(j)];
  start = fStartIndices[At(block)];
  relCol = j - start;
  diagonal = fIsDiagonal.IsIn(block);
  return true;
}

/// The first column that row i stores.
int QVSymBlockDiagMatrix::GetIndexFirstInRow(int i) const {
  const int b = fRowBlocks[At(i)];
  return fIsDiagonal.IsIn(b) ? i : fStartIndices[At(b)];
}

/// The column behind the last one that row i stores.
int QVSymBlockDiagMatrix::GetIndexEndOfRow(int i) const {
  const int b = fRowBlocks[At(i)];
  return fIsDiagonal.IsIn(b) ? i + 1 : fStartIndices[At(b) + 1];
}

/// Where element (i, j) is stored; null for a structural zero.
double * QVSymBlockDiagMatrix::FindElement(int i, int j) {
  bool isDiagonal = false;
  int row = 0;
  int col = 0;
  const int b = FindBlock(i, j, isDiagonal, row, col);
  if (b < 0) return nullptr;
  const std::size_t place = At(fBlockIndices[At(b)]);
  return isDiagonal ? &fDiagBlocks[place][At(row)]
                    : &fDenseBlocks[place].AsVector()[QVSymMatrix::PackedPosition(row, col)];
}

// --- Elements and rows --------------------------------------------------------------------------

double QVSymBlockDiagMatrix::GetElem(int i, int j) const {
  bool isDiagonal = false;
  int row = 0;
  int col = 0;
  const int b = FindBlock(i, j, isDiagonal, row, col);
  if (b < 0) return 0.0;
  const std::size_t place = At(fBlockIndices[At(b)]);
  return isDiagonal ? fDiagBlocks[place][At(row)]
                    : fDenseBlocks[place].AsVector()[QVSymMatrix::PackedPosition(row, col)];
}

bool QVSymBlockDiagMatrix::SetElem(int i, int j, double value) {
  double * const element = FindElement(i, j);
  if (element == nullptr) return false;
  *element = value;
  return true;
}

void QVSymBlockDiagMatrix::GetDiagonal(std::vector<double> & diagonal) const {
  diagonal.resize(Size());
  for (int i = 0; i < fNRows; ++i)
    diagonal[At(i)] = QVSymBlockDiagMatrix::GetElem(i, i);
}

bool QVSymBlockDiagMatrix::GetRow(int k, std::vector<double> & row) const {
  if (!IsRow(k)) return false;
  row.assign(Size(), 0.0);
  for (int j = GetIndexFirstInRow(k); j < GetIndexEndOfRow(k); ++j)
    row[At(j)] = QVSymBlockDiagMatrix::GetElem(k, j);
  return true;
}

bool QVSymBlockDiagMatrix::PutRow(int k, const std::vector<double> & row) {
  if (!IsRow(k) || row.size() < Size()) return false;
  for (int j = GetIndexFirstInRow(k); j < GetIndexEndOfRow(k); ++j)
    *FindElement(k, j) = row[At(j)];
  return true;
}

bool QVSymBlockDiagMatrix::SetRowColToConst(int k, double value) {
  if (!IsRow(k)) return false;
  for (int j = GetIndexFirstInRow(k); j < GetIndexEndOfRow(k); ++j)
    *FindElement(k, j) = value;
  return true;
}

bool QVSymBlockDiagMatrix::ZeroOut(int k) {
  return QVSymBlockDiagMatrix::SetRowColToConst(k, 0.0);
}

bool QVSymBlockDiagMatrix::IsZeroRow(int k, const QVBitSet & columns) const {
  const int count = std::min(fNRows, columns.Size());
  if (count < 1 || !IsRow(k)) return false;
  for (int j = GetIndexFirstInRow(k); j < std::min(GetIndexEndOfRow(k), count); ++j)
    if (columns.IsIn(j) && QVSymBlockDiagMatrix::GetElem(k, j) != 0.0) return false;
  return true;
}

bool QVSymBlockDiagMatrix::IncrVecByRow(int k, std::vector<double> & v, int start, int len,
                                        double w, bool check) const {
  if (check) {
    if (!IsRow(k) || len < 1 || len > fNRows || start < 0) return false;
    if (At(start) + At(len) > v.size()) return false;
  }
  for (int j = GetIndexFirstInRow(k); j < std::min(GetIndexEndOfRow(k), len); ++j)
    v[At(start) + At(j)] += w * QVSymBlockDiagMatrix::GetElem(k, j);
  return true;
}

// --- The whole matrix ---------------------------------------------------------------------------

void QVSymBlockDiagMatrix::Clear() {
  for (QVSymMatrix & block : fDenseBlocks)
    block.Clear();
  for (std::vector<double> & block : fDiagBlocks)
    std::fill(block.begin(), block.end(), 0.0);
}

void QVSymBlockDiagMatrix::ChangeSign() {
  QVSymBlockDiagMatrix::MultiplyByNumber(-1.0);
}

void QVSymBlockDiagMatrix::MultiplyByNumber(double value) {
  for (QVSymMatrix & block : fDenseBlocks)
    block.MultiplyByNumber(value);
  for (std::vector<double> & block : fDiagBlocks)
    for (double & d : block)
      d *= value;
}

void QVSymBlockDiagMatrix::AddToDiagonal(double value) {
  for (QVSymMatrix & block : fDenseBlocks)
    block.AddToDiagonal(value);
  for (std::vector<double> & block : fDiagBlocks)
    for (double & d : block)
      d += value;
}

double QVSymBlockDiagMatrix::Trace() const {
  double trace = 0.0;
  for (int i = 0; i < fNRows; ++i)
    trace += QVSymBlockDiagMatrix::GetElem(i, i);
  return trace;
}

void QVSymBlockDiagMatrix::MaxMinDiag(double & max, double & min) const {
  if (fNRows < 1) return;
  max = -kLargest;
  min = kLargest;
  for (int i = 0; i < fNRows; ++i) {
    const double d = QVSymBlockDiagMatrix::GetElem(i, i);
    if (d > max) max = d;
    if (d < min) min = d;
  }
}

void QVSymBlockDiagMatrix::MaxMinDiagOffDiag(double & maxDiag, double & minDiag, double & maxOff,
                                             double & minOff) const {
  if (fNRows < 1) return;
  MaxMinDiag(maxDiag, minDiag);
  maxOff = -kLargest;
  minOff = kLargest;
  const auto take = [&](double low, double high) {
    if (high > maxOff) maxOff = high;
    if (low < minOff) minOff = low;
  };
  for (const QVSymMatrix & block : fDenseBlocks) {
    if (block.GetNRows() < 2) continue;
    double blockMax, blockMin, high, low;
    block.MaxMinDiagOffDiag(blockMax, blockMin, high, low);
    take(low, high);
  }
  for (const std::vector<double> & block : fDiagBlocks)
    if (block.size() > 1) take(0.0, 0.0);
}

void QVSymBlockDiagMatrix::GetNCheckDiagonal(std::vector<double> & diagonal, double threshold,
                                             double replacement) const {
  diagonal.resize(Size());
  std::vector<double> part;
  for (int b = 0; b < fNBlocks; ++b) {
    const std::size_t place = At(fBlockIndices[At(b)]);
    double * const out = diagonal.data() + fStartIndices[At(b)];
    if (fIsDiagonal.IsIn(b)) {
      std::replace_copy_if(
          fDiagBlocks[place].begin(), fDiagBlocks[place].end(), out,
          [threshold](double d) { return d < threshold; }, replacement);
    } else {
      fDenseBlocks[place].GetNCheckDiagonal(part, threshold, replacement);
      std::copy(part.begin(), part.end(), out);
    }
  }
}

void QVSymBlockDiagMatrix::ZeroOutNonDiag(double fraction) {
  for (QVSymMatrix & block : fDenseBlocks)
    block.ZeroOutNonDiag(fraction);
}

// --- Parts of the matrix ------------------------------------------------------------------------

void QVSymBlockDiagMatrix::ExtractFirstNRows(IQVSymMatrix & out) const {
  if (out.GetType() == SymMatrixDiagonal) return;
  if (fNRows < 2) {
    out.SetNRows(0, true);
    return;
  }
  std::vector<int> rows(Size() - 1);
  for (std::size_t i = 0; i < rows.size(); ++i)
    rows[i] = static_cast<int>(i);
  QVSymBlockDiagMatrix::ExtractSubmatrix(rows, out);
}

bool QVSymBlockDiagMatrix::ExtractSubmatrix(const std::vector<int> & rows,
                                            IQVSymMatrix & out) const {
  if (static_cast<long long>(rows.size()) > fNRows || out.GetType() == SymMatrixDiagonal)
    return false;
  if (!rows.empty() && (rows.front() < 0 || rows.back() >= fNRows)) return false;
  const bool isAscending = std::adjacent_find(rows.begin(), rows.end(),
                                              [](int a, int b) { return a >= b; }) == rows.end();
  if (!isAscending) return false;

  if (&out == this) {
    return WithCopyOf(*this,
                      [&](const IQVSymMatrix & copy) { return copy.ExtractSubmatrix(rows, out); });
  }
  if (QVSymBlockDiagMatrix * target = AsBlockDiagonal(out)) {
    std::vector<int> sizes;
    QVBitSet kinds;
    for (std::size_t p = 0; p < rows.size(); ++p) {
      const int b = fRowBlocks[At(rows[p])];
      if (p > 0 && b == fRowBlocks[At(rows[p - 1])]) {
        ++sizes.back();
      } else {
        sizes.push_back(1);
        kinds.Append(fIsDiagonal.IsIn(b));
      }
    }
    if (!target->SetStructure(sizes, kinds)) return false;
  } else if (!out.SetNRows(static_cast<int>(rows.size()), true)) {
    return false;
  }
  for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
    const int first = GetIndexFirstInRow(rows[At(i)]);
    for (int j = i; j >= 0 && rows[At(j)] >= first; --j)
      out.SetElem(i, j, QVSymBlockDiagMatrix::GetElem(rows[At(i)], rows[At(j)]));
  }
  return true;
}

// --- Display ------------------------------------------------------------------------------------

void QVSymBlockDiagMatrix::Display() const {
  const QVDisplay_940::DisplayFrame frame("QVSymBlockDiagMatrix");
  QVDisplay_940::DisplayI("The number of rows", fNRows);
  QVDisplay_940::DisplayI("The number of blocks", fNBlocks);
  for (int b = 0; b < fNBlocks; ++b) {
    const std::size_t place = At(fBlockIndices[At(b)]);
    QVDisplay_940::DisplayI("Block number", b);
    QVDisplay_940::DisplayI("Start index", fStartIndices[At(b)]);
    QVDisplay_940::DisplayI("The block size", fBlockSizes[At(b)]);
    if (fIsDiagonal.IsIn(b)) {
      QVDisplay_940::DisplayDV("Diagonal", fDiagBlocks[place], false);
    } else {
      QVDisplay_940::DisplayDVTR("Lower triangular", fDenseBlocks[place].AsVector(),
                                 fBlockSizes[At(b)]);
    }
  }
}

void QVSymBlockDiagMatrix::DisplayF() const {
  const QVDisplay_940::DisplayFrame frame("QVSymBlockDiagMatrix full matrix display start",
                                          "QVSymBlockDiagMatrix display end");
  QVDisplay_940::DisplayI("Number of rows", fNRows);
  std::vector<double> row;
  for (int i = 0; i < fNRows; ++i) {
    QVSymBlockDiagMatrix::GetRow(i, row);
    QVDisplay_940::DisplayFullRow(i, row.data(), fNRows);
  }
}

}  // namespace QVMath_940
