#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QVMeansXProducts.h"
#include "QVProvMeans.h"
#include "common/display/captured_display.h"
#include "math/accumulator/naive_statistics.h"

using QVMath_940::QVMeansXProdData;
using QVMath_940::QVMeansXProducts;
using QVMath_940::QVProvMeans;
using QVMath_940::QVRectMatrix;

namespace {

constexpr int kOrders[] = {1, 2, 3, 7, 33, 129};
constexpr int kFusedOrder = 64;  // below it products and sums are rounded one by one

QVRectMatrix Matrix(const std::vector<std::vector<double>> & rows) {
  const int nCols = rows.empty() ? 0 : static_cast<int>(rows[0].size());
  QVRectMatrix m(static_cast<int>(rows.size()), nCols, true);
  for (int r = 0; r < m.GetNRows(); ++r) {
    for (int j = 0; j < nCols; ++j) {
      m.SetElem(r, j, rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(j)]);
    }
  }
  return m;
}

QVRectMatrix FirstRows(const QVRectMatrix & m, int rows) {
  QVRectMatrix head(rows, m.GetNCols(), true);
  for (int r = 0; r < rows; ++r) {
    for (int j = 0; j < m.GetNCols(); ++j)
      head.SetElem(r, j, m.GetElem(r, j));
  }
  return head;
}

// Both ways through one matrix.
QVMeansXProducts Computed(const QVRectMatrix & data, int p, bool intercept, bool freq, bool reg) {
  QVMeansXProducts stats(p, intercept, freq, reg);
  EXPECT_TRUE(stats.Compute(data, 0));
  return stats;
}
QVMeansXProducts OnePass(const QVRectMatrix & data, int p, bool intercept, bool freq, bool reg) {
  QVMeansXProducts stats(p, intercept, freq, reg);
  stats.StartUpdateOnePass();
  EXPECT_TRUE(stats.UpdateOnePass(data, 0));
  stats.FinishUpdateOnePass();
  return stats;
}

}  // namespace

// --- Compute -------------------------------------------------------------------------------------

TEST(MeansXProductsCompute, AgreesWithTwoPassesAtEveryOrderAndNumberOfRows) {
  for (const int p : kOrders) {
    for (const int n : {1, 2, 3, 4, 5, 63, 64, 65, 130}) {
      for (const bool intercept : {true, false}) {
        for (const bool weighted : {true, false}) {
          const Cases cases = RandomCases(p, n, 1.0, 2.0, weighted, 5);
          const QVMeansXProducts stats =
              Computed(AsMatrix(cases, weighted), p, intercept, weighted, false);
          if (n == 1) {
            EXPECT_EQ(stats.GetMeans(), cases.rows[0]);
            if (intercept) {
              EXPECT_EQ(stats.GetXProds().AsVector(),
                        std::vector<double>(stats.GetXProds().AsVector().size(), 0.0));
            }
          } else {
            ExpectAccurate(stats, cases, 1.0,
                           "p = " + std::to_string(p) + ", n = " + std::to_string(n));
          }
        }
      }
    }
  }
}

TEST(MeansXProductsCompute, FollowsTheFormulasToTheLastBit) {
  for (const int p : kOrders) {
    if (p >= kFusedOrder) continue;
    for (const bool intercept : {true, false}) {
      for (const bool weighted : {true, false}) {
        const Cases cases = RandomCases(p, 70, 3.0, 2.0, weighted, 17);
        const QVMeansXProducts stats =
            Computed(AsMatrix(cases, weighted), p, intercept, weighted, false);
        double nCases = 0.0;
        for (const double w : cases.weights)
          nCases += w;
        EXPECT_EQ(stats.GetNCases(), nCases);
        const std::size_t q = static_cast<std::size_t>(p);
        std::vector<double> means(q);
        for (std::size_t j = 0; j < q; ++j) {
          double sum = 0.0;
          for (std::size_t r = 0; r < cases.Size(); ++r)
            sum += cases.weights[r] * cases.rows[r][j];
          means[j] = sum / nCases;
        }
        EXPECT_EQ(stats.GetMeans(), means);
        std::vector<double> xProds(q * (q + 1) / 2, 0.0);
        for (std::size_t r = 0; r < cases.Size(); ++r) {
          for (std::size_t i = 0; i < q; ++i) {
            for (std::size_t j = 0; j <= i; ++j) {
              const double di = cases.rows[r][i] - (intercept ? means[i] : 0.0);
              const double dj = cases.rows[r][j] - (intercept ? means[j] : 0.0);
              xProds[i * (i + 1) / 2 + j] += di * dj * cases.weights[r];
            }
          }
        }
        EXPECT_EQ(stats.GetXProds().AsVector(), xProds);
      }
    }
  }
}

