#include <cmath>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "QVMeansXProdData.h"
#include "QVProvMeans.h"
#include "common/display/captured_display.h"
#include "math/accumulator/naive_statistics.h"

using QVMath_940::QVMeansXProdData;
using QVMath_940::QVProvMeans;

namespace {

constexpr int kOrders[] = {1, 2, 3, 7, 33, 129};

// Below this order every product and sum is rounded by itself, so that results can be compared with
// the formulas to the last bit.
constexpr int kFusedOrder = 64;

QVProvMeans Accumulate(const Cases & cases, bool intercept) {
  QVProvMeans stats(cases.nVars, intercept);
  for (std::size_t r = 0; r < cases.Size(); ++r) {
    EXPECT_TRUE(stats.Update(cases.rows[r], cases.weights[r]));
  }
  return stats;
}

// The formulas, step by step, on plain vectors.
struct StepByStep {
  bool intercept;
  double nCases = 0.0;
  std::vector<double> means;
  std::vector<double> xProds;

  StepByStep(int nVars, bool withIntercept)
      : intercept(withIntercept),
        means(static_cast<std::size_t>(nVars), 0.0),
        xProds(means.size() * (means.size() + 1) / 2, 0.0) {}

  void UpdateXX(const std::vector<double> & x, double f) {
    for (std::size_t i = 0; i < means.size(); ++i) {
      for (std::size_t j = 0; j <= i; ++j) {
        const double di = intercept ? x[i] - means[i] : x[i];
        const double dj = intercept ? x[j] - means[j] : x[j];
        xProds[i * (i + 1) / 2 + j] += (di * f) * dj;
      }
    }
  }
  void Add(const std::vector<double> & x, double w) {
    const double sum = nCases + w;
    UpdateXX(x, intercept ? nCases * w / sum : w);
    for (std::size_t i = 0; i < means.size(); ++i)
      means[i] += (x[i] - means[i]) * (w / sum);
    nCases = sum;
  }
  void Delete(const std::vector<double> & x, double w) {
    const double rest = nCases - w;
    for (std::size_t i = 0; i < means.size(); ++i) {
      means[i] = (nCases / rest) * means[i] - (w / rest) * x[i];
    }
    UpdateXX(x, -(intercept ? rest * w / nCases : w));
    nCases = rest;
  }
  void Merge(const StepByStep & other) {
    const double w1 = nCases, w2 = other.nCases, sum = w1 + w2;
    if (!(sum > 0.0)) return;
    std::vector<double> m(means);
    for (std::size_t j = 0; j < m.size(); ++j) {
      m[j] = means[j] + (other.means[j] - means[j]) * w2 / (w1 + w2);
    }
    for (std::size_t i = 0; i < m.size(); ++i) {
      for (std::size_t j = 0; j <= i; ++j) {
        const std::size_t at = i * (i + 1) / 2 + j;
        if (intercept) {
          xProds[at] += other.xProds[at] + (m[i] - means[i]) * w1 * (m[j] - means[j]) +
                        (m[i] - other.means[i]) * w2 * (m[j] - other.means[j]);
        } else {
          xProds[at] += other.xProds[at];
        }
      }
    }
    means = m;
    nCases = sum;
  }
};

void ExpectSameBits(const QVMeansXProdData & got, const StepByStep & want) {
  EXPECT_EQ(got.GetNCases(), want.nCases);
  EXPECT_EQ(got.GetMeans(), want.means);
  EXPECT_EQ(got.GetXProds().AsVector(), want.xProds);
}

}  // namespace

// --- Shape ---------------------------------------------------------------------------------------

TEST(MeansXProdData, StartsEmpty) {
  const QVMeansXProdData state;
  EXPECT_EQ(state.GetNVars(), 0);
  EXPECT_TRUE(state.IsIntercept());
  EXPECT_EQ(state.GetNCases(), 0.0);
  EXPECT_TRUE(state.GetMeans().empty());
  EXPECT_EQ(state.GetXProds().GetNRows(), 0);
}

