// The three list forms against single sweeps, bit by bit, at orders on both sides of the one from
// which updates are fused; and the plain form of the single sweep against the fast one.
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

/// What makes pivots fail on the way.
enum class Planted { Nothing, DependentRows, ZeroRows, NegativeDiagonal, NotANumber };
constexpr Planted kAllPlanted[] = {Planted::Nothing, Planted::DependentRows, Planted::ZeroRows,
                                   Planted::NegativeDiagonal, Planted::NotANumber};

class SweepBits : public ::testing::TestWithParam<int> {
 protected:
  /// A cross-product matrix of random rows, with trouble planted in every eleventh row.
  QVSymMatrix Make(Planted planted) {
    const int n = GetParam();
    QVSymMatrix a(n, true);
    std::vector<std::vector<double>> x(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
      auto & row = x[static_cast<std::size_t>(i)];
      row.resize(40);
      for (double & v : row) {
        v = fNormal(fEngine);
      }
      if (planted == Planted::DependentRows && i % 11 == 5) {
        row = x[static_cast<std::size_t>(i / 2)];
      }
    }
    for (int i = 0; i < n; ++i) {
      for (int j = 0; j <= i; ++j) {
        double sum = i == j && planted != Planted::DependentRows ? 60.0 : 0.0;
        for (std::size_t k = 0; k < 40; ++k) {
          sum += x[static_cast<std::size_t>(i)][k] * x[static_cast<std::size_t>(j)][k];
        }
        a.SetElem(i, j, sum);
      }
    }
    for (int i = 5; i < n; i += 11) {
      switch (planted) {
        case Planted::ZeroRows:
          a.ZeroOut(i);
          break;
        case Planted::NegativeDiagonal:
          a.SetElem(i, i, -1.0);
          break;
        case Planted::NotANumber:
          if (i == n - n % 11 - 6) a.SetElem(i, i, std::nan(""));
          break;
        default:
          break;
      }
    }
    return a;
  }

  std::vector<double> Reference(const QVSymMatrix & a) const {
    std::vector<double> ref;
    a.GetDiagonal(ref);
    for (double & r : ref) {
      r = r < 1.0 || std::isnan(r) ? 1.0 : r;
    }
    return ref;
  }

  static void ExpectSameBits(const QVSymMatrix & wanted, const QVSymMatrix & got) {
    const auto & w = wanted.AsVector();
    const auto & g = got.AsVector();
    ASSERT_EQ(w.size(), g.size());
    std::size_t different = 0;
    for (std::size_t p = 0; p < w.size(); ++p) {
      const bool bothNaN = std::isnan(w[p]) && std::isnan(g[p]);
      different += !bothNaN && std::memcmp(&w[p], &g[p], sizeof(double)) != 0;
    }
    EXPECT_EQ(different, 0u);
  }

  std::mt19937 fEngine{7};
  std::normal_distribution<double> fNormal;
};

TEST_P(SweepBits, TheFastFormIsThePlainForm) {
  const int n = GetParam();
  for (const Planted planted : kAllPlanted) {
    QVSymMatrix fast = Make(planted);
    QVSymMatrix plain = fast;
    const auto ref = Reference(fast);
    QVBitSet sweptFast(n);
    QVBitSet sweptPlain(n);
    for (int step = 0; step < 40; ++step) {
      const int k = static_cast<int>(fEngine() % static_cast<unsigned>(n));
      EXPECT_EQ(fast.Sweep(k, kTolerance, ref, sweptFast, true),
                plain.SweepOrig(k, kTolerance, ref, sweptPlain, true));
    }
    EXPECT_TRUE(sweptFast == sweptPlain);
    ExpectSameBits(plain, fast);
  }
}