TEST(MeansXProductsCompute, TakesTheFirstRows) {
  const Cases cases = RandomCases(3, 20, 1.0, 1.0, true, 2);
  const QVRectMatrix data = AsMatrix(cases, true);
  for (const int nRows : {1, 7, 19, 20}) {
    QVMeansXProducts some(3, true, true, false);
    EXPECT_TRUE(some.Compute(data, nRows));
    EXPECT_EQ(AllValues(some), AllValues(Computed(FirstRows(data, nRows), 3, true, true, false)));
  }
  for (const int nRows : {0, -5, 21, std::numeric_limits<int>::max()}) {
    QVMeansXProducts all(3, true, true, false);
    EXPECT_TRUE(all.Compute(data, nRows));
    EXPECT_EQ(AllValues(all), AllValues(Computed(data, 3, true, true, false)));
  }
}

TEST(MeansXProductsCompute, RefusesOtherColumnsAndChangesNothing) {
  const QVRectMatrix three(4, 3, true);
  for (const int weights : {0, 1, 2}) {
    for (const int p : {1, 2, 3, 4}) {
      QVMeansXProducts stats(p, true, weights >= 1, weights == 2);
      stats.AddCase(std::vector<double>(4, 1.5), 2.0);
      const auto before = AllValues(stats);
      const bool fits = p + weights == 3;
      EXPECT_EQ(QVMeansXProducts(stats).Update(three, 0), fits);
      EXPECT_EQ(QVMeansXProducts(stats).UpdateOnePass(three, 0), fits);
      if (!fits) {
        EXPECT_FALSE(stats.Compute(three, 0));
        EXPECT_FALSE(stats.Update(three, 0));
        EXPECT_FALSE(stats.UpdateOnePass(three, 0));
        EXPECT_EQ(AllValues(stats), before);
      }
    }
  }
}

TEST(MeansXProductsCompute, ReplacesTheFormerState) {
  const Cases cases = RandomCases(2, 12, 1.0, 1.0, false, 2);
  const QVRectMatrix data = AsMatrix(cases, false);
  QVMeansXProducts stats(2, true, false, false);
  stats.AddCase({100.0, 200.0}, 50.0);
  EXPECT_TRUE(stats.Compute(data, 0));
  EXPECT_EQ(AllValues(stats), AllValues(Computed(data, 2, true, false, false)));
}

TEST(MeansXProductsCompute, ConstantColumnIsExact) {
  // 0.1 summed and divided by the number of rows is not 0.1 for many numbers of rows.
  for (const int n : {1, 3, 6, 10, 77, 1000}) {
    for (const int weights : {0, 1, 2}) {
      std::vector<std::vector<double>> rows;
      for (int r = 0; r < n; ++r) {
        std::vector<double> row = {0.1, static_cast<double>(r), -1e300};
        for (int k = 0; k < weights; ++k)
          row.push_back(0.3 + 0.1 * r);
        rows.push_back(row);
      }
      const QVMeansXProducts stats = Computed(Matrix(rows), 3, true, weights >= 1, weights == 2);
      EXPECT_EQ(stats.GetMeans()[0], 0.1);
      EXPECT_EQ(stats.GetMeans()[2], -1e300);
      for (const int k : {0, 1, 2}) {
        EXPECT_EQ(stats.GetXProds().GetElem(0, k), 0.0);
        EXPECT_EQ(stats.GetXProds().GetElem(2, k), 0.0);
      }
    }
  }
}

TEST(MeansXProductsCompute, ConstantColumnIsExactWithoutWeightOfItsFirstRow) {
  const QVMeansXProducts stats = Computed(Matrix({{0.1, 0.0}, {0.1, 3.0}}), 1, true, true, false);
  EXPECT_EQ(stats.GetMeans()[0], 0.1);
  EXPECT_EQ(stats.GetXProds().GetElem(0), 0.0);
}

TEST(MeansXProductsCompute, SumEqualToThatOfTheFirstValueGivesTheFirstValue) {
  // Not constant, but the sums agree: the mean is the first value here as well.
  const QVMeansXProducts stats = Computed(Matrix({{2.0}, {1.0}, {3.0}}), 1, true, false, false);
  EXPECT_EQ(stats.GetMeans()[0], 2.0);
  EXPECT_EQ(stats.GetXProds().GetElem(0), 2.0);
}