TEST(MeansXProdData, TakesNumberOfVariablesAndIntercept) {
  const QVMeansXProdData state(3, false);
  EXPECT_EQ(state.GetNVars(), 3);
  EXPECT_FALSE(state.IsIntercept());
  EXPECT_EQ(state.GetMeans(), std::vector<double>(3, 0.0));
  EXPECT_EQ(state.GetXProds().AsVector(), std::vector<double>(6, 0.0));
}

TEST(MeansXProdData, NegativeNumberOfVariablesCountsAsNone) {
  EXPECT_EQ(QVMeansXProdData(-2, true).GetNVars(), 0);
}

TEST(MeansXProdData, SetNVarsRefusesNegativeAndChangesNothing) {
  QVMeansXProdData state(2, true);
  state.AddCase({1.0, 2.0}, 1.0);
  const auto before = AllValues(state);
  EXPECT_FALSE(state.SetNVars(-1));
  EXPECT_EQ(AllValues(state), before);
}

TEST(MeansXProdData, SetNVarsForgetsCasesAndKeepsIntercept) {
  QVMeansXProdData state(2, false);
  state.AddCase({1.0, 2.0}, 1.0);
  EXPECT_TRUE(state.SetNVars(3));
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(3, false)));
  state.AddCase({1.0, 2.0, 3.0}, 1.0);
  EXPECT_TRUE(state.SetNVars(3));
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(3, false)));
  EXPECT_TRUE(state.SetNVars(0));
  EXPECT_EQ(state.GetNVars(), 0);
}

TEST(MeansXProdData, ClearKeepsShape) {
  QVMeansXProdData state(2, false);
  state.AddCase({1.0, 2.0}, 1.0);
  state.Clear();
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(2, false)));
}

TEST(MeansXProdData, SetInterceptKeepsWhatIsAccumulated) {
  QVMeansXProdData state(1, true);
  state.AddCase({1.0}, 1.0);
  state.AddCase({3.0}, 1.0);
  state.SetIntercept(false);
  EXPECT_FALSE(state.IsIntercept());
  EXPECT_EQ(state.GetMeans()[0], 2.0);
  EXPECT_EQ(state.GetXProds().GetElem(0, 0), 2.0);
}

TEST(MeansXProdData, CopiesAreIndependent) {
  QVMeansXProdData original(2, true);
  original.AddCase({1.0, 2.0}, 1.0);
  original.AddCase({2.0, 5.0}, 2.0);
  const auto before = AllValues(original);

  QVMeansXProdData copy(original);
  QVMeansXProdData assigned(5, false);
  assigned = original;
  EXPECT_EQ(AllValues(copy), before);
  EXPECT_EQ(AllValues(assigned), before);
  copy.AddCase({9.0, 9.0}, 1.0);
  assigned.Clear();
  EXPECT_EQ(AllValues(original), before);
  original.AddCase({-4.0, 0.0}, 3.0);
  EXPECT_EQ(copy.GetNCases(), 4.0);
  EXPECT_EQ(assigned.GetXProds().GetElem(1, 1), 0.0);

  const QVMeansXProdData & self = original;
  const auto after = AllValues(original);
  original = self;
  EXPECT_EQ(AllValues(original), after);
}

// --- Cases in and out ----------------------------------------------------------------------------

TEST(MeansXProdData, AddAndDeleteCaseFollowTheFormulasToTheLastBit) {
  for (const int p : kOrders) {
    if (p >= kFusedOrder) continue;
    for (const bool intercept : {true, false}) {
      const Cases cases = RandomCases(p, 23, 3.0, 2.0, true, 11);
      QVMeansXProdData state(p, intercept);
      StepByStep want(p, intercept);
      for (std::size_t r = 0; r < cases.Size(); ++r) {
        state.AddCase(cases.rows[r], cases.weights[r]);
        want.Add(cases.rows[r], cases.weights[r]);
      }
      ExpectSameBits(state, want);
      for (const std::size_t r : {std::size_t{4}, std::size_t{0}, std::size_t{22}}) {
        state.DeleteCase(cases.rows[r], cases.weights[r]);
        want.Delete(cases.rows[r], cases.weights[r]);
      }
      ExpectSameBits(state, want);
    }
  }
}

