// Products with vectors and quadratic forms against naive full matrices; refusals; targets that are
// operands.
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../reference.h"
#include "QVRectMatrix.h"
#include "QVSymMatrix.h"

namespace {

using namespace reference;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSymMatrix;
using Vector = std::vector<double>;

const Vector kUntouched = {7.0, 8.0};

double Form(const Full & a, const Vector & left, const Vector & right) {
  if (a.Rows() == 0 || a.Cols() == 0) return 0.0;
  return static_cast<double>(
      Multiply(Multiply(Transpose(FromVector(left)), a), FromVector(right))(0, 0));
}

/// Every third row, out of order, and their values; the same as a full vector.
struct Sparse {
  explicit Sparse(int n) : full(At(n), 0.0) {
    const Vector values = RandomVector(n, 77);
    for (int i = 0; i < n; i += 3)
      rows.insert(i % 2 == 0 ? rows.end() : rows.begin(), i);
    for (int row : rows) {
      v.push_back(values[At(row)]);
      full[At(row)] = values[At(row)];
    }
  }
  std::vector<int> rows;
  Vector v;
  Vector full;
};

class VectorProducts : public ::testing::TestWithParam<int> {
 protected:
  const int n = GetParam();
  const QVSymMatrix s = RandomSym(n, 1);
  const Full full = FromSym(s);
  const Full lower = FromLower(s);
  const Vector v = RandomVector(n, 2);
  const Vector w = RandomVector(n, 3);
  const double scale = 1.0 + n * n * 1e-14;

