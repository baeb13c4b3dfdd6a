// The products by tiles, by lists and by parts against the formula of each element, bit by bit, at
// orders on both sides of the one from which additions are fused. The program is run on every
// kernel path.
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "../reference.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"

namespace {

using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;
using reference::At;
using reference::RandomRect;
using reference::RandomSym;
using reference::RandomVector;
using reference::SameBits;
using Vector = std::vector<double>;

class ProductBits : public ::testing::TestWithParam<int> {
 protected:
  const int n = GetParam();
  const QVSymMatrix s = RandomSym(n, 1);
  const QVSymMatrix g = RandomSym(n, 2);
  const QVSymMatrix m = RandomSym(n, 3);

  double Add(double x, double y, double sum) const {
    return n >= 64 ? std::fma(x, y, sum) : sum + x * y;
  }

  /// sum over k = from .. to - 1 of x(k) y(k).
  template <typename X, typename Y>
  double Sum(int from, int to, X x, Y y) const {
    double sum = 0.0;
    for (int k = from; k < to; ++k)
      sum = Add(x(k), y(k), sum);
    return sum;
  }

  template <typename Element>
  static QVSymMatrix Triangle(int order, Element element) {
    QVSymMatrix out(order, true);
    for (int i = 0; i < order; ++i)
      for (int j = 0; j <= i; ++j)
        out.SetElem(i, j, element(i, j));
    return out;
  }

  template <typename Element>
  static QVRectMatrix Rectangle(int rows, int cols, Element element) {
    QVRectMatrix out(rows, cols, true);
    for (int i = 0; i < rows; ++i)
      for (int j = 0; j < cols; ++j)
        out.SetElem(i, j, element(i, j));
    return out;
  }

  /// A S for a matrix given by its rows' stored elements.
  template <typename Element>
  QVRectMatrix TimesS(int rows, Element a) const {
    return Rectangle(rows, n, [&](int i, int j) {
      return Sum(
          0, n, [&](int k) { return a(i, k); }, [&](int k) { return s.GetElem(k, j); });
    });
  }