TEST(MeansXProductsCompute, WeightsMultiply) {
  // x, frequency weight, regression weight
  const QVRectMatrix data = Matrix({{1.0, 2.0, 0.5}, {4.0, 1.0, 3.0}, {9.0, 4.0, 0.25}});
  for (const bool intercept : {true, false}) {
    const QVMeansXProducts both = Computed(data, 1, intercept, true, true);
    EXPECT_EQ(both.GetNCases(), 5.0);  // 1 + 3 + 1
    EXPECT_DOUBLE_EQ(both.GetMeans()[0], 22.0 / 5.0);
    EXPECT_DOUBLE_EQ(both.GetXProds().GetElem(0), intercept ? 130.0 - 22.0 * 22.0 / 5.0 : 130.0);
    const QVMeansXProducts onePass = OnePass(data, 1, intercept, true, true);
    EXPECT_EQ(onePass.GetNCases(), 5.0);
    EXPECT_DOUBLE_EQ(onePass.GetMeans()[0], 22.0 / 5.0);
    EXPECT_DOUBLE_EQ(onePass.GetXProds().GetElem(0), 130.0 - 22.0 * 22.0 / 5.0);
  }
}

TEST(MeansXProductsCompute, OneWeightColumnIsTheWeightWhicheverItIs) {
  const Cases cases = RandomCases(2, 15, 1.0, 1.0, true, 2);
  const QVRectMatrix data = AsMatrix(cases, true);
  EXPECT_EQ(AllValues(Computed(data, 2, true, true, false)),
            AllValues(Computed(data, 2, true, false, true)));
  EXPECT_EQ(AllValues(OnePass(data, 2, true, true, false)),
            AllValues(OnePass(data, 2, true, false, true)));
}

TEST(MeansXProductsCompute, NoRowsOrNoWeightLeaveTheClearedState) {
  QVMeansXProducts stats(2, true, false, false);
  stats.AddCase({1.0, 2.0}, 1.0);
  EXPECT_TRUE(stats.Compute(QVRectMatrix(0, 2, true), 0));
  EXPECT_EQ(AllValues(stats), AllValues(QVMeansXProdData(2, true)));

  QVMeansXProducts weighted(1, true, true, false);
  weighted.AddCase({1.0}, 1.0);
  EXPECT_TRUE(weighted.Compute(Matrix({{5.0, 0.0}, {6.0, 0.0}}), 0));
  EXPECT_EQ(AllValues(weighted), AllValues(QVMeansXProdData(1, true)));
  EXPECT_TRUE(weighted.Compute(Matrix({{5.0, 1.0}, {6.0, -1.0}}), 0));
  EXPECT_EQ(AllValues(weighted), AllValues(QVMeansXProdData(1, true)));
}

TEST(MeansXProductsCompute, WithoutVariablesCountsCases) {
  QVMeansXProducts none;
  EXPECT_TRUE(none.Compute(QVRectMatrix(4, 0, true), 0));
  EXPECT_EQ(none.GetNCases(), 4.0);
  EXPECT_TRUE(none.UpdateOnePass(QVRectMatrix(4, 0, true), 3));
  none.FinishUpdateOnePass();
  EXPECT_EQ(none.GetNCases(), 3.0);
  QVMeansXProducts weightOnly(0, true, true, false);
  EXPECT_TRUE(weightOnly.Compute(Matrix({{2.0}, {3.0}}), 0));
  EXPECT_EQ(weightOnly.GetNCases(), 5.0);
}

TEST(MeansXProductsCompute, LargeMeanCostsNoDigits) {
  for (const int p : {1, 3, 33, 129}) {
    for (const bool weighted : {true, false}) {
      const Cases cases = RandomCases(p, 500, 1e7, 1.0, weighted, 8);
      ExpectAccurate(Computed(AsMatrix(cases, weighted), p, true, weighted, false), cases, 1.0,
                     "p = " + std::to_string(p));
    }
  }
}

TEST(MeansXProductsCompute, AgreesWithCaseByCaseUpdates) {
  const Cases cases = RandomCases(7, 80, 2.0, 1.0, true, 8);
  QVProvMeans byCase(7, true);
  for (std::size_t r = 0; r < cases.Size(); ++r)
    byCase.Update(cases.rows[r], cases.weights[r]);
  const QVMeansXProducts stats = Computed(AsMatrix(cases, true), 7, true, true, false);
  for (int k = 0; k < 28; ++k) {
    EXPECT_NEAR(stats.GetXProds().GetElem(k), byCase.GetXProds().GetElem(k), 1e-11);
  }
}

