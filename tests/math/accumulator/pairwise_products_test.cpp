#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QVAccumXProdPair.h"
#include "QVMV.h"
#include "common/display/captured_display.h"

using QVMath_940::QVAccumXProdPair;
using QVMath_940::QVSymMatrix;

namespace {

// One cell by the formulas, on plain doubles.
struct NaiveCell {
  double count = 0.0, cases = 0.0, s1 = 0.0, s2 = 0.0, s11 = 0.0, s22 = 0.0, s12 = 0.0;
  double total = 0.0, m1 = 0.0, m2 = 0.0, v1 = 0.0, v2 = 0.0, c = 0.0;

  void Add(double x, double y, double w) {
    count += 1.0;
    cases += w;
    s1 += x * w;
    s2 += y * w;
    s11 += (x * w) * x;
    s22 += (y * w) * y;
    s12 += (y * w) * x;
  }
  bool Fold() {
    const double m = total + cases;
    if (m <= 1.0 || cases <= 0.0) return m > 1.0;
    const double a = m1 * total + s1, b = m2 * total + s2, m1New = a / m, m2New = b / m;
    v1 = ((total - 1.0) * v1 + (m1 * total) * m1 + s11 - m1New * a) / (m - 1.0);
    v2 = ((total - 1.0) * v2 + (m2 * total) * m2 + s22 - m2New * b) / (m - 1.0);
    c = ((total - 1.0) * c + (m2 * total) * m1 + s12 - b * m1New) / (m - 1.0);
    m1 = m1New;
    m2 = m2New;
    total = m;
    count = cases = s1 = s2 = s11 = s22 = s12 = 0.0;
    return true;
  }
  void Merge(const NaiveCell & o, bool withSums) {
    if (withSums) {
      cases += o.cases;
      s1 += o.s1;
      s2 += o.s2;
      s11 += o.s11;
      s22 += o.s22;
      s12 += o.s12;
    }
    const double m = total + o.total;
    if (!(m > 1.0) || !(o.total > 0.0)) return;
    const double a1 = m1 * total, b1 = m2 * total, a2 = o.m1 * o.total, sum1 = a1 + a2,
                 sum2 = a2 + b1;
    const double m1New = sum1 / m, m2New = sum2 / m;
    v1 = ((total - 1.0) * v1 + a1 * m1 + (o.total - 1.0) * o.v1 + a2 * o.m1 - m1New * sum1) /
         (m - 1.0);
    v2 = ((total - 1.0) * v2 + b1 * m2 + (o.total - 1.0) * o.v2 + a2 * o.m1 - m2New * sum2) /
         (m - 1.0);
    c = total == 0.0 ? o.c
                     : ((total - 1.0) * c + (b1 * a1) / total + (o.total - 1.0) * o.c +
                        (a2 * a2) / o.total - (sum2 * sum1) / m) /
                           (m - 1.0);
    m1 = m1New;
    m2 = m2New;
    total = m;
    Fold();
  }
};

// What the display shows of a cell: the only view of all the stores.
std::string Shown(const QVAccumXProdPair & pairs) {
  CapturedDisplay display;
  pairs.Display();
  return display.Text();
}

struct PairCase {
  int i, j;
  double x, y, w;
};

std::vector<PairCase> RandomPairCases(int nVars, int perPair, unsigned seed, double location) {
  std::mt19937 generator(seed);
  std::normal_distribution<double> normal;
  std::uniform_real_distribution<double> weight(0.5, 2.0);
  std::vector<PairCase> cases;
  for (int k = 0; k < perPair; ++k) {
    for (int i = 1; i < nVars; ++i) {
      for (int j = 0; j < i; ++j) {
        if ((k + i + j) % 5 == 0) continue;  // one of the two is absent
        const double x = location + normal(generator);
        cases.push_back({i, j, x, 0.5 * x + normal(generator), weight(generator)});
      }
    }
  }
  return cases;
}

std::size_t CellOf(int i, int j) {
  return static_cast<std::size_t>(j + i * (i - 1) / 2);
}

void ExpectCovariances(const QVAccumXProdPair & pairs, const std::vector<NaiveCell> & want) {
  for (std::size_t k = 0; k < want.size(); ++k) {
    EXPECT_EQ(pairs.GetCovar().GetElem(static_cast<int>(k)), want[k].c) << "cell " << k;
  }
}

}  // namespace