TEST(SweepBitsOfALargeMatrix, TheFastFormIsThePlainForm) {
  constexpr int n = 2100;  // above the order whose pivot column stands on the stack
  QVSymMatrix fast(n, true);
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < i; ++j) {
      fast.SetElem(i, j, std::sin(i + 0.37 * j));
    }
    fast.SetElem(i, i, n);
  }
  QVSymMatrix plain = fast;
  const std::vector<double> ref(n, 1.0);
  QVBitSet sweptFast(n);
  QVBitSet sweptPlain(n);
  for (const int k : {0, 2099, 1000, 2060, 1000}) {
    EXPECT_TRUE(fast.Sweep(k, kTolerance, ref, sweptFast, true));
    EXPECT_TRUE(plain.SweepOrig(k, kTolerance, ref, sweptPlain, true));
  }
  EXPECT_TRUE(sweptFast == sweptPlain);
  EXPECT_EQ(std::memcmp(fast.AsVector().data(), plain.AsVector().data(),
                        fast.AsVector().size() * sizeof(double)),
            0);
}

TEST_P(SweepBits, OnAllIsRowByRow) {
  const int n = GetParam();
  for (const Planted planted : kAllPlanted) {
    QVSymMatrix list = Make(planted);
    QVSymMatrix single = list;
    auto ref = Reference(list);
    QVBitSet sweptList;
    QVBitSet sweptSingle(n);
    for (int k = 0; k < n; ++k) {
      single.Sweep(k, kTolerance, ref, sweptSingle, false);
    }
    EXPECT_TRUE(list.SweepOnAll(kTolerance, sweptList, false, false, false, ref.data()));
    EXPECT_TRUE(sweptList == sweptSingle);
    const bool isTroubled =
        planted == Planted::NotANumber ? n >= 11 : planted != Planted::Nothing && n > 5;
    EXPECT_EQ(sweptList.InSet() < n, isTroubled);
    ExpectSameBits(single, list);
  }
}

TEST_P(SweepBits, OnManyIsRowByRowAndSumsTheSameLogarithms) {
  const int n = GetParam();
  const int count = n - n / 3;
  for (const Planted planted : kAllPlanted) {
    for (const bool useOldPivot : {true, false}) {
      QVSymMatrix list = Make(planted);
      QVSymMatrix single = list;
      auto ref = Reference(list);
      QVBitSet sweptList(n);
      QVBitSet sweptSingle(n);
      // A row behind the first ones that stands swept on entry takes part in the tests.
      list.Sweep(n - 1, kTolerance, ref, sweptList, false);
      single.Sweep(n - 1, kTolerance, ref, sweptSingle, false);
      double logSum = 0.0;
      for (int k = 0; k < count; ++k) {
        const double before = single.GetElem(k, k);
        if (single.Sweep(k, kTolerance, ref, sweptSingle, false)) {
          const double d = useOldPivot ? before : -single.GetElem(k, k);
          logSum += d > 0.0 ? std::log(d) : 0.0;
        }
      }
      double logDet = -1.0;
      EXPECT_TRUE(
          list.SweepOnMany(count, kTolerance, useOldPivot, sweptList, logDet, false, ref.data()));
      EXPECT_TRUE(sweptList == sweptSingle);
      EXPECT_EQ(logDet, logSum);
      ExpectSameBits(single, list);
    }
  }
}

TEST_P(SweepBits, OnSelectedIsRowByRowWithRepeatsAndReverseSweeps) {
  const int n = GetParam();
  for (const Planted planted : kAllPlanted) {
    QVSymMatrix list = Make(planted);
    QVSymMatrix single = list;
    auto ref = Reference(list);
    std::vector<int> rows;
    for (int step = 0; step < n + 20; ++step) {
      rows.push_back(static_cast<int>(fEngine() % static_cast<unsigned>(n)));
    }
    for (const int size : {n, n - 2}) {  // a short set never remembers the last rows
      QVBitSet sweptList(size);
      QVBitSet sweptSingle(size);
      for (const int k : rows) {
        single.Sweep(k, kTolerance, ref, sweptSingle, false);
      }
      EXPECT_TRUE(list.SweepOnSelected(rows, kTolerance, sweptList, false, ref.data()));
      EXPECT_TRUE(sweptList == sweptSingle);
      ExpectSameBits(single, list);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Orders, SweepBits,
                         ::testing::Values(3, 7, 20, 33, 63, 64, 65, 80, 100, 129, 177, 256, 300,
                                           411));

}  // namespace