// --- Update --------------------------------------------------------------------------------------

TEST(MeansXProductsUpdate, FirstTimeIsCompute) {
  const QVRectMatrix data = AsMatrix(RandomCases(3, 20, 1.0, 1.0, true, 2), true);
  QVMeansXProducts stats(3, true, true, false);
  stats.StartUpdate();
  EXPECT_TRUE(stats.Update(data, 13));
  stats.FinishUpdate();
  EXPECT_EQ(AllValues(stats), AllValues(Computed(FirstRows(data, 13), 3, true, true, false)));
}

TEST(MeansXProductsUpdate, LaterIsComputeAndMergeOfWhatWasThere) {
  const QVRectMatrix data = AsMatrix(RandomCases(3, 20, 1.0, 1.0, true, 2), true);
  const QVRectMatrix more = AsMatrix(RandomCases(3, 31, 4.0, 2.0, true, 3), true);
  for (const bool intercept : {true, false}) {
    QVMeansXProducts stats(3, intercept, true, false);
    EXPECT_TRUE(stats.Update(data, 0));
    EXPECT_TRUE(stats.Update(more, 0));
    QVMeansXProducts want = Computed(more, 3, intercept, true, false);
    EXPECT_TRUE(want.Merge(Computed(data, 3, intercept, true, false)));
    EXPECT_EQ(AllValues(stats), AllValues(want));
  }
}

TEST(MeansXProductsUpdate, PiecesAgreeWithTheWhole) {
  for (const int p : kOrders) {
    for (const bool intercept : {true, false}) {
      const Cases cases = RandomCases(p, 160, 1e5, 1.0, true, 29);
      QVMeansXProducts stats(p, intercept, true, false);
      for (const auto & [from, to] :
           {std::pair<std::size_t, std::size_t>{0, 1}, {1, 90}, {90, 160}}) {
        EXPECT_TRUE(stats.Update(AsMatrix(cases.Part(from, to), true), 0));
      }
      const double condition = Condition(TwoPasses(cases, true), intercept);
      ExpectAccurate(stats, cases, condition, "p = " + std::to_string(p));
    }
  }
}

TEST(MeansXProductsUpdate, NoRowsKeepWhatWasThere) {
  QVMeansXProducts stats(2, true, false, false);
  EXPECT_TRUE(stats.Update(Matrix({{1.0, 2.0}, {3.0, 6.0}}), 0));
  EXPECT_TRUE(stats.Update(QVRectMatrix(0, 2, true), 0));
  EXPECT_EQ(stats.GetNCases(), 2.0);
  EXPECT_EQ(stats.GetMeans(), (std::vector<double>{2.0, 4.0}));
  EXPECT_EQ(stats.GetXProds().AsVector(), (std::vector<double>{2.0, 4.0, 8.0}));
}

// --- One pass ------------------------------------------------------------------------------------

TEST(MeansXProductsOnePass, AgreesWithTwoPassesOnCentredData) {
  for (const int p : kOrders) {
    for (const int n : {2, 5, 64, 130}) {
      for (const bool weighted : {true, false}) {
        const Cases cases = RandomCases(p, n, 0.0, 2.0, weighted, 5);
        const double condition = std::pow(Condition(TwoPasses(cases, true), true), 2.0);
        ExpectAccurate(OnePass(AsMatrix(cases, weighted), p, true, weighted, false), cases,
                       condition, "p = " + std::to_string(p) + ", n = " + std::to_string(n));
      }
    }
  }
}

TEST(MeansXProductsOnePass, LosesTheSquareOfTheCondition) {
  // As documented: with mean 1e4 and spread 1 about 8 of 16 digits go, and not more.
  const Cases cases = RandomCases(3, 500, 1e4, 1.0, true, 8);
  const double condition = Condition(TwoPasses(cases, true), true);
  const QVMeansXProducts stats = OnePass(AsMatrix(cases, true), 3, true, true, false);
  ExpectAccurate(stats, cases, condition * condition, "mean 1e4");
}