TEST(AccumXProdPair, TakesItsArguments) {
  const QVAccumXProdPair pairs(4, 10);
  EXPECT_EQ(pairs.GetNVars(), 4);
  EXPECT_EQ(pairs.GetNAccum(), 10);
  EXPECT_EQ(pairs.GetCovar().GetNRows(), 3);  // 6 cells
  EXPECT_EQ(pairs.GetCovar().AsVector(), std::vector<double>(6, 0.0));
  EXPECT_EQ(QVAccumXProdPair(-3, 1).GetNVars(), 0);
}

TEST(AccumXProdPair, NumberOfAccumulationsIsAtLeastOne) {
  EXPECT_EQ(QVAccumXProdPair(2, 0).GetNAccum(), 1);
  QVAccumXProdPair pairs(2, -7);
  EXPECT_EQ(pairs.GetNAccum(), 1);
  pairs.SetNAccum(5);
  EXPECT_EQ(pairs.GetNAccum(), 5);
  pairs.SetNAccum(0);
  EXPECT_EQ(pairs.GetNAccum(), 5);
}

TEST(AccumXProdPair, FewerThanTwoVariablesHaveNoCells) {
  for (const int n : {0, 1}) {
    QVAccumXProdPair pairs(n, 3);
    EXPECT_EQ(pairs.GetNVars(), n);
    EXPECT_TRUE(pairs.GetCovar().AsVector().empty());
    EXPECT_FALSE(pairs.Update(0, 1.0, 1.0, 1.0));
    EXPECT_TRUE(pairs.Finish());
    pairs.InitAll();
    EXPECT_TRUE(pairs.GetCovar().AsVector().empty());
    EXPECT_FALSE(pairs.Update(0, 1.0, 1.0, 1.0));
    EXPECT_EQ(pairs.GetCorr().GetNRows(), n);
  }
}

TEST(AccumXProdPair, InitAllForgetsCasesAndGivesOrderN) {
  QVAccumXProdPair pairs(3, 2);
  for (int k = 0; k < 5; ++k)
    pairs.Update(2, k, 1, k * k, 1.0);
  pairs.InitAll();
  EXPECT_EQ(pairs.GetCovar().GetNRows(), 3);
  EXPECT_EQ(pairs.GetCovar().AsVector(), std::vector<double>(6, 0.0));
  QVAccumXProdPair fresh(3, 2);
  fresh.InitAll();
  EXPECT_EQ(Shown(pairs), Shown(fresh));
  // The counts have one cell a pair still, and no cell behind them is reached.
  EXPECT_TRUE(pairs.Update(2, 1.0, 2.0, 1.0));
  EXPECT_FALSE(pairs.Update(3, 1.0, 2.0, 1.0));
}

TEST(AccumXProdPair, RefusesBadCellsAndPairs) {
  QVAccumXProdPair pairs(3, 2);
  const std::string before = Shown(pairs);
  EXPECT_FALSE(pairs.Update(-1, 1.0, 2.0, 1.0));
  EXPECT_FALSE(pairs.Update(3, 1.0, 2.0, 1.0));
  EXPECT_FALSE(pairs.Update(3, 1.0, 0, 2.0, 1.0));
  EXPECT_FALSE(pairs.Update(1, 1.0, 1, 2.0, 1.0));
  EXPECT_FALSE(pairs.Update(0, 1.0, 1, 2.0, 1.0));
  EXPECT_FALSE(pairs.Update(1, 1.0, -1, 2.0, 1.0));
  EXPECT_EQ(Shown(pairs), before);
}

TEST(AccumXProdPair, PairFormFindsTheCell) {
  for (int i = 1; i < 5; ++i) {
    for (int j = 0; j < i; ++j) {
      QVAccumXProdPair byPair(5, 3), byCell(5, 3);
      for (const double x : {1.0, 2.5, 4.0}) {
        EXPECT_TRUE(byPair.Update(i, x, j, x * x, 1.5));
        EXPECT_TRUE(byCell.Update(static_cast<int>(CellOf(i, j)), x, x * x, 1.5));
      }
      EXPECT_EQ(Shown(byPair), Shown(byCell));
      EXPECT_NE(byPair.GetCovar().GetElem(static_cast<int>(CellOf(i, j))), 0.0);
    }
  }
}