  void ExpectClose(const Vector & got, const Full & wanted) {
    EXPECT_LT(ScaledResidual(FromVector(got), wanted), kResidualBound);
  }
  void ExpectNumber(double got, double wanted) { EXPECT_NEAR(got, wanted, (1.0 + n) * 1e-13); }
};

TEST_P(VectorProducts, SymmetricMatrixTimesVector) {
  Vector out = kUntouched;
  ASSERT_TRUE(s.ComputeSV(v, out));
  ExpectClose(out, Multiply(full, FromVector(v)));
  Vector both = v;
  ASSERT_TRUE(s.ComputeSV(both, both));
  EXPECT_TRUE(SameBits(both, out));
}

TEST_P(VectorProducts, LeadingBlockTimesVector) {
  for (int k : {0, n / 2, n}) {
    Vector out = {};
    ASSERT_TRUE(s.ComputeSV(k, v, out));
    ASSERT_EQ(out.size(), At(k));  // grows
    std::vector<int> leading;
    for (int i = 0; i < k; ++i)
      leading.push_back(i);
    const Full wanted =
        Multiply(Part(full, leading, leading), FromVector(Vector(v.begin(), v.begin() + k)));
    ExpectClose(out, wanted);
    Vector longer(At(n) + 3, 9.0);
    ASSERT_TRUE(s.ComputeSV(k, v, longer));  // is not shrunk
    ASSERT_EQ(longer.size(), At(n) + 3);
    EXPECT_TRUE(SameBits(Vector(longer.begin(), longer.begin() + k), out));
    for (std::size_t i = At(k); i < longer.size(); ++i)
      EXPECT_EQ(longer[i], 9.0);
    Vector both = v;
    ASSERT_TRUE(s.ComputeSV(k, both, both));
    EXPECT_TRUE(SameBits(Vector(both.begin(), both.begin() + k), out));
  }
}

TEST_P(VectorProducts, FactorTimesVector) {
  Vector out;
  ASSERT_TRUE(s.ComputeLV(v, out));
  ExpectClose(out, Multiply(lower, FromVector(v)));
  Vector both = v;
  ASSERT_TRUE(s.ComputeLV(both, both));
  EXPECT_TRUE(SameBits(both, out));
  ASSERT_TRUE(s.ComputeLTransV(v, out));
  ExpectClose(out, Multiply(Transpose(lower), FromVector(v)));
  both = v;
  ASSERT_TRUE(s.ComputeLTransV(both, both));
  EXPECT_TRUE(SameBits(both, out));
}

TEST_P(VectorProducts, SparseForms) {
  const Sparse x(n);
  Vector out = kUntouched;
  ASSERT_TRUE(s.ComputeSV(x.rows, x.v, out));
  ExpectClose(out, Multiply(full, FromVector(x.full)));
  ASSERT_TRUE(s.ComputeLV(x.rows, x.v, out));
  ExpectClose(out, Multiply(lower, FromVector(x.full)));
  ASSERT_TRUE(s.ComputeLTransV(x.rows, x.v, out));
  ExpectClose(out, Multiply(Transpose(lower), FromVector(x.full)));
  ExpectNumber(s.ComputeVSV(x.rows, x.v), Form(full, x.full, x.full));
  const std::vector<int> rows = n > 1 ? std::vector<int>{n - 1, 1} : std::vector<int>{};
  const Vector values = n > 1 ? Vector{2.0, -3.0} : Vector{};
  Vector other(At(n), 0.0);
  for (std::size_t p = 0; p < rows.size(); ++p)
    other[At(rows[p])] += values[p];
  ExpectNumber(s.ComputeSpVSSpW(x.rows, x.v, rows, values), Form(full, x.full, other));
  for (int i = 0; i < n; i += 5) {
    const Full row = Multiply(full, FromVector(x.full));
    ExpectNumber(s.ComputeRVD(i, x.rows.data(), x.v.data(), static_cast<int>(x.rows.size())),
                 static_cast<double>(row(i, 0)));
  }
}

TEST_P(VectorProducts, RowsWithAStride) {
  const Vector spaced = RandomVector(3 * n, 4);
  const Full wanted = [&] {
    Vector picked;
    for (int i = 0; i < n; ++i)
      picked.push_back(spaced[At(3 * i)]);
    return Multiply(full, FromVector(picked));
  }();
  for (int i = 0; i < n; ++i) {
    ExpectNumber(s.ComputeRVD(i, spaced.data(), 3), static_cast<double>(wanted(i, 0)));
    ExpectNumber(s.ComputeRVD(i, spaced, 3), static_cast<double>(wanted(i, 0)));
    // Backwards from the end.
    Vector reversed(v.rbegin(), v.rend());
    ExpectNumber(s.ComputeRVD(i, reversed.data() + n - 1, -1), s.ComputeRVD(i, v.data(), 1));
  }
}

TEST_P(VectorProducts, Forms) {
  ExpectNumber(s.ComputeVSV(v), Form(full, v, v));
  ExpectNumber(s.ComputeVSW(v, w), Form(full, v, w));
  const Vector spacedV = RandomVector(2 * n, 5);
  const Vector spacedW = RandomVector(3 * n, 6);
  Vector pickedV, pickedW;
  for (int i = 0; i < n; ++i) {
    pickedV.push_back(spacedV[At(2 * i)]);
    pickedW.push_back(spacedW[At(3 * i)]);
  }
  ExpectNumber(s.ComputeVSW(spacedV.data(), 2, spacedW.data(), 3), Form(full, pickedV, pickedW));
  if (n > 0) {
    const QVRectMatrix r = RandomRect(3, n, 7);
    Vector row;
    r.GetRow(1, row);
    ExpectNumber(s.ComputeVSV(r, 1), Form(full, row, row));
  }
}

TEST_P(VectorProducts, FormsDownAPackedColumn) {
  // Element i of the walk stands 2 + 3 + .. behind the first one.
  Vector walk(At(n * (n + 5) / 2 + 1), 0.0);
  Vector picked;
  for (int i = 0, place = 0; i < n; place += 2 + i, ++i) {
    walk[At(place)] = v[At(i)];
    picked.push_back(v[At(i)]);
  }
  ExpectNumber(s.ComputeViiSW(walk.data(), 2, w.data(), 1), Form(full, picked, w));
  ExpectNumber(s.ComputeVSWii(w.data(), 1, walk.data(), 2), Form(full, w, picked));
}

TEST_P(VectorProducts, ElementsOfSVS) {
  const QVSymMatrix middle = RandomSym(n, 8);
  for (int m : {1, n / 2, n}) {
    if (m < 1 || m > n) continue;
    std::vector<int> leading;
    for (int i = 0; i < m; ++i)
      leading.push_back(i);
    const Full part = Part(full, leading, leading);
    const Full inner = Part(FromSym(middle), leading, leading);
    const Full wanted = Multiply(Multiply(part, inner), part);
    for (int r = 0; r < m; r += 1 + m / 3)
      for (int c = 0; c < m; c += 1 + m / 4)
        ExpectNumber(s.ComputeVSW(middle.AsVector(), m, r, c), static_cast<double>(wanted(r, c)));
  }
}

TEST_P(VectorProducts, PartsOfTheForm) {
  for (int nv : {0, n / 3, n})
    for (int nw : {0, n / 2, n}) {
      std::vector<int> rows, cols;
      for (int i = 0; i < nw; ++i)
        rows.push_back(i);
      for (int j = 0; j < nv; ++j)
        cols.push_back(j);
      const double wanted = Form(Part(full, rows, cols), Vector(w.begin(), w.begin() + nw),
                                 Vector(v.begin(), v.begin() + nv));
      ExpectNumber(s.ComputeVSWParts(v.data(), nv, w.data(), nw), wanted);
      ExpectNumber(s.ComputeVSWParts(v, nv, w, nw), wanted);
    }
  if (n < 3) return;
  std::vector<int> rows, cols;
  for (int i = 2; i < n; ++i)
    rows.push_back(i);
  for (int j = 1; j < n - 1; ++j)
    cols.push_back(j);
  const Vector partW(w.begin() + 2, w.end());
  const Vector partV(v.begin() + 1, v.end() - 1);
  const double wanted = Form(Part(full, rows, cols), partW, partV);
  ExpectNumber(s.ComputeVSWParts(v.data(), 1, n - 2, w.data(), 2, n - 2), wanted);
  ExpectNumber(s.ComputeVSSubWParts(partV, 1, partW, 2), wanted);
  ExpectNumber(s.ComputeVSymSubW(partV, partW, 1), Form(Part(full, cols, cols), partW, partV));
}

INSTANTIATE_TEST_SUITE_P(Orders, VectorProducts, ::testing::ValuesIn(OrdersWithBlocks()));

TEST(VectorProductsRefusals, WrongSizes) {
  const QVSymMatrix s = RandomSym(3, 1);
  Vector out = kUntouched;
  for (const Vector & wrong : {Vector{}, Vector(2, 1.0), Vector(4, 1.0)}) {
    EXPECT_FALSE(s.ComputeSV(wrong, out));
    EXPECT_FALSE(s.ComputeLV(wrong, out));
    EXPECT_FALSE(s.ComputeLTransV(wrong, out));
    EXPECT_EQ(s.ComputeVSV(wrong), 0.0);
    EXPECT_EQ(s.ComputeVSW(wrong, Vector(3, 1.0)), 0.0);
    EXPECT_EQ(s.ComputeVSW(Vector(3, 1.0), wrong), 0.0);
  }
  EXPECT_FALSE(s.ComputeSV(-1, Vector(3, 1.0), out));
  EXPECT_FALSE(s.ComputeSV(4, Vector(4, 1.0), out));
  EXPECT_FALSE(s.ComputeSV(3, Vector(2, 1.0), out));
  EXPECT_TRUE(SameBits(out, kUntouched));
}

TEST(VectorProductsRefusals, SparseVectors) {
  const QVSymMatrix s = RandomSym(3, 1);
  using Rows = std::vector<int>;
  Vector out = kUntouched;
  const std::vector<std::pair<Rows, Vector>> bad = {{Rows{0, 1}, Vector{1.0}},
                                                    {Rows{0}, Vector{1.0, 2.0}},
                                                    {Rows{3}, Vector{1.0}},
                                                    {Rows{-1}, Vector{1.0}},
                                                    {Rows{0, 3}, Vector{1.0, 2.0}}};
  for (const auto & [rows, v] : bad) {
    EXPECT_FALSE(s.ComputeSV(rows, v, out));
    EXPECT_FALSE(s.ComputeLV(rows, v, out));
    EXPECT_FALSE(s.ComputeLTransV(rows, v, out));
    EXPECT_EQ(s.ComputeVSV(rows, v), 0.0);
    EXPECT_EQ(s.ComputeSpVSSpW(rows, v, Rows{0}, Vector{1.0}), 0.0);
    EXPECT_EQ(s.ComputeSpVSSpW(Rows{0}, Vector{1.0}, rows, v), 0.0);
  }
  EXPECT_TRUE(SameBits(out, kUntouched));
  // Nothing in the list is a vector of zeros.
  EXPECT_TRUE(s.ComputeSV(Rows{}, Vector{}, out));
  EXPECT_TRUE(SameBits(out, Vector(3, 0.0)));
}

TEST(VectorProductsRefusals, Rows) {
  const QVSymMatrix s = RandomSym(3, 1);
  const Vector v(3, 1.0);
  EXPECT_EQ(s.ComputeRVD(-1, v, 1), 0.0);
  EXPECT_EQ(s.ComputeRVD(3, v, 1), 0.0);
  EXPECT_EQ(s.ComputeRVD(-1, v.data(), 1), 0.0);
  EXPECT_EQ(s.ComputeRVD(3, v.data(), 1), 0.0);
  EXPECT_EQ(s.ComputeRVD(0, nullptr, 1), 0.0);
  EXPECT_EQ(s.ComputeRVD(0, v, 2), 0.0);  // would need 5 values
  EXPECT_EQ(s.ComputeRVD(0, v, -1), 0.0);
  EXPECT_EQ(s.ComputeRVD(0, Vector(2, 1.0), 1), 0.0);
  EXPECT_NE(s.ComputeRVD(0, v, 0), 0.0);
  const int rows[] = {0, 3};
  EXPECT_EQ(s.ComputeRVD(0, rows, v.data(), 2), 0.0);
  EXPECT_EQ(s.ComputeRVD(3, rows, v.data(), 1), 0.0);
  EXPECT_EQ(s.ComputeRVD(0, rows, v.data(), -1), 0.0);
  EXPECT_EQ(s.ComputeRVD(0, rows, v.data(), 1), s.GetElem(0, 0));
}

TEST(VectorProductsRefusals, FormsOverParts) {
  const QVSymMatrix s = RandomSym(3, 1);
  const Vector v(3, 1.0);
  EXPECT_EQ(s.ComputeVSWParts(v.data(), -1, v.data(), 2), 0.0);
  EXPECT_EQ(s.ComputeVSWParts(v.data(), 2, v.data(), 4), 0.0);
  EXPECT_EQ(s.ComputeVSWParts(v, 2, Vector(1, 1.0), 2), 0.0);
  EXPECT_EQ(s.ComputeVSWParts(v, 4, v, 2), 0.0);
  EXPECT_EQ(s.ComputeVSWParts(v.data(), 2, 2, v.data(), 0, 1), 0.0);
  EXPECT_EQ(s.ComputeVSWParts(v.data(), -1, 2, v.data(), 0, 1), 0.0);
  EXPECT_EQ(s.ComputeVSWParts(v.data(), std::numeric_limits<int>::max(), 2, v.data(), 0, 1), 0.0);
  EXPECT_EQ(s.ComputeVSSubWParts(v, 1, v, 0), 0.0);
  EXPECT_EQ(s.ComputeVSSubWParts(v, 0, v, -1), 0.0);
  EXPECT_EQ(s.ComputeVSSubWParts(Vector(4, 1.0), 0, v, 0), 0.0);
  EXPECT_EQ(s.ComputeVSymSubW(v, Vector(2, 1.0), 0), 0.0);
  EXPECT_EQ(s.ComputeVSymSubW(v, v, 1), 0.0);
  EXPECT_EQ(s.ComputeVSW(Vector(5, 1.0), 3, 0, 0), 0.0);  // 6 elements are needed
  EXPECT_NE(s.ComputeVSW(Vector(7, 1.0), 3, 0, 0), 0.0);  // more are accepted
  EXPECT_EQ(s.ComputeVSW(Vector(6, 1.0), 3, 3, 0), 0.0);
  EXPECT_EQ(s.ComputeVSW(Vector(6, 1.0), 3, 0, -1), 0.0);
  EXPECT_EQ(s.ComputeVSW(Vector(10, 1.0), 4, 0, 0), 0.0);
  EXPECT_EQ(s.ComputeVSW(Vector(6, 1.0), 0, 0, 0), 0.0);
  EXPECT_EQ(s.ComputeVSW(nullptr, 1, v.data(), 1), 0.0);
  EXPECT_EQ(s.ComputeViiSW(v.data(), 1, nullptr, 1), 0.0);
  EXPECT_EQ(s.ComputeVSWii(nullptr, 1, v.data(), 1), 0.0);
}

TEST(VectorProductsRefusals, RowsOfRectangularMatrices) {
  const QVSymMatrix s = RandomSym(3, 1);
  EXPECT_EQ(s.ComputeVSV(RandomRect(2, 3, 1), 2), 0.0);
  EXPECT_EQ(s.ComputeVSV(RandomRect(2, 3, 1), -1), 0.0);
  EXPECT_EQ(s.ComputeVSV(RandomRect(2, 4, 1), 0), 0.0);
}

TEST(VectorProductsRefusals, EmptyAndInvalidMatrices) {
  const QVSymMatrix empty;
  Vector out = kUntouched;
  EXPECT_TRUE(empty.ComputeSV(Vector{}, out));
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(empty.ComputeVSW(Vector{}, Vector{}), 0.0);
  EXPECT_EQ(empty.ComputeVSV(Vector{}), 0.0);
  EXPECT_EQ(empty.ComputeVSV(QVRectMatrix(1, 0, true), 0), 0.0);
}

TEST(BlockForms, BlocksOfTheMatrix) {
  QVSymMatrix s = RandomSym(12, 1);
  ASSERT_TRUE(s.SetNBlocks(3));
  const Vector v = RandomVector(4, 2);
  const Vector w = RandomVector(4, 3);
  for (int p = 0; p < 3; ++p)
    for (int q = 0; q < 3; ++q) {
      double wanted = 0.0;
      for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
          wanted += v[At(i)] * s.GetElem(p, q, i, j) * w[At(j)];
      EXPECT_NEAR(s.ComputeBlockVSW(p, q, v, w), wanted, 1e-13);
    }
  EXPECT_NEAR(s.ComputeBlockVSV(1, 2, v), s.ComputeBlockVSW(1, 2, v, v), 0.0);
}

TEST(BlockForms, IndexesCountBlocks) {
  QVSymMatrix s = RandomSym(12, 1);
  ASSERT_TRUE(s.SetNBlocks(3));  // of 4 rows: an index of 3 is a bad block, though below 4
  const Vector v(4, 1.0);
  EXPECT_EQ(s.ComputeBlockVSW(3, 0, v, v), 0.0);
  EXPECT_EQ(s.ComputeBlockVSW(0, 3, v, v), 0.0);
  EXPECT_EQ(s.ComputeBlockVSW(-1, 0, v, v), 0.0);
  EXPECT_NE(s.ComputeBlockVSW(2, 2, v, v), 0.0);
  EXPECT_EQ(s.ComputeBlockVSW(0, 0, Vector(3, 1.0), v), 0.0);
  EXPECT_EQ(s.ComputeBlockVSW(0, 0, v, Vector(5, 1.0)), 0.0);
  // Six blocks of 2 rows: block 5 is good, though not below the block size.
  ASSERT_TRUE(s.SetNBlocks(6));
  EXPECT_NE(s.ComputeBlockVSW(5, 0, Vector(2, 1.0), Vector(2, 1.0)), 0.0);
}

TEST(BlockForms, BlocksThatReachPastTheRowsAreRefused) {
  QVSymMatrix s = RandomSym(12, 1);
  ASSERT_TRUE(s.SetNBlocks(3));
  ASSERT_TRUE(s.DeleteOneRow(0));  // three blocks, now of 11 rows
  EXPECT_NE(s.ComputeBlockVSW(0, 0, Vector(11, 1.0), Vector(11, 1.0)), 0.0);
  EXPECT_EQ(s.ComputeBlockVSW(1, 0, Vector(11, 1.0), Vector(11, 1.0)), 0.0);
}

}  // namespace
