// One body of tests for every path: each kernel against its formula, bit by bit.
#include "math/kernels/kernel_table.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace QVMath_940::kernels {

// A path is named in reports, not shown as an address, which changes from run to run.
void PrintTo(const KernelTable * path, std::ostream * out) {
  *out << path->name;
}

}  // namespace QVMath_940::kernels

namespace {

using namespace QVMath_940::kernels;

class KernelTest : public ::testing::TestWithParam<const KernelTable *> {
 protected:
  std::vector<double> Random(std::size_t n) {
    std::vector<double> values(n);
    for (double & v : values) {
      v = fNormal(fEngine);
    }
    return values;
  }

  /// Values that show a wrong order of additions or a wrong rounding at once.
  std::mt19937 fEngine{20240501};
  std::normal_distribution<double> fNormal{0.0, 100.0};
};

void ExpectSameBits(const std::vector<double> & wanted, const std::vector<double> & got) {
  ASSERT_EQ(wanted.size(), got.size());
  if (wanted.empty()) return;
  EXPECT_EQ(std::memcmp(wanted.data(), got.data(), wanted.size() * sizeof(double)), 0);
}

/// Start of row r of a walk, by its definition.
template <typename T>
T * RowAt(RowWalk<T> walk, int r) {
  for (; r > 0; --r) {
    walk.start += walk.step;
    walk.step += walk.grow;
  }
  return walk.start;
}

const std::vector<std::size_t> kLengths{0, 1, 2, 3, 7, 8, 9, 15, 16, 33, 64, 65, 129, 300};

TEST_P(KernelTest, TileAddsInOrderOfK) {
  for (const int count : {0, 1, 2, 5, 64}) {
    for (const bool fused : {true, false}) {
      const auto a = Random(static_cast<std::size_t>((count + 1) * kTileRows));
      const auto b = Random(static_cast<std::size_t>(count * (count + 1) / 2 + 40 * count + 64));
      auto c = Random(30 * kTileRows + 64);
      auto wanted = c;
      const ConstRows aRows{a.data(), kTileRows, 0};
      const ConstRows bRows{b.data(), 33, 1};  // as rows of a packed triangle
      for (int r = 0; r < kTileRows; ++r) {
        double * const row = RowAt(Rows{wanted.data(), 26, 1}, r);
        for (int j = 0; j < kTileCols; ++j) {
          for (int k = 0; k < count; ++k) {
            const double x = RowAt(aRows, k)[r];
            const double y = RowAt(bRows, k)[j];
            row[j] = fused ? std::fma(x, y, row[j]) : row[j] + x * y;
          }
        }
      }
      (fused ? GetParam()->tileFused : GetParam()->tilePlain)(count, aRows, bRows,
                                                              {c.data(), 26, 1});
      ExpectSameBits(wanted, c);
    }
  }
}

TEST_P(KernelTest, AxpyLeavesTheRestAlone) {
  for (const std::size_t n : kLengths) {
    for (const bool fused : {true, false}) {
      const auto x = Random(n + 8);
      auto y = Random(n + 8);
      auto wanted = y;
      for (std::size_t j = 0; j < n; ++j) {
        wanted[j] = fused ? std::fma(1.7, x[j], y[j]) : y[j] + 1.7 * x[j];
      }
      (fused ? GetParam()->axpyFused : GetParam()->axpyPlain)(n, 1.7, x.data(), y.data());
      ExpectSameBits(wanted, y);
    }
  }
}

TEST_P(KernelTest, CombineWalksUpAndDownATriangle) {
  for (const std::size_t n : kLengths) {
    const int first = static_cast<int>(n);
    const int count = 5;
    const auto triangle = Random(PackedRow(first + count + 1));
    const auto w = Random(count);
    for (const bool up : {false, true}) {
      const ConstRows walk =
          up ? ConstRows{triangle.data() + PackedRow(first + count - 1), -(first + count - 1), 1}
             : ConstRows{triangle.data() + PackedRow(first), first + 1, 1};
      auto y = Random(n);
      auto wanted = y;
      for (int k = 0; k < count; ++k) {
        const int row = up ? first + count - 1 - k : first + k;
        for (std::size_t j = 0; j < n; ++j) {
          wanted[j] =
              std::fma(w[static_cast<std::size_t>(k)], triangle[PackedRow(row) + j], wanted[j]);
        }
      }
      GetParam()->combineFused(count, w.data(), walk, n, y.data());
      ExpectSameBits(wanted, y);
    }
  }
}

TEST_P(KernelTest, DotRowsKeepsTheOrderOfEachSum) {
  for (const std::size_t n : kLengths) {
    for (const int rows : {0, 1, 7, 8, 9, 20}) {
      const auto x = Random(static_cast<std::size_t>(rows) * n + 1);
      const auto v = Random(n + 1);
      auto sum = Random(static_cast<std::size_t>(rows));
      auto wanted = sum;
      for (std::size_t r = 0; r < static_cast<std::size_t>(rows); ++r) {
        for (std::size_t j = 0; j < n; ++j) {
          double & s = wanted[r];
          s = std::fma(x[r * n + j], v[j], s);
        }
      }
      GetParam()->dotRowsFused(rows, {x.data(), static_cast<std::ptrdiff_t>(n), 0}, v.data(), n,
                               sum.data());
      ExpectSameBits(wanted, sum);
    }
  }
}

TEST_P(KernelTest, WalksReadColumnsAndStrides) {
  for (const std::size_t n : kLengths) {
    const auto triangle = Random(PackedRow(static_cast<int>(n) + 4));
    const auto v = Random(3 * n + 1);
    const ConstRows column{triangle.data() + PackedRow(3) + 2, 4, 1};  // (3, 2), (4, 2), ..
    const ConstRows strided{v.data(), 3, 0};
    double wanted = 0.7;
    auto y = Random(n + 8);
    auto wantedY = y;
    for (std::size_t j = 0; j < n; ++j) {
      const double element = triangle[PackedRow(static_cast<int>(j) + 3) + 2];
      wanted = std::fma(element, v[3 * j], wanted);
      wantedY[j] = std::fma(1.3, element, wantedY[j]);
    }
    EXPECT_EQ(GetParam()->dotWalkFused(n, column, strided, 0.7), wanted);
    GetParam()->axpyWalkFused(n, 1.3, column, y.data());
    ExpectSameBits(wantedY, y);
  }
}

TEST_P(KernelTest, MultiplyAddGoesElementByElement) {
  for (const std::size_t n : kLengths) {
    const auto x = Random(n + 8);
    const auto y = Random(n + 8);
    auto sum = Random(n + 8);
    auto wanted = sum;
    for (std::size_t j = 0; j < n; ++j) {
      wanted[j] = std::fma(x[j], y[j], sum[j]);
    }
    GetParam()->multiplyAddFused(n, x.data(), y.data(), sum.data());
    ExpectSameBits(wanted, sum);
  }
}

TEST_P(KernelTest, TriangleTimesVectorKeepsTheOrderOfEachSum) {
  for (const int n : {0, 1, 2, 3, 7, 15, 16, 17, 32, 33, 64, 65, 129, 150, 300}) {
    const std::size_t size = static_cast<std::size_t>(n);
    const auto a = Random(PackedRow(n));  // exactly as long, so that a sanitizer sees every read
    const auto v = Random(size);
    const auto at = [&](int i, int j) {
      return a[PackedRow(std::max(i, j)) + static_cast<std::size_t>(std::min(i, j))];
    };
    std::vector<double> symmetric(size), lower(size), transposed(size);
    for (int i = 0; i < n; ++i) {
      const std::size_t row = static_cast<std::size_t>(i);
      for (int j = 0; j < n; ++j) {
        const double x = v[static_cast<std::size_t>(j)];
        symmetric[row] = std::fma(at(i, j), x, symmetric[row]);
        if (j <= i) lower[row] = std::fma(at(i, j), x, lower[row]);
        if (j >= i) transposed[row] = std::fma(at(i, j), x, transposed[row]);
      }
    }
    auto y = Random(size);
    GetParam()->symmetricProductFused(n, a.data(), v.data(), y.data());
    ExpectSameBits(symmetric, y);
    y = Random(size);
    GetParam()->lowerProductFused(n, a.data(), v.data(), y.data());
    ExpectSameBits(lower, y);
    y = Random(size);
    GetParam()->lowerTransposedProductFused(n, a.data(), v.data(), y.data());
    ExpectSameBits(transposed, y);
  }
}

TEST_P(KernelTest, TriangleTimesVectorLeavesOthersOut) {
  // An infinity outside a sum must not turn it into NaN: nothing is multiplied by a zero in its
  // place.
  const int n = 33;
  auto v = Random(n);
  v[20] = INFINITY;
  const std::vector<double> a(PackedRow(n), 1.0);
  std::vector<double> y(n);
  GetParam()->lowerProductFused(n, a.data(), v.data(), y.data());
  for (std::size_t i = 0; i < n; ++i) {
    EXPECT_EQ(std::isinf(y[i]), i >= 20);
    EXPECT_FALSE(std::isnan(y[i]));
  }
  GetParam()->lowerTransposedProductFused(n, a.data(), v.data(), y.data());
  for (std::size_t i = 0; i < n; ++i) {
    EXPECT_EQ(std::isinf(y[i]), i <= 20);
    EXPECT_FALSE(std::isnan(y[i]));
  }
}

TEST_P(KernelTest, RankOneChangesTheTriangleAlone) {
  for (const int n : {0, 1, 2, 3, 7, 33, 64, 129}) {
    for (const bool fused : {true, false}) {
      const auto b = Random(static_cast<std::size_t>(n) + 1);
      const auto c = Random(static_cast<std::size_t>(n) + 1);
      auto a = Random(PackedRow(n) + 8);
      auto wanted = a;
      for (int i = 0; i < n; ++i) {
        for (int j = 0; j <= i; ++j) {
          double & e = wanted[PackedRow(i) + static_cast<std::size_t>(j)];
          const double x = b[static_cast<std::size_t>(i)];
          const double y = c[static_cast<std::size_t>(j)];
          e = fused ? std::fma(x, y, e) : e + x * y;
        }
      }
      (fused ? GetParam()->rankOneFused : GetParam()->rankOnePlain)(n, b.data(), c.data(),
                                                                    a.data());
      ExpectSameBits(wanted, a);
    }
  }
}

TEST_P(KernelTest, SweepRowUpdatesAllButItsOwnRowAndColumn) {
  for (const int n : {1, 2, 3, 7, 33, 64, 129}) {
    for (const int k : {0, n / 2, n - 1}) {
      for (const bool fused : {true, false}) {
        const auto b = Random(static_cast<std::size_t>(n));
        auto c = Random(static_cast<std::size_t>(n));
        c[static_cast<std::size_t>(k)] = 0.0;
        auto a = Random(PackedRow(n));
        auto wanted = a;
        for (int i = 0; i < n; ++i) {
          for (int j = 0; j <= i; ++j) {
            double & e = wanted[PackedRow(i) + static_cast<std::size_t>(j)];
            const double x = b[static_cast<std::size_t>(i)];
            const double y = c[static_cast<std::size_t>(j)];
            if (i == k || j == k) {
              e = i == j ? -5.0 : c[static_cast<std::size_t>(i == k ? j : i)];
            } else {
              e = fused ? std::fma(x, y, e) : e + x * y;
            }
          }
        }
        (fused ? GetParam()->sweepRowFused : GetParam()->sweepRowPlain)(n, k, b.data(), c.data(),
                                                                        -5.0, a.data());
        ExpectSameBits(wanted, a);
      }
    }
  }
}

TEST_P(KernelTest, RankTwoSubtractsBothProductsInTurn) {
  for (const int n : {0, 1, 2, 3, 7, 33, 64, 129}) {
    for (const bool fused : {true, false}) {
      const auto x = Random(static_cast<std::size_t>(n) + 1);
      const auto y = Random(static_cast<std::size_t>(n) + 1);
      auto a = Random(PackedRow(n) + 8);
      auto wanted = a;
      for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i) {
        for (std::size_t j = 0; j <= i; ++j) {
          double & e = wanted[PackedRow(static_cast<int>(i)) + j];
          e = fused ? std::fma(-x[i], y[j], e) : e + -x[i] * y[j];
          e = fused ? std::fma(-y[i], x[j], e) : e + -y[i] * x[j];
        }
      }
      (fused ? GetParam()->rankTwoFused : GetParam()->rankTwoPlain)(n, x.data(), y.data(),
                                                                    a.data());
      ExpectSameBits(wanted, a);
    }
  }
}

