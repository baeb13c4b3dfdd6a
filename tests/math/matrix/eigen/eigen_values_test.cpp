#include "QVEigenValues.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QVRectMatrix.h"
#include "QVSymMatrix.h"
#include "math/matrix/display_capture.h"

extern "C" void dsyev_(const char * job, const char * triangle, const int * n, double * a,
                       const int * lda, double * w, double * work, const int * lwork, int * info);

namespace {

using QVMath_940::QVEigenValues;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
constexpr double kFullPrecision = 2.2e-16;
const std::vector<int> kOrders{1, 2, 3, 7, 33, 63, 64, 65, 129};

std::size_t At(int i) {
  return static_cast<std::size_t>(i);
}

enum class Shape { Random, Graded, Clustered, Diagonal, Zero, Identity };
const std::vector<Shape> kShapes{Shape::Random,   Shape::Graded, Shape::Clustered,
                                 Shape::Diagonal, Shape::Zero,   Shape::Identity};

QVSymMatrix Make(int n, Shape shape) {
  std::mt19937 engine(static_cast<unsigned>(n) * 17u + static_cast<unsigned>(shape));
  std::normal_distribution<double> normal;
  QVSymMatrix a(n, true);
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j <= i; ++j) {
      const double value = normal(engine);
      switch (shape) {
        case Shape::Random:
          a.SetElem(i, j, value);
          break;
        case Shape::Graded:
          a.SetElem(i, j, value * std::pow(10.0, -0.1 * (i + j)));
          break;
        case Shape::Clustered:
          a.SetElem(i, j, (i == j ? 1.0 + i % 2 : 0.0) + 1e-9 * value);
          break;
        case Shape::Diagonal:
          if (i == j) a.SetElem(i, i, value);
          break;
        case Shape::Identity:
          if (i == j) a.SetElem(i, i, 1.0);
          break;
        case Shape::Zero:
          break;
      }
    }
  }
  return a;
}

double Norm(const QVSymMatrix & a) {
  double norm = 0.0;
  for (int i = 0; i < a.GetNRows(); ++i) {
    double sum = 0.0;
    for (int j = 0; j < a.GetNRows(); ++j) {
      sum += std::abs(a.GetElem(i, j));
    }
    norm = std::max(norm, sum);
  }
  return norm;
}

/// The eigenvalues by LAPACK's DSYEV, ascending.
std::vector<double> Lapack(const QVSymMatrix & a) {
  const int n = a.GetNRows();
  std::vector<double> full(At(n) * At(n));
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      full[At(i) * At(n) + At(j)] = a.GetElem(i, j);
    }
  }
  std::vector<double> values(At(n));
  std::vector<double> work(At(n) * 8 + 8);
  const int size = static_cast<int>(work.size());
  int info = -1;
  dsyev_("N", "L", &n, full.data(), &n, values.data(), work.data(), &size, &info);
  EXPECT_EQ(info, 0);
  return values;
}

TEST(EigenValues, AgreeWithLapack) {
  for (const int n : kOrders) {
    for (const Shape shape : kShapes) {
      const QVSymMatrix h = Make(n, shape);
      QVEigenValues problem(h, kFullPrecision, 60);
      std::vector<double> values;
      ASSERT_EQ(problem.GetSorted(values, false), n);
      const std::vector<double> wanted = Lapack(h);
      const double bound = 30.0 * n * kEpsilon * Norm(h);
      for (int i = 0; i < n; ++i) {
        EXPECT_NEAR(values[At(i)], wanted[At(i)], bound) << n << ' ' << static_cast<int>(shape);
      }
    }
  }
}

TEST(EigenVectors, SolveTheProblemAndAreOrthonormal) {
  for (const int n : kOrders) {
    for (const Shape shape : kShapes) {
      const QVSymMatrix h = Make(n, shape);
      QVEigenValues problem(h, kFullPrecision, 60);
      std::vector<double> values;
      QVRectMatrix z;
      ASSERT_EQ(problem.Compute(values, z), n);
      ASSERT_EQ(z.GetNRows(), n);
      const double bound = 30.0 * n * kEpsilon;
      double residual = 0.0;
      double distance = 0.0;
      for (int k = 0; k < n; ++k) {
        for (int i = 0; i < n; ++i) {
          double hz = 0.0;
          double dot = 0.0;
          for (int j = 0; j < n; ++j) {
            hz += h.GetElem(i, j) * z.GetElem(k, j);
            dot += z.GetElem(i, j) * z.GetElem(k, j);
          }
          residual = std::max(residual, std::abs(hz - values[At(k)] * z.GetElem(k, i)));
          distance = std::max(distance, std::abs(dot - (i == k ? 1.0 : 0.0)));
        }
      }
      EXPECT_LE(residual, bound * Norm(h)) << n << ' ' << static_cast<int>(shape);
      EXPECT_LE(distance, bound) << n << ' ' << static_cast<int>(shape);
    }
  }
}