TEST(AccumXProdPair, SumsUntilTheNumberOfAccumulationsIsReached) {
  QVAccumXProdPair pairs(2, 3);
  EXPECT_TRUE(pairs.Update(1, 1.0, 0, 2.0, 1.0));
  EXPECT_TRUE(pairs.Update(1, 2.0, 0, 4.0, 1.0));
  EXPECT_EQ(pairs.GetCovar().GetElem(0), 0.0);
  EXPECT_TRUE(pairs.Update(1, 6.0, 0, 12.0, 1.0));
  EXPECT_DOUBLE_EQ(pairs.GetCovar().GetElem(0), 14.0);
}

TEST(AccumXProdPair, FirstCaseOfWeightOneWaitsForTheSecond) {
  QVAccumXProdPair pairs(2, 1);
  EXPECT_FALSE(pairs.Update(1, 1.0, 0, 2.0, 1.0));  // one case has no variance yet
  EXPECT_EQ(pairs.GetCovar().GetElem(0), 0.0);
  EXPECT_TRUE(pairs.Update(1, 3.0, 0, 8.0, 1.0));  // the count of 2 is past 1: both fold
  EXPECT_EQ(pairs.GetCovar().GetElem(0), 6.0);
  EXPECT_TRUE(pairs.Update(1, 2.0, 0, 5.0, 1.0));
  EXPECT_DOUBLE_EQ(pairs.GetCovar().GetElem(0), 3.0);
  EXPECT_TRUE(pairs.Finish());
}

TEST(AccumXProdPair, FirstCaseOfLargerWeightFoldsAtOnce) {
  QVAccumXProdPair pairs(2, 1);
  EXPECT_TRUE(pairs.Update(1, 1.0, 0, 2.0, 2.0));
  EXPECT_EQ(pairs.GetCovar().GetElem(0), 0.0);
  EXPECT_TRUE(pairs.Update(1, 4.0, 0, 8.0, 1.0));
  EXPECT_DOUBLE_EQ(pairs.GetCovar().GetElem(0), 6.0);  // 1, 1, 4 with 2, 2, 8
}

TEST(AccumXProdPair, CasesWithoutWeightAreCountedAndFoldNothing) {
  QVAccumXProdPair pairs(2, 1);
  EXPECT_FALSE(pairs.Update(1, 5.0, 0, 5.0, 0.0));
  EXPECT_TRUE(pairs.Update(1, 1.0, 0, 2.0, 2.0));
  EXPECT_TRUE(pairs.Update(1, 9.0, 0, 9.0, 0.0));  // the total is above 1
  EXPECT_EQ(pairs.GetCovar().GetElem(0), 0.0);
}

TEST(AccumXProdPair, FollowsTheFormulasToTheLastBit) {
  for (const int nVars : {2, 3, 7}) {
    for (const int nAccum : {1, 2, 5, 1000}) {
      QVAccumXProdPair pairs(nVars, nAccum);
      std::vector<NaiveCell> want(CellOf(nVars, 0));
      for (const PairCase & c : RandomPairCases(nVars, 40, 3, 2.0)) {
        NaiveCell & cell = want[CellOf(c.i, c.j)];
        cell.Add(c.x, c.y, c.w);
        const bool folded = cell.count >= nAccum ? cell.Fold() : true;
        EXPECT_EQ(pairs.Update(c.i, c.x, c.j, c.y, c.w), folded);
      }
      ExpectCovariances(pairs, want);
      bool finished = true;
      for (NaiveCell & cell : want)
        finished = cell.Fold() && finished;
      EXPECT_TRUE(finished);
      EXPECT_TRUE(pairs.Finish());
      ExpectCovariances(pairs, want);
    }
  }
}