TEST_P(KernelTest, RotateChainTurnsNeighboursFromTheLastPairDown) {
  for (const std::size_t n : kLengths) {
    for (const int count : {0, 1, 5}) {
      for (const bool fused : {true, false}) {
        const std::size_t step = n + 3;
        const auto c = Random(6);
        const auto s = Random(6);
        auto z = Random(6 * step);
        auto wanted = z;
        for (std::size_t i = static_cast<std::size_t>(count); i-- > 0;) {
          for (std::size_t k = 0; k < n; ++k) {
            double & upper = wanted[(i + 1) * step + k];
            double & lower = wanted[i * step + k];
            const double x = upper;
            const double y = lower;
            upper = fused ? std::fma(x, c[i], y * s[i]) : x * c[i] + y * s[i];
            lower = fused ? std::fma(y, c[i], -(x * s[i])) : y * c[i] - x * s[i];
          }
        }
        (fused ? GetParam()->rotateChainFused : GetParam()->rotateChainPlain)(
            count, c.data(), s.data(), z.data(), static_cast<std::ptrdiff_t>(step), n);
        ExpectSameBits(wanted, z);
      }
    }
  }
}

TEST_P(KernelTest, TileByRowsReadsForwardAndBackward) {
  for (const int count : {0, 1, 5, 64}) {
    for (const int step : {1, -1}) {
      const auto a = Random(static_cast<std::size_t>(kTileRows * (count + 1)));
      const auto b = Random(static_cast<std::size_t>(count * kTileCols) + 1);
      auto c = Random(kTileRows * kTileCols);
      auto wanted = c;
      const double * rows[kTileRows];
      for (int r = 0; r < kTileRows; ++r) {
        rows[r] = a.data() + r * (count + 1) + (step < 0 ? count : 0);
        for (int j = 0; j < kTileCols; ++j) {
          double & e = wanted[static_cast<std::size_t>(r * kTileCols + j)];
          for (int k = 0; k < count; ++k) {
            e = std::fma(rows[r][k * step], b[static_cast<std::size_t>(k * kTileCols + j)], e);
          }
        }
      }
      GetParam()->tileByRowsFused(count, rows, step, {b.data(), kTileCols, 0},
                                  {c.data(), kTileCols, 0});
      ExpectSameBits(wanted, c);
    }
  }
}

