// Every operation of IQVSymMatrix that has one meaning for all its implementers, on each of them
// and on the dense matrix filled from it, against naive full matrices.
#include <cmath>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "QVBitSet.h"
#include "QVRectMatrix.h"
#include "math/matrix/structured/structured_matrices.h"

namespace {

using QVMath_940::IQVRectMatrix;
using QVMath_940::IQVSymMatrix;
using QVMath_940::QVBitSet;
using QVMath_940::QVDiagMatrix;
using QVMath_940::QVRectMatrix;
using QVMath_940::QVSparseRectMatrix;
using QVMath_940::QVSymBlockDiagMatrix;
using QVMath_940::QVSymMatrix;
using reference::Add;
using reference::At;
using reference::FromLower;
using reference::FromRect;
using reference::FromSym;
using reference::FromVector;
using reference::Full;
using reference::kResidualBound;
using reference::RandomVector;
using reference::Transpose;
using structured::Kind;
using structured::Product;
using structured::Residual;
using V = std::vector<double>;

#define EXPECT_CLOSE(got, wanted) EXPECT_LT(Residual(got, wanted), kResidualBound)

using Case = std::tuple<Kind, int, int>;  // class, order, seed

class SymOperations : public testing::TestWithParam<Case> {
 protected:
  SymOperations()
      : n(std::get<1>(GetParam())),
        seed(static_cast<std::uint64_t>(std::get<2>(GetParam()))),
        structuredMatrix(structured::Make(std::get<0>(GetParam()), n, seed)),
        dense(structured::DenseOf(*structuredMatrix)),
        full(FromSym(*structuredMatrix)) {}

  // Runs a body on the structured matrix and on the dense one.
  template <class Body>
  void OnBoth(Body body) {
    {
      SCOPED_TRACE("structured");
      body(static_cast<IQVSymMatrix &>(*structuredMatrix));
    }
    {
      SCOPED_TRACE("filled dense");
      body(static_cast<IQVSymMatrix &>(dense));
    }
  }
  // The same on copies that the body may change.
  template <class Body>
  void OnCopies(Body body) {
    OnBoth([&](const IQVSymMatrix & s) {
      const std::unique_ptr<IQVSymMatrix> copy = structured::Clone(s);
      body(*copy);
    });
  }

  V Random(int size, int which) const {
    return RandomVector(size, seed * 100 + static_cast<unsigned>(which));
  }
  bool IsDiagonal() const { return std::get<0>(GetParam()) == Kind::Diagonal; }