TEST(AccumXProdPair, AgreesWithTwoPassesForEveryNumberOfAccumulations) {
  const int nVars = 6;
  const auto cases = RandomPairCases(nVars, 60, 9, 10.0);
  for (const int nAccum : {1, 2, 7, 1000}) {
    QVAccumXProdPair pairs(nVars, nAccum);
    for (const PairCase & c : cases)
      pairs.Update(c.i, c.x, c.j, c.y, c.w);
    EXPECT_TRUE(pairs.Finish());
    for (int i = 1; i < nVars; ++i) {
      for (int j = 0; j < i; ++j) {
        long double w = 0.0L, mx = 0.0L, my = 0.0L, sxx = 0.0L, syy = 0.0L, sxy = 0.0L;
        for (const PairCase & c : cases) {
          if (c.i != i || c.j != j) continue;
          w += c.w;
          mx += c.w * c.x;
          my += c.w * c.y;
        }
        mx /= w;
        my /= w;
        for (const PairCase & c : cases) {
          if (c.i != i || c.j != j) continue;
          sxx += c.w * (c.x - mx) * (c.x - mx);
          syy += c.w * (c.y - my) * (c.y - my);
          sxy += c.w * (c.x - mx) * (c.y - my);
        }
        // Raw sums are subtracted: the square of mean / spread is lost, here 100.
        const double scale = static_cast<double>(std::sqrt(sxx * syy) / (w - 1.0L));
        EXPECT_NEAR(pairs.GetCovar().GetElem(static_cast<int>(CellOf(i, j))),
                    static_cast<double>(sxy / (w - 1.0L)), 2.3e-16 * 60 * 100 * scale);
      }
    }
  }
}

TEST(AccumXProdPairFinish, FoldsTheRemainder) {
  QVAccumXProdPair pairs(3, 1000);
  for (const double x : {1.0, 2.0, 6.0}) {
    for (int cell = 0; cell < 3; ++cell)
      EXPECT_TRUE(pairs.Update(cell, x, 2.0 * x, 1.0));
  }
  EXPECT_EQ(pairs.GetCovar().AsVector(), std::vector<double>(3, 0.0));
  EXPECT_TRUE(pairs.Finish());
  for (int cell = 0; cell < 3; ++cell)
    EXPECT_DOUBLE_EQ(pairs.GetCovar().GetElem(cell), 14.0);
}

TEST(AccumXProdPairFinish, SkipsCellsWithoutCasesAndStopsAtASingleCase) {
  QVAccumXProdPair pairs(4, 1000);  // 6 cells; cell 0 stays empty
  for (const int cell : {1, 3}) {
    pairs.Update(cell, 1.0, 2.0, 1.0);
    pairs.Update(cell, 3.0, 8.0, 1.0);
  }
  pairs.Update(2, 1.0, 2.0, 1.0);  // alone in its cell
  EXPECT_FALSE(pairs.Finish());
  EXPECT_EQ(pairs.GetCovar().GetElem(1), 6.0);
  EXPECT_EQ(pairs.GetCovar().GetElem(3), 0.0);  // behind it: not touched
  pairs.Update(2, 3.0, 8.0, 1.0);
  EXPECT_TRUE(pairs.Finish());
  EXPECT_EQ(pairs.GetCovar().GetElem(2), 6.0);
  EXPECT_EQ(pairs.GetCovar().GetElem(3), 6.0);
  EXPECT_TRUE(pairs.Finish());
}

// --- Merge ---------------------------------------------------------------------------------------

TEST(AccumXProdPairMerge, FollowsTheFormulasToTheLastBit) {
  for (const int nVars : {2, 3, 7}) {
    for (const int nAccum : {2, 7, 1000}) {
      for (const bool finishFirst : {true, false}) {
        QVAccumXProdPair pairs[2] = {{nVars, nAccum}, {nVars, nAccum}};
        std::vector<NaiveCell> want[2];
        for (const unsigned side : {0u, 1u}) {
          want[side].resize(CellOf(nVars, 0));
          for (const PairCase & c : RandomPairCases(nVars, 30, 3 + side, 2.0 + side)) {
            NaiveCell & cell = want[side][CellOf(c.i, c.j)];
            cell.Add(c.x, c.y, c.w);
            if (cell.count >= nAccum) cell.Fold();
            pairs[side].Update(c.i, c.x, c.j, c.y, c.w);
          }
          if (finishFirst) {
            for (NaiveCell & cell : want[side])
              cell.Fold();
            EXPECT_TRUE(pairs[side].Finish());
          }
        }
        EXPECT_TRUE(pairs[0].Merge(pairs[1]));
        for (std::size_t k = 0; k < want[0].size(); ++k) {
          want[0][k].Merge(want[1][k], k < static_cast<std::size_t>(nVars));
        }
        ExpectCovariances(pairs[0], want[0]);
        ExpectCovariances(pairs[1], want[1]);
        EXPECT_TRUE(pairs[0].Finish());
        for (NaiveCell & cell : want[0])
          cell.Fold();
        ExpectCovariances(pairs[0], want[0]);
      }
    }
  }
}