TEST(EigenValues, DefaultToleranceStillGivesTwelveDigits) {
  const QVSymMatrix h = Make(33, Shape::Random);
  QVEigenValues problem;
  EXPECT_EQ(problem.GetTolerance(), 1e-12);
  EXPECT_EQ(problem.GetMaxIter(), 30);
  problem.SetHMatrix(h);
  std::vector<double> values;
  ASSERT_EQ(problem.GetSorted(values, false), 33);
  const std::vector<double> wanted = Lapack(h);
  for (int i = 0; i < 33; ++i) {
    EXPECT_NEAR(values[At(i)], wanted[At(i)], 1e-11 * Norm(h));
  }
}

TEST(EigenValues, SettingsRefuseWhatIsNotPositive) {
  QVEigenValues problem(-1.0, 0);
  EXPECT_EQ(problem.GetTolerance(), 1e-12);
  EXPECT_EQ(problem.GetMaxIter(), 30);
  EXPECT_TRUE(problem.SetTolerance(1e-9));
  EXPECT_FALSE(problem.SetTolerance(0.0));
  EXPECT_FALSE(problem.SetTolerance(std::nan("")));
  EXPECT_EQ(problem.GetTolerance(), 1e-9);
  EXPECT_TRUE(problem.SetMaxIter(1));
  EXPECT_FALSE(problem.SetMaxIter(0));
  EXPECT_EQ(problem.GetMaxIter(), 1);
}

TEST(EigenValues, OneByOneGivesItsElementWithoutIterating) {
  QVSymMatrix h(1, true);
  h.SetElem(0, 0, -4.5);
  QVEigenValues problem(h, 1e-12, 1);
  std::vector<double> values;
  QVRectMatrix vectors;
  EXPECT_EQ(problem.Compute(values, vectors), 1);
  EXPECT_EQ(values, std::vector<double>{-4.5});
  EXPECT_EQ(vectors.GetElem(0, 0), 1.0);
}

TEST(EigenValues, DiagonalMatrixKeepsItsOrder) {
  QVSymMatrix h(4, true);
  const std::vector<double> diagonal{3.0, -1.0, 7.0, 2.0};
  for (int i = 0; i < 4; ++i) {
    h.SetElem(i, i, diagonal[At(i)]);
  }
  QVEigenValues problem(h, 1e-12, 1);
  std::vector<double> values;
  EXPECT_EQ(problem.Compute(values), 4);
  EXPECT_EQ(values, diagonal);
}

TEST(EigenValues, NoMatrixGivesACountBelowOne) {
  QVEigenValues problem;
  std::vector<double> values{1.0};
  QVRectMatrix vectors;
  EXPECT_LT(problem.Compute(values), 1);
  EXPECT_LT(problem.Compute(values, vectors), 1);
  EXPECT_LT(problem.GetSorted(values, true), 1);
  EXPECT_LT(problem.GetSorted(values, vectors, true), 1);
  EXPECT_EQ(values, std::vector<double>{1.0});
  bool flag = true;
  EXPECT_FALSE(problem.IsPDHMatrix(0.0, flag));
  QVSymMatrix out;
  EXPECT_FALSE(problem.GetPDHMatrix(0.0, out, flag));
  EXPECT_FALSE(flag);
}

TEST(EigenValues, TooFewIterationsGiveTheFirstOnes) {
  QVSymMatrix h(3, true);
  const double elements[] = {2.0, 1.0, 3.0, 0.5, 1.5, -1.0};
  for (int p = 0; p < 6; ++p) {
    h.SetElem(p, elements[p]);
  }
  QVEigenValues problem(h, 1e-12, 1);
  std::vector<double> values;
  EXPECT_LT(problem.Compute(values), 3);
}

TEST(EigenValues, CountStopsAtTheFirstThatDoesNotConverge) {
  // Two 1 x 1 blocks behind which a dense block needs more than one iteration. QL starts at the
  // top.
  QVSymMatrix h(5, true);
  h.SetElem(0, 0, 10.0);
  h.SetElem(1, 1, 20.0);
  const double block[] = {2.0, 1.0, 3.0, 0.5, 1.5, -1.0};
  int place = 0;
  for (int i = 2; i < 5; ++i) {
    for (int j = 2; j <= i; ++j) {
      h.SetElem(i, j, block[place++]);
    }
  }
  QVEigenValues problem(h, 1e-14, 1);
  std::vector<double> values;
  EXPECT_EQ(problem.Compute(values), 2);
  EXPECT_EQ(values, (std::vector<double>{10.0, 20.0, 0.0, 0.0, 0.0}));
  EXPECT_EQ(problem.GetSorted(values, true), 2);
  EXPECT_EQ(values, (std::vector<double>{20.0, 10.0, 0.0, 0.0, 0.0}));
}