TEST(MeansXProductsOnePass, FollowsTheFormulasToTheLastBit) {
  for (const int p : kOrders) {
    if (p >= kFusedOrder) continue;
    for (const bool intercept : {true, false}) {
      for (const bool weighted : {true, false}) {
        const Cases cases = RandomCases(p, 70, 3.0, 2.0, weighted, 19);
        const QVMeansXProducts stats =
            OnePass(AsMatrix(cases, weighted), p, intercept, weighted, false);
        const std::size_t q = static_cast<std::size_t>(p);
        double count = 0.0;
        std::vector<double> sums(q, 0.0), products(q * (q + 1) / 2, 0.0);
        for (std::size_t r = 0; r < cases.Size(); ++r) {
          count += cases.weights[r];
          for (std::size_t i = 0; i < q; ++i) {
            const double product = cases.weights[r] * cases.rows[r][i];
            sums[i] += product;
            for (std::size_t j = 0; j <= i; ++j) {
              products[i * (i + 1) / 2 + j] += product * cases.rows[r][j];
            }
          }
        }
        EXPECT_EQ(stats.GetNCases(), count);
        for (std::size_t i = 0; i < q; ++i) {
          const double mean = sums[i] / count;
          EXPECT_EQ(stats.GetMeans()[i], mean);
          for (std::size_t j = 0; j <= i; ++j) {
            const std::size_t at = i * (i + 1) / 2 + j;
            EXPECT_EQ(stats.GetXProds().AsVector()[at], products[at] - mean * sums[j]);
          }
        }
      }
    }
  }
}

TEST(MeansXProductsOnePass, SubtractsTheMeansWithoutInterceptToo) {
  const QVRectMatrix data = Matrix({{1.0}, {2.0}, {3.0}});
  EXPECT_EQ(OnePass(data, 1, false, false, false).GetXProds().GetElem(0), 2.0);
  EXPECT_EQ(Computed(data, 1, false, false, false).GetXProds().GetElem(0), 14.0);
}

TEST(MeansXProductsOnePass, ResultsAppearWhenFinished) {
  QVMeansXProducts stats(1, true, false, false);
  stats.AddCase({7.0}, 2.0);
  stats.StartUpdateOnePass();
  EXPECT_TRUE(stats.UpdateOnePass(Matrix({{1.0}, {3.0}}), 0));
  EXPECT_EQ(stats.GetNCases(), 2.0);
  EXPECT_EQ(stats.GetMeans()[0], 7.0);
  stats.FinishUpdateOnePass();
  EXPECT_EQ(stats.GetNCases(), 2.0);
  EXPECT_EQ(stats.GetMeans()[0], 2.0);
  EXPECT_EQ(stats.GetXProds().GetElem(0), 2.0);
}

TEST(MeansXProductsOnePass, StartsByItselfAndTakesTheFirstRows) {
  const QVRectMatrix data = AsMatrix(RandomCases(3, 100, 1.0, 1.0, true, 2), true);
  for (const int nRows : {1, 64, 99}) {
    QVMeansXProducts stats(3, true, true, false);
    EXPECT_TRUE(stats.UpdateOnePass(data, nRows));
    stats.FinishUpdateOnePass();
    EXPECT_EQ(AllValues(stats), AllValues(OnePass(FirstRows(data, nRows), 3, true, true, false)));
  }
}

TEST(MeansXProductsOnePass, PiecesContinueTheSums) {
  const Cases cases = RandomCases(3, 50, 1.0, 1.0, true, 2);
  QVMeansXProducts stats(3, true, true, false);
  EXPECT_TRUE(stats.UpdateOnePass(AsMatrix(cases.Part(0, 20), true), 0));
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats),
            AllValues(OnePass(AsMatrix(cases.Part(0, 20), true), 3, true, true, false)));
  EXPECT_TRUE(stats.UpdateOnePass(AsMatrix(cases.Part(20, 50), true), 0));
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats), AllValues(OnePass(AsMatrix(cases, true), 3, true, true, false)));
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats), AllValues(OnePass(AsMatrix(cases, true), 3, true, true, false)));
}

TEST(MeansXProductsOnePass, StartForgetsTheSums) {
  const QVRectMatrix data = AsMatrix(RandomCases(2, 10, 1.0, 1.0, false, 2), false);
  QVMeansXProducts stats(2, true, false, false);
  EXPECT_TRUE(stats.UpdateOnePass(Matrix({{100.0, 200.0}}), 0));
  stats.StartUpdateOnePass();
  EXPECT_TRUE(stats.UpdateOnePass(data, 0));
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats), AllValues(OnePass(data, 2, true, false, false)));
}