TEST(AccumXProdPairMerge, IsRightWhenBothVariablesAreAlike) {
  // y is x: the other's total of the first variable is that of the second one too.
  QVAccumXProdPair first(2, 1000), second(2, 1000), whole(2, 1000);
  for (int k = 0; k < 20; ++k) {
    const double x = std::sin(1.7 * k);
    (k < 7 ? first : second).Update(1, x, 0, x, 1.0);
    whole.Update(1, x, 0, x, 1.0);
  }
  EXPECT_TRUE(first.Finish() && second.Finish() && whole.Finish());
  EXPECT_TRUE(first.Merge(second));
  EXPECT_NEAR(first.GetCovar().GetElem(0), whole.GetCovar().GetElem(0), 1e-15);
}

TEST(AccumXProdPairMerge, UsesTheFirstVariablesTotalForTheSecond) {
  // 1, 3 with 10, 30 here; 2, 4 with 20, 40 there.
  QVAccumXProdPair here(2, 1000), there(2, 1000);
  here.Update(1, 1.0, 0, 10.0, 1.0);
  here.Update(1, 3.0, 0, 30.0, 1.0);
  there.Update(1, 2.0, 0, 20.0, 1.0);
  there.Update(1, 4.0, 0, 40.0, 1.0);
  EXPECT_TRUE(here.Finish() && there.Finish());
  EXPECT_TRUE(here.Merge(there));
  // a1 = 4, b1 = 40, a2 = 6, S1 = 10, S2 = 46: (20 + 80 + 20 + 18 - 115) / 3, not the 50 / 3 of
  // the four cases together.
  EXPECT_DOUBLE_EQ(here.GetCovar().GetElem(0), 23.0 / 3.0);
  const std::string shown = Shown(here);
  EXPECT_NE(shown.find("\nThe matrix of means of first variable (number of elements = 1, number of "
                       "rows = 1)\nrow  0:  2.5\n"),
            std::string::npos)
      << shown;
  EXPECT_NE(
      shown.find("\nThe matrix of means of second variable (number of elements = 1, number of "
                 "rows = 1)\nrow  0:  11.5\n"),
      std::string::npos)
      << shown;
}

TEST(AccumXProdPairMerge, CellWithoutCasesTakesTheOthersCovariance) {
  QVAccumXProdPair other(3, 1000);
  for (const double x : {1.0, 2.0, 6.0}) {
    for (int cell = 0; cell < 3; ++cell)
      other.Update(cell, x, 2.0 * x, 1.0);
  }
  EXPECT_TRUE(other.Finish());
  QVAccumXProdPair empty(3, 1000), without(0, 4);
  EXPECT_TRUE(empty.Merge(other));
  EXPECT_TRUE(without.Merge(other));
  EXPECT_EQ(without.GetNVars(), 3);
  EXPECT_EQ(without.GetNAccum(), 4);
  EXPECT_EQ(without.GetCovar().GetNRows(), 3);  // InitAll ran: order n
  for (int cell = 0; cell < 3; ++cell) {
    EXPECT_EQ(empty.GetCovar().GetElem(cell), other.GetCovar().GetElem(cell));
    EXPECT_EQ(without.GetCovar().GetElem(cell), other.GetCovar().GetElem(cell));
  }
}

TEST(AccumXProdPairMerge, JoinsUnfoldedSumsInTheFirstCellsAlone) {
  // 5 variables, 10 cells: the sums of the first 5 arrive, those behind them do not.
  QVAccumXProdPair here(5, 1000), there(5, 1000);
  for (int cell = 0; cell < 10; ++cell) {
    there.Update(cell, 1.0, 2.0, 1.0);
    there.Update(cell, 3.0, 8.0, 1.0);
  }
  EXPECT_TRUE(here.Merge(there));
  EXPECT_TRUE(here.Finish());
  for (int cell = 0; cell < 10; ++cell) {
    EXPECT_EQ(here.GetCovar().GetElem(cell), cell < 5 ? 6.0 : 0.0) << cell;
  }
}