TEST(EigenValues, SecondComputeOfTheSameOrderGivesTheFirstValues) {
  QVEigenValues problem(Make(7, Shape::Random), kFullPrecision, 30);
  std::vector<double> first;
  std::vector<double> second;
  EXPECT_EQ(problem.Compute(first), 7);
  problem.SetHMatrix(Make(7, Shape::Identity));
  EXPECT_EQ(problem.Compute(second), 7);
  EXPECT_EQ(first, second);
  problem.SetHMatrix(Make(3, Shape::Identity));
  EXPECT_EQ(problem.Compute(second), 3);
  EXPECT_EQ(second, (std::vector<double>{1.0, 1.0, 1.0}));
}

TEST(EigenValues, SortedBothWaysWithTheirVectors) {
  const int n = 33;
  const QVSymMatrix h = Make(n, Shape::Random);
  for (const bool descending : {true, false}) {
    QVEigenValues problem(h, kFullPrecision, 60);
    std::vector<double> values;
    QVRectMatrix z;
    ASSERT_EQ(problem.GetSorted(values, z, descending), n);
    std::vector<double> alone;
    EXPECT_EQ(problem.GetSorted(alone, descending), n);
    EXPECT_EQ(alone, values);
    for (int k = 0; k + 1 < n; ++k) {
      EXPECT_TRUE(descending ? values[At(k)] >= values[At(k + 1)]
                             : values[At(k)] <= values[At(k + 1)]);
    }
    for (int k = 0; k < n; ++k) {
      double quotient = 0.0;
      for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
          quotient += z.GetElem(k, i) * h.GetElem(i, j) * z.GetElem(k, j);
        }
      }
      EXPECT_NEAR(quotient, values[At(k)], 30 * n * kEpsilon * Norm(h));
    }
  }
}

// --- the pencil ---------------------------------------------------------------------------------

TEST(EigenPencil, ReducesToThePlainProblem) {
  for (const int n : {1, 3, 7, 65}) {
    // E = L L' with L = 2 I + a subdiagonal of ones: values of the pencil are those of L^-1 H L^-T.
    const QVSymMatrix h = Make(n, Shape::Random);
    QVSymMatrix e(n, true);
    for (int i = 0; i < n; ++i) {
      e.SetElem(i, i, i == 0 ? 4.0 : 5.0);
      if (i > 0) e.SetElem(i, i - 1, 2.0);
    }
    QVEigenValues problem(h, e, kFullPrecision, 60);
    ASSERT_TRUE(problem.IsValidEMatrix());
    std::vector<double> values;
    ASSERT_EQ(problem.GetSorted(values, false), n);
    QVSymMatrix reduced(n, true);
    std::vector<std::vector<double>> half(At(n), std::vector<double>(At(n)));
    for (int j = 0; j < n; ++j) {  // half = L^-1 H, then reduced = half L^-T
      for (int i = 0; i < n; ++i) {
        half[At(i)][At(j)] = (h.GetElem(i, j) - (i > 0 ? half[At(i - 1)][At(j)] : 0.0)) / 2.0;
      }
    }
    for (int i = 0; i < n; ++i) {
      double before = 0.0;
      for (int j = 0; j < n; ++j) {
        before = (half[At(i)][At(j)] - before) / 2.0;
        if (j <= i) reduced.SetElem(i, j, before);
      }
    }
    const std::vector<double> wanted = Lapack(reduced);
    for (int i = 0; i < n; ++i) {
      EXPECT_NEAR(values[At(i)], wanted[At(i)], 1e-12 * n * Norm(reduced)) << n;
    }
  }
}

TEST(EigenPencil, SingularEDropsItsRows) {
  QVSymMatrix h(2, true);
  h.SetElem(0, 0, 6.0);
  h.SetElem(1, 1, 5.0);
  QVSymMatrix e(2, true);
  e.SetElem(0, 0, 4.0);  // row 1 of E is zero: rank 1
  QVEigenValues problem(h, e, 1e-12, 30);
  EXPECT_TRUE(problem.IsValidEMatrix());
  std::vector<double> values;
  EXPECT_EQ(problem.GetSorted(values, true), 2);
  EXPECT_NEAR(values[0], 1.5, 1e-15);
  EXPECT_EQ(values[1], 0.0);
}