  int n;
  std::uint64_t seed;
  std::unique_ptr<IQVSymMatrix> structuredMatrix;
  QVSymMatrix dense;
  Full full;
};

// --- Elements -----------------------------------------------------------------------------------

TEST_P(SymOperations, OrderElementsDiagonalRows) {
  OnBoth([&](const IQVSymMatrix & s) {
    EXPECT_EQ(s.GetNRows(), n);
    EXPECT_TRUE(s.IsValidMatrix());
    V diagonal(3, 9.0);
    s.GetDiagonal(diagonal);
    ASSERT_EQ(diagonal.size(), At(n));
    V row(1, 9.0);
    for (int i = 0; i < n; ++i) {
      EXPECT_EQ(diagonal[At(i)], static_cast<double>(full(i, i)));
      ASSERT_TRUE(s.GetRow(i, row));
      ASSERT_EQ(row.size(), At(n));
      for (int j = 0; j < n; ++j) {
        EXPECT_EQ(row[At(j)], s.GetElem(i, j));
        EXPECT_EQ(s.GetElem(i, j), s.GetElem(j, i));
        EXPECT_EQ(s.GetElem(i, j), dense.GetElem(i, j));
      }
    }
    EXPECT_FALSE(s.GetRow(-1, row));
    EXPECT_FALSE(s.GetRow(n, row));
  });
}

TEST_P(SymOperations, PutRowTakesARowThatTheMatrixCanStore) {
  OnCopies([&](IQVSymMatrix & s) {
    V row;
    for (int k = 0; k < n; k += 5) {
      s.GetRow(k, row);
      for (double & x : row)
        x *= 3.0;
      ASSERT_TRUE(s.PutRow(k, row));
      V back;
      s.GetRow(k, back);
      EXPECT_EQ(back, row);
    }
    EXPECT_FALSE(s.PutRow(n, row));
    EXPECT_FALSE(s.PutRow(-1, row));
    if (n > 0) {
      row.resize(At(n) - 1);
      EXPECT_FALSE(s.PutRow(0, row));
    }
  });
}

TEST_P(SymOperations, ZeroOutAndIsZeroRow) {
  OnCopies([&](IQVSymMatrix & s) {
    QVBitSet all(n);
    for (int i = 0; i < n; ++i)
      all.Set(i, true);
    EXPECT_FALSE(s.IsZeroRow(0, QVBitSet()));
    EXPECT_FALSE(s.IsZeroRow(n, all));
    EXPECT_FALSE(s.ZeroOut(n));
    EXPECT_FALSE(s.ZeroOut(-1));
    for (int k = 0; k < n; k += 3) {
      EXPECT_FALSE(s.IsZeroRow(k, all));
      QVBitSet others = all;
      others.Set(k, false);
      bool isZeroElsewhere = true;
      for (int j = 0; j < n; ++j)
        isZeroElsewhere = isZeroElsewhere && (j == k || s.GetElem(k, j) == 0.0);
      EXPECT_EQ(s.IsZeroRow(k, others), isZeroElsewhere);
      EXPECT_TRUE(s.ZeroOut(k));
      EXPECT_TRUE(s.IsZeroRow(k, all));
      for (int j = 0; j < n; ++j)
        EXPECT_EQ(s.GetElem(j, k), 0.0);
    }
  });
}

TEST_P(SymOperations, IncrVecByRow) {
  OnBoth([&](const IQVSymMatrix & s) {
    for (int k = 0; k < n; k += 2) {
      for (const int len : {1, (n + 1) / 2, n}) {
        V v = Random(n + 4, k);
        V wanted = v;
        for (int j = 0; j < len; ++j)
          wanted[At(2 + j)] += 1.5 * s.GetElem(k, j);
        ASSERT_TRUE(s.IncrVecByRow(k, v, 2, len, 1.5, true));
        EXPECT_EQ(v, wanted);
      }
    }
    V v(At(n) + 1, 1.0);
    const V before = v;
    EXPECT_FALSE(s.IncrVecByRow(-1, v, 0, 1, 1.0, true));
    EXPECT_FALSE(s.IncrVecByRow(n, v, 0, 1, 1.0, true));
    EXPECT_FALSE(s.IncrVecByRow(0, v, 0, 0, 1.0, true));
    EXPECT_FALSE(s.IncrVecByRow(0, v, 0, n + 1, 1.0, true));
    EXPECT_FALSE(s.IncrVecByRow(0, v, -1, 1, 1.0, true));
    EXPECT_FALSE(s.IncrVecByRow(0, v, 2, n, 1.0, true));
    EXPECT_EQ(v, before);
  });
}

// --- The whole matrix ---------------------------------------------------------------------------

TEST_P(SymOperations, MapsOfAllElements) {
  OnCopies([&](IQVSymMatrix & s) {
    s.ChangeSign();
    s.MultiplyByNumber(0.5);
    s.AddToDiagonal(4.0);
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        EXPECT_EQ(s.GetElem(i, j), dense.GetElem(i, j) * -0.5 + (i == j ? 4.0 : 0.0));
    s.Clear();
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        EXPECT_EQ(s.GetElem(i, j), 0.0);
    EXPECT_EQ(s.GetNRows(), n);
  });
}

TEST_P(SymOperations, TraceAndExtremesOfTheDiagonal) {
  long double trace = 0.0L;
  double max = -1.0, min = 1e300;
  for (int i = 0; i < n; ++i) {
    trace += full(i, i);
    max = std::max(max, static_cast<double>(full(i, i)));
    min = std::min(min, static_cast<double>(full(i, i)));
  }
  OnBoth([&](const IQVSymMatrix & s) {
    EXPECT_NEAR(s.Trace(), static_cast<double>(trace), 1e-13 * (1 + n));
    double gotMax = 7.0, gotMin = 8.0;
    s.MaxMinDiag(gotMax, gotMin);
    EXPECT_EQ(gotMax, n > 0 ? max : 7.0);
    EXPECT_EQ(gotMin, n > 0 ? min : 8.0);
    double maxOff = 5.0, minOff = 6.0;
    gotMax = gotMin = 0.0;
    s.MaxMinDiagOffDiag(gotMax, gotMin, maxOff, minOff);
    EXPECT_EQ(gotMax, n > 0 ? max : 0.0);
    EXPECT_EQ(gotMin, n > 0 ? min : 0.0);
  });
}

TEST_P(SymOperations, ZeroOutNonDiagClearsSmallCorrelations) {
  QVSymMatrix wanted = dense;
  const double fraction = 0.2 / (n + 1);
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < i; ++j)
      if (!(std::abs(dense.GetElem(i, j)) >
            fraction * std::sqrt(dense.GetElem(i, i) * dense.GetElem(j, j))))
        wanted.SetElem(i, j, 0.0);
  OnCopies([&](IQVSymMatrix & s) {
    s.ZeroOutNonDiag(fraction);
    EXPECT_EQ(reference::MaxDifference(FromSym(s), FromSym(wanted)), 0.0);
  });
}

// --- Parts --------------------------------------------------------------------------------------

TEST_P(SymOperations, ExtractToTheOwnClass) {
  OnBoth([&](const IQVSymMatrix & s) {
    const std::unique_ptr<IQVSymMatrix> out = structured::Clone(s);
    s.ExtractFirstNRows(*out);
    ASSERT_EQ(out->GetNRows(), std::max(n - 1, 0));
    for (int i = 0; i < n - 1; ++i)
      for (int j = 0; j < n - 1; ++j)
        EXPECT_EQ(out->GetElem(i, j), s.GetElem(i, j));
    std::vector<int> rows;
    for (int i = static_cast<int>(seed % 2); i < n; i += 1 + i % 3)
      rows.push_back(i);
    ASSERT_TRUE(s.ExtractSubmatrix(rows, *out));
    ASSERT_EQ(out->GetNRows(), static_cast<int>(rows.size()));
    for (std::size_t i = 0; i < rows.size(); ++i)
      for (std::size_t j = 0; j < rows.size(); ++j)
        EXPECT_EQ(out->GetElem(static_cast<int>(i), static_cast<int>(j)),
                  s.GetElem(rows[i], rows[j]));
    EXPECT_FALSE(s.ExtractSubmatrix({-1}, *out));
    EXPECT_FALSE(s.ExtractSubmatrix({n}, *out));
    if (n > 1) {
      EXPECT_FALSE(s.ExtractSubmatrix({1, 0}, *out));
      EXPECT_FALSE(s.ExtractSubmatrix({1, 1}, *out));
      EXPECT_FALSE(s.ExtractSubmatrix(std::vector<int>(At(n) + 1, 0), *out));
    }
    EXPECT_EQ(out->GetNRows(), static_cast<int>(rows.size()));
  });
}

