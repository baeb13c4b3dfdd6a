// The blocked forms of the Cholesky family against the formula of each element, bit by bit, at
// orders on both sides of the one from which additions are fused.
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "QVBitSet.h"
#include "QVSymMatrix.h"

namespace {

using QVMath_940::QVBitSet;
using QVMath_940::QVSymMatrix;

constexpr double kTolerance = 1e-9;

class CholeskyBits : public ::testing::TestWithParam<int> {
 protected:
  bool IsFused() const { return GetParam() >= 64; }

  double Add(double x, double y, double sum) const {
    return IsFused() ? std::fma(x, y, sum) : sum + x * y;
  }

  /// A random matrix with a dominant diagonal, but for every `troubled`-th row, which no pivot will
  /// accept (none for 0).
  QVSymMatrix Make(int troubled) {
    const int n = GetParam();
    QVSymMatrix a(n, true);
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j < i; ++j) {
        a.SetElem(i, j, fNormal(fEngine));
      }
      a.SetElem(i, i, troubled > 0 && i % troubled == troubled - 1 ? -1.0 : 2.0 * n);
    }
    return a;
  }

  QVSymMatrix Factor(QVSymMatrix a, std::vector<bool> & accepted) const {
    const int n = a.GetNRows();
    accepted.assign(static_cast<std::size_t>(n), false);
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j < i; ++j) {
        double s = 0.0;
        for (int k = 0; k < j; ++k) {
          s = Add(a.GetElem(i, k), a.GetElem(j, k), s);
        }
        const double pivot = a.GetElem(j, j);
        a.SetElem(i, j, pivot != 0.0 ? (a.GetElem(i, j) - s) / pivot : 0.0);
      }
      double s = 0.0;
      for (int k = 0; k < i; ++k) {
        s = Add(a.GetElem(i, k), a.GetElem(i, k), s);
      }
      const double square = a.GetElem(i, i) - s;
      const bool isIn = square > kTolerance;
      accepted[static_cast<std::size_t>(i)] = isIn;
      a.SetElem(i, i, isIn ? std::sqrt(square) : 0.0);
    }
    return a;
  }

  static void ExpectSameBits(const QVSymMatrix & wanted, const QVSymMatrix & got) {
    const auto & w = wanted.AsVector();
    const auto & g = got.AsVector();
    ASSERT_EQ(w.size(), g.size());
    std::size_t different = 0;
    for (std::size_t p = 0; p < w.size(); ++p) {
      different += std::memcmp(&w[p], &g[p], sizeof(double)) != 0;
    }
    EXPECT_EQ(different, 0u);
  }

  std::mt19937 fEngine{99};
  std::normal_distribution<double> fNormal;
};

TEST_P(CholeskyBits, FactorIsTheFormula) {
  for (const int troubled : {0, 17, 5}) {
    QVSymMatrix a = Make(troubled);
    std::vector<bool> accepted;
    const QVSymMatrix wanted = Factor(a, accepted);
    QVBitSet got;
    const std::vector<double> ref(static_cast<std::size_t>(GetParam()), 1.0);
    const int deficiency = a.LTChol(ref, kTolerance, got, true);
    ExpectSameBits(wanted, a);
    EXPECT_TRUE(got == QVBitSet(accepted));
    EXPECT_EQ(deficiency, GetParam() - got.InSet());
  }
}

TEST_P(CholeskyBits, InverseOfTheFactorIsTheFormula) {
  const int n = GetParam();
  for (const int troubled : {0, 17}) {
    std::vector<bool> accepted;
    QVSymMatrix l = Factor(Make(troubled), accepted);
    QVSymMatrix wanted = l;
    for (int i = n - 1; i >= 0; --i) {
      const double pivot = l.GetElem(i, i);
      for (int j = i; j >= 0; --j) {
        if (pivot == 0.0 || l.GetElem(j, j) == 0.0) {
          wanted.SetElem(i, j, 0.0);
          continue;
        }
        double s = 0.0;
        for (int k = i; k > j; --k) {
          if (l.GetElem(k, k) != 0.0) s = Add(wanted.GetElem(i, k), l.GetElem(k, j), s);
        }
        wanted.SetElem(i, j, j == i ? 1.0 / pivot : s * -(1.0 / l.GetElem(j, j)));
      }
    }
    EXPECT_EQ(l.LTDetInverse(nullptr, 10), n - QVBitSet(accepted).InSet());
    ExpectSameBits(wanted, l);
  }
}