/// A block of columns as substitution reads it: row m holds values behind (or before) place m.
std::vector<double> Triangle(std::vector<double> values, bool behind) {
  for (int m = 0; m < kTileCols; ++m) {
    for (int j = 0; j < kTileCols; ++j) {
      if (behind ? j <= m : j >= m) {
        values[static_cast<std::size_t>(m * kTileCols + j)] = 0.0;
      }
    }
  }
  return values;
}

TEST_P(KernelTest, SubstitutionGoesForwardAndBackward) {
  for (const int width : {1, 2, 7, 8, 9, 23, 24}) {
    for (const int rows : {1, 3, 8}) {
      for (const bool forward : {true, false}) {
        const auto d = Triangle(Random(kTileCols * kTileCols), forward);
        auto pivots = Random(kTileCols);
        pivots[0] = 0.0;
        auto matrix = Random(kTileRows * kTileCols);
        auto tile = Random(kTileRows * kTileCols);
        auto wanted = matrix;
        double * row[kTileRows];
        for (int r = 0; r < rows; ++r) {
          row[r] = matrix.data() + r * kTileCols;
          double * const x = wanted.data() + r * kTileCols;
          std::vector<double> s(tile.begin() + r * kTileCols, tile.begin() + (r + 1) * kTileCols);
          for (int step = 0; step < width; ++step) {
            const int m = forward ? step : width - 1 - step;
            const auto at = static_cast<std::size_t>(m);
            x[m] = !forward            ? s[at] * pivots[at]
                   : pivots[at] != 0.0 ? (x[m] - s[at]) / pivots[at]
                                       : 0.0;
            for (int j = forward ? m + 1 : 0; j < (forward ? width : m); ++j) {
              double & sum = s[static_cast<std::size_t>(j)];
              sum = std::fma(x[m], d[static_cast<std::size_t>(m * kTileCols + j)], sum);
            }
          }
        }
        (forward ? GetParam()->solveForwardFused : GetParam()->multiplyBackwardFused)(
            rows, width, row, tile.data(), d.data(), pivots.data());
        ExpectSameBits(wanted, matrix);
      }
    }
  }
}