TEST_P(SymOperations, ExtractIntoItself) {
  OnCopies([&](IQVSymMatrix & s) {
    std::vector<int> rows;
    for (int i = 0; i < n; i += 2)
      rows.push_back(i);
    ASSERT_TRUE(s.ExtractSubmatrix(rows, s));
    ASSERT_EQ(s.GetNRows(), static_cast<int>(rows.size()));
    for (std::size_t i = 0; i < rows.size(); ++i)
      for (std::size_t j = 0; j < rows.size(); ++j)
        EXPECT_EQ(s.GetElem(static_cast<int>(i), static_cast<int>(j)),
                  dense.GetElem(rows[i], rows[j]));
    s.ExtractFirstNRows(s);
    EXPECT_EQ(s.GetNRows(), std::max(static_cast<int>(rows.size()) - 1, 0));
  });
}

TEST_P(SymOperations, ResizeKeepsTheLeadingRows) {
  OnCopies([&](IQVSymMatrix & s) {
    ASSERT_TRUE(s.Resize(n + 2));
    ASSERT_EQ(s.GetNRows(), n + 2);
    for (int i = 0; i < n + 2; ++i)
      for (int j = 0; j < n + 2; ++j)
        EXPECT_EQ(s.GetElem(i, j), i < n && j < n ? dense.GetElem(i, j) : 0.0);
    ASSERT_TRUE(s.Resize(n / 2));
    for (int i = 0; i < n / 2; ++i)
      EXPECT_EQ(s.GetElem(i, i), dense.GetElem(i, i));
    ASSERT_TRUE(s.SetNRows(3, true));
    EXPECT_EQ(s.GetNRows(), 3);
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(s.GetElem(i, i), 0.0);
    ASSERT_TRUE(s.SetNRows(-3, true));
    EXPECT_EQ(s.GetNRows(), 0);
    ASSERT_TRUE(s.Resize(-3));
    EXPECT_EQ(s.GetNRows(), 0);
    EXPECT_TRUE(s.IsValidMatrix());
  });
}

// --- Products with vectors ----------------------------------------------------------------------

TEST_P(SymOperations, ProductsWithVectors) {
  const V v = Random(n, 1);
  const Full sv = Product(full, FromVector(v));
  const Full lower = FromLower(*structuredMatrix);
  OnBoth([&](const IQVSymMatrix & s) {
    V out(2, 9.0);
    ASSERT_TRUE(s.ComputeSV(v, out));
    EXPECT_CLOSE(FromVector(out), sv);
    ASSERT_TRUE(s.ComputeLV(v, out));
    EXPECT_CLOSE(FromVector(out), Product(lower, FromVector(v)));
    ASSERT_TRUE(s.ComputeLTransV(v, out));
    EXPECT_CLOSE(FromVector(out), Product(Transpose(lower), FromVector(v)));
    out = v;
    ASSERT_TRUE(s.ComputeSV(out, out));
    EXPECT_CLOSE(FromVector(out), sv);
    const V before = out;
    const V tooLong(At(n) + 1, 1.0);
    EXPECT_FALSE(s.ComputeSV(tooLong, out));
    EXPECT_FALSE(s.ComputeLV(tooLong, out));
    EXPECT_FALSE(s.ComputeLTransV(tooLong, out));
    EXPECT_EQ(out, before);
  });
}

TEST_P(SymOperations, ProductOfTheLeadingBlock) {
  OnBoth([&](const IQVSymMatrix & s) {
    for (const int k : {0, n / 2, n}) {
      const V v = Random(n + 1, 2);
      V out(1, 5.0);
      ASSERT_TRUE(s.ComputeSV(k, v, out));
      ASSERT_EQ(out.size(), At(std::max(k, 1)));
      for (int i = 0; i < k; ++i) {
        long double sum = 0.0L;
        for (int j = 0; j < k; ++j)
          sum += full(i, j) * v[At(j)];
        EXPECT_NEAR(out[At(i)], static_cast<double>(sum), 1e-13);
      }
      V longer(At(n) + 3, 5.0);
      ASSERT_TRUE(s.ComputeSV(k, v, longer));
      EXPECT_EQ(longer.size(), At(n) + 3);
      EXPECT_EQ(longer.back(), 5.0);
    }
    V out;
    EXPECT_FALSE(s.ComputeSV(-1, V(At(n)), out));
    EXPECT_FALSE(s.ComputeSV(n + 1, V(At(n) + 1), out));
    EXPECT_FALSE(s.ComputeSV(n, V(At(n) - (n > 0)), out) && n > 0);
  });
}

