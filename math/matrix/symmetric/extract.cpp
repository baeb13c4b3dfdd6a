// Parts of the dense symmetric matrix, taken out or put in.
#include <algorithm>

#include "QVSymMatrix.h"

namespace QVMath_940 {

bool QVSymMatrix::ReplaceFirstRows(const QVSymMatrix & m, int k) {
  if (k < 1 || k > fNRows || k > m.fNRows) return false;
  if (this != &m) std::copy_n(m.fElements.begin(), RowStart(k), fElements.begin());
  return true;
}

void QVSymMatrix::ExtractFirstNRows(IQVSymMatrix & out) const {
  if (out.GetType() != SymMatrixDense) return;
  QVSymMatrix & target = static_cast<QVSymMatrix &>(out);
  if (&target == this) {
    target.Resize(fNRows - 1);  // keeps the leading rows
    return;
  }
  if (fNRows < 2) {
    target.SetNRows(0, true);
    return;
  }
  const int rows = fNRows - 1;
  if (target.fNRows != rows && !target.SetNRows(rows, true)) return;
  std::copy_n(fElements.begin(), RowStart(rows), target.fElements.begin());
}

bool QVSymMatrix::ExtractSubmatrix(const std::vector<int> & rows, IQVSymMatrix & out) const {
  if (static_cast<long long>(rows.size()) > fNRows || out.GetType() != SymMatrixDense) return false;
  if (!rows.empty() && (rows.front() < 0 || rows.back() >= fNRows)) return false;
  const bool isAscending = std::adjacent_find(rows.begin(), rows.end(),
                                              [](int a, int b) { return a >= b; }) == rows.end();
  if (!isAscending) return false;

  QVSymMatrix & target = static_cast<QVSymMatrix &>(out);
  if (&target == this) {
    const QVSymMatrix source(*this);
    return source.IsValidMatrix() && source.ExtractSubmatrix(rows, target);
  }
  if (!target.SetNRows(static_cast<int>(rows.size()), true)) return false;
  double * to = target.fElements.data();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const double * row = fElements.data() + RowStart(rows[i]);
    for (std::size_t j = 0; j <= i; ++j)
      *to++ = row[rows[j]];
  }
  return true;
}

bool QVSymMatrix::ExtractDiagBlock(int start, int size, QVSymMatrix & out) const {
  if (start < 0 || static_cast<long long>(start) + size > fNRows || out.fNRows != size)
    return false;
  for (int i = 0; i < size; ++i) {
    const double * row = fElements.data() + RowStart(start + i) + start;
    double * to = out.fElements.data() + RowStart(i);
    for (int j = 0; j <= i; ++j)
      to[j] += row[j];
  }
  return true;
}

bool QVSymMatrix::ExtractBlockAndLastRow(int start, int size, QVSymMatrix & out) const {
  if (start < 0 || size < 0 || static_cast<long long>(start) + size >= fNRows) return false;
  if (out.fNRows != size + 1) return false;
  for (int i = 0; i < size; ++i) {
    const double * row = fElements.data() + RowStart(start + i) + start;
    double * to = out.fElements.data() + RowStart(i);
    for (int j = 0; j <= i; ++j)
      to[j] += row[j];
  }
  const double * last = fElements.data() + RowStart(fNRows - 1);
  double * to = out.fElements.data() + RowStart(size);
  for (int j = 0; j < size; ++j)
    to[j] += last[start + j];
  to[size] += last[fNRows - 1];
  return true;
}

bool QVSymMatrix::ExtractPartOfLastRow(int start, int size, std::vector<double> & v) const {
  if (start < 0 || size < 1 || static_cast<long long>(start) + size > fNRows) return false;
  if (v.size() < static_cast<std::size_t>(size)) v.resize(static_cast<std::size_t>(size));
  std::copy_n(fElements.data() + RowStart(fNRows - 1) + start, size, v.begin());
  return true;
}

bool QVSymMatrix::GetRegCoeffs(std::vector<double> & b, const QVBitSet & swept) const {
  if (swept.Size() < fNRows - 1) return false;
  const int size = std::max(fNRows - 1, 0);
  b.resize(static_cast<std::size_t>(size));
  for (int j = 0; j < size; ++j)
    b[static_cast<std::size_t>(j)] = swept.IsIn(j) ? fElements[PackedPosition(fNRows - 1, j)] : 0.0;
  return true;
}

}  // namespace QVMath_940