TEST(MeansXProdData, AgreesWithTwoPasses) {
  for (const int p : kOrders) {
    for (const bool intercept : {true, false}) {
      for (const bool weighted : {true, false}) {
        const Cases cases = RandomCases(p, 200, 1.0, 2.0, weighted, 5);
        ExpectAccurate(Accumulate(cases, intercept), cases, 1.0, "p = " + std::to_string(p));
      }
    }
  }
}

TEST(MeansXProdData, ManyVariablesNeedNoFixedScratch) {
  for (const int p : {255, 256, 257, 300}) {
    const Cases cases = RandomCases(p, 9, 1.0, 1.0, true, 6);
    ExpectAccurate(Accumulate(cases, true), cases, 1.0, "p = " + std::to_string(p));
  }
}

TEST(MeansXProdData, LargeMeanAndSmallVariance) {
  // The deviations are exact to about epsilon x mean / spread, which is what may be lost.
  for (const double location : {1e4, 1e8, -1e12}) {
    for (const int p : {1, 3, 33, 129}) {
      const Cases cases = RandomCases(p, 500, location, 1.0, true, 8);
      const double condition = Condition(TwoPasses(cases, true), true);
      ExpectAccurate(Accumulate(cases, true), cases, condition, "p = " + std::to_string(p));
    }
  }
}

TEST(MeansXProdData, LongRunOfCasesStaysAccurate) {
  const Cases cases = RandomCases(2, 100000, 1e6, 1.0, false, 9);
  const double condition = Condition(TwoPasses(cases, true), true);
  ExpectAccurate(Accumulate(cases, true), cases, condition, "100,000 cases");
}

TEST(MeansXProdData, DeleteCaseUndoesAddCase) {
  for (const int p : kOrders) {
    for (const bool intercept : {true, false}) {
      const Cases cases = RandomCases(p, 60, 1.0, 2.0, true, 21);
      QVProvMeans stats = Accumulate(cases, intercept);
      for (std::size_t r = 40; r < 60; ++r)
        stats.DeleteCase(cases.rows[r], cases.weights[r]);
      // Taking out a third of the weight may enlarge the error by a small factor.
      ExpectAccurate(stats, cases.Part(0, 40), 4.0, "p = " + std::to_string(p));
    }
  }
}

TEST(MeansXProdData, ShortCaseChangesNothing) {
  QVMeansXProdData state(2, true);
  state.AddCase({1.0, 2.0}, 1.0);
  const auto before = AllValues(state);
  state.AddCase({5.0}, 1.0);
  state.DeleteCase({1.0}, 1.0);
  EXPECT_EQ(AllValues(state), before);
}

TEST(MeansXProdData, TotalWeightOfZeroClears) {
  QVMeansXProdData state(1, true);
  state.AddCase({4.0}, 0.0);
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(1, true)));
  state.DeleteCase({4.0}, 1.0);  // no case is there to leave
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(1, true)));
  state.AddCase({4.0}, 2.0);
  state.DeleteCase({4.0}, 2.0);
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(1, true)));
  state.AddCase({4.0}, 2.0);
  state.AddCase({4.0}, -2.0);
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(1, true)));
}

TEST(MeansXProdData, WithoutInterceptProductsAreRaw) {
  QVMeansXProdData state(2, false);
  state.AddCase({1.0, 2.0}, 1.0);
  state.AddCase({3.0, 5.0}, 2.0);
  EXPECT_EQ(state.GetXProds().AsVector(), (std::vector<double>{19.0, 32.0, 54.0}));
  EXPECT_DOUBLE_EQ(state.GetMeans()[0], 7.0 / 3.0);
  EXPECT_DOUBLE_EQ(state.GetMeans()[1], 4.0);
}

// --- QVProvMeans ---------------------------------------------------------------------------------