TEST_P(SymOperations, SparseVectorForms) {
  std::vector<int> rows;
  for (int i = static_cast<int>(seed % 3); i < n; i += 4)
    rows.push_back(i);
  const V values = Random(static_cast<int>(rows.size()), 3);
  V spread(At(n), 0.0);
  for (std::size_t p = 0; p < rows.size(); ++p)
    spread[At(rows[p])] = values[p];
  const Full lower = FromLower(*structuredMatrix);
  OnBoth([&](const IQVSymMatrix & s) {
    V out;
    ASSERT_TRUE(s.ComputeLV(rows, values, out));
    EXPECT_CLOSE(FromVector(out), Product(lower, FromVector(spread)));
    ASSERT_TRUE(s.ComputeLTransV(rows, values, out));
    EXPECT_CLOSE(FromVector(out), Product(Transpose(lower), FromVector(spread)));
    const V before = out;
    EXPECT_FALSE(s.ComputeLV({n}, {1.0}, out));
    EXPECT_FALSE(s.ComputeLV({-1}, {1.0}, out));
    EXPECT_FALSE(s.ComputeLTransV({n}, {1.0}, out));
    EXPECT_FALSE(s.ComputeLTransV({}, {1.0}, out));
    EXPECT_EQ(out, before);
  });
}

TEST_P(SymOperations, QuadraticForms) {
  const V v = Random(n, 4);
  const V w = Random(n, 5);
  const double bound = 1e-13 * (1 + n);
  const Full vsw = Product(Transpose(FromVector(v)), full, FromVector(w));
  const Full vsv = Product(Transpose(FromVector(v)), full, FromVector(v));
  OnBoth([&](const IQVSymMatrix & s) {
    EXPECT_NEAR(s.ComputeVSV(v), n > 0 ? static_cast<double>(vsv(0, 0)) : 0.0, bound);
    EXPECT_NEAR(s.ComputeVSW(v, w), n > 0 ? static_cast<double>(vsw(0, 0)) : 0.0, bound);
    V strided(At(n) * 3 + 1);
    for (int i = 0; i < n; ++i)
      strided[At(i) * 3] = v[At(i)];
    EXPECT_NEAR(s.ComputeVSW(strided.data(), 3, w.data(), 1),
                n > 0 ? static_cast<double>(vsw(0, 0)) : 0.0, bound);
    EXPECT_EQ(s.ComputeVSV(V(At(n) + 1, 1.0)), 0.0);
    EXPECT_EQ(s.ComputeVSW(v, V(At(n) + 1, 1.0)), 0.0);
    for (const int nv : {0, n / 3, n})
      for (const int nw : {0, n / 2, n}) {
        long double sum = 0.0L;
        for (int i = 0; i < nw; ++i)
          for (int j = 0; j < nv; ++j)
            sum += w[At(i)] * full(i, j) * v[At(j)];
        EXPECT_NEAR(s.ComputeVSWParts(v, nv, w, nw), static_cast<double>(sum), bound);
        EXPECT_NEAR(s.ComputeVSWParts(v.data(), nv, w.data(), nw), static_cast<double>(sum), bound);
      }
    EXPECT_EQ(s.ComputeVSWParts(v, n + 1, w, n), 0.0);
    EXPECT_EQ(s.ComputeVSWParts(v, n, w, -1), 0.0);
  });
}

TEST_P(SymOperations, ElementOfASandwich) {
  const int m = std::max(1, n - 1);
  const QVSymMatrix inner = reference::RandomSym(m, seed);
  OnBoth([&](const IQVSymMatrix & s) {
    for (int r = 0; r < std::min(n, 4) && r < m; ++r) {
      const int c = m - 1 - r;
      long double sum = 0.0L;
      for (int i = 0; i < m; ++i)
        for (int k = 0; k < m; ++k)
          sum += full(i, c) * full(r, k) * inner.GetElem(i, k);
      if (m > n) sum = 0.0L;
      EXPECT_NEAR(s.ComputeVSW(inner.AsVector(), m, r, c), static_cast<double>(sum), 1e-12);
    }
    EXPECT_EQ(s.ComputeVSW(inner.AsVector(), n + 1, 0, 0), 0.0);
    EXPECT_EQ(s.ComputeVSW(inner.AsVector(), m, m, 0), 0.0);
    EXPECT_EQ(s.ComputeVSW(inner.AsVector(), m, 0, -1), 0.0);
    EXPECT_EQ(s.ComputeVSW(inner.AsVector(), 0, 0, 0), 0.0);
  });
}

TEST_P(SymOperations, RowsByVectorsAndRows) {
  const V v = Random(2 * n, 6);
  const QVSymMatrix other = reference::RandomSym(n, seed + 5);
  OnBoth([&](const IQVSymMatrix & s) {
    for (int i = 0; i < n; i += 1 + n / 8) {
      long double sum = 0.0L;
      for (int j = 0; j < n; ++j)
        sum += full(i, j) * v[At(2 * j)];
      EXPECT_NEAR(s.ComputeRVD(i, v, 2), static_cast<double>(sum), 1e-13);
      EXPECT_NEAR(s.ComputeRVD(i, v.data(), 2), static_cast<double>(sum), 1e-13);
      for (int j = 0; j < n; j += 1 + n / 6) {
        long double own = 0.0L, mixed = 0.0L;
        for (int k = 0; k < n; ++k) {
          own += full(i, k) * full(j, k);
          mixed += full(i, k) * other.GetElem(j, k);
        }
        EXPECT_NEAR(s.ComputeDotProduct2Rows(i, j), static_cast<double>(own), 1e-13);
        EXPECT_NEAR(s.ComputeRowDotProductS(i, other, j), static_cast<double>(mixed), 1e-13);
        EXPECT_NEAR(s.ComputeRowDotProductS(i, other.AsVector(), j), static_cast<double>(mixed),
                    1e-13);
      }
    }
  });
}

// --- Products with symmetric matrices -----------------------------------------------------------

