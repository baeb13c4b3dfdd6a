/// The vector z of LINPACK's condition estimates.
///
/// The estimate solves A-transpose y = e, where the components of e are chosen 1 or -1 so that y
/// grows, and then A z = y: |z| / |y| estimates |A inverse| (Cline, Moler, Stewart and Wilkinson,
/// 1979, SIAM Journal on Numerical Analysis 16, 368-375). The vector is scaled down whenever it
/// would overflow, and `YNorm` keeps account of it.
#pragma once

#include <algorithm>
#include <cmath>

#include "Blas1.h"

namespace QVMath_940::linpack {

class ConditionVector {
 public:
  ConditionVector(int n, double * z) : fN(n), fZ(z) { std::fill(z, z + n, 0.0); }

  double YNorm() const { return fYNorm; }

  /// Ends the solution for y: |y| is 1 from here on.
  void StartZ() {
    ScaleToOne();
    fYNorm = 1.0;
  }

  /// Scales z to a sum of magnitudes of 1.
  void ScaleToOne() { Scale(1.0 / Blas1::DASum(fN, fZ, 1)); }

  /// Scales z so that |z[k]| is at most `limit`.
  void Limit(int k, double limit) {
    if (std::fabs(fZ[k]) > limit) Scale(limit / std::fabs(fZ[k]));
  }

  /// Divides z[k] by a pivot that may be zero.
  void DivideByPivot(int k, double pivot) {
    Limit(k, std::fabs(pivot));
    fZ[k] = pivot != 0.0 ? fZ[k] / pivot : 1.0;
  }

  /// Step k of U-transpose w = e: chooses the sign of e(k) that lets the rest grow more.
  /// `row(j)` is element (k, j) for j = from .. to, the part of row k still to come.
  template <typename Row>
  void ChooseAndDivide(int k, double pivot, int from, int to, Row row) {
    if (fZ[k] != 0.0) fE = Blas1::D_Sign(fE, -fZ[k]);
    if (std::fabs(fE - fZ[k]) > std::fabs(pivot)) {
      const double s = std::fabs(pivot) / std::fabs(fE - fZ[k]);
      Scale(s);
      fE *= s;
    }
    double wk = fE - fZ[k];
    double wkm = -fE - fZ[k];
    double s = std::fabs(wk);
    double sm = std::fabs(wkm);
    if (pivot != 0.0) {
      wk /= pivot;
      wkm /= pivot;
    } else {
      wk = 1.0;
      wkm = 1.0;
    }
    for (int j = from; j <= to; ++j) {
      const double element = row(j);
      sm += std::fabs(fZ[j] + wkm * element);
      fZ[j] += wk * element;
      s += std::fabs(fZ[j]);
    }
    if (s < sm) {
      const double t = wkm - wk;
      wk = wkm;
      for (int j = from; j <= to; ++j)
        fZ[j] += t * row(j);
    }
    fZ[k] = wk;
  }

  /// Adds e(k), with the sign of z[k], to z[k].
  void AddChosen(int k) {
    if (fZ[k] != 0.0) fE = Blas1::D_Sign(fE, fZ[k]);
    fZ[k] += fE;
  }

  /// As `DivideByPivot`, while e is still being chosen: it is scaled together with z.
  void DivideChosenByPivot(int k, double pivot) {
    if (std::fabs(fZ[k]) > std::fabs(pivot)) fE *= std::fabs(pivot) / std::fabs(fZ[k]);
    DivideByPivot(k, pivot);
  }

 private:
  void Scale(double s) {
    Blas1::DScal(fN, s, fZ, 1);
    fYNorm *= s;
  }

  int fN;
  double * fZ;
  double fE = 1.0;
  double fYNorm = 1.0;
};

/// |y| / (|A| |z|) with |z| = 1; 0 for a zero matrix.
inline double ReciprocalCondition(const ConditionVector & vector, double norm) {
  return norm != 0.0 ? vector.YNorm() / norm : 0.0;
}

}  // namespace QVMath_940::linpack