TEST(ProvMeans, OneTwoThreeAndBack) {
  QVProvMeans stats(1, true);
  for (const double x : {1.0, 2.0, 3.0})
    EXPECT_TRUE(stats.Update({x}, 1.0));
  EXPECT_EQ(stats.GetNCases(), 3.0);
  EXPECT_DOUBLE_EQ(stats.GetMeans()[0], 2.0);
  EXPECT_DOUBLE_EQ(stats.GetXProds().GetElem(0, 0), 2.0);
  EXPECT_TRUE(stats.Update({3.0}, -1.0));
  EXPECT_EQ(stats.GetNCases(), 2.0);
  EXPECT_DOUBLE_EQ(stats.GetMeans()[0], 1.5);
  EXPECT_DOUBLE_EQ(stats.GetXProds().GetElem(0, 0), 0.5);
}

TEST(ProvMeans, RefusesShortCasesAndNegativeTotals) {
  QVProvMeans stats(2, true);
  EXPECT_TRUE(stats.Update({1.0, 2.0}, 1.5));
  const auto before = AllValues(stats);
  EXPECT_FALSE(stats.Update({1.0}, 1.0));
  EXPECT_FALSE(stats.Update({}, 1.0));
  EXPECT_FALSE(stats.Update({1.0}, -1.5));  // short, though the total would be 0
  EXPECT_FALSE(stats.Update({1.0, 2.0}, -2.0));
  EXPECT_FALSE(stats.Update({1.0, 2.0}, QVCommon_940::QVMV::Missing()));
  EXPECT_EQ(AllValues(stats), before);
}

TEST(ProvMeans, ReadsTheFirstValuesOfALongerCase) {
  QVProvMeans stats(1, true);
  EXPECT_TRUE(stats.Update({1.0, 100.0}, 1.0));
  EXPECT_EQ(stats.GetMeans(), std::vector<double>{1.0});
}

TEST(ProvMeans, TotalOfExactlyZeroClears) {
  QVProvMeans stats(2, false);
  EXPECT_TRUE(stats.Update({1.0, 2.0}, 1.5));
  EXPECT_TRUE(stats.Update({7.0, 8.0}, -1.5));  // another case: only the weight counts
  EXPECT_EQ(AllValues(stats), AllValues(QVProvMeans(2, false)));
  EXPECT_TRUE(stats.Update({7.0, 8.0}, 0.0));
  EXPECT_EQ(AllValues(stats), AllValues(QVProvMeans(2, false)));
}

TEST(ProvMeans, WeightOfZeroChangesNothing) {
  QVProvMeans stats(1, true);
  EXPECT_TRUE(stats.Update({1.0}, 2.0));
  const auto before = AllValues(stats);
  EXPECT_TRUE(stats.Update({5.0}, 0.0));
  EXPECT_TRUE(stats.Update({5.0}, std::numeric_limits<double>::quiet_NaN()));
  EXPECT_EQ(AllValues(stats), before);
}

TEST(ProvMeans, NegativeWeightIsDeleteCase) {
  const Cases cases = RandomCases(3, 10, 2.0, 1.0, true, 4);
  QVProvMeans updated = Accumulate(cases, true);
  QVProvMeans deleted = updated;
  EXPECT_TRUE(updated.Update(cases.rows[3], -cases.weights[3]));
  deleted.DeleteCase(cases.rows[3], cases.weights[3]);
  EXPECT_EQ(AllValues(updated), AllValues(deleted));
}

TEST(ProvMeans, WithoutVariablesCountsWeights) {
  QVProvMeans stats;
  EXPECT_TRUE(stats.Update({}, 2.0));
  EXPECT_EQ(stats.GetNCases(), 2.0);
  EXPECT_FALSE(stats.Update({}, -3.0));
}

// --- Merge ---------------------------------------------------------------------------------------

