// Updates of the dense symmetric matrix by vectors: a case enters, or leaves, a cross-product
// matrix.
#include "QVSymMatrix.h"

namespace QVMath_940 {

namespace {

// row[j] += factor x[j] for j up to and including `last`.
void AddMultiple(double * row, double factor, const double * x, int last) {
  for (int j = 0; j <= last; ++j)
    row[j] += factor * x[j];
}

}  // namespace

bool QVSymMatrix::SetToVV(const std::vector<double> & x) {
  if (!Resize(static_cast<int>(x.size()))) return false;
  double * a = fElements.data();
  for (int i = 0; i < fNRows; ++i)
    for (int j = 0; j <= i; ++j)
      *a++ = x[static_cast<std::size_t>(i)] * x[static_cast<std::size_t>(j)];
  return true;
}

bool QVSymMatrix::SetToVW(const std::vector<double> & x, const std::vector<double> & y) {
  if (x.size() != y.size() || !Resize(static_cast<int>(x.size()))) return false;
  double * a = fElements.data();
  for (std::size_t i = 0; i < x.size(); ++i)
    for (std::size_t j = 0; j <= i; ++j)
      *a++ = x[i] * y[j] + y[i] * x[j];
  return true;
}

void QVSymMatrix::IncrementByVV(const double * x, double w) {
  for (int i = 0; i < fNRows; ++i)
    AddMultiple(fElements.data() + RowStart(i), w * x[i], x, i);
}

bool QVSymMatrix::UpdateXX(const std::vector<double> & x, double w) {
  return w > 0.0 && QVSymMatrix::UpdateXXPosNegW(x, w);
}

bool QVSymMatrix::UpdateXXPosNegW(const std::vector<double> & x, double w) {
  if (fNRows < 0 || x.size() != static_cast<std::size_t>(fNRows)) return false;
  for (int i = 0; i < fNRows; ++i) {
    const double xi = x[static_cast<std::size_t>(i)];
    if (xi != 0.0) AddMultiple(fElements.data() + RowStart(i), xi * w, x.data(), i);
  }
  return true;
}

bool QVSymMatrix::UpdateXXNonRedun(const std::vector<double> & x, const QVBitSet & rows, double w) {
  if (fNRows < 0 || x.size() != static_cast<std::size_t>(fNRows)) return false;
  for (int i = 0; i < fNRows; ++i) {
    const double xi = x[static_cast<std::size_t>(i)];
    if (xi == 0.0 || !rows.IsIn(i)) continue;
    double * row = fElements.data() + RowStart(i);
    for (int j = 0; j <= i; ++j)
      if (rows.IsIn(j)) row[j] += xi * w * x[static_cast<std::size_t>(j)];
  }
  return true;
}

bool QVSymMatrix::UpdateXXSparse(int count, const std::vector<int> & rows,
                                 const std::vector<double> & x, double w) {
  const std::size_t size = count > 0 ? static_cast<std::size_t>(count) : 0;
  if (rows.size() < size || x.size() < size || !(w > 0.0)) return false;
  for (std::size_t p = 0; p < size; ++p) {
    const int i = rows[p];
    if (!IsRow(i)) return false;
    double * row = fElements.data() + RowStart(i);
    for (std::size_t q = 0; q < size; ++q) {
      const int j = rows[q];
      if (!IsRow(j)) return false;
      if (i >= j) row[j] += w * x[p] * x[q];
    }
  }
  return true;
}

bool QVSymMatrix::UpdateZZ(const std::vector<double> & x, double z, double w) {
  if (fNRows < 1) return true;
  const int last = fNRows - 1;
  for (int i = 0; i < last; ++i) {
    const double xi = x[static_cast<std::size_t>(i)];
    if (xi != 0.0) AddMultiple(fElements.data() + RowStart(i), xi * w, x.data(), i);
  }
  double * row = fElements.data() + RowStart(last);
  AddMultiple(row, z * w, x.data(), last - 1);
  row[last] += z * w * z;
  return true;
}

}  // namespace QVMath_940