TEST_P(SymOperations, ProductsWithDenseSymmetricMatrices) {
  const QVSymMatrix g = reference::RandomSym(n, seed + 7);
  const Full fullG = FromSym(g);
  const Full lower = FromLower(g);
  OnBoth([&](const IQVSymMatrix & s) {
    QVSymMatrix out(2, true);
    s.ComputeSTransS(out);
    EXPECT_CLOSE(FromSym(out), Product(full, full));
    QVRectMatrix rect;
    ASSERT_TRUE(s.ComputeSS(g, rect));
    EXPECT_CLOSE(FromRect(rect), Product(full, fullG));
    ASSERT_TRUE(s.ComputeGMG(g.AsVector(), out));
    EXPECT_CLOSE(FromSym(out), Product(fullG, full, fullG));
    out.Clear();
    ASSERT_TRUE(s.ComputeGSG(g, out));
    EXPECT_CLOSE(FromSym(out), Product(fullG, full, fullG));
    ASSERT_TRUE(s.ComputeLSLTrans(g, out));
    EXPECT_CLOSE(FromSym(out), Product(lower, full, Transpose(lower)));
    ASSERT_TRUE(s.ComputeLTransSL(g, out, 1));
    EXPECT_CLOSE(FromSym(out), Product(Transpose(lower), full, lower));
    const QVSymMatrix wrong(n + 1, true);
    const QVSymMatrix before = out;
    EXPECT_FALSE(s.ComputeSS(wrong, rect));
    EXPECT_FALSE(s.ComputeGMG(wrong.AsVector(), out));
    EXPECT_FALSE(s.ComputeGSG(wrong, out));
    EXPECT_FALSE(s.ComputeLSLTrans(wrong, out));
    EXPECT_FALSE(s.ComputeLTransSL(wrong, out, 1));
    EXPECT_FALSE(s.ComputeLTransSL(g, out, 0));
    EXPECT_TRUE(reference::SameBits(out.AsVector(), before.AsVector()));
  });
}

TEST_P(SymOperations, SymmetricSums) {
  const QVSymMatrix m = reference::RandomSym(n, seed + 8);
  const QVSymMatrix other = reference::RandomSym(n, seed + 9);
  const Full half = Product(FromSym(m), full, FromSym(other));
  const Full sum = Add(half, Transpose(half));
  OnBoth([&](const IQVSymMatrix & s) {
    QVSymMatrix out;
    ASSERT_TRUE(s.ComputeMGN(m, other, out));
    EXPECT_CLOSE(FromSym(out), sum);
    V work(2, 1.0);
    ASSERT_TRUE(s.ComputeGMGNG(m, other, out, work));
    EXPECT_CLOSE(FromSym(out), Product(full, sum, full));
    ASSERT_GE(work.size(), QVSymMatrix::RowStart(n));
    QVSymMatrix inner(n, true);
    for (std::size_t p = 0; p < inner.AsVector().size(); ++p)
      inner.AsVector()[p] = work[p];
    EXPECT_CLOSE(FromSym(inner), sum);
    const std::size_t size = At(n) * At(n) + 10;
    work.assign(size, 1.0);
    ASSERT_TRUE(s.ComputeGMGNG(m, other, out, work));
    EXPECT_EQ(work.size(), size);

    QVDiagMatrix dm(Random(n, 10));
    QVDiagMatrix dn(Random(n, 11));
    ASSERT_TRUE(s.ComputeMGN(dm, dn, out));
    const Full diagonalHalf = Product(FromSym(dm), full, FromSym(dn));
    EXPECT_CLOSE(FromSym(out), Add(diagonalHalf, Transpose(diagonalHalf)));
    ASSERT_TRUE(s.ComputeGMGNG(dm, dn, out, work));
    EXPECT_CLOSE(FromSym(out), Product(full, Add(diagonalHalf, Transpose(diagonalHalf)), full));
    EXPECT_FALSE(s.ComputeMGN(m, dn, out));
    EXPECT_FALSE(s.ComputeMGN(dm, other, out));
    EXPECT_FALSE(s.ComputeMGN(QVSymMatrix(n + 1, true), other, out));
    EXPECT_FALSE(s.ComputeGMGNG(m, dn, out, work));
  });
}

TEST_P(SymOperations, TracesOfProducts) {
  const QVSymMatrix a = reference::RandomSym(n, seed + 12);
  const QVSymMatrix b = reference::RandomSym(n, seed + 13);
  long double two = 0.0L, three = 0.0L;
  const Full product = Product(full, FromSym(a));
  const Full triple = Product(product, FromSym(b));
  for (int i = 0; i < n; ++i) {
    two += product(i, i);
    three += triple(i, i);
  }
  OnBoth([&](const IQVSymMatrix & s) {
    EXPECT_NEAR(s.TraceOfProduct(a), static_cast<double>(two), 1e-12 * (1 + n));
    EXPECT_NEAR(s.TraceOfProductOfThree(a, b), static_cast<double>(three), 1e-11 * (1 + n));
    EXPECT_EQ(s.TraceOfProduct(QVSymMatrix(n + 1, true)), 0.0);
    EXPECT_EQ(s.TraceOfProductOfThree(a, QVSymMatrix(n + 1, true)), 0.0);
  });
}