TEST(MeansXProdDataMerge, FollowsTheFormulasToTheLastBit) {
  for (const int p : kOrders) {
    for (const bool intercept : {true, false}) {
      const Cases cases = RandomCases(p, 30, 3.0, 2.0, true, 31);
      QVMeansXProdData parts[2] = {{p, intercept}, {p, intercept}};
      StepByStep wanted[2] = {{p, intercept}, {p, intercept}};
      for (std::size_t r = 0; r < cases.Size(); ++r) {
        parts[r % 3 == 0].AddCase(cases.rows[r], cases.weights[r]);
      }
      for (int k : {0, 1}) {
        wanted[k].nCases = parts[k].GetNCases();
        wanted[k].means = parts[k].GetMeans();
        wanted[k].xProds = parts[k].GetXProds().AsVector();
      }
      EXPECT_TRUE(parts[0].Merge(parts[1]));
      wanted[0].Merge(wanted[1]);
      ExpectSameBits(parts[0], wanted[0]);
      ExpectSameBits(parts[1], wanted[1]);
    }
  }
}

TEST(MeansXProdDataMerge, RandomSplitsAgreeWithOnePass) {
  std::mt19937 generator(77);
  for (const int p : kOrders) {
    for (const bool intercept : {true, false}) {
      for (const double location : {0.0, 1e7}) {
        const Cases cases = RandomCases(p, 150, location, 1.0, true, 41);
        std::uniform_int_distribution<std::size_t> anyCase(0, cases.Size());
        std::vector<std::size_t> cuts = {0, cases.Size()};
        for (int k = 0; k < 4; ++k)
          cuts.push_back(anyCase(generator));
        std::sort(cuts.begin(), cuts.end());
        QVMeansXProdData whole;
        for (std::size_t k = 0; k + 1 < cuts.size(); ++k) {
          EXPECT_TRUE(whole.Merge(Accumulate(cases.Part(cuts[k], cuts[k + 1]), intercept)));
        }
        const double condition = Condition(TwoPasses(cases, true), intercept);
        ExpectAccurate(whole, cases, condition, "p = " + std::to_string(p));
      }
    }
  }
}

TEST(MeansXProdDataMerge, EmptyObjectTakesShape) {
  QVProvMeans other(2, false);
  other.Update({1.0, 2.0}, 4.0);
  QVMeansXProdData state;
  EXPECT_TRUE(state.Merge(other));
  EXPECT_EQ(AllValues(state), AllValues(other));

  QVMeansXProdData shapeOnly;
  EXPECT_TRUE(shapeOnly.Merge(QVMeansXProdData(3, false)));
  EXPECT_EQ(AllValues(shapeOnly), AllValues(QVMeansXProdData(3, false)));
}

TEST(MeansXProdDataMerge, RefusesOtherShapes) {
  QVMeansXProdData state(2, true);
  state.AddCase({1.0, 2.0}, 1.0);
  const auto before = AllValues(state);
  QVMeansXProdData fewer(1, true), raw(2, false);
  fewer.AddCase({1.0}, 1.0);
  raw.AddCase({1.0, 2.0}, 1.0);
  EXPECT_FALSE(state.Merge(fewer));
  EXPECT_FALSE(state.Merge(raw));
  EXPECT_FALSE(state.Merge(QVMeansXProdData()));
  EXPECT_EQ(AllValues(state), before);
}

TEST(MeansXProdDataMerge, NoWeightOnEitherSideAddsNothing) {
  QVMeansXProdData state(2, true);
  EXPECT_TRUE(state.Merge(QVMeansXProdData(2, true)));
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(2, true)));
}

TEST(MeansXProdDataMerge, EmptyOtherChangesNothing) {
  QVMeansXProdData state(2, true);
  state.AddCase({1.0, 2.0}, 1.0);
  state.AddCase({3.0, 7.0}, 0.5);
  const auto before = AllValues(state);
  EXPECT_TRUE(state.Merge(QVMeansXProdData(2, true)));
  EXPECT_EQ(AllValues(state), before);
}

TEST(MeansXProdDataMerge, WithItselfDoublesTheCases) {
  const Cases cases = RandomCases(3, 20, 5.0, 1.0, true, 3);
  QVProvMeans state = Accumulate(cases, true);
  const QVProvMeans once = state;
  EXPECT_TRUE(state.Merge(state));
  EXPECT_EQ(state.GetNCases(), 2.0 * once.GetNCases());
  EXPECT_EQ(state.GetMeans(), once.GetMeans());
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(state.GetXProds().GetElem(i), 2.0 * once.GetXProds().GetElem(i));
  }
}

