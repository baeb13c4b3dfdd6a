#include "math/kernels/packed_update.h"

namespace QVMath_940::kernels {

namespace {

/// A pass over the triangle takes this many cases: each element is loaded and stored once for them.
constexpr int kCasesPerPass = 4;

const double * Row(CaseRows rows, int r) {
  return rows.start + r * rows.stride;
}

void AddOneCase(int n, const double * left, const double * right, double * __restrict a) {
  for (int i = 0; i < n; ++i) {
    const double factor = left[i];
    for (int j = 0; j <= i; ++j) {
      a[j] += factor * right[j];
    }
    a += i + 1;
  }
}

void AddOneWeightedCase(int n, const double * left, const double * right, double weight,
                        double * __restrict a) {
  for (int i = 0; i < n; ++i) {
    const double factor = left[i];
    for (int j = 0; j <= i; ++j) {
      a[j] += factor * right[j] * weight;
    }
    a += i + 1;
  }
}

void AddFourCases(int n, CaseRows left, CaseRows right, double * __restrict a) {
  const double * left0 = Row(left, 0);
  const double * left1 = Row(left, 1);
  const double * left2 = Row(left, 2);
  const double * left3 = Row(left, 3);
  const double * right0 = Row(right, 0);
  const double * right1 = Row(right, 1);
  const double * right2 = Row(right, 2);
  const double * right3 = Row(right, 3);
  for (int i = 0; i < n; ++i) {
    const double factor0 = left0[i];
    const double factor1 = left1[i];
    const double factor2 = left2[i];
    const double factor3 = left3[i];
    for (int j = 0; j <= i; ++j) {
      double sum = a[j];
      sum += factor0 * right0[j];
      sum += factor1 * right1[j];
      sum += factor2 * right2[j];
      sum += factor3 * right3[j];
      a[j] = sum;
    }
    a += i + 1;
  }
}

void AddFourWeightedCases(int n, CaseRows left, CaseRows right, const double * weights,
                          double * __restrict a) {
  const double * left0 = Row(left, 0);
  const double * left1 = Row(left, 1);
  const double * left2 = Row(left, 2);
  const double * left3 = Row(left, 3);
  const double * right0 = Row(right, 0);
  const double * right1 = Row(right, 1);
  const double * right2 = Row(right, 2);
  const double * right3 = Row(right, 3);
  const double weight0 = weights[0];
  const double weight1 = weights[1];
  const double weight2 = weights[2];
  const double weight3 = weights[3];
  for (int i = 0; i < n; ++i) {
    const double factor0 = left0[i];
    const double factor1 = left1[i];
    const double factor2 = left2[i];
    const double factor3 = left3[i];
    for (int j = 0; j <= i; ++j) {
      double sum = a[j];
      sum += factor0 * right0[j] * weight0;
      sum += factor1 * right1[j] * weight1;
      sum += factor2 * right2[j] * weight2;
      sum += factor3 * right3[j] * weight3;
      a[j] = sum;
    }
    a += i + 1;
  }
}

}  // namespace

void PackedRank1Update(int n, double w, const double * x, double * __restrict a) {
  for (int i = 0; i < n; ++i) {
    const double factor = x[i] * w;
    for (int j = 0; j <= i; ++j) {
      a[j] += factor * x[j];
    }
    a += i + 1;
  }
}

void PackedRankKUpdate(int n, int rows, CaseRows left, CaseRows right, const double * weights,
                       double * a) {
  int r = 0;
  for (; r + kCasesPerPass <= rows; r += kCasesPerPass) {
    const CaseRows leftHere = {Row(left, r), left.stride};
    const CaseRows rightHere = {Row(right, r), right.stride};
    if (weights == nullptr) {
      AddFourCases(n, leftHere, rightHere, a);
    } else {
      AddFourWeightedCases(n, leftHere, rightHere, weights + r, a);
    }
  }
  for (; r < rows; ++r) {
    if (weights == nullptr) {
      AddOneCase(n, Row(left, r), Row(right, r), a);
    } else {
      AddOneWeightedCase(n, Row(left, r), Row(right, r), weights[r], a);
    }
  }
}

}  // namespace QVMath_940::kernels
