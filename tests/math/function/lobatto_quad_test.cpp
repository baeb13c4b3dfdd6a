#include <climits>
#include <cmath>
#include <ctime>
#include <functional>
#include <limits>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "BoundsList.h"
#include "IIntegrand.h"
#include "LobattoQuad.h"
#include "QVDisplay.h"
#include "QVMV.h"

using QVCommon_940::QVMV;
using QVMath_940::BoundsList;
using QVMath_940::IIntegrand;
using QVMath_940::INumIntegration;
using QVMath_940::LobattoQuad;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class Function : public IIntegrand {
 public:
  explicit Function(std::function<double(double)> f) : fF(std::move(f)) {}
  double Evaluate(double x) override {
    points.push_back(x);
    return fF(x);
  }
  std::vector<double> points;

 private:
  std::function<double(double)> fF;
};

LobattoQuad Untrimmed(IIntegrand * f) {
  LobattoQuad quad(f);
  quad.SetAdjustLeft(false);
  quad.SetAdjustRight(false);
  return quad;
}

std::vector<long> Codes(const LobattoQuad & quad) {
  std::vector<long> codes;
  for (const auto & warning : quad.GetWarnings().GetWarnings(true)) {
    EXPECT_TRUE(warning.IsWarning());
    codes.push_back(warning.GetErrorCode());
  }
  return codes;
}

using Codes_ = std::vector<long>;

}  // namespace

TEST(IntegrandBase, CloneGivesNullUnlessOverridden) {
  Function f([](double) { return 1.0; });
  EXPECT_EQ(f.Clone(), nullptr);
}

TEST(LobattoRule, EvaluatesFiveNodesFromLeftToRight) {
  Function f([](double) { return 1.0; });
  LobattoQuad quad(&f);
  EXPECT_DOUBLE_EQ(quad.SumUp(2.0, 4.0), 2.0);
  const double g = std::sqrt(0.10714285714285714);
  EXPECT_EQ(f.points,
            (std::vector<double>{2.0, 2.0 + (0.5 - g) * 2.0, 3.0, 2.0 + (0.5 + g) * 2.0, 4.0}));
}

TEST(LobattoRule, IsExactToDegreeSeven) {
  Function seven([](double x) { return std::pow(x, 7.0); });
  EXPECT_NEAR(LobattoQuad(&seven).SumUp(0.0, 1.0), 1.0 / 8.0, 1e-15);
  Function eight([](double x) { return std::pow(x, 8.0); });
  EXPECT_GT(std::fabs(LobattoQuad(&eight).SumUp(0.0, 1.0) - 1.0 / 9.0), 1e-6);
}

TEST(LobattoRule, EmptyAndMissing) {
  Function f([](double x) { return x > 2.9 ? QVMV::Missing() : 1.0; });
  LobattoQuad quad(&f);
  EXPECT_EQ(quad.SumUp(2.0, 2.0), 0.0);
  EXPECT_EQ(quad.SumUp(3.0, 2.0), 0.0);
  EXPECT_TRUE(f.points.empty());
  EXPECT_TRUE(QVMV::IsMissing(quad.SumUp(2.0, 4.0)));
  EXPECT_EQ(f.points.size(), 3u);  // the first missing value ends it
}

TEST(PanelList, SplitsAndRemovesAtTheFront) {
  Function f([](double x) { return x; });
  LobattoQuad quad(&f);
  BoundsList panels(&quad);
  EXPECT_EQ(panels.Split(), 0);
  EXPECT_EQ(panels.Remove(), 0);
  EXPECT_EQ(panels.GetFirstLeft(), 0.0);
  panels.Initialize(2.0, 6.0);
  EXPECT_EQ(panels.GetFirstLeft(), 2.0);
  EXPECT_EQ(panels.Split(), 2);
  EXPECT_EQ(panels.Split(), 3);
  double i0 = 9.0;
  double i1 = 9.0;
  panels.ComputeI0andI1(i0, i1);
  EXPECT_DOUBLE_EQ(i0, 2.5);  // x from 2 to 3
  EXPECT_DOUBLE_EQ(i1, 2.5);
  EXPECT_EQ(panels.Remove(), 2);
  EXPECT_EQ(panels.GetFirstLeft(), 3.0);
  EXPECT_EQ(panels.Remove(), 1);
  EXPECT_EQ(panels.GetFirstLeft(), 4.0);
  EXPECT_EQ(panels.Remove(), 0);
  panels.ComputeI0andI1(i0, i1);
  EXPECT_EQ(i0, 0.0);
  EXPECT_EQ(i1, 0.0);
}