TEST_P(SymOperations, SumWithTheOwnClass) {
  OnCopies([&](IQVSymMatrix & s) {
    const std::unique_ptr<IQVSymMatrix> x = structured::Clone(s);
    x->MultiplyByNumber(3.0);
    ASSERT_TRUE(s.ComputeAXpY(-0.5, *x));
    for (int i = 0; i < n; ++i)
      for (int j = 0; j < n; ++j)
        EXPECT_EQ(s.GetElem(i, j), dense.GetElem(i, j) + -0.5 * x->GetElem(i, j));
    x->SetNRows(n + 1, true);
    EXPECT_FALSE(s.ComputeAXpY(1.0, *x));
    ASSERT_TRUE(s.ComputeAXpY(1.0, s));  // itself
    for (int i = 0; i < n; ++i)
      EXPECT_EQ(s.GetElem(i, i), 2.0 * (dense.GetElem(i, i) + -0.5 * 3.0 * dense.GetElem(i, i)));
  });
}

TEST_P(SymOperations, TargetThatIsTheOperand) {
  const QVSymMatrix g = reference::RandomSym(n, seed + 14);
  const Full fullG = FromSym(g);
  const Full lower = FromLower(g);
  OnBoth([&](const IQVSymMatrix & s) {
    QVSymMatrix out = g;
    ASSERT_TRUE(s.ComputeGSG(out, out));
    EXPECT_CLOSE(FromSym(out), Product(fullG, full, fullG));
    out = g;
    ASSERT_TRUE(s.ComputeGMG(out.AsVector(), out));
    EXPECT_CLOSE(FromSym(out), Product(fullG, full, fullG));
    out = g;
    ASSERT_TRUE(s.ComputeLSLTrans(out, out));
    EXPECT_CLOSE(FromSym(out), Product(lower, full, Transpose(lower)));
    out = g;
    ASSERT_TRUE(s.ComputeLTransSL(out, out, 1));
    EXPECT_CLOSE(FromSym(out), Product(Transpose(lower), full, lower));
    out = g;
    const Full half = Product(fullG, full, fullG);
    ASSERT_TRUE(s.ComputeMGN(out, out, out));
    EXPECT_CLOSE(FromSym(out), Add(half, half));
    out = g;
    V work;
    ASSERT_TRUE(s.ComputeGMGNG(out, g, out, work));
    EXPECT_CLOSE(FromSym(out), Product(full, Add(half, half), full));
  });
  OnCopies([&](IQVSymMatrix & s) {
    s.ComputeSTransS(s);
    EXPECT_CLOSE(FromSym(s), Product(full, full));
  });
}

// --- Products with rectangular matrices ---------------------------------------------------------

TEST_P(SymOperations, ProductsWithRectangularMatrices) {
  for (const int cols : {0, 1, 5, 70}) {
    if (cols == 70 && n > 40) continue;
    const QVRectMatrix r = reference::RandomRect(n, cols, seed + 15);
    const Full fullR = FromRect(r);
    const QVRectMatrix rt = reference::ToRect(Transpose(fullR));
    const V v = Random(n, 16);
    OnBoth([&](const IQVSymMatrix & s) {
      QVRectMatrix rect(1, 1, true);
      ASSERT_TRUE(s.ComputeRS(rt, rect));
      EXPECT_CLOSE(FromRect(rect), Product(Transpose(fullR), full));
      ASSERT_TRUE(s.ComputeRTransS(r, rect));
      EXPECT_CLOSE(FromRect(rect), Product(Transpose(fullR), full));
      QVSymMatrix out(3, true);
      ASSERT_TRUE(s.ComputeRSRTrans(rt, out));
      EXPECT_CLOSE(FromSym(out), Product(Transpose(fullR), full, fullR));
      out.Clear();
      ASSERT_TRUE(s.ComputeRTransSR(r, out));
      EXPECT_CLOSE(FromSym(out), Product(Transpose(fullR), full, fullR));
      V vector;
      ASSERT_TRUE(s.ComputeRTransSV(r, v, vector));
      EXPECT_LT(reference::MaxDifference(FromVector(vector),
                                         Product(Transpose(fullR), full, FromVector(v))),
                1e-14 * (1 + n));
      for (int k = 0; k < cols; ++k) {
        const V row = [&] {
          V x;
          rt.GetRow(k, x);
          return x;
        }();
        EXPECT_NEAR(s.ComputeVSV(rt, k), s.ComputeVSV(row), 1e-12);
      }
      EXPECT_EQ(s.ComputeVSV(rt, -1), 0.0);
      EXPECT_EQ(s.ComputeVSV(rt, cols), 0.0);

      const QVRectMatrix wrong(n + 1, n + 2, true);
      const QVSymMatrix before = out;
      EXPECT_FALSE(s.ComputeRS(wrong, rect));
      EXPECT_FALSE(s.ComputeRTransS(wrong, rect));
      EXPECT_FALSE(s.ComputeRSRTrans(wrong, out));
      EXPECT_FALSE(s.ComputeRTransSR(wrong, out));
      EXPECT_FALSE(s.ComputeRTransSV(wrong, v, vector));
      EXPECT_FALSE(s.ComputeRTransSV(r, V(At(n) + 1), vector));
      EXPECT_TRUE(reference::SameBits(out.AsVector(), before.AsVector()));

      QVRectMatrix own = rt;
      ASSERT_TRUE(s.ComputeRS(own, own));
      EXPECT_CLOSE(FromRect(own), Product(Transpose(fullR), full));
      own = r;
      ASSERT_TRUE(s.ComputeRTransS(own, own));
      EXPECT_CLOSE(FromRect(own), Product(Transpose(fullR), full));
    });
  }
}