TEST(AccumXProdPairMerge, TwoVariablesHaveOneCell) {
  QVAccumXProdPair here(2, 1000), there(2, 1000);
  there.Update(1, 1.0, 0, 2.0, 1.0);
  there.Update(1, 3.0, 0, 8.0, 1.0);
  EXPECT_TRUE(here.Merge(there));
  EXPECT_TRUE(here.Finish());
  EXPECT_EQ(here.GetCovar().GetElem(0), 6.0);
}

TEST(AccumXProdPairMerge, RefusesOtherNumbersOfVariables) {
  QVAccumXProdPair pairs(3, 2), two(2, 2), none(0, 2);
  pairs.Update(0, 1.0, 2.0, 1.0);
  const std::string before = Shown(pairs);
  EXPECT_FALSE(pairs.Merge(two));
  EXPECT_FALSE(pairs.Merge(none));
  EXPECT_EQ(Shown(pairs), before);
  EXPECT_TRUE(none.Merge(QVAccumXProdPair(0, 9)));
}

TEST(AccumXProdPairMerge, Lists) {
  QVAccumXProdPair a(3, 1000), b(3, 1000), two(2, 1000);
  for (const PairCase & c : RandomPairCases(3, 20, 3, 2.0))
    a.Update(c.i, c.x, c.j, c.y, c.w);
  for (const PairCase & c : RandomPairCases(3, 20, 4, 5.0))
    b.Update(c.i, c.x, c.j, c.y, c.w);
  EXPECT_TRUE(a.Finish() && b.Finish());
  QVAccumXProdPair oneByOne(0, 1), fromConst(0, 1), fromOther(0, 1);
  EXPECT_TRUE(oneByOne.Merge(a) && oneByOne.Merge(b));
  EXPECT_TRUE(fromConst.Merge(std::vector<const QVAccumXProdPair *>{nullptr, &a, nullptr, &b}));
  EXPECT_TRUE(fromOther.Merge(std::vector<QVAccumXProdPair *>{&a, &b, nullptr}));
  EXPECT_EQ(Shown(fromConst), Shown(oneByOne));
  EXPECT_EQ(Shown(fromOther), Shown(oneByOne));

  EXPECT_FALSE(two.Merge(std::vector<QVAccumXProdPair *>{&a}));
  EXPECT_FALSE(two.Merge(std::vector<QVAccumXProdPair *>{}));
  EXPECT_FALSE(two.Merge(std::vector<const QVAccumXProdPair *>{nullptr}));
  QVAccumXProdPair stopped(0, 1), onlyA(0, 1);
  EXPECT_FALSE(stopped.Merge(std::vector<QVAccumXProdPair *>{&a, &two, &b}));
  EXPECT_TRUE(onlyA.Merge(a));
  EXPECT_EQ(Shown(stopped), Shown(onlyA));
}

// --- Correlations --------------------------------------------------------------------------------

TEST(AccumXProdPairCorr, ReadsTheCellsAsAMatrixWithItsDiagonal) {
  // 3 variables, 3 cells: read as rows {c0}, {c1, c2}; the third row is behind the store.
  QVAccumXProdPair pairs(3, 1000);
  const double slopes[] = {2.0, 3.0, 5.0};
  for (int cell = 0; cell < 3; ++cell) {
    for (const double x : {1.0, 2.0, 6.0})
      pairs.Update(cell, x, slopes[cell] * x, 1.0);
  }
  EXPECT_TRUE(pairs.Finish());
  const double c0 = pairs.GetCovar().GetElem(0);
  const double c1 = pairs.GetCovar().GetElem(1);
  const double c2 = pairs.GetCovar().GetElem(2);
  const QVSymMatrix & corr = pairs.GetCorr();
  ASSERT_EQ(corr.GetNRows(), 3);
  // The root is taken twice.
  const double root0 = std::sqrt(std::sqrt(c0)), root2 = std::sqrt(std::sqrt(c2));
  EXPECT_EQ(corr.GetElem(0), c0 / root0 / root0);
  EXPECT_EQ(corr.GetElem(1), c1 / root2 / root0);
  EXPECT_EQ(corr.GetElem(2), c2 / root2 / root2);
  for (const int k : {3, 4, 5}) {
    EXPECT_EQ(corr.GetElem(k), QVCommon_940::QVMV::Missing());
  }
}