TEST(PanelList, WithoutAnIntegratorTheSumsAreZero) {
  BoundsList panels(nullptr);
  panels.Initialize(0.0, 1.0);
  double i0 = 9.0;
  double i1 = 9.0;
  panels.ComputeI0andI1(i0, i1);
  EXPECT_EQ(i0, 0.0);
  EXPECT_EQ(i1, 0.0);
}

TEST(PanelList, EitherHalfMakesTheSumMissing) {
  for (double hole : {0.25, 0.75}) {
    Function f([hole](double x) { return x == hole ? QVMV::Missing() : 1.0; });
    LobattoQuad quad(&f);
    BoundsList panels(&quad);
    panels.Initialize(0.0, 1.0);
    double i0 = 9.0;
    double i1 = 9.0;
    panels.ComputeI0andI1(i0, i1);
    EXPECT_DOUBLE_EQ(i0, 1.0);
    EXPECT_TRUE(QVMV::IsMissing(i1)) << hole;
  }
}

TEST(PanelList, DisplayGoesToTheGivenStream) {
  BoundsList panels(nullptr);
  panels.Initialize(0.0, 1.0);
  panels.Split();
  std::ostringstream before;
  std::ostringstream text;
  std::ostream * standard = QVDisplay_940::GetOutStream();
  QVDisplay_940::SetOutStream(before);
  panels.Display(text);
  EXPECT_EQ(QVDisplay_940::GetOutStream(), &before);
  QVDisplay_940::SetOutStream(*standard);
  EXPECT_EQ(before.str(), "");
  EXPECT_EQ(text.str(),
            "\nBoundsList display start\nSize of the list = 2\nList index = 0\nLeft boundary = 0\n"
            "Right boundary = 0.5\nList index = 1\nLeft boundary = 0.5\nRight boundary = 1\n"
            "BoundsList display end");
}

TEST(Lobatto, NullIntegrandGivesZeroWithoutWarning) {
  LobattoQuad quad(nullptr);
  EXPECT_EQ(quad.Integrate(0.0, 1.0), 0.0);
  EXPECT_TRUE(Codes(quad).empty());
}

TEST(Lobatto, EmptyRangeGivesZero) {
  Function f([](double) { return 1.0; });
  LobattoQuad quad(&f);
  EXPECT_EQ(quad.Integrate(1.0, 1.0), 0.0);
  EXPECT_EQ(quad.Integrate(2.0, 1.0), 0.0);
  EXPECT_TRUE(Codes(quad).empty());
}

TEST(Lobatto, ConstantTakesOnePanel) {
  Function f([](double) { return 1.0; });
  LobattoQuad quad = Untrimmed(&f);
  EXPECT_NEAR(quad.Integrate(0.0, 2.0), 2.0, 1e-15);
  EXPECT_EQ(quad.GetNIterations(), 1);
}

TEST(Lobatto, MissingAtThePivotFailsBeforeAnyPanel) {
  Function f([](double x) { return x == 1.0 ? QVMV::Missing() : 1.0; });
  LobattoQuad quad(&f);
  EXPECT_TRUE(QVMV::IsMissing(quad.Integrate(0.0, 3.0)));
  EXPECT_EQ(Codes(quad), Codes_{902});
  EXPECT_EQ(f.points.size(), 2u);
  // Again: the warning is there once. An empty range fails just as well.
  EXPECT_TRUE(QVMV::IsMissing(quad.Integrate(3.0, 0.0)));
  EXPECT_EQ(Codes(quad), Codes_{902});
}

TEST(Lobatto, MissingInsideFails) {
  Function f([](double x) { return x > 0.4 && x < 0.6 ? QVMV::Missing() : 1.0; });
  LobattoQuad quad = Untrimmed(&f);
  EXPECT_TRUE(QVMV::IsMissing(quad.Integrate(0.0, 1.0)));
  EXPECT_EQ(Codes(quad), Codes_{902});
}

TEST(Lobatto, ClosenessDropsTheRestSilently) {
  // Halving [0, 1] once is enough: the left half is accepted and the right one dropped.
  Function f([](double x) { return x < 0.5 ? 1.0 : 3.0; });
  LobattoQuad quad = Untrimmed(&f);
  quad.SetCloseness(0.5);
  quad.SetAbsConvergence(true);
  quad.SetTolerance(0.2);
  EXPECT_LT(quad.Integrate(0.0, 1.0), 0.7);
  EXPECT_TRUE(Codes(quad).empty());
}