  static void ExpectSame(const QVSymMatrix & wanted, const QVSymMatrix & got) {
    EXPECT_TRUE(SameBits(wanted.AsVector(), got.AsVector()));
  }
  static void ExpectSame(const QVRectMatrix & wanted, const QVRectMatrix & got) {
    EXPECT_TRUE(SameBits(wanted.AsVector(), got.AsVector()));
  }
};

TEST_P(ProductBits, VectorsAndForms) {
  const Vector v = RandomVector(n, 4);
  Vector sv(v.size()), lv(v.size()), ltv(v.size()), out;
  for (int i = 0; i < n; ++i) {
    const auto row = [&](int k) { return s.GetElem(i, k); };
    const auto x = [&](int k) { return v[At(k)]; };
    sv[At(i)] = Sum(0, n, row, x);
    lv[At(i)] = Sum(0, i + 1, row, x);
    ltv[At(i)] = Sum(i, n, row, x);
    EXPECT_EQ(s.ComputeRVD(i, v, 1), sv[At(i)]);
  }
  s.ComputeSV(v, out);
  EXPECT_TRUE(SameBits(sv, out));
  s.ComputeLV(v, out);
  EXPECT_TRUE(SameBits(lv, out));
  s.ComputeLTransV(v, out);
  EXPECT_TRUE(SameBits(ltv, out));
  const auto x = [&](int k) { return v[At(k)]; };
  const double form = Sum(0, n, x, [&](int k) { return sv[At(k)]; });
  EXPECT_EQ(s.ComputeVSV(v), form);
  EXPECT_EQ(s.ComputeVSWParts(v, n, v, n), form);
  EXPECT_EQ(s.ComputeVSW(v.data(), 1, v.data(), 1), form);
  // A list of all rows in their order is the full vector.
  std::vector<int> rows;
  for (int i = 0; i < n; ++i)
    rows.push_back(i);
  s.ComputeSV(rows, v, out);
  EXPECT_TRUE(SameBits(sv, out));
  s.ComputeLV(rows, v, out);
  EXPECT_TRUE(SameBits(lv, out));
  s.ComputeLTransV(rows, v, out);
  EXPECT_TRUE(SameBits(ltv, out));
  EXPECT_EQ(s.ComputeVSV(rows, v), form);
  // The leading block of the matrix follows its order, not its own.
  const int k = n / 2;
  s.ComputeSV(k, v, out);
  for (int i = 0; i < k; ++i)
    EXPECT_EQ(out[At(i)], Sum(
                              0, k, [&](int q) { return s.GetElem(i, q); }, x));
}

TEST_P(ProductBits, SymmetricMatrices) {
  QVSymMatrix out;
  s.ComputeSTransS(out);
  ExpectSame(Triangle(n,
                      [&](int i, int j) {
                        return Sum(
                            0, n, [&](int k) { return s.GetElem(i, k); },
                            [&](int k) { return s.GetElem(j, k); });
                      }),
             out);
  if (n > 0) {
    EXPECT_EQ(s.ComputeDotProduct2Rows(n - 1, n / 2), out.GetElem(n - 1, n / 2));
  }
  const QVRectMatrix gs = TimesS(n, [&](int i, int k) { return g.GetElem(i, k); });
  QVRectMatrix rect;
  ASSERT_TRUE(g.ComputeSS(s, rect));
  ExpectSame(gs, rect);
  ASSERT_TRUE(s.ComputeGMG(g.AsVector(), out));
  ExpectSame(Triangle(n,
                      [&](int i, int j) {
                        return Sum(
                            0, n, [&](int k) { return gs.GetElem(i, k); },
                            [&](int k) { return g.GetElem(k, j); });
                      }),
             out);
}

TEST_P(ProductBits, SymmetricSumOfThree) {
  const QVRectMatrix ms = TimesS(n, [&](int i, int k) { return m.GetElem(i, k); });
  const QVRectMatrix gs = TimesS(n, [&](int i, int k) { return g.GetElem(i, k); });
  QVSymMatrix out;
  ASSERT_TRUE(s.ComputeMGN(m, g, out));
  ExpectSame(Triangle(n,
                      [&](int i, int j) {
                        double sum = 0.0;
                        for (int k = 0; k < n; ++k) {
                          sum = Add(ms.GetElem(i, k), g.GetElem(k, j), sum);
                          sum = Add(gs.GetElem(i, k), m.GetElem(k, j), sum);
                        }
                        return sum;
                      }),
             out);
  // Matrices that are not all finite take another way, to the same bits where the infinity is not
  // met: outside its own row and column.
  QVSymMatrix infinite = g;
  infinite.SetElem(n - 1, n - 1, INFINITY);
  QVSymMatrix other;
  ASSERT_TRUE(s.ComputeMGN(m, infinite, other));
  ASSERT_TRUE(out.DeleteOneRow(n - 1));
  ASSERT_TRUE(other.DeleteOneRow(n - 1));
  ExpectSame(out, other);
}

TEST_P(ProductBits, Factors) {
  const QVRectMatrix ls = Rectangle(n, n, [&](int i, int j) {
    return Sum(
        0, i + 1, [&](int k) { return m.GetElem(i, k); }, [&](int k) { return s.GetElem(k, j); });
  });
  QVSymMatrix out;
  ASSERT_TRUE(s.ComputeLSLTrans(m, out));
  ExpectSame(Triangle(n,
                      [&](int i, int j) {
                        return Sum(
                            0, i + 1, [&](int k) { return m.GetElem(i, k); },
                            [&](int k) { return ls.GetElem(j, k); });
                      }),
             out);
  for (int copies : {1, 2, 3, 5}) {
    if (n % copies != 0) continue;
    const int order = n / copies;
    const QVSymMatrix l = RandomSym(order, 5);
    const auto b = [&](int k, int i) { return l.GetElem(k % order, i % order); };
    const auto end = [&](int i) { return i - i % order + order; };
    const QVRectMatrix bs = Rectangle(n, n, [&](int i, int j) {
      return Sum(
          i, end(i), [&](int k) { return b(k, i); }, [&](int k) { return s.GetElem(k, j); });
    });
    ASSERT_TRUE(s.ComputeLTransSL(l, out, copies));
    ExpectSame(Triangle(n,
                        [&](int i, int j) {
                          return Sum(
                              i, end(i), [&](int k) { return b(k, i); },
                              [&](int k) { return bs.GetElem(j, k); });
                        }),
               out);
  }
}

TEST_P(ProductBits, RectangularMatrices) {
  for (int rows : {1, 7, 30, 100}) {  // the order of S decides about fusing, not that of the result
    const QVRectMatrix r = RandomRect(rows, n, 6);
    const QVRectMatrix t = RandomRect(n, rows, 7);
    const QVRectMatrix rs = TimesS(rows, [&](int i, int k) { return r.GetElem(i, k); });
    const QVRectMatrix ts = TimesS(rows, [&](int i, int k) { return t.GetElem(k, i); });
    QVRectMatrix rect;
    ASSERT_TRUE(s.ComputeRS(r, rect));
    ExpectSame(rs, rect);
    ASSERT_TRUE(s.ComputeRTransS(t, rect));
    ExpectSame(ts, rect);
    QVSymMatrix out;
    ASSERT_TRUE(s.ComputeRSRTrans(r, out));
    ExpectSame(Triangle(rows,
                        [&](int i, int j) {
                          return Sum(
                              0, n, [&](int k) { return rs.GetElem(i, k); },
                              [&](int k) { return r.GetElem(j, k); });
                        }),
               out);
    ASSERT_TRUE(s.ComputeRTransSR(t, out));
    ExpectSame(Triangle(rows,
                        [&](int i, int j) {
                          return Sum(
                              0, n, [&](int k) { return ts.GetElem(i, k); },
                              [&](int k) { return t.GetElem(k, j); });
                        }),
               out);
    ASSERT_TRUE(out.ComputeRByRTrans(t));
    ExpectSame(Triangle(n,
                        [&](int i, int j) {
                          return Sum(
                              0, rows, [&](int k) { return t.GetElem(i, k); },
                              [&](int k) { return t.GetElem(j, k); });
                        }),
               out);
    ASSERT_TRUE(out.ComputeRTransByR(r));
    ExpectSame(Triangle(n,
                        [&](int i, int j) {
                          return Sum(
                              0, rows, [&](int k) { return r.GetElem(k, i); },
                              [&](int k) { return r.GetElem(k, j); });
                        }),
               out);
    // A part of S follows the order of S.
    const int size = n / 2;
    const QVRectMatrix narrow = RandomRect(rows, size, 8);
    const QVRectMatrix half = Rectangle(rows, size, [&](int i, int j) {
      return Sum(
          0, size, [&](int k) { return narrow.GetElem(i, k); },
          [&](int k) { return s.GetElem(1 + k, 1 + j); });
    });
    if (size < 1 || size + 1 > n) continue;
    ASSERT_TRUE(s.ComputeRSRTrans2(narrow, 1, size, out));
    ExpectSame(Triangle(rows,
                        [&](int i, int j) {
                          return Sum(
                              0, size, [&](int k) { return half.GetElem(i, k); },
                              [&](int k) { return narrow.GetElem(j, k); });
                        }),
               out);
  }
}

TEST_P(ProductBits, RepeatedBlocksRunOverAllRows) {
  const QVRectMatrix t = RandomRect(2 * n, 9, 7);
  const auto bt = [&](int copy) {
    return Rectangle(9, n, [&](int i, int j) {
      return Sum(
          0, n, [&](int k) { return t.GetElem(copy * n + k, i); },
          [&](int k) { return s.GetElem(k, j); });
    });
  };
  const QVRectMatrix first = bt(0), second = bt(1);
  QVSymMatrix out;
  ASSERT_TRUE(s.ComputeRTransBlockDiagR(t, 2, out));
  ExpectSame(Triangle(9,
                      [&](int i, int j) {
                        double sum = 0.0;
                        for (int k = 0; k < n; ++k)
                          sum = Add(first.GetElem(i, k), t.GetElem(k, j), sum);
                        for (int k = 0; k < n; ++k)
                          sum = Add(second.GetElem(i, k), t.GetElem(n + k, j), sum);
                        return sum;
                      }),
             out);
}

TEST_P(ProductBits, Traces) {
  double two = 0.0, three = 0.0;
  const QVRectMatrix sg = Rectangle(n, n, [&](int i, int j) {
    return Sum(
        0, n, [&](int k) { return s.GetElem(i, k); }, [&](int k) { return g.GetElem(k, j); });
  });
  for (int i = 0; i < n; ++i) {
    two += s.ComputeRowDotProductS(i, g, i);
    three += Sum(
        0, n, [&](int k) { return sg.GetElem(i, k); }, [&](int k) { return m.GetElem(k, i); });
  }
  EXPECT_EQ(s.TraceOfProduct(g), two);
  EXPECT_EQ(s.TraceOfProductOfThree(g, m), three);
}

// Around the threshold; past one tile, one panel (128), one strip (192) and one band (256).
INSTANTIATE_TEST_SUITE_P(Orders, ProductBits,
                         ::testing::Values(1, 2, 7, 33, 60, 63, 64, 65, 66, 97, 150, 270));

}  // namespace