TEST_P(CholeskyBits, ProductsWithTheTransposeAreTheFormula) {
  const int n = GetParam();
  std::vector<bool> accepted;
  QVSymMatrix l = Factor(Make(17), accepted);
  QVSymMatrix byColumns = l;
  QVSymMatrix byRows = l;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      double columns = i < n ? l.GetElem(i, i) * l.GetElem(i, j) : 0.0;
      for (int k = i + 1; k < n; ++k) {
        columns = Add(l.GetElem(k, i), l.GetElem(k, j), columns);
      }
      byColumns.SetElem(i, j, columns);
      double rows = 0.0;
      for (int k = 0; k <= j; ++k) {
        rows = Add(l.GetElem(i, k), l.GetElem(j, k), rows);
      }
      byRows.SetElem(i, j, rows);
    }
  }
  QVSymMatrix got = l;
  got.LTLTransL();
  for (int i = 0; i < n; ++i) {  // 0.0 + x and x differ in the sign of a zero alone
    for (int j = 0; j <= i; ++j) {
      ASSERT_EQ(got.GetElem(i, j), byColumns.GetElem(i, j)) << i << ' ' << j;
    }
  }
  got = l;
  got.LTLLTrans();
  ExpectSameBits(byRows, got);
}

TEST_P(CholeskyBits, SolutionsAreTheFormula) {
  const int n = GetParam();
  std::vector<bool> accepted;
  const QVSymMatrix l = Factor(Make(17), accepted);
  std::vector<double> b(static_cast<std::size_t>(n));
  for (double & v : b) {
    v = fNormal(fEngine);
  }
  std::vector<double> y(b.size());
  for (int i = 0; i < n; ++i) {
    double s = 0.0;
    for (int j = 0; j < i; ++j) {
      s = Add(l.GetElem(i, j), y[static_cast<std::size_t>(j)], s);
    }
    const double pivot = l.GetElem(i, i);
    y[static_cast<std::size_t>(i)] =
        pivot != 0.0 ? (b[static_cast<std::size_t>(i)] - s) / pivot : 0.0;
  }
  std::vector<double> got;
  EXPECT_TRUE(l.TSolveSubst(b, got, false));
  EXPECT_EQ(got, y);
  std::vector<double> x(b.size());
  for (int i = n - 1; i >= 0; --i) {
    double s = 0.0;
    for (int j = n - 1; j > i; --j) {
      s = Add(l.GetElem(j, i), x[static_cast<std::size_t>(j)], s);
    }
    const double pivot = l.GetElem(i, i);
    x[static_cast<std::size_t>(i)] =
        pivot != 0.0 ? (y[static_cast<std::size_t>(i)] - s) / pivot : 0.0;
    double column = 0.0;
    EXPECT_TRUE(l.DotProdColBelowDiagBackVec(i, x, column));
    EXPECT_EQ(column, s);
  }
  EXPECT_TRUE(l.TSolveSubst(y, got, true));
  EXPECT_EQ(got, x);
  EXPECT_EQ(l.LTSubstitute(b, got), 0);
  EXPECT_EQ(got, x);
  std::vector<double> inPlace = b;
  EXPECT_EQ(l.LTSubstitute(inPlace, inPlace), 0);
  EXPECT_EQ(inPlace, x);
}

INSTANTIATE_TEST_SUITE_P(Orders, CholeskyBits,
                         ::testing::Values(1, 2, 3, 7, 33, 63, 64, 65, 96, 97, 129, 200, 300));

}  // namespace