TEST(MeansXProductsOnePass, FinishWithoutCountClears) {
  QVMeansXProducts stats(2, true, false, false);
  stats.AddCase({1.0, 2.0}, 1.0);
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats), AllValues(QVMeansXProdData(2, true)));
  stats.AddCase({1.0, 2.0}, 1.0);
  EXPECT_TRUE(stats.UpdateOnePass(QVRectMatrix(0, 2, true), 0));
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats), AllValues(QVMeansXProdData(2, true)));
}

TEST(MeansXProductsOnePass, AnotherNumberOfVariablesStartsAnew) {
  QVMeansXProducts stats(1, true, false, false);
  EXPECT_TRUE(stats.UpdateOnePass(Matrix({{1.0}, {2.0}}), 0));
  EXPECT_TRUE(stats.SetNVars(2));
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats), AllValues(QVMeansXProdData(2, true)));
  const QVRectMatrix data = Matrix({{1.0, 2.0}, {3.0, 6.0}});
  EXPECT_TRUE(stats.UpdateOnePass(data, 0));
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats), AllValues(OnePass(data, 2, true, false, false)));
}

TEST(MeansXProductsOnePass, ComputeLeavesTheSumsAlone) {
  const QVRectMatrix data = Matrix({{1.0, 2.0}, {3.0, 6.0}});
  QVMeansXProducts stats(2, true, false, false);
  EXPECT_TRUE(stats.UpdateOnePass(data, 0));
  EXPECT_TRUE(stats.Compute(Matrix({{9.0, 9.0}}), 0));
  stats.Clear();
  stats.FinishUpdateOnePass();
  EXPECT_EQ(AllValues(stats), AllValues(OnePass(data, 2, true, false, false)));
}

// --- Copies, merges, display ---------------------------------------------------------------------

TEST(MeansXProducts, CopiesAreIndependent) {
  const QVRectMatrix data = AsMatrix(RandomCases(3, 10, 1.0, 1.0, false, 2), false);
  QVMeansXProducts original(3, true, false, false);
  EXPECT_TRUE(original.UpdateOnePass(data, 0));
  QVMeansXProducts copy(original), assigned;
  assigned = original;
  EXPECT_TRUE(original.UpdateOnePass(data, 5));
  original.StartUpdateOnePass();
  copy.FinishUpdateOnePass();
  assigned.FinishUpdateOnePass();
  const auto want = AllValues(OnePass(data, 3, true, false, false));
  EXPECT_EQ(AllValues(copy), want);
  EXPECT_EQ(AllValues(assigned), want);
  EXPECT_TRUE(assigned.UpdateOnePass(data, 0));  // the weight indicators came along
}

TEST(MeansXProducts, HalvesMergeToTheWhole) {
  for (const int p : kOrders) {
    const Cases cases = RandomCases(p, 101, 10.0, 1.0, true, 51);
    QVMeansXProducts whole(p, true, true, false), second(p, true, true, false);
    EXPECT_TRUE(whole.Compute(AsMatrix(cases.Part(0, 50), true), 0));
    EXPECT_TRUE(second.Compute(AsMatrix(cases.Part(50, 101), true), 0));
    EXPECT_TRUE(whole.Merge(second));
    ExpectAccurate(whole, cases, Condition(TwoPasses(cases, true), true), std::to_string(p));
  }
}

TEST(MeansXProducts, DisplayText) {
  QVMeansXProducts stats(1, false, true, false);
  stats.UpdateOnePass(Matrix({{1.0, 2.0}, {3.0, 1.0}}), 0);
  CapturedDisplay display;
  stats.Display();
  EXPECT_EQ(display.Text(),
            "\nQVMeansXProducts display start"
            "\nQVMeansXProdData display start"
            "\nNumber of variables = 1"
            "\nIntercept indicator = false"
            "\nWeighted number of cases = 0"
            "\nVector of means (size = 1)"
            "\n 0"
            "\nMatrix of cross-products:"
            "\nQVSymMatrix display start"
            "\nThe number of rows = 1"
            "\nThe number of blocks = 1"
            "\nThe block size = 1"
            "\nLower triangular (number of elements = 1, number of rows = 1)"
            "\nrow  0:  0"
            "\nQVSymMatrix display end"
            "\nQVMeansXProdData display end"
            "\nFrequency weight indicator = true"
            "\nRegression weight indicator = false"
            "\nWeighted number of cases accumulated by UpdateOnePass = 3"
            "\nWeighted sums accumulated by UpdateOnePass (size = 1)"
            "\n 5"
            "\nWeighted sums of products accumulated by UpdateOnePass (number of elements = 1, "
            "number of rows = 1)"
            "\nrow  0:  11"
            "\nQVMeansXProducts display end");
}