TEST_P(SymOperations, ProductsWithSparseMatrices) {
  if (n < 1) return;  // a sparse matrix has at least one column
  for (const int cols : {1, 4, 60}) {
    const int nnz = std::min(cols, 3);
    const QVSparseRectMatrix r = structured::RandomSparse(n, cols, nnz, seed + 17);
    const QVSparseRectMatrix rt = structured::RandomSparse(cols, n, std::min(n, 3), seed + 18);
    const Full fullR = FromRect(r);
    const Full fullRt = FromRect(rt);
    const V v = Random(n, 19);
    OnBoth([&](const IQVSymMatrix & s) {
      QVRectMatrix rect;
      ASSERT_TRUE(s.ComputeRTransS(r, rect));
      EXPECT_CLOSE(FromRect(rect), Product(Transpose(fullR), full));
      QVSymMatrix out;
      ASSERT_TRUE(s.ComputeRSRTrans(rt, out));
      EXPECT_CLOSE(FromSym(out), Product(fullRt, full, Transpose(fullRt)));
      ASSERT_TRUE(s.ComputeRTransSR(r, out));
      EXPECT_CLOSE(FromSym(out), Product(Transpose(fullR), full, fullR));
      V vector;
      ASSERT_TRUE(s.ComputeRTransSV(r, v, vector));
      EXPECT_LT(reference::MaxDifference(FromVector(vector),
                                         Product(Transpose(fullR), full, FromVector(v))),
                1e-14 * (1 + n));
      V row;
      rt.GetRow(0, row);
      EXPECT_NEAR(s.ComputeVSV(rt, 0), s.ComputeVSV(row), 1e-12);
      EXPECT_EQ(s.ComputeVSV(rt, cols), 0.0);
      if (s.GetType() != QVMath_940::SymMatrixDense) {
        ASSERT_TRUE(s.ComputeRS(rt, rect));
        EXPECT_CLOSE(FromRect(rect), Product(fullRt, full));
      } else {
        EXPECT_FALSE(s.ComputeRS(rt, rect));  // the dense class asks for a dense R here
      }
    });
  }
}

// --- Cholesky -----------------------------------------------------------------------------------

TEST_P(SymOperations, FactorGivesTheMatrixBack) {
  const V ref(At(n), 1.0);
  OnCopies([&](IQVSymMatrix & s) {
    ASSERT_EQ(s.LTChol(ref, 1e-12, true), 0);
    const Full l = FromLower(s);
    EXPECT_CLOSE(Product(l, Transpose(l)), full);
    const std::unique_ptr<IQVSymMatrix> factor = structured::Clone(s);
    s.LTLLTrans();
    EXPECT_CLOSE(FromSym(s), full);
    factor->LTLTransL();
    EXPECT_CLOSE(FromSym(*factor), Product(Transpose(l), l));
  });
}

TEST_P(SymOperations, FactorRefusesBadArguments) {
  OnCopies([&](IQVSymMatrix & s) {
    const V ref(At(n), 1.0);
    EXPECT_EQ(s.LTChol(ref, -1e-9, true), -1);
    QVBitSet accepted(n + 3);
    accepted.Set(n + 2, true);
    EXPECT_EQ(s.LTChol(ref, -1.0, accepted, true), -1);
    EXPECT_EQ(accepted.InSet(), 0);  // cleared before anything is tested
    EXPECT_EQ(accepted.Size(), n + 3);
    double minDiag = 1.0;
    EXPECT_EQ(s.LTChol(-1.0, minDiag, true), -1);
    EXPECT_EQ(minDiag, -1.7976931348623157e308);
    if (n > 0) {
      EXPECT_EQ(s.LTChol(V(At(n) - 1, 1.0), 0.0, true), -1);
      V negative = ref;
      negative.back() = -1.0;
      EXPECT_EQ(s.LTChol(negative, 0.0, true), -1);
    }
    EXPECT_EQ(reference::MaxDifference(FromSym(s), full), 0.0);
  });
}

TEST_P(SymOperations, FactorMarksDependentRows) {
  OnCopies([&](IQVSymMatrix & s) {
    int deficiency = 0;
    for (int k = 1; k < n; k += 4) {
      s.ZeroOut(k);
      ++deficiency;
    }
    const Full before = FromSym(s);
    QVBitSet accepted;
    EXPECT_EQ(s.LTChol(V(At(n), 1.0), 1e-12, accepted, true), deficiency);
    EXPECT_EQ(accepted.Size(), n);
    for (int k = 0; k < n; ++k)
      EXPECT_EQ(accepted.IsIn(k), k % 4 != 1);
    const Full l = FromLower(s);
    EXPECT_CLOSE(Product(l, Transpose(l)), before);
  });
}

TEST_P(SymOperations, DeterminantOfTheFactorByJobCode) {
  long double logDet = 0.0L;
  OnCopies([&](IQVSymMatrix & s) {
    ASSERT_EQ(s.LTChol(V(At(n), 1.0), 1e-12, true), 0);
    logDet = 0.0L;
    for (int i = 0; i < n; ++i)
      logDet += std::log10(static_cast<long double>(s.GetElem(i, i)));
    double det[2] = {5.0, 5.0};
    EXPECT_EQ(s.LTDetInverse(det, 0), 0);
    EXPECT_EQ(det[0], 5.0);
    EXPECT_EQ(s.LTDetInverse(det, 1), 0);
    EXPECT_GE(det[0], 1.0);
    EXPECT_LT(det[0], 10.0);
    EXPECT_NEAR(std::log10(det[0]) + det[1], static_cast<double>(logDet), 1e-12 * (1 + n));
    const Full l = FromLower(s);
    det[0] = 5.0;
    EXPECT_EQ(s.LTDetInverse(det, 10), 0);
    EXPECT_EQ(det[0], 5.0);
    EXPECT_CLOSE(Product(l, FromLower(s)), reference::Identity(n));
    if (n > 0) {
      s.SetElem(0, 0, 0.0);
      EXPECT_EQ(s.LTDetInverse(det, 11), 1);
      EXPECT_EQ(det[0], 0.0);
      EXPECT_EQ(det[1], 0.0);
      EXPECT_EQ(s.GetElem(0, 0), 0.0);
    }
  });
}