TEST_P(KernelTest, ScaleMultipliesEachOnce) {
  for (const std::size_t n : kLengths) {
    auto x = Random(n + 8);
    auto wanted = x;
    for (std::size_t j = 0; j < n; ++j) {
      wanted[j] *= 0.3;
    }
    GetParam()->scale(n, 0.3, x.data());
    ExpectSameBits(wanted, x);
  }
}

TEST_P(KernelTest, SweepVectorsFollowTheSign) {
  for (const std::size_t n : kLengths) {
    for (const bool negate : {true, false}) {
      auto column = Random(n);
      auto scaled = Random(n);
      auto diagonal = Random(n);
      auto wantedColumn = column;
      auto wantedScaled = scaled;
      auto wantedDiagonal = diagonal;
      for (std::size_t j = 0; j < n; ++j) {
        wantedScaled[j] = 0.7 * column[j];
        wantedColumn[j] = negate ? -column[j] : column[j];
        wantedDiagonal[j] = std::fma(wantedColumn[j], wantedScaled[j], diagonal[j]);
      }
      GetParam()->sweepVectorsFused(n, 0.7, negate, column.data(), scaled.data(), diagonal.data());
      ExpectSameBits(wantedColumn, column);
      ExpectSameBits(wantedScaled, scaled);
      ExpectSameBits(wantedDiagonal, diagonal);
    }
  }
}