TEST(EigenPencil, RankZeroAndAnotherOrderAreRefusedAndClearE) {
  const QVSymMatrix h = Make(3, Shape::Identity);
  for (const QVSymMatrix & refused : {QVSymMatrix(3, true), Make(4, Shape::Identity)}) {
    QVEigenValues problem(h, Make(3, Shape::Identity), 1e-12, 30);
    EXPECT_TRUE(problem.IsValidEMatrix());
    EXPECT_FALSE(problem.SetEMatrix(refused));
    EXPECT_FALSE(problem.IsValidEMatrix());
    std::vector<double> values;
    EXPECT_EQ(problem.Compute(values), 3);  // the plain problem
    EXPECT_EQ(values, (std::vector<double>{1.0, 1.0, 1.0}));
  }
}

TEST(EigenPencil, StalePencilOfAnotherOrderGivesZero) {
  QVEigenValues problem(Make(3, Shape::Identity), Make(3, Shape::Identity), 1e-12, 30);
  problem.SetHMatrix(Make(5, Shape::Random));
  std::vector<double> values;
  QVRectMatrix vectors;
  EXPECT_EQ(problem.Compute(values), 0);
  EXPECT_EQ(problem.Compute(values, vectors), 0);
  QVSymMatrix out;
  EXPECT_FALSE(problem.GetPDHMatrix(0.0, out));
}

TEST(EigenPencil, ReductionOfAnEarlierHStays) {
  QVEigenValues problem(Make(3, Shape::Identity), Make(3, Shape::Identity), 1e-12, 30);
  problem.SetHMatrix(Make(3, Shape::Zero));
  std::vector<double> values;
  EXPECT_EQ(problem.Compute(values), 3);
  EXPECT_EQ(values, (std::vector<double>{1.0, 1.0, 1.0}));
}

// --- positive definite --------------------------------------------------------------------------

TEST(PositiveDefinite, EpsNotAboveZeroStandsForOneMillionth) {
  QVSymMatrix h = Make(2, Shape::Identity);
  h.SetElem(1, 1, 0.5e-6);
  for (const double eps : {0.0, -1.0}) {
    bool isPD = true;
    EXPECT_TRUE(QVEigenValues(h, 1e-12, 30).IsPDHMatrix(eps, isPD));
    EXPECT_FALSE(isPD);
  }
  bool isPD = false;
  EXPECT_TRUE(QVEigenValues(h, 1e-12, 30).IsPDHMatrix(0.5e-6, isPD));  // the bound itself passes
  EXPECT_TRUE(isPD);
}

TEST(PositiveDefinite, OneThatIsSoAlreadyComesBackUnchanged) {
  const QVSymMatrix h = Make(7, Shape::Identity);
  QVEigenValues problem(h, 1e-12, 30);
  QVSymMatrix out;
  bool changed = true;
  EXPECT_TRUE(problem.GetPDHMatrix(0.0, out, changed));
  EXPECT_FALSE(changed);
  EXPECT_EQ(out.AsVector(), h.AsVector());
}

TEST(PositiveDefinite, RaisesTheEigenvaluesBelowEps) {
  for (const int n : {2, 7, 65}) {
    const QVSymMatrix h = Make(n, Shape::Random);
    QVEigenValues problem(h, kFullPrecision, 60);
    QVSymMatrix out;
    bool changed = false;
    EXPECT_TRUE(problem.GetPDHMatrix(0.25, out, changed));
    EXPECT_TRUE(changed);
    std::vector<double> wanted = Lapack(h);
    for (double & v : wanted) {
      v = std::max(v, 0.25);
    }
    const std::vector<double> got = Lapack(out);
    for (int i = 0; i < n; ++i) {
      EXPECT_NEAR(got[At(i)], wanted[At(i)], 30 * n * kEpsilon * Norm(h));
    }
  }
}

TEST(PositiveDefinite, FailsWhenAnEigenvalueIsNotFound) {
  QVEigenValues problem(Make(7, Shape::Random), kFullPrecision, 1);
  bool flag = true;
  EXPECT_FALSE(problem.IsPDHMatrix(0.0, flag));
  QVSymMatrix out;
  EXPECT_FALSE(problem.GetPDHMatrix(0.0, out, flag));
  EXPECT_FALSE(flag);
  EXPECT_EQ(out.GetNRows(), 7);
  EXPECT_EQ(out.AsVector(), std::vector<double>(28, 0.0));
}

TEST(EigenValues, NotANumberEnds) {
  QVSymMatrix h = Make(7, Shape::Random);
  h.SetElem(5, 2, std::nan(""));
  QVEigenValues problem(h, 1e-12, 30);
  std::vector<double> values;
  EXPECT_LT(problem.Compute(values), 7);
}

TEST(EigenValues, CopiesAreIndependent) {
  QVEigenValues first(Make(3, Shape::Identity), 1e-12, 30);
  QVEigenValues second(first);
  second.SetHMatrix(Make(2, Shape::Zero));
  std::vector<double> values;
  EXPECT_EQ(first.Compute(values), 3);
  first = second;
  EXPECT_EQ(first.Compute(values), 2);
}

}  // namespace
