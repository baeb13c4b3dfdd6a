// Rounding noise and pivot rows taken out of the rectangular matrix.
#include <algorithm>
#include <cmath>
#include <limits>

#include "QVRectMatrix.h"

namespace QVMath_940 {

void QVRectMatrix::CheckForOnes(double t) {
  if (!(t > 0.0)) return;
  for (double & element : fElements)
    if (std::abs(std::abs(element) - 1.0) < t) element = element > 0.0 ? 1.0 : -1.0;
}

bool QVRectMatrix::ColClean(int j, double v) {
  if (!IsCol(j)) return false;
  constexpr double kNoise = 10000.0;  // roundings that noise may have piled up
  const double t = v * kNoise;
  const double bound = t > 0.0 ? t * std::numeric_limits<double>::epsilon() : 0.0;
  const double norm = ColNorm(j);
  if (bound > std::abs(norm)) return ZeroOutCol(j);
  if (norm == 0.0) return true;
  const double inverse = 1.0 / norm;
  for (int i = 0; i < fNRows; ++i) {
    double & element = fElements[Position(i, j)];
    element *= inverse;
    element = bound > std::abs(element) ? 0.0 : element * norm;
  }
  return true;
}

int QVRectMatrix::FindFirstNonZeroInRow(int i, double t) const {
  if (!IsRow(i) || !(t > 0.0)) return -1;
  for (int j = 0; j < fNCols; ++j)
    if (std::abs(fElements[Position(i, j)]) > t) return j;
  return -1;
}

bool QVRectMatrix::ZeroOutPivotRow(int i, double t, int & pivot) {
  pivot = FindFirstNonZeroInRow(i, t);
  if (pivot < 0) return false;
  for (int c = 0; c < fNCols; ++c)
    if (c != pivot) AddToColumn(c, *this, pivot, fElements[Position(i, c)]);
  return ZeroOutCol(pivot);
}

}  // namespace QVMath_940