TEST_P(KernelTest, SweptDiagonalsAboveFindsOneFailureAnywhere) {
  for (const std::size_t n : kLengths) {
    const std::vector<double> c(n, 2.0);
    const std::vector<double> ref(n, 3.0);
    // (d - (2 / 4) * 2) * 0.5 * 3 is -1.5 for d = 0 and 0.0 for d = 1.
    std::vector<double> d(n, 1.0);
    EXPECT_TRUE(GetParam()->sweptDiagonalsAbove(n, d.data(), c.data(), 4.0, 0.5, ref.data(), -1.0));
    for (std::size_t bad = 0; bad < n; ++bad) {
      d[bad] = 0.0;
      EXPECT_FALSE(
          GetParam()->sweptDiagonalsAbove(n, d.data(), c.data(), 4.0, 0.5, ref.data(), -1.0));
      d[bad] = std::nan("");
      EXPECT_FALSE(
          GetParam()->sweptDiagonalsAbove(n, d.data(), c.data(), 4.0, 0.5, ref.data(), -1.0));
      d[bad] = 1.0;
    }
  }
}

TEST_P(KernelTest, RotationsRunAlongEachRow) {
  for (const std::size_t n : kLengths) {
    for (int rows = 1; rows <= kTileRows; ++rows) {
      for (const bool back : {false, true}) {
        auto c = Random(n + 1);
        auto s = c;
        for (std::size_t j = 0; j <= n; ++j) {
          s[j] = std::sin(c[j]);
          c[j] = std::cos(c[j]);
        }
        auto elements = Random(static_cast<std::size_t>(rows) * (n + 3));
        auto x = Random(kTileRows);
        auto wanted = elements;
        auto wantedX = x;
        double * row[kTileRows];
        for (int r = 0; r < rows; ++r) {
          const std::size_t start = static_cast<std::size_t>(r) * (n + 3) + 1;
          row[r] = elements.data() + start;
          double & xr = wantedX[static_cast<std::size_t>(r)];
          for (std::size_t k = 0; k < n; ++k) {
            const std::size_t j = back ? n - 1 - k : k;
            double & l = wanted[start + j];
            const double turned =
                back ? std::fma(c[j], l, -(s[j] * xr)) : std::fma(c[j], l, s[j] * xr);
            xr = back ? std::fma(c[j], xr, s[j] * l) : std::fma(c[j], xr, -(s[j] * l));
            l = turned;
          }
        }
        (back ? GetParam()->rotateRowsBackFused : GetParam()->rotateRowsFused)(
            rows, static_cast<int>(n), c.data(), s.data(), row, x.data());
        ExpectSameBits(wanted, elements);
        ExpectSameBits(wantedX, x);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EveryPath, KernelTest, ::testing::ValuesIn(AvailableKernels()),
                         [](const auto & path) { return std::string(path.param->name); });

TEST(Kernels, TheBestPathIsTaken) {
  if (std::getenv("QVCOMMON_KERNELS") == nullptr) {
    EXPECT_STREQ(Kernels().name, AvailableKernels().back()->name);
  } else {
    EXPECT_STREQ(Kernels().name, std::getenv("QVCOMMON_KERNELS"));
  }
}

}  // namespace