TEST_P(SymOperations, DeterminantOfTheMatrix) {
  OnBoth([&](const IQVSymMatrix & s) {
    double det[2] = {5.0, 5.0};
    if (n == 0) {
      EXPECT_FALSE(s.ComputeDeterminant(1e-12, det));
      return;
    }
    QVSymMatrix factor = dense;
    factor.LTChol(V(At(n), 1.0), 1e-12, true);
    long double logDet = 0.0L;
    for (int i = 0; i < n; ++i)
      logDet += 2.0L * std::log10(static_cast<long double>(factor.GetElem(i, i)));
    ASSERT_TRUE(s.ComputeDeterminant(1e-12, det));
    EXPECT_GE(det[0], 1.0);
    EXPECT_LT(det[0], 10.0);
    EXPECT_NEAR(std::log10(det[0]) + det[1], static_cast<double>(logDet), 1e-12 * (1 + n));
  });
  OnCopies([&](IQVSymMatrix & s) {
    if (n == 0) return;
    s.ZeroOut(n / 2);
    double det[2] = {5.0, 5.0};
    ASSERT_TRUE(s.ComputeDeterminant(1e-12, det));
    EXPECT_EQ(det[0], 0.0);
    EXPECT_EQ(det[1], 0.0);
  });
}

TEST_P(SymOperations, InverseByCholesky) {
  const V ref(At(n), 1.0);
  OnBoth([&](const IQVSymMatrix & s) {
    const Full inverse = reference::Inverse(full);
    const std::unique_ptr<IQVSymMatrix> own = structured::Clone(s);
    own->Clear();
    EXPECT_EQ(s.CholInverse(ref, 1e-12, *own), n);
    EXPECT_CLOSE(FromSym(*own), inverse);
    QVSymMatrix out(1, true);
    EXPECT_EQ(s.CholInverse(ref, 1e-12, out), n);
    EXPECT_CLOSE(FromSym(out), inverse);
    QVBitSet accepted;
    EXPECT_EQ(s.CholInverse(ref, 1e-12, out, accepted), n);
    EXPECT_EQ(accepted.InSet(), n);
    EXPECT_CLOSE(FromSym(out), inverse);
    double minDiag = 1.0;
    EXPECT_EQ(s.CholInverse(ref, 1e-12, out, minDiag), n);
    const std::unique_ptr<IQVSymMatrix> factor = structured::Clone(s);
    double wanted = 0.0;
    factor->LTChol(1e-12, wanted, true);
    if (n > 0) {
      EXPECT_DOUBLE_EQ(minDiag, wanted);
    } else {
      EXPECT_EQ(minDiag, -1.7976931348623157e308);
    }
    EXPECT_EQ(reference::MaxDifference(FromSym(s), full), 0.0);
  });
  OnCopies([&](IQVSymMatrix & s) {
    EXPECT_EQ(s.CholInverse(ref, 1e-12, s), n);  // into itself
    EXPECT_CLOSE(FromSym(s), reference::Inverse(full));
  });
}

TEST_P(SymOperations, SolveGivesTheSolution) {
  const V b = Random(n + 2, 20);
  V leading(b.begin(), b.begin() + n);
  const Full wanted = Product(reference::Inverse(full), FromVector(leading));
  OnCopies([&](IQVSymMatrix & s) {
    V x(1, 3.0);
    EXPECT_EQ(s.LTSolve(b, 0.0, x), -1);
    EXPECT_EQ(x, V(1, 3.0));
    if (n > 0) {
      EXPECT_EQ(s.LTSolve(V(At(n) - 1, 1.0), 1e-12, x), -1);
    }
    EXPECT_EQ(reference::MaxDifference(FromSym(s), full), 0.0);
    ASSERT_EQ(s.LTSolve(b, 1e-12, x), 0);
    EXPECT_CLOSE(FromVector(x), wanted);
  });
  OnCopies([&](IQVSymMatrix & s) {
    V x = leading;
    ASSERT_EQ(s.LTSolve(x, 1e-12, x), 0);  // the solution over the right-hand side
    EXPECT_CLOSE(FromVector(x), wanted);
  });
}

std::string CaseName(const testing::TestParamInfo<Case> & info) {
  return structured::Name(std::get<0>(info.param)) + "Order" +
         std::to_string(std::get<1>(info.param)) + "Seed" + std::to_string(std::get<2>(info.param));
}

// Every class at every order, and another structure where there is one and it is cheap.
std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const Kind kind : structured::Kinds())
    for (const int order : reference::Orders())
      for (const int seed : {1, 2, 3})
        if (seed == 1 || (order > 1 && order < 50)) cases.emplace_back(kind, order, seed);
  return cases;
}

INSTANTIATE_TEST_SUITE_P(AllClasses, SymOperations, testing::ValuesIn(Cases()), CaseName);

}  // namespace