TEST(AccumXProdPairCorr, DiagonalNotAboveZeroIsMissing) {
  QVAccumXProdPair pairs(3, 1000);
  const double slopes[] = {2.0, 3.0, -5.0};  // a negative "diagonal" element (1, 1)
  for (int cell = 0; cell < 3; ++cell) {
    for (const double x : {1.0, 2.0, 6.0})
      pairs.Update(cell, x, slopes[cell] * x, 1.0);
  }
  EXPECT_TRUE(pairs.Finish());
  const QVSymMatrix & corr = pairs.GetCorr();
  EXPECT_GT(corr.GetElem(0), 0.0);
  for (const int k : {1, 2, 3, 4, 5}) {
    EXPECT_EQ(corr.GetElem(k), QVCommon_940::QVMV::Missing()) << k;
  }
}

TEST(AccumXProdPairCorr, EmptyStoresGiveMissing) {
  for (const int n : {1, 2, 4}) {
    QVAccumXProdPair pairs(n, 5);
    for (const bool initAll : {false, true}) {
      if (initAll) pairs.InitAll();
      const QVSymMatrix & corr = pairs.GetCorr();
      EXPECT_EQ(corr.GetNRows(), n);
      for (const double c : corr.AsVector())
        EXPECT_EQ(c, QVCommon_940::QVMV::Missing());
    }
  }
}

// --- Copies and display --------------------------------------------------------------------------

TEST(AccumXProdPair, CopiesAreIndependent) {
  QVAccumXProdPair original(2, 3);
  original.Update(0, 1.0, 2.0, 1.0);
  const std::string before = Shown(original);
  QVAccumXProdPair copy(original), assigned(7, 1);
  assigned = original;
  EXPECT_EQ(Shown(copy), before);
  EXPECT_EQ(Shown(assigned), before);
  copy.Update(0, 1.0, 2.0, 1.0);
  assigned.InitAll();
  EXPECT_EQ(Shown(original), before);
}

TEST(AccumXProdPair, DisplayText) {
  QVAccumXProdPair pairs(2, 3);
  pairs.Update(1, 1.0, 0, 2.0, 1.0);
  pairs.Update(1, 3.0, 0, 8.0, 1.0);
  const auto line = [](const std::string & label, const std::string & value) {
    return "\n" + label + " (number of elements = 1, number of rows = 1)\nrow  0:  " + value;
  };
  EXPECT_EQ(Shown(pairs),
            "\nQVAccumXProdPair display start"
            "\nNumber of variables = 2"
            "\nNumber of accumulations = 3" +
                line("The matrix of counts of accumulations", "2") +
                line("The matrix of accumulated numbers of cases", "2") +
                line("The matrix of accumulated sums of first variable", "4") +
                line("The matrix of accumulated sums of second variable", "10") +
                line("The matrix of accumulated sums of squares of first variable", "10") +
                line("The matrix of accumulated sums of cross-products", "26") +
                line("The matrix of total numbers of cases", "0") +
                line("The matrix of means of first variable", "0") +
                line("The matrix of means of second variable", "0") +
                line("The matrix of variances of first variable", "0") +
                line("The matrix of variances of second variable", "0") +
                line("The matrix of covariances", "0") +
                "\nThe matrix of correlations (number of elements = 0, number of rows = 0)"
                "\nQVAccumXProdPair display end");
  pairs.Finish();
  const std::string shown = Shown(pairs);
  for (const std::string & wanted : {line("The matrix of counts of accumulations", "0"),
                                     line("The matrix of accumulated sums of cross-products", "0"),
                                     line("The matrix of total numbers of cases", "2"),
                                     line("The matrix of means of first variable", "2"),
                                     line("The matrix of means of second variable", "5"),
                                     line("The matrix of variances of first variable", "2"),
                                     line("The matrix of variances of second variable", "18"),
                                     line("The matrix of covariances", "6")}) {
    EXPECT_NE(shown.find(wanted), std::string::npos) << wanted;
  }
}