TEST(Lobatto, IterationsThatRunOutAddTheRestAndAWarning) {
  Function f([](double x) { return std::sqrt(std::fabs(x)); });
  LobattoQuad quad = Untrimmed(&f);
  quad.SetMaxIter(1);
  EXPECT_NEAR(quad.Integrate(0.0, 1.0), 2.0 / 3.0, 0.01);
  EXPECT_EQ(Codes(quad), Codes_{901});
  EXPECT_EQ(quad.GetNIterations(), 1);
}

TEST(Lobatto, IterationsThatEndWithTheRangeAddNothing) {
  Function f([](double) { return 1.0; });
  LobattoQuad quad = Untrimmed(&f);
  quad.SetMaxIter(1);
  EXPECT_NEAR(quad.Integrate(0.0, 2.0), 2.0, 1e-15);
  EXPECT_TRUE(Codes(quad).empty());
}

TEST(Lobatto, TrimsBothEnds) {
  Function f([](double x) { return std::exp(-x * x); });
  LobattoQuad quad(&f);
  quad.SetBoundaryAdjustmentPivot(0.0);
  quad.SetTolerance(1e-12);
  quad.SetCloseness(1e-300);
  EXPECT_NEAR(quad.Integrate(-1e6, 1e6), std::sqrt(std::acos(-1.0)), 1e-10);
  // Pivot, end, then the halved distances; the pivot again, the other end ...
  EXPECT_EQ(f.points[0], 0.0);
  EXPECT_EQ(f.points[1], 1e6);
  EXPECT_EQ(f.points[2], 5e5);
}

TEST(Lobatto, AZeroAtThePivotTrimsNothing) {
  Function f([](double x) { return x == 0.0 ? 0.0 : std::exp(-x * x); });
  LobattoQuad quad(&f);
  quad.SetBoundaryAdjustmentPivot(0.0);
  quad.Integrate(-100.0, 100.0);
  EXPECT_EQ((std::vector<double>{f.points.begin(), f.points.begin() + 5}),
            (std::vector<double>{0.0, 100.0, 0.0, -100.0, -100.0}));
}

TEST(Lobatto, SettersTakePositiveValuesOnly) {
  Function f([](double x) { return std::exp(x); });
  LobattoQuad quad(&f);
  for (double bad : {0.0, -1.0, kNaN}) {
    quad.SetTolerance(bad);
    quad.SetCloseness(bad);
  }
  quad.SetMaxIter(0);
  quad.SetMaxSplits(-1);
  std::ostringstream text;
  quad.Display(text);
  EXPECT_EQ(text.str(),
            "\nLobattoQuad display start\nTolerance = 1e-06\n"
            "Check for absolute convergence indicator = false\n"
            "Maximum number of iterations (in outer loop) = 2000\n"
            "Number of performed iterations = 0\n"
            "Maximum number of splits (in inner loop) = 100\nCloseness ratio = 0.01\n"
            "LobattoQuad display end");
}

TEST(Lobatto, HostileFunctionsBoundsAndCoefficientsEndInTime) {
  const std::vector<std::function<double(double)>> functions{
      [](double) { return kNaN; },
      [](double) { return kInfinity; },
      [](double x) { return x < 0.5 ? kInfinity : -kInfinity; },
      [](double) { return QVMV::Missing(); },
      [](double x) { return x > 0.3 ? QVMV::Missing() : x; },
      [](double x) { return x > 0.3 ? kNaN : x; },
      [](double x) { return 1.0 / x; },
      [](double x) { return std::sin(1e9 * x); },
      [](double) { return 1e308; },
      [](double) { return 1.0; },
      [](double x) { return std::exp(-x * x); },
  };
  const std::vector<double> bounds{kNaN,   -kInfinity, kInfinity, QVMV::Missing(), -QVMV::Missing(),
                                   -1e300, -1.0,       0.0,       5e-324,          1.0,
                                   1e6};
  for (const auto & function : functions) {
    for (double left : bounds) {
      for (double right : bounds) {
        for (double coef : {1e-12, 1.0, 2.0, kInfinity, kNaN}) {
          Function f(function);
          LobattoQuad quad(&f);
          quad.SetBoundaryAdjustmentCoef(coef);
          quad.SetBoundaryAdjustmentPivot(left < 0.0 ? 0.0 : 1.0);
          quad.SetMaxIter(50);
          quad.SetMaxSplits(INT_MAX);
          const std::clock_t before = std::clock();
          const double result = quad.Integrate(left, right);
          EXPECT_LT(static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC, 5.0);
          EXPECT_FALSE(std::isnan(result)) << left << " " << right;
        }
      }
    }
  }
}