TEST(MeansXProdDataMerge, ListSkipsNullEntries) {
  const Cases cases = RandomCases(2, 30, 1.0, 1.0, true, 13);
  QVProvMeans a = Accumulate(cases.Part(0, 10), true), b = Accumulate(cases.Part(10, 30), true);
  QVMeansXProdData oneByOne;
  oneByOne.Merge(a);
  oneByOne.Merge(b);

  QVMeansXProdData fromConst, fromOther;
  EXPECT_TRUE(fromConst.Merge(std::vector<const QVMeansXProdData *>{nullptr, &a, nullptr, &b}));
  EXPECT_TRUE(fromOther.Merge(std::vector<QVMeansXProdData *>{&a, &b, nullptr}));
  EXPECT_EQ(AllValues(fromConst), AllValues(oneByOne));
  EXPECT_EQ(AllValues(fromOther), AllValues(oneByOne));
}

TEST(MeansXProdDataMerge, ListWithoutEntryIsRefused) {
  QVMeansXProdData state(2, true);
  EXPECT_FALSE(state.Merge(std::vector<QVMeansXProdData *>{}));
  EXPECT_FALSE(state.Merge(std::vector<const QVMeansXProdData *>{nullptr, nullptr}));
  EXPECT_EQ(AllValues(state), AllValues(QVMeansXProdData(2, true)));
}

TEST(MeansXProdDataMerge, ListTakesShapeOfItsFirstEntry) {
  QVMeansXProdData raw(2, false), state;
  raw.AddCase({1.0, 2.0}, 1.0);
  EXPECT_TRUE(state.Merge(std::vector<QVMeansXProdData *>{nullptr, &raw}));
  EXPECT_EQ(AllValues(state), AllValues(raw));
  QVMeansXProdData three(3, false);
  EXPECT_FALSE(three.Merge(std::vector<QVMeansXProdData *>{&raw}));
  EXPECT_EQ(AllValues(three), AllValues(QVMeansXProdData(3, false)));
}

TEST(MeansXProdDataMerge, ListEndsAtTheFirstEntryThatDoesNotFit) {
  QVMeansXProdData good(1, true), other(2, true), last(1, true), state;
  good.AddCase({1.0}, 1.0);
  other.AddCase({1.0, 2.0}, 1.0);
  last.AddCase({5.0}, 1.0);
  EXPECT_FALSE(state.Merge(std::vector<QVMeansXProdData *>{&good, &other, &last}));
  EXPECT_EQ(AllValues(state), AllValues(good));
}

// --- Display -------------------------------------------------------------------------------------

TEST(MeansXProdData, DisplayText) {
  QVProvMeans stats(2, true);
  stats.Update({1.0, 2.0}, 1.0);
  stats.Update({3.0, 5.0}, 1.0);
  CapturedDisplay display;
  stats.Display();
  EXPECT_EQ(display.Text(),
            "\nQVMeansXProdData display start"
            "\nNumber of variables = 2"
            "\nIntercept indicator = true"
            "\nWeighted number of cases = 2"
            "\nVector of means (size = 2)"
            "\n 2 3.5"
            "\nMatrix of cross-products:"
            "\nQVSymMatrix display start"
            "\nThe number of rows = 2"
            "\nThe number of blocks = 1"
            "\nThe block size = 2"
            "\nLower triangular (number of elements = 3, number of rows = 2)"
            "\nrow  0:  2"
            "\nrow  1:  3 4.5"
            "\nQVSymMatrix display end"
            "\nQVMeansXProdData display end");
}

TEST(MeansXProdData, IsPolymorphic) {
  static_assert(std::has_virtual_destructor_v<QVMeansXProdData>);
  static_assert(std::is_base_of_v<QVMeansXProdData, QVProvMeans>);
  static_assert(sizeof(QVProvMeans) == sizeof(QVMeansXProdData));
  SUCCEED();
}
